#include "Veilshot/Platform/GlobalHotKey.h"

#include "Veilshot/Platform/HotKeyBackEnd.h"
#include "Veilshot/Platform/PortalHotKey.h"
#ifdef VEILSHOT_X11
#include "Veilshot/Platform/X11HotKey.h"
#endif

#include <QPointer>

using namespace Qt::StringLiterals;

namespace Veilshot {

void GlobalHotKey::create(QObject* context, Action action, Receive receive) {
    switch (hotKeyBackEndFor(HotKeyEnvironment::current())) {
    case HotKeyBackEnd::x11:
#ifdef VEILSHOT_X11
        return receive(X11HotKey::create(context, std::move(action)));
#endif
    case HotKeyBackEnd::none:
        return receive(nullptr);
    case HotKeyBackEnd::portal:
        // A connection of its own, because the portal wants to be told who is asking before anything else.
        return PortalHotKey::create(
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"veilshot-shortcut"_s), context,
            std::move(action), std::move(receive));
    }
}

GlobalHotKey::GlobalHotKey(QObject* context, Action action)
    : m_action(std::make_shared<Action>([context = QPointer(context), action = std::move(action)] {
          if (context)
              action();
      })) {}

void GlobalHotKey::press() {
    QMetaObject::invokeMethod(
        &m_presses, [action = m_action] { (*action)(); }, Qt::QueuedConnection);
}

void GlobalHotKey::lose() {
    QMetaObject::invokeMethod(
        &m_presses, [this] { m_handleLoss(); }, Qt::QueuedConnection);
}

} // namespace Veilshot
