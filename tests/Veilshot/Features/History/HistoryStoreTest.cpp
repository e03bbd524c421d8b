#include "Veilshot/Features/History/HistoryStore.h"
