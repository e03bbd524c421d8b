#pragma once

#include "Veilshot/Updates/Release.h"

#include <optional>
#include <vector>

namespace Veilshot {

/// A feed of releases: RSS 2.0 with an element of our own in every item that is a release.
///
///     <rss version="2.0" xmlns:veilshot="urn:veilshot:updates">
///       <channel>
///         <item>
///           <link>https://example.org/veilshot/1.5.0</link>
///           <description>What is new, in plain text.</description>
///           <veilshot:release version="1.5.0" signature="(base64)"/>
///         </item>
///       </channel>
///     </rss>
///
/// Blanks around a text do not count. Other elements, such as titles and dates, are not read, and items
/// without a release are left out: nothing vouches for them.
struct Appcast {
    static constexpr auto releaseNamespace = "urn:veilshot:updates";
    static constexpr size_t maximumReleases = 500;
    /// In UTF-16 units.
    static constexpr qsizetype maximumNotes = 20'000;
    static constexpr qsizetype maximumLink = 2'000;

    /// In the order of the feed, not verified.
    std::vector<Release> releases;

    /// Nothing if it is no such feed: not well-formed, with a document type, over a limit, or with a release
    /// that has no link, no version or no signature. One bad release spoils the feed, since leaving it out
    /// might mean to say that there is no newer version.
    static std::optional<Appcast> parse(const QByteArray& bytes);
};

} // namespace Veilshot
