#pragma once

#include "Veilshot/Updates/ReleaseVersion.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <optional>

namespace Veilshot {

/// A version that a feed announces. Nothing here can be trusted before its signature is verified.
struct Release {
    ReleaseVersion version;
    /// Where to get it, as the feed has it.
    QString link;
    /// What is new, plain text without blanks at either end.
    QString notes;
    /// An Ed25519 signature of `statement()`, 64 bytes if it is any good.
    QByteArray signature;

    /// What is signed, in UTF-8: all that is shown or opened. Three lines, ended by a line feed each, hold
    /// "Veilshot release", the version and the link; the notes follow up to the end. Nothing can be moved
    /// from one to another: neither version nor link can hold a line feed.
    QByteArray statement() const;

    /// The link if a browser may open it: an https address of some host.
    std::optional<QUrl> page() const;
};

} // namespace Veilshot
