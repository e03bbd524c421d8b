#include "Veilshot/App/ActivationToken.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString startupIdKey = u"desktop-startup-id"_s;
const QString activationTokenKey = u"activation-token"_s;

} // namespace

ActivationToken ActivationToken::fromEnvironment() {
    return {qEnvironmentVariable("DESKTOP_STARTUP_ID"), qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
}

ActivationToken ActivationToken::fromPlatformData(const QVariantMap& data) {
    return {data.value(startupIdKey).toString(), data.value(activationTokenKey).toString()};
}

QVariantMap ActivationToken::toPlatformData() const {
    QVariantMap data;
    if (!startupId.isEmpty())
        data.insert(startupIdKey, startupId);
    if (!activationToken.isEmpty())
        data.insert(activationTokenKey, activationToken);
    return data;
}

void ActivationToken::use() const {
    // Qt's Wayland plug-in takes the token from here when a window asks to be activated.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
}

} // namespace Veilshot
