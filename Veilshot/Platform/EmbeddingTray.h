#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace Veilshot {

/// Whether X11's default screen has a tray now that takes icons' windows into its own: an owner of the
/// selection _NET_SYSTEM_TRAY_S<screen>. Known from the start. Where there is no X server, or the program was
/// built without its library, there is none. Main thread only.
class EmbeddingTray : public QObject {
    Q_OBJECT

public:
    explicit EmbeddingTray(QObject* parent = nullptr);
    ~EmbeddingTray() override;

    bool isPresent() const { return m_owner != 0; }

Q_SIGNALS:
    void isPresentChanged();

private:
    using Identifier = uint32_t;

    void start(int screen);
    Identifier atom(const QByteArray& name);
    void handleEvents();
    bool readEvents();
    void findOwner();
    Identifier owner();

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> m_connection;
    std::optional<QSocketNotifier> m_arrivals;
    Identifier m_managerAtom = 0;
    Identifier m_selectionAtom = 0;
    Identifier m_owner = 0;
};

} // namespace Veilshot
