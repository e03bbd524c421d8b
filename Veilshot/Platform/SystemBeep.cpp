#include "Veilshot/Platform/SystemBeep.h"

#include <QApplication>

void Veilshot::systemBeep() {
    QApplication::beep();
}
