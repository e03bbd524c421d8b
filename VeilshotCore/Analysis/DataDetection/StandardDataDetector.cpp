#include "VeilshotCore/Analysis/DataDetection/StandardDataDetector.h"

#include "VeilshotCore/Analysis/DataDetection/MisreadSigns.h"

#include <algorithm>

namespace Veilshot {

namespace {

bool contains(TextRange outer, TextRange inner) {
    return outer.location <= inner.location && outer.end() >= inner.end();
}

/// Unless it lies within one that is known.
void addNew(std::vector<DataMatch>& matches, DataMatch match) {
    const auto isKnown = [&](const DataMatch& known) { return contains(known.range, match.range); };
    if (std::ranges::none_of(matches, isKnown))
        matches.push_back(std::move(match));
}

} // namespace

std::vector<DataMatch> StandardDataDetector::matches(const QString& line) const {
    std::vector<DataMatch> matches = matchesAsRead(line);
    const RewrittenLine corrected = withoutMisreadSigns(line);
    if (corrected.isChanged()) {
        for (DataMatch& match : matchesAsRead(corrected.text())) {
            match.range = corrected.original(match.range);
            addNew(matches, std::move(match));
        }
    }
    std::ranges::stable_sort(matches, {}, [](const DataMatch& match) { return match.range.location; });
    return matches;
}

std::vector<DataMatch> StandardDataDetector::matchesAsRead(const QString& line) const {
    std::vector<DataMatch> matches = m_links.find(line);
    for (DataMatch& link : m_misreadLinks.find(line))
        addNew(matches, std::move(link));
    for (const TextRange range : m_credentials.find(line))
        matches.push_back({DataMatch::Type::link, range, {}});
    for (const TextRange range : m_phoneNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    for (const TextRange range : m_personalNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    for (const TextRange range : m_postalAddresses.find(line))
        matches.push_back({DataMatch::Type::address, range, {}});
    return matches;
}

} // namespace Veilshot
