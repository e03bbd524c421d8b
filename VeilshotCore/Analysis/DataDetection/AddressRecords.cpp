#include "VeilshotCore/Analysis/DataDetection/AddressRecords.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QString>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using enum RegularExpression::CaseSensitivity;

constexpr std::ptrdiff_t fewestFields = 4;
constexpr QStringView quotes = u"\"“”„";

TextRange withoutQuotes(QStringView line, TextRange field) {
    const auto isAround = [&](qsizetype place) {
        return line[place].isSpace() || quotes.contains(line[place]) || u"'’()"_s.contains(line[place]);
    };
    while (field.length > 0 && isAround(field.location))
        field = {field.location + 1, field.length - 1};
    while (field.length > 0 && isAround(field.end() - 1))
        --field.length;
    return field;
}

/// The place behind a quoted field that begins at `start`, if one does.
std::optional<qsizetype> endOfQuoted(QStringView line, qsizetype start) {
    static const RegularExpression quoted(uR"(\s?["“”„]{1,2}[^"“”„]{1,80}["“”„]{1,2}(?=\s?(?:[,;|\t]|$)))");
    const auto match = quoted.matchAt(line, start);
    return match ? std::optional(match->range.end()) : std::nullopt;
}

std::vector<TextRange> fieldsBetween(QChar separator, QStringView line) {
    std::vector<TextRange> fields;
    for (qsizetype start = 0; start <= line.size();) {
        qsizetype end = line.indexOf(separator, endOfQuoted(line, start).value_or(start));
        if (end < 0)
            end = line.size();
        fields.push_back(withoutQuotes(line, {start, end - start}));
        start = end + 1;
    }
    return fields;
}

/// What a field may be. One may be several of them.
struct Shapes {
    RegularExpression contact{
        uR"(^(?:[^\s@]{1,60}@[^\s@]{1,60}\.\w{2,}|(?!\d{4}[-.]\d\d[-.]|\d\d[-.]\d\d[-.]\d{4})(?=.{0,7}[ ()+-])(?=(?:\D{0,3}\d){8})\+?\(?\d[\d ()-]{6,18}\d)$)"};
    RegularExpression street{
        uR"(^(?:\p{Lu}[\p{L}.'’/-]{0,30}(?: [\p{L}.'’/-]{1,30}){0,4},? \d{1,4} ?[A-Za-z]?(?:[, ]+(?:st|kl|\d{1,2})\b[\p{L}. ]{0,8})?)"
        uR"(|\d{1,5}[A-Za-z]?(?: (?:[\p{Lu}\d][\p{L}\d.'’-]{0,30}|de|la|of|the|#\d{1,4})){1,6})$)",
        sensitive};
    RegularExpression postcode{
        uR"(^(?:[A-Z]{1,2}-)?(?:\d{4,5}(?:-\d{4})?|\d{3} \d\d|\d\d-\d{3}|\d{4}-\d{3}|\d{4} ?[A-Z]{2}|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2}|[A-Z]\d[A-Z] ?\d[A-Z]\d)$)",
        sensitive};
    RegularExpression year{uR"(^(?:19|20)\d\d$)"};
    RegularExpression townOfYear{uR"(^(?:Frederiksberg|København|Kbh))"};
    /// With its state, a letter misread.
    RegularExpression town{uR"(^\p{Lu}[\p{L}1|.'’ -]{1,30}(?:, ?[A-Z]{2})?$)", sensitive};
    RegularExpression state{uR"(^[A-Z]{2}$)", sensitive};

    static const Shapes& shared() {
        static const Shapes shapes;
        return shapes;
    }
};

class Fields {
public:
    Fields(QStringView line, const std::vector<TextRange>& ranges) : m_line(line), m_ranges(ranges) {}

    bool has(const RegularExpression& shape, std::ptrdiff_t index) const {
        if (index < 0 || index >= std::ssize(m_ranges))
            return false;
        const TextRange range = m_ranges[static_cast<std::size_t>(index)];
        return shape.hasMatch(m_line.sliced(range.location, range.length));
    }

    bool isPostcode(std::ptrdiff_t index) const {
        return has(m_shapes.postcode, index) &&
               (!has(m_shapes.year, index) || has(m_shapes.townOfYear, index + 1));
    }

    /// The street beside a postcode, at most a town and a state between them.
    std::optional<std::ptrdiff_t> streetBeside(std::ptrdiff_t postcode, std::ptrdiff_t step) const {
        constexpr std::ptrdiff_t reach = 3;
        for (std::ptrdiff_t index = postcode + step; index != postcode + step * (reach + 1); index += step) {
            if (has(m_shapes.street, index))
                return index;
            if (!has(m_shapes.town, index) && !isEmpty(index))
                break;
        }
        return std::nullopt;
    }

    /// The last field of an address that ends with this one, or with the town and its state behind it.
    std::ptrdiff_t withTown(std::ptrdiff_t last) const {
        if (!has(m_shapes.town, last + 1))
            return last;
        return has(m_shapes.state, last + 2) ? last + 2 : last + 1;
    }

    TextRange range(std::ptrdiff_t first, std::ptrdiff_t last) const {
        const qsizetype start = m_ranges[static_cast<std::size_t>(first)].location;
        return {start, m_ranges[static_cast<std::size_t>(last)].end() - start};
    }

private:
    bool isEmpty(std::ptrdiff_t index) const {
        return index >= 0 && index < std::ssize(m_ranges) &&
               m_ranges[static_cast<std::size_t>(index)].length == 0;
    }

    const Shapes& m_shapes = Shapes::shared();
    QStringView m_line;
    const std::vector<TextRange>& m_ranges;
};

} // namespace

AddressRecord::AddressRecord(QStringView line) {
    constexpr QStringView separators = u",;|\t";
    const QChar separator =
        *std::ranges::max_element(separators, {}, [&](QChar sign) { return line.count(sign); });
    if (line.count(separator) + 1 < fewestFields)
        return;
    fields = fieldsBetween(separator, line);
    const Fields parts(line, fields);
    const auto count = std::ssize(fields);
    bool hasContact = false;
    for (std::ptrdiff_t index = 0; index < count && !hasContact; ++index)
        hasContact = parts.has(Shapes::shared().contact, index);
    if (!hasContact || count < fewestFields) {
        fields.clear();
        return;
    }
    for (std::ptrdiff_t index = 0; index < count; ++index) {
        if (!parts.isPostcode(index))
            continue;
        if (const auto street = parts.streetBeside(index, -1))
            addresses.push_back(parts.range(*street, *street + 1 == index ? parts.withTown(index) : index));
        else if (const auto next = parts.streetBeside(index, 1))
            addresses.push_back(parts.range(index, *next));
    }
}

} // namespace Veilshot
