#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QScreen;

namespace Veilshot {

/// Where the panel opens. Device-independent pixels, origin at the top left, y growing downward.
namespace PanelPlacement {

/// The panel's top left corner: in the middle, 72 above the bottom of the part of the screen that docks and
/// bars leave free.
QPoint origin(const QRect& usableArea, QSize panel);

/// The screen that the keyboard is on; if another application has that, the one that the pointer is on. Null
/// without screens.
QScreen* screen();

} // namespace PanelPlacement

} // namespace Veilshot
