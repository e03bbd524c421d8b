#include "Veilshot/Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QWindow>

#ifdef VEILSHOT_X11
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <xcb/xcb.h>
#endif

using namespace Qt::StringLiterals;

namespace Veilshot {

#ifdef VEILSHOT_X11

namespace {

template<typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, std::free};
}

/// The X server, over Qt's own connection so that requests keep their order.
class XServer {
public:
    /// Nothing if the windows are not X11's.
    static std::optional<XServer> connected() {
        const auto* const native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        if (!native || !native->connection())
            return std::nullopt;
        return XServer(native->connection());
    }

    void addStates(const QWindow& window, std::initializer_list<std::string_view> states) const {
        for (const std::string_view state : states) {
            const xcb_atom_t value = atom(state);
            xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, xcb_window_t(window.winId()),
                                atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &value);
        }
    }

    void putOnEveryDesktop(const QWindow& window) const {
        const quint32 every = 0xffffffff;
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window.winId()),
                            atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1, &every);
    }

    bool hasWindowManager() const { return hasProperty("_NET_SUPPORTING_WM_CHECK"); }

    void activate(const QWindow& window) const {
        // As a task bar would ask. Qt asks as an application, and with the time of the last key that reached
        // it; that is older than what the user has done elsewhere, so that window managers refuse.
        constexpr quint32 isTaskBar = 2;
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = xcb_window_t(window.winId());
        event.type = atom("_NET_ACTIVE_WINDOW");
        event.data.data32[0] = isTaskBar;
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(m_connection, false, root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(m_connection);
    }

    bool hasCompositor() const {
        const auto name = "_NET_WM_CM_S" + std::to_string(m_screen);
        const auto owner = owned(xcb_get_selection_owner_reply(
            m_connection, xcb_get_selection_owner(m_connection, atom(name)), nullptr));
        return owner && owner->owner != XCB_NONE;
    }

    bool isPointerButtonHeld() const {
        const auto pointer =
            owned(xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, root()), nullptr));
        return pointer && (pointer->mask & (XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3));
    }

private:
    explicit XServer(xcb_connection_t* connection) : m_connection(connection) {
        char* host = nullptr;
        int display = 0;
        if (xcb_parse_display(nullptr, &host, &display, &m_screen))
            std::free(host);
    }

    xcb_window_t root() const {
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
        for (int skipped = 0; skipped < m_screen && screens.rem > 1; ++skipped)
            xcb_screen_next(&screens);
        return screens.data->root;
    }

    xcb_atom_t atom(std::string_view name) const {
        const auto reply = owned(xcb_intern_atom_reply(
            m_connection, xcb_intern_atom(m_connection, false, quint16(name.size()), name.data()), nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    bool hasProperty(std::string_view name) const {
        const auto reply = owned(xcb_get_property_reply(
            m_connection, xcb_get_property(m_connection, false, root(), atom(name), XCB_ATOM_ANY, 0, 1),
            nullptr));
        return reply && reply->type != XCB_ATOM_NONE;
    }

    xcb_connection_t* m_connection;
    int m_screen = 0;
};

} // namespace

void WindowSystem::makeTransient(QWindow& window) {
    const auto server = XServer::connected();
    if (!server || window.isVisible())
        return;
    window.create();
    server->addStates(window,
                      {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_STATE_STICKY"});
    server->putOnEveryDesktop(window);
}

void WindowSystem::activate(QWindow& window) {
    window.raise();
    const auto server = XServer::connected();
    if (server && server->hasWindowManager())
        server->activate(window);
    else
        window.requestActivate();
}

bool WindowSystem::canBeTranslucent() {
    const auto server = XServer::connected();
    return server ? server->hasCompositor() : QGuiApplication::platformName().startsWith("wayland"_L1);
}

bool WindowSystem::isPointerButtonHeld() {
    const auto server = XServer::connected();
    return server && server->isPointerButtonHeld();
}

#else

void WindowSystem::makeTransient(QWindow&) {}

void WindowSystem::activate(QWindow& window) {
    window.raise();
    window.requestActivate();
}

bool WindowSystem::canBeTranslucent() {
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

bool WindowSystem::isPointerButtonHeld() {
    return false;
}

#endif

void WindowSystem::present(QWindow& window) {
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true); // not show(), which would undo a maximized window
    activate(window);
}

} // namespace Veilshot
