#include "Veilshot/Features/QuickPaste/QuickPasteSession.h"

#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/ImageTransfer.h"

#include <QPointer>
#include <utility>

using namespace Qt::StringLiterals;

namespace Veilshot {

QuickPasteSession::QuickPasteSession(Collaborators collaborators, QObject* parent)
    : QObject(parent), m_collaborators(std::move(collaborators)) {}

void QuickPasteSession::setDropTargeted(bool isTargeted) {
    if (std::exchange(m_isDropTargeted, isTargeted) != isTargeted)
        Q_EMIT isDropTargetedChanged();
}

void QuickPasteSession::setShown(bool isShown) {
    if (std::exchange(m_isShown, isShown) != isShown)
        Q_EMIT isShownChanged();
}

void QuickPasteSession::setErrorMessage(const QString& message) {
    if (std::exchange(m_errorMessage, message) != message)
        Q_EMIT errorMessageChanged();
}

void QuickPasteSession::reset() {
    setErrorMessage({});
    setDropTargeted(false);
    setShown(false);
}

void QuickPasteSession::paste() {
    whenDone(ImageTransfer::imageFromPasteboard(m_collaborators.clipboard), this,
             [this, request = makeRequest()](const std::optional<QImage>& image) {
                 if (!isCurrent(request))
                     return;
                 if (image)
                     show(*image, request);
                 else
                     fail(u"The clipboard doesn’t contain an image yet."_s);
             });
}

void QuickPasteSession::openImage() {
    // Not from within the view's handler, which would then last as long as the file panel.
    if (!std::exchange(m_isChoosingFile, true))
        QMetaObject::invokeMethod(this, &QuickPasteSession::chooseFile, Qt::QueuedConnection);
}

void QuickPasteSession::chooseFile() {
    const QPointer self(this);
    const auto url = m_collaborators.filePanel.chooseImage(u"Open Screenshot"_s);
    if (!self)
        return;
    m_isChoosingFile = false;
    Q_EMIT usedFromElsewhere();
    if (!url)
        return;
    m_request = 0;
    m_collaborators.store.load(*url);
    Q_EMIT completed();
}

bool QuickPasteSession::drop(const ItemProviders& items) {
    Q_EMIT usedFromElsewhere();
    const Request request = makeRequest();
    const auto receive = [self = QPointer(this), request](const ImageTransfer::LoadedItem& item) {
        if (!self || !self->isCurrent(request))
            return;
        if (const auto* error = std::get_if<QString>(&item))
            self->m_collaborators.store.setErrorMessage(*error);
        else
            self->show(std::get<QImage>(item), request);
    };
    const bool isAccepted = ImageTransfer::load(items, receive);
    if (!isAccepted)
        fail(u"That item isn’t a readable image."_s);
    return isAccepted;
}

void QuickPasteSession::cancel() {
    m_request = 0;
    Q_EMIT cancelled();
}

void QuickPasteSession::show(const QImage& bitmap, Request request) {
    m_request = 0;
    if (m_collaborators.store.load(bitmap, request))
        Q_EMIT completed();
}

void QuickPasteSession::fail(const QString& message) {
    setErrorMessage(message);
    m_collaborators.beep();
}

} // namespace Veilshot
