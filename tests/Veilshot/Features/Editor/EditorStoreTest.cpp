#include "Veilshot/Features/Editor/EditorStore.h"
