#include "Veilshot/Features/QuickPaste/QuickPastePanel.h"

#include "Veilshot/Features/QuickPaste/PanelPlacement.h"
#include "Veilshot/Features/QuickPaste/QuickPasteKey.h"
#include "Veilshot/Features/QuickPaste/QuickPasteSession.h"
#include "Veilshot/Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine& engine, QuickPasteSession& session) {
    QQmlComponent component(&engine, u"qrc:/qt/qml/Veilshot/Features/QuickPaste/QuickPastePanel.qml"_s);
    std::unique_ptr<QObject> made(
        component.createWithInitialProperties({{u"session"_s, QVariant::fromValue(&session)}}));
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    if (!window)
        qFatal("%s", qPrintable(component.errorString()));
    made.release();
    return std::unique_ptr<QQuickWindow>(window);
}

} // namespace

QuickPastePanel::QuickPastePanel(QQmlEngine& engine, QuickPasteSession& session, QObject* parent)
    : QObject(parent), m_session(session), m_window(makeWindow(engine, session)) {
    m_window->installEventFilter(this);
    m_patience.setSingleShot(true);
    m_patience.setInterval(100);
    connect(m_window.get(), &QWindow::visibleChanged, this, &QuickPastePanel::isVisibleChanged);
    connect(m_window.get(), &QWindow::activeChanged, this,
            [this] { m_hasBeenActive = m_hasBeenActive || m_window->isActive(); });
    connect(&session, &QuickPasteSession::usedFromElsewhere, this, [this] {
        if (isVisible())
            activate();
    });
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &QuickPastePanel::follow);
    connect(&m_patience, &QTimer::timeout, this, &QuickPastePanel::leave);
}

QuickPastePanel::~QuickPastePanel() = default;

bool QuickPastePanel::isVisible() const {
    return m_window->isVisible();
}

void QuickPastePanel::orderFront() {
    if (const QScreen* const screen = PanelPlacement::screen())
        m_window->setPosition(PanelPlacement::origin(screen->availableGeometry(), m_window->size()));
    m_window->setProperty("isTranslucent", WindowSystem::canBeTranslucent());
    WindowSystem::makeTransient(*m_window);
    m_window->setVisible(true);
    activate();
}

void QuickPastePanel::orderOut() {
    m_window->setVisible(false);
}

void QuickPastePanel::activate() {
    m_hasBeenActive = m_window->isActive();
    WindowSystem::activate(*m_window);
}

void QuickPastePanel::follow(Qt::ApplicationState state) {
    m_isApplicationActive = state == Qt::ApplicationActive;
    m_hasSettled = false;
    leave();
}

void QuickPastePanel::leave() {
    if (m_isApplicationActive || !m_hasBeenActive || !isVisible() || m_session.isChoosingFile())
        return;
    // The press that chose the other application may begin a drag to here. And the window manager takes the
    // keyboard for as long as it moves the panel, and a moment longer.
    const bool isPointerBusy = m_session.isDropTargeted() || WindowSystem::isPointerButtonHeld();
    if (isPointerBusy || !m_hasSettled) {
        m_hasSettled = !isPointerBusy;
        m_patience.start();
        return;
    }
    orderOut();
    Q_EMIT deactivated();
}

bool QuickPastePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    const auto action = QuickPasteKey::action(key->key(), key->modifiers());
    if (action == QuickPasteKey::Action::standard)
        return QObject::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::ShortcutOverride || key->isAutoRepeat())
        return true;
    if (action == QuickPasteKey::Action::paste)
        m_session.paste();
    else
        m_session.cancel();
    return true;
}

} // namespace Veilshot
