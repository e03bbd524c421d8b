#pragma once

#include "Veilshot/Features/Editor/ImageDropArea.h"
#include "Veilshot/Features/QuickPaste/QuickPasteSession.h"

#include <QPointer>
#include <QtQmlIntegration>

namespace Veilshot {

/// Hands what is dropped to the panel's session.
class QuickPasteDropTarget : public ImageDropArea {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::QuickPasteSession* session MEMBER m_session NOTIFY sessionChanged REQUIRED)

public:
    using ImageDropArea::ImageDropArea;

Q_SIGNALS:
    void sessionChanged();

private:
    bool drop(const ItemProviders& items) override { return m_session && m_session->drop(items); }

    QPointer<QuickPasteSession> m_session;
};

} // namespace Veilshot
