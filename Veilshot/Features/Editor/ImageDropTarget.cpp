#include "Veilshot/Features/Editor/ImageDropTarget.h"

#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/ItemProvider.h"

#include <QMimeData>
#include <algorithm>

namespace Veilshot {

namespace {

/// As far as can be told before the drop.
bool mayHoldPicture(const QMimeData& data) {
    return data.hasImage() || std::ranges::any_of(data.formats(), ImageDecoder::isPictureType) ||
           std::ranges::any_of(data.urls(), &QUrl::isLocalFile);
}

/// A copy, whatever else the other program offers: to accept a move would let it delete its file.
void accept(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace

ImageDropTarget::ImageDropTarget(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemAcceptsDrops);
}

void ImageDropTarget::dragEnterEvent(QDragEnterEvent* event) {
    setTargeted(mayHoldPicture(*event->mimeData()));
    if (m_isTargeted)
        accept(event);
    else
        event->ignore();
}

void ImageDropTarget::dragMoveEvent(QDragMoveEvent* event) {
    if (m_isTargeted)
        accept(event);
    else
        event->ignore();
}

void ImageDropTarget::dragLeaveEvent(QDragLeaveEvent*) {
    setTargeted(false);
}

void ImageDropTarget::dropEvent(QDropEvent* event) {
    setTargeted(false);
    if (m_store && m_store->load(itemProviders(*event->mimeData()), {}))
        accept(event);
    else
        event->ignore();
}

void ImageDropTarget::setTargeted(bool isTargeted) {
    if (isTargeted == m_isTargeted)
        return;
    m_isTargeted = isTargeted;
    Q_EMIT isTargetedChanged();
}

} // namespace Veilshot
