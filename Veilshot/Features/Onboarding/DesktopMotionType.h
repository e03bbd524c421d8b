#pragma once

#include "Veilshot/Platform/DesktopMotion.h"

#include <QtQmlIntegration>

namespace Veilshot {

/// Makes the type known to the views.
struct DesktopMotionType {
    Q_GADGET
    QML_FOREIGN(DesktopMotion)
    QML_NAMED_ELEMENT(DesktopMotion)
    QML_UNCREATABLE("The desktop has one setting.")
};

} // namespace Veilshot
