#include "Veilshot/Platform/EmbeddingTray.h"

#ifdef VEILSHOT_X11
#include <cstdlib>
#include <xcb/xcb.h>
#endif

namespace Veilshot {

#ifdef VEILSHOT_X11

namespace {

template<typename Reply>
std::unique_ptr<Reply, void (*)(void*)> owned(Reply* reply) {
    return {reply, std::free};
}

/// Tells this program when the window is destroyed, or, if it is the root, when a tray announces itself.
void follow(xcb_connection_t* connection, xcb_window_t window) {
    const uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace

// A connection of its own, because Qt reads all there is on the application's one.
EmbeddingTray::EmbeddingTray(QObject* parent) : QObject(parent), m_connection(nullptr, xcb_disconnect) {
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (!xcb_connection_has_error(m_connection.get()))
        start(screen);
}

EmbeddingTray::~EmbeddingTray() = default;

void EmbeddingTray::start(int screen) {
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
    for (int next = 0; next < screen && roots.rem > 1; ++next)
        xcb_screen_next(&roots);
    follow(m_connection.get(), roots.data->root);
    m_managerAtom = atom("MANAGER");
    m_selectionAtom = atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(screen));
    m_arrivals.emplace(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(&*m_arrivals, &QSocketNotifier::activated, this, &EmbeddingTray::handleEvents);
    findOwner();
}

EmbeddingTray::Identifier EmbeddingTray::atom(const QByteArray& name) {
    const auto cookie = xcb_intern_atom(m_connection.get(), false, uint16_t(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : Identifier(XCB_ATOM_NONE);
}

void EmbeddingTray::handleEvents() {
    if (readEvents())
        findOwner();
    if (xcb_connection_has_error(m_connection.get()))
        m_arrivals->setEnabled(false);
}

/// True if one of them may be about the tray.
bool EmbeddingTray::readEvents() {
    bool isAboutTray = false;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get()))) {
        const int type = event->response_type & 0x7f;
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        isAboutTray |=
            type == XCB_DESTROY_NOTIFY || (type == XCB_CLIENT_MESSAGE && message->type == m_managerAtom &&
                                           message->data.data32[1] == m_selectionAtom);
    }
    return isAboutTray;
}

void EmbeddingTray::findOwner() {
    const bool wasPresent = isPresent();
    // Again if it went before it was followed, or if events came along with an answer: those wake nobody.
    do {
        m_owner = owner();
        if (m_owner != XCB_WINDOW_NONE)
            follow(m_connection.get(), m_owner);
    } while (owner() != m_owner || readEvents());
    if (isPresent() != wasPresent)
        Q_EMIT isPresentChanged();
}

EmbeddingTray::Identifier EmbeddingTray::owner() {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), m_selectionAtom);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->owner : Identifier(XCB_WINDOW_NONE);
}

#else

EmbeddingTray::EmbeddingTray(QObject* parent) : QObject(parent), m_connection(nullptr, nullptr) {}
EmbeddingTray::~EmbeddingTray() = default;

#endif

} // namespace Veilshot
