#include "Veilshot/Features/QuickPaste/PanelPlacement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace Veilshot {

QPoint PanelPlacement::origin(const QRect& usableArea, QSize panel) {
    constexpr int aboveBottom = 72;
    return {usableArea.x() + (usableArea.width() - panel.width()) / 2,
            usableArea.y() + usableArea.height() - aboveBottom - panel.height()};
}

QScreen* PanelPlacement::screen() {
    if (const QWindow* const focused = QGuiApplication::focusWindow())
        return focused->screen();
    QScreen* const pointed = QGuiApplication::screenAt(QCursor::pos());
    return pointed ? pointed : QGuiApplication::primaryScreen();
}

} // namespace Veilshot
