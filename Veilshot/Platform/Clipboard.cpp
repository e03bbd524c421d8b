#include "Veilshot/Platform/Clipboard.h"

#include "Veilshot/Platform/OfferedImage.h"

#include <QClipboard>
#include <QGuiApplication>

namespace Veilshot {

const QMimeData* SystemClipboard::contents() const {
    return QGuiApplication::clipboard()->mimeData();
}

bool SystemClipboard::write(const QImage& bitmap) {
    if (bitmap.isNull())
        return false;
    // Not emptied first: replacing is one step, and a clipboard manager would put the old contents back in
    // between.
    auto* offered = new OfferedImage(bitmap);
    QGuiApplication::clipboard()->setMimeData(offered);
    // Qt reports no failure. Asked again, it tells whose data an X server would hand out, and on Wayland
    // whether there was a seat at all.
    return QGuiApplication::clipboard()->mimeData() == offered;
}

} // namespace Veilshot
