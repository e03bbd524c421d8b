#pragma once

#include "Veilshot/Updates/PublicKey.h"
#include "Veilshot/Updates/ReleaseVersion.h"

#include <QUrl>
#include <optional>

namespace Veilshot {

/// Where updates are announced, who vouches for them, and what they are compared with.
struct UpdateConfiguration {
    QUrl feed;
    PublicKey key;
    ReleaseVersion installed;

    /// What the program was built with. Nothing if it was built without a feed, which is how it comes.
    static std::optional<UpdateConfiguration> builtIn();
};

} // namespace Veilshot
