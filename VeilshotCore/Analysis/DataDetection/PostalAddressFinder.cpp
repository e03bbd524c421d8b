#include "VeilshotCore/Analysis/DataDetection/PostalAddressFinder.h"

#include "VeilshotCore/Analysis/DataDetection/AddressRecord.h"
#include "VeilshotCore/Analysis/DataDetection/AddressSpacing.h"
#include "VeilshotCore/Analysis/DataDetection/DanishTowns.h"
#include "VeilshotCore/Analysis/DataDetection/LargeCities.h"
#include "VeilshotCore/Analysis/DataDetection/PostalAddressGrammar.h"
#include "VeilshotCore/Analysis/TellingLabel.h"

#include <QString>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// How far the name of a house or a flat may stand before its street.
constexpr qsizetype leftReach = 160;

TextRange united(TextRange first, TextRange second) {
    const qsizetype start = std::min(first.location, second.location);
    return {start, std::max(first.end(), second.end()) - start};
}

bool isYear(QStringView postcode) {
    const int number = postcode.toInt();
    return number >= 1900 && number < 2100;
}

/// What looks like a year is a postcode in front of the two cities only that have such. In lower case the
/// short towns are words (ringe, varde).
bool isDanishPlace(QStringView line, const RegularExpression::Match& match) {
    constexpr qsizetype shortestLowercaseTown = 6;
    const auto [prefix, postcode, first, second] =
        std::array{match.groups[0], match.groups[1], match.groups[2], match.groups[3]};
    const QStringView town = line.sliced(first.location, first.length);
    if (town[0].isLower() && town.size() < shortestLowercaseTown)
        return false;
    if (prefix.location >= 0)
        return true;
    if (isYear(line.sliced(postcode.location, postcode.length)))
        return town.startsWith(u"frederiksberg", Qt::CaseInsensitive) ||
               town.startsWith(u"københavn", Qt::CaseInsensitive);
    return isDanishTown(town) ||
           (second.location >= 0 && isDanishTown(line.sliced(first.location, second.end() - first.location)));
}

bool isEuropeanPlace(QStringView line, const RegularExpression::Match& match) {
    const auto [postcode, first, second] = std::array{match.groups[0], match.groups[1], match.groups[2]};
    const QStringView code = line.sliced(postcode.location, postcode.length);
    if (isYear(code))
        return false;
    return isLargeCity(line.sliced(first.location, first.length), code) ||
           (second.location >= 0 &&
            isLargeCity(line.sliced(first.location, second.end() - first.location), code));
}

/// With as many of the words in front as belong to the city.
std::optional<TextRange> placeBeforePostcode(QStringView line, const RegularExpression::Match& match) {
    const TextRange last = match.groups[3];
    const TextRange postcode = match.groups[4];
    const QStringView code = line.sliced(postcode.location, postcode.length);
    if (isYear(code))
        return std::nullopt;
    for (const TextRange first : match.groups) {
        if (first.location >= 0 && first.location <= last.location &&
            isLargeCity(line.sliced(first.location, last.end() - first.location), code))
            return TextRange{first.location, postcode.end() - first.location};
    }
    return std::nullopt;
}

TextRange withoutBlanksAround(QStringView line, TextRange range) {
    while (range.length > 0 && line[range.location].isSpace())
        range = {range.location + 1, range.length - 1};
    while (range.length > 0 && line[range.end() - 1].isSpace())
        --range.length;
    return range;
}

std::vector<TextRange> anchors(QStringView line, const PostalAddressGrammar& grammar) {
    std::vector<TextRange> anchors;
    for (const RegularExpression& expression : grammar.anchors) {
        for (const TextRange range : expression.ranges(line))
            anchors.push_back(withoutBlanksAround(line, range));
    }
    for (const auto& match : grammar.danishPlace.matches(line)) {
        if (isDanishPlace(line, match))
            anchors.push_back(match.range);
    }
    for (const auto& match : grammar.europeanPlace.matches(line)) {
        if (isEuropeanPlace(line, match))
            anchors.push_back(match.range);
    }
    for (const auto& match : grammar.placeBeforePostcode.matches(line)) {
        if (const auto place = placeBeforePostcode(line, match))
            anchors.push_back(*place);
    }
    std::ranges::sort(anchors, {}, [](TextRange range) { return std::pair(range.location, range.length); });
    return anchors;
}

qsizetype longestMatchEnd(QStringView line, qsizetype at, const std::vector<RegularExpression>& expressions) {
    qsizetype end = at;
    for (const RegularExpression& expression : expressions) {
        if (const auto match = expression.matchAt(line, at))
            end = std::max(end, match->range.end());
    }
    return end;
}

/// Where the address goes on to after `end`; `end` itself when it does not.
qsizetype nextEnd(QStringView line, qsizetype end, const PostalAddressGrammar& grammar) {
    const qsizetype part = std::max(longestMatchEnd(line, end, grammar.continuations),
                                    longestMatchEnd(line, end, grammar.places));
    if (part > end)
        return part;
    if (const auto area = grammar.area.matchAt(line, end)) {
        const qsizetype areaEnd = area->range.end();
        const bool goesOn = longestMatchEnd(line, areaEnd, grammar.places) > areaEnd ||
                            grammar.lastArea.matchAt(line, areaEnd).has_value();
        return goesOn ? areaEnd : end;
    }
    const auto lastArea = grammar.lastArea.matchAt(line, end);
    return lastArea ? lastArea->range.end() : end;
}

TextRange grownRight(QStringView line, TextRange address, const PostalAddressGrammar& grammar) {
    for (;;) {
        const qsizetype end = nextEnd(line, address.end(), grammar);
        if (end == address.end())
            return address;
        address.length = end - address.location;
    }
}

TextRange grownLeft(QStringView line, TextRange address, const PostalAddressGrammar& grammar) {
    const auto grownOver = [&](const RegularExpression& part) {
        const qsizetype from = std::max<qsizetype>(0, address.location - leftReach);
        const auto match = part.firstMatch(line.sliced(from, address.location - from));
        if (match)
            address = united(address, {from + match->groups[0].location, match->groups[0].length});
        return match.has_value();
    };
    const auto grownOverUnits = [&] {
        const qsizetype start = address.location;
        while (grownOver(grammar.precedingUnit)) {
        }
        return address.location < start;
    };
    if (!grownOverUnits() && grownOver(grammar.precedingHouse))
        grownOverUnits();
    grownOver(grammar.precedingParts);
    return address;
}

/// Whether two addresses are parts of one, told apart by no more than a comma.
bool areOne(QStringView line, TextRange first, TextRange second) {
    if (second.location <= first.end())
        return true;
    return std::ranges::all_of(line.sliced(first.end(), second.location - first.end()),
                               [](QChar character) { return character == u',' || character.isSpace(); });
}

std::vector<TextRange> addressesIn(QStringView line) {
    const PostalAddressGrammar& grammar = PostalAddressGrammar::shared();
    std::vector<TextRange> addresses;
    for (TextRange address : anchors(line, grammar)) {
        if (!addresses.empty() && address.end() <= addresses.back().end())
            continue;
        address = grownLeft(line, grownRight(line, address, grammar), grammar);
        if (!addresses.empty() && areOne(line, addresses.back(), address))
            addresses.back() = united(addresses.back(), address);
        else
            addresses.push_back(address);
    }
    return addresses;
}

/// Hardly any address does without a number, but houses have names.
bool mayHoldAddress(QStringView line) {
    static const RegularExpression house(
        u"^The .*,|Cottage|Farm|Rectory|Vicarage|House,|Lodge,|Barn,|Manor,|Hall,|[Cc]\\s?/\\s?[Oo]\\b"_s,
        RegularExpression::CaseSensitivity::sensitive);
    return std::ranges::any_of(line, [](QChar character) { return character.isDigit(); }) ||
           house.hasMatch(line);
}

/// In text order; those that overlap become one.
std::vector<TextRange> merged(std::vector<TextRange> addresses) {
    std::ranges::sort(addresses, {}, &TextRange::location);
    std::vector<TextRange> apart;
    for (const TextRange address : addresses) {
        if (!apart.empty() && apart.back().intersects(address))
            apart.back() = united(apart.back(), address);
        else
            apart.push_back(address);
    }
    return apart;
}

std::vector<TextRange> allAddresses(QStringView line) {
    if (!mayHoldAddress(line))
        return {};
    std::vector<TextRange> addresses = addressesIn(line);
    const RewrittenLine spaced = withBlanksOfAddresses(line);
    if (spaced.isChanged()) {
        for (const TextRange address : addressesIn(spaced.text()))
            addresses.push_back(spaced.original(address));
    }
    const AddressRecord record(line);
    std::ranges::copy(record.addresses, std::back_inserter(addresses));
    for (const TextRange field : record.fields) {
        const QStringView text = line.sliced(field.location, field.length);
        if (!mayHoldAddress(text))
            continue;
        for (const TextRange address : addressesIn(text))
            addresses.push_back({field.location + address.location, address.length});
    }
    return merged(std::move(addresses));
}

/// What the fields of an address hold, which nothing else tells from other words and numbers.
struct FieldShapes {
    RegularExpression remark{
        uR"(^(?:0x\w+|\d\.\d|\d+ ?k?m|https?|tap|click|copy|mangler|ikke|add(?:ed)?|edit|changed?|same|use|select|choose|enter|none|no|not|any|all|other|unknown|optional|required)"
        uR"(|county|country|land|phone|telefon|e-?mail|name|navn|status|orders|dat[eo]|years|type|search|find|see|verified|updated?)"
        uR"(|last|confirmed|missing|invalid|tilføj|rediger|vælg|samme|ingen|alle|ukendt)\b)"};
    RegularExpression address{
        uR"(^(?=.*\d)(?=.*\p{L}{2})[\p{Lu}\d#][^@:;?!|]{3,70}$)"
        uR"(|^\p{Lu}[\p{L}.’'-]*(?: [\p{L}.’'-]+){0,4}, \p{Lu}[\p{L}.’'-]*(?: \p{Lu}[\p{L}.’'-]*){0,3}$)"
        uR"(|^\p{Lu}\p{Ll}{2,20}(?:vej|gade|vænget|stræde|allé|plads|torv|gatan|vägen|veien|gata|straße|strasse|straat|laan|weg)$)"
        uR"(|^(?:\p{Lu}[\p{L}.’'-]{1,20} ){1,3}(?i:street|st|road|rd|avenue|ave|lane|ln|drive|dr|close|way|court|ct|place|terrace|crescent|boulevard|blvd)\.?$)",
        RegularExpression::CaseSensitivity::sensitive};
    RegularExpression town{
        uR"(^(?:(?:[A-Z]{1,2}-)?\d{3,7} )?\p{Lu}[\p{L}.’'-]+(?: [\p{L}.’'-]+){0,3}(?:,? [A-Z]{2})?(?: \d{4,7})?$)",
        RegularExpression::CaseSensitivity::sensitive};
    RegularExpression quantity{
        uR"(\d[.,]\d|^\d+ ?(?:[KMG]B|kg|km|cm|mm|m|pcs|stk|kr)\b|\b(?:DKK|EUR|USD|GBP|mm|cm)\b)"};
    RegularExpression district{uR"( (?:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M|St\.?|Sj\.?)$)"};
    /// No amount: a word of more than two small letters, but for what flats are called, is none of it.
    RegularExpression postcode{
        uR"(^(?=.{0,14}\d)(?!per\b|.*(?:\bk?m[23]|\d{3} ?[gl])$)(?:(?i:apartment|apt|flat|unit|suite|floor|level|bldg|lejl)\.? ?)?)"
        uR"([\p{L}\d#](?:[\p{Lu}\d .#-]|\p{Ll}{1,2}(?!\p{Ll})|sal\b){0,13}$)",
        RegularExpression::CaseSensitivity::sensitive};
    RegularExpression state{u"^(?!UP$)[A-Z]{2}$", RegularExpression::CaseSensitivity::sensitive};
    RegularExpression houseNumber{uR"(^\d{1,4} ?[A-Za-z]?$)"};

    static const FieldShapes& shared() {
        static const FieldShapes shapes;
        return shapes;
    }
};

bool isFieldOfAddress(const LabelledValue& field) {
    const FieldShapes& shapes = FieldShapes::shared();
    const QStringView value = field.value;
    // In capitals as the label is: the next header.
    const auto isInCapitals = [](QStringView text) { return text.toString().toUpper() == text; };
    const bool isHeader = isInCapitals(field.label) && isInCapitals(value);
    const bool hasCapital = std::ranges::any_of(value, [](QChar character) { return character.isUpper(); });
    if (shapes.remark.hasMatch(value))
        return false;
    switch (field.topic) {
    case LabelTopic::address:
        return !isHeader && shapes.address.hasMatch(value);
    case LabelTopic::town: // "By" names an author too
        if (field.label.compare(u"by", Qt::CaseInsensitive) == 0) {
            const auto district = shapes.district.firstMatch(value);
            return isDanishTown(value.chopped(district ? district->range.length : 0));
        }
        return !isHeader && shapes.town.hasMatch(value);
    case LabelTopic::postcode:
        return !shapes.quantity.hasMatch(value) &&
               (shapes.postcode.hasMatch(value) ||
                (!isHeader && hasCapital && shapes.address.hasMatch(value)));
    case LabelTopic::state:
        return !isHeader && shapes.state.hasMatch(value);
    case LabelTopic::houseNumber:
        return shapes.houseNumber.hasMatch(value);
    default:
        return false;
    }
}

std::vector<TextRange> addressesInField(const LabelledValue& field) {
    if (isFieldOfAddress(field))
        return {field.range};
    std::vector<TextRange> addresses = allAddresses(field.value);
    for (TextRange& address : addresses)
        address.location += field.range.location;
    return addresses;
}

} // namespace

std::vector<TextRange> PostalAddressFinder::find(QStringView line) const {
    const auto field = LabelledValue::of(line);
    return field ? addressesInField(*field) : allAddresses(line);
}

} // namespace Veilshot
