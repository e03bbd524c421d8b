#include "Veilshot/DesignSystem/SingleActionItem.h"

#include <QAccessibleActionInterface>
#include <QAccessibleObject>
#include <QKeyEvent>
#include <QQuickWindow>

namespace Veilshot {

namespace {

class Element : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit Element(SingleActionItem* item) : QAccessibleObject(item) {}

    QAccessibleInterface* parent() const override {
        // Items that are no elements have no interface.
        for (QQuickItem* above = item().parentItem(); above; above = above->parentItem()) {
            if (QAccessibleInterface* element = QAccessible::queryAccessibleInterface(above))
                return element;
        }
        return QAccessible::queryAccessibleInterface(item().window());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QWindow* window() const override { return item().window(); }
    QRect rect() const override {
        return QRectF(item().mapToGlobal(QPointF()), item().size()).toAlignedRect();
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !item().isVisible();
        state.offscreen = !window()->geometry().intersects(rect());
        state.disabled = !item().isEnabled();
        state.focusable = item().activeFocusOnTab();
        state.focused = item().hasActiveFocus();
        return state;
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? item().label() : QString();
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {item().actionName()}; }
    QString localizedActionName(const QString& name) const override { return name; }
    QString localizedActionDescription(const QString&) const override { return item().actionDescription(); }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& name) override {
        if (name == item().actionName() && item().isEnabled())
            Q_EMIT item().actionTriggered();
    }

private:
    SingleActionItem& item() const { return *static_cast<SingleActionItem*>(object()); }
};

QAccessibleInterface* makeElement(const QString&, QObject* object) {
    const auto item = qobject_cast<SingleActionItem*>(object);
    return item ? new Element(item) : nullptr;
}

} // namespace

SingleActionItem::SingleActionItem(QQuickItem* parent) : QQuickItem(parent) {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeElement), true);
}

void SingleActionItem::keyPressEvent(QKeyEvent* event) {
    const bool isPress =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    event->setAccepted(isPress);
    if (isPress && !event->isAutoRepeat())
        Q_EMIT actionTriggered();
}

} // namespace Veilshot
