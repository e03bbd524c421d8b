#pragma once

#include <QString>
#include <QVariantMap>

namespace Veilshot {

/// What the desktop gives to the program that the user has just asked for, so that its window may come to the
/// front. It passes from a second start to the running application.
struct ActivationToken {
    QString startupId;       ///< X11
    QString activationToken; ///< Wayland

    /// To be called before there is an application object, which takes them for itself.
    static ActivationToken fromEnvironment();
    /// Under the names that desktops use over D-Bus.
    static ActivationToken fromPlatformData(const QVariantMap& data);

    QVariantMap toPlatformData() const;
    /// For the next window that is activated.
    void use() const;
};

} // namespace Veilshot
