#pragma once

#include <QQuickItem>

namespace Veilshot {

/// A row of a list that assistive tools see as one element, whatever is in it, with one action of its own
/// name, which QML's Accessible cannot have. Return and Space do the same where the item has the focus. It
/// only becomes an element with `Accessible.role: Accessible.ListItem`; what it says is here.
class SingleActionItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// What the element is called aloud.
    Q_PROPERTY(QString label MEMBER m_label NOTIFY labelChanged REQUIRED)
    Q_PROPERTY(QString actionName MEMBER m_actionName NOTIFY actionChanged REQUIRED)
    Q_PROPERTY(QString actionDescription MEMBER m_actionDescription NOTIFY actionChanged REQUIRED)

public:
    explicit SingleActionItem(QQuickItem* parent = nullptr);

    const QString& label() const { return m_label; }
    const QString& actionName() const { return m_actionName; }
    const QString& actionDescription() const { return m_actionDescription; }

Q_SIGNALS:
    /// By an assistive tool or the keyboard.
    void actionTriggered();
    void labelChanged();
    void actionChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_label;
    QString m_actionName;
    QString m_actionDescription;
};

} // namespace Veilshot
