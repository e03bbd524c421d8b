#include "VeilshotCore/Analysis/DataDetection/StandardDataDetector.h"

#include "VeilshotCore/Analysis/DataDetection/LetteredNumber.h"
#include "VeilshotCore/Analysis/DataDetection/MisreadSigns.h"

#include <QString>
#include <algorithm>
#include <iterator>
#include <utility>

namespace Veilshot {

namespace {

bool contains(TextRange outer, TextRange inner) {
    return outer.location <= inner.location && outer.end() >= inner.end();
}

/// Whether other numbers stand in the line than did: nothing but digits and the underscores between them are
/// put right in those.
bool hasOtherNumbers(const QString& line, const QString& corrected) {
    const auto digits = [](const QString& text) {
        return std::ranges::count_if(text, [](QChar character) { return character.isDigit(); });
    };
    return digits(line) != digits(corrected) || line.count(u'_') != corrected.count(u'_');
}

/// Unless it lies within one that is known.
void addNew(std::vector<DataMatch>& matches, DataMatch match) {
    const auto isKnown = [&](const DataMatch& known) { return contains(known.range, match.range); };
    if (std::ranges::none_of(matches, isKnown))
        matches.push_back(std::move(match));
}

} // namespace

std::vector<DataMatch> StandardDataDetector::matches(const QString& line) const {
    std::vector<DataMatch> matches = matchesButPhones(line);
    std::ranges::move(phones(line), std::back_inserter(matches));
    const RewrittenLine corrected = withoutMisreadSigns(line);
    if (corrected.isChanged()) {
        std::vector<DataMatch> others = matchesButPhones(corrected.text());
        if (hasOtherNumbers(line, corrected.text()))
            std::ranges::move(phones(corrected.text()), std::back_inserter(others));
        for (DataMatch& match : others) {
            match.range = corrected.original(match.range);
            addNew(matches, std::move(match));
        }
    }
    for (DataMatch& match : matches) {
        if (match.type == DataMatch::Type::phoneNumber)
            match.range = withLettersOfNumber(line, match.range);
    }
    std::ranges::stable_sort(matches, {}, [](const DataMatch& match) { return match.range.location; });
    return matches;
}

std::vector<DataMatch> StandardDataDetector::matchesButPhones(const QString& line) const {
    std::vector<DataMatch> matches = m_links.find(line);
    for (DataMatch& link : m_misreadLinks.find(line))
        addNew(matches, std::move(link));
    for (const TextRange range : m_credentials.find(line))
        matches.push_back({DataMatch::Type::link, range, {}});
    for (const TextRange range : m_personalNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    for (const TextRange range : m_postalAddresses.find(line))
        matches.push_back({DataMatch::Type::address, range, {}});
    return matches;
}

std::vector<DataMatch> StandardDataDetector::phones(const QString& line) const {
    std::vector<DataMatch> matches;
    for (const TextRange range : m_phoneNumbers.find(line))
        matches.push_back({DataMatch::Type::phoneNumber, range, {}});
    return matches;
}

} // namespace Veilshot
