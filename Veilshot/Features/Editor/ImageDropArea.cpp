#include "Veilshot/Features/Editor/ImageDropArea.h"

#include "Veilshot/Platform/ImageDecoder.h"

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

ImageDropArea::ImageDropArea(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemAcceptsDrops);
}

void ImageDropArea::dragEnterEvent(QDragEnterEvent* event) {
    setTargeted(mayHoldPicture(*event->mimeData()));
    if (m_isTargeted)
        accept(event);
    else
        event->ignore();
}

void ImageDropArea::dragMoveEvent(QDragMoveEvent* event) {
    if (m_isTargeted)
        accept(event);
    else
        event->ignore();
}

void ImageDropArea::dragLeaveEvent(QDragLeaveEvent*) {
    setTargeted(false);
}

void ImageDropArea::dropEvent(QDropEvent* event) {
    setTargeted(false);
    if (drop(itemProviders(*event->mimeData())))
        accept(event);
    else
        event->ignore();
}

void ImageDropArea::setTargeted(bool isTargeted) {
    if (isTargeted == m_isTargeted)
        return;
    m_isTargeted = isTargeted;
    Q_EMIT isTargetedChanged();
}

} // namespace Veilshot
