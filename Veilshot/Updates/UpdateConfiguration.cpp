#include "Veilshot/Updates/UpdateConfiguration.h"

#include "Veilshot/Updates/FeedDownload.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

std::optional<UpdateConfiguration> UpdateConfiguration::builtIn() {
    const QUrl feed(u"" VEILSHOT_UPDATE_FEED ""_s, QUrl::StrictMode);
    const auto key = PublicKey::fromBase64(VEILSHOT_UPDATE_KEY);
    const auto installed = ReleaseVersion::parse(u"" VEILSHOT_VERSION ""_s);
    if (!FeedDownload::isAllowed(feed) || !key || !installed)
        return std::nullopt;
    return UpdateConfiguration{feed, *key, *installed};
}

} // namespace Veilshot
