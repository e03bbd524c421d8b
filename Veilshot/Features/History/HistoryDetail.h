#pragma once

#include "Veilshot/Features/History/HistoryActions.h"
#include "Veilshot/Features/History/HistoryStore.h"

#include <QPointer>
#include <QtQmlIntegration>

namespace Veilshot {

/// What the sheet of one copy shows. Lives as long as the sheet.
class HistoryDetail : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::HistoryStore* history MEMBER m_history WRITE setHistory NOTIFY entryChanged REQUIRED)
    Q_PROPERTY(
        Veilshot::HistoryActions* actions MEMBER m_actions WRITE setActions NOTIFY actionsChanged REQUIRED)
    Q_PROPERTY(Veilshot::HistoryEntry entry MEMBER m_entry WRITE setEntry NOTIFY entryChanged REQUIRED)
    Q_PROPERTY(QString dateText READ dateText NOTIFY entryChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY entryChanged)
    Q_PROPERTY(QUrl imageURL READ imageURL NOTIFY entryChanged)
    /// True for 1.5 seconds after a copy of the entry.
    Q_PROPERTY(bool didCopy READ didCopy NOTIFY didCopyChanged)

public:
    using QObject::QObject;

    void setHistory(HistoryStore* history);
    void setActions(HistoryActions* actions);
    void setEntry(const HistoryEntry& entry);

    QString dateText() const;
    QString summary() const;
    QUrl imageURL() const;
    bool didCopy() const { return m_didCopy; }
    /// How high the image is where it may be that wide, or as high as its pixels if it is narrower.
    Q_INVOKABLE double imageHeight(double width) const;

Q_SIGNALS:
    void actionsChanged();
    void entryChanged();
    void didCopyChanged();

private:
    void setDidCopy(bool didCopy);

    QPointer<HistoryStore> m_history;
    QPointer<HistoryActions> m_actions;
    HistoryEntry m_entry;
    bool m_didCopy = false;
};

} // namespace Veilshot
