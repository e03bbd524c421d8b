#include "VeilshotCore/Analysis/DataDetection/StandardDataDetector.h"

#include <algorithm>

namespace Veilshot {

std::vector<DataMatch> StandardDataDetector::matches(const QString& line) const {
    std::vector<DataMatch> matches = m_links.find(line);
    for (const DataMatch& link : m_misreadLinks.find(line)) {
        const auto contains = [&](const DataMatch& found) {
            return found.range.location <= link.range.location && found.range.end() >= link.range.end();
        };
        if (std::ranges::none_of(matches, contains))
            matches.push_back(link);
    }
    for (const TextRange range : m_credentials.find(line))
        matches.push_back({DataMatch::Type::link, range, {}});
    for (const TextRange range : m_phoneNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    for (const TextRange range : m_personalNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    for (const TextRange range : m_postalAddresses.find(line))
        matches.push_back({DataMatch::Type::address, range, {}});
    std::ranges::stable_sort(matches, {}, [](const DataMatch& match) { return match.range.location; });
    return matches;
}

} // namespace Veilshot
