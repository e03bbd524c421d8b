#pragma once

#include <QKeyEvent>
#include <QObject>
#include <optional>

namespace Veilshot {

/// Tells repeats of a held key from presses. On X11 a held key comes as releases and presses, each pair of
/// the same time, and Qt sees that a press is a repeat only if it has both at hand. To be installed as an
/// event filter of the application; main thread only.
class KeyRepeat : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Release {
        int key = 0;
        quint64 time = 0;
    };

    bool isUnmarkedRepeat(const QKeyEvent& event) const;

    std::optional<Release> m_lastRelease;
};

} // namespace Veilshot
