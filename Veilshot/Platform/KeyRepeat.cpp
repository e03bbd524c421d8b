#include "Veilshot/Platform/KeyRepeat.h"

#include <QCoreApplication>

namespace Veilshot {

bool KeyRepeat::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyRelease: {
        const auto* const release = static_cast<const QKeyEvent*>(event);
        m_lastRelease = {release->key(), release->timestamp()};
        return false;
    }
    case QEvent::ShortcutOverride:
        // Shortcuts have looked at the mark already. Taken from them, the press goes to the window.
        if (!isUnmarkedRepeat(*static_cast<const QKeyEvent*>(event)))
            return false;
        event->accept();
        return true;
    case QEvent::KeyPress: {
        const auto* const press = static_cast<const QKeyEvent*>(event);
        if (!isUnmarkedRepeat(*press))
            return false;
        QKeyEvent repeat(QEvent::KeyPress, press->key(), press->modifiers(), press->nativeScanCode(),
                         press->nativeVirtualKey(), press->nativeModifiers(), press->text(), true,
                         quint16(press->count()), press->device());
        repeat.setTimestamp(press->timestamp());
        QCoreApplication::sendEvent(watched, &repeat);
        event->setAccepted(repeat.isAccepted());
        return true;
    }
    default:
        return false;
    }
}

bool KeyRepeat::isUnmarkedRepeat(const QKeyEvent& event) const {
    return !event.isAutoRepeat() && event.timestamp() != 0 && m_lastRelease &&
           m_lastRelease->key == event.key() && m_lastRelease->time == event.timestamp();
}

} // namespace Veilshot
