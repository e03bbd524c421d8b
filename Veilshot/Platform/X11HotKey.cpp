#include "Veilshot/Platform/X11HotKey.h"

#include <QGuiApplication>
#include <cstdlib>
#include <vector>
#include <xcb/xcb.h>
// The header has a member of that name.
#define explicit explicitMembers
#include <xcb/xkb.h>
#undef explicit

namespace Veilshot {

namespace {

/// To the server, the second grab of a program is the first one over again, so it does not refuse that.
bool isHeldByThisProgram = false;

/// Every combination of the locks, together with the modifiers.
std::vector<std::uint16_t> modifierStates(const X11Shortcut& shortcut) {
    std::vector<std::uint16_t> states;
    std::uint16_t locks = 0;
    do {
        states.push_back(shortcut.modifiers | locks);
        locks = (locks - shortcut.locks) & shortcut.locks; // counts through the bits of the mask
    } while (locks != 0);
    return states;
}

/// Whether it tells of another layout. Qt has asked the server for these events.
bool changesLayout(const xcb_generic_event_t* event, std::uint8_t keyboardEvent) {
    if (event->response_type == XCB_MAPPING_NOTIFY)
        return true;
    if (event->response_type != keyboardEvent)
        return false;
    const auto* state = reinterpret_cast<const xcb_xkb_state_notify_event_t*>(event);
    switch (state->xkbType) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        return true;
    case XCB_XKB_STATE_NOTIFY:
        return state->changed & XCB_XKB_STATE_PART_GROUP_STATE;
    default:
        return false;
    }
}

} // namespace

std::unique_ptr<GlobalHotKey> X11HotKey::create(QObject* context, Action action) {
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!application || isHeldByThisProgram)
        return nullptr;
    const auto shortcut = X11Shortcut::find(application->connection());
    if (!shortcut)
        return nullptr;
    std::unique_ptr<X11HotKey> hotKey(new X11HotKey(application->connection(), context, std::move(action)));
    return hotKey->grab(*shortcut) ? std::move(hotKey) : nullptr;
}

X11HotKey::X11HotKey(xcb_connection_t* connection, QObject* context, Action action)
    : GlobalHotKey(context, std::move(action)), m_connection(connection),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root),
      m_keyboardEvent(xcb_get_extension_data(connection, &xcb_xkb_id)->first_event) {
    isHeldByThisProgram = true;
    m_layoutChange.setSingleShot(true);
    QObject::connect(&m_layoutChange, &QTimer::timeout, &m_layoutChange, [this] { followLayout(); });
    qGuiApp->installNativeEventFilter(this);
}

X11HotKey::~X11HotKey() {
    release();
    isHeldByThisProgram = false;
}

bool X11HotKey::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if (changesLayout(event, m_keyboardEvent))
        m_layoutChange.start();
    if (event->response_type != XCB_KEY_PRESS && event->response_type != XCB_KEY_RELEASE)
        return false;
    const auto* key = reinterpret_cast<const xcb_key_press_event_t*>(event);
    if (!m_grabbed || key->event != m_root || key->detail != m_grabbed->key)
        return false;
    if (event->response_type == XCB_KEY_RELEASE) {
        m_releasedAt = key->time;
    } else if (key->time != m_releasedAt) {
        // A held key repeats as releases and presses, each pair of the same time.
        press();
    }
    return false; // Qt takes the time from it
}

void X11HotKey::followLayout() {
    const auto shortcut = X11Shortcut::find(m_connection);
    if (shortcut == m_grabbed)
        return;
    release();
    if (!shortcut || !grab(*shortcut))
        lose();
}

bool X11HotKey::grab(const X11Shortcut& shortcut) {
    std::vector<xcb_void_cookie_t> requests;
    for (const std::uint16_t state : modifierStates(shortcut)) {
        requests.push_back(xcb_grab_key_checked(m_connection, false, m_root, state, shortcut.key,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    m_grabbed = shortcut;
    bool isComplete = true;
    for (const xcb_void_cookie_t request : requests) {
        if (xcb_generic_error_t* error = xcb_request_check(m_connection, request)) {
            isComplete = false;
            std::free(error);
        }
    }
    if (!isComplete)
        release();
    return isComplete;
}

void X11HotKey::release() {
    if (!m_grabbed)
        return;
    for (const std::uint16_t state : modifierStates(*m_grabbed))
        xcb_ungrab_key(m_connection, m_grabbed->key, m_root, state);
    xcb_flush(m_connection);
    m_grabbed.reset();
}

} // namespace Veilshot
