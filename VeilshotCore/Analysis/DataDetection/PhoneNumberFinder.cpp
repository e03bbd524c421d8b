#include "VeilshotCore/Analysis/DataDetection/PhoneNumberFinder.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QString>
#include <algorithm>
#include <phonenumbers/phonenumbermatch.h>
#include <phonenumbers/phonenumbermatcher.h>
#include <phonenumbers/phonenumberutil.h>
#include <string>

using namespace Qt::StringLiterals;
using i18n::phonenumbers::PhoneNumberMatch;
using i18n::phonenumbers::PhoneNumberMatcher;
using i18n::phonenumbers::PhoneNumberUtil;

namespace Veilshot {

namespace {

/// Anything shorter is a count, a year or a time far more often than a local number.
constexpr int fewestDigits = 7;
/// How much of the text before a number is searched for a label.
constexpr qsizetype labelReach = 64;
/// libphonenumber takes quadratic time over a line full of digits. Longer lines than this, which hardly any
/// screenshot has, go to it in pieces that overlap by more than the longest number.
constexpr qsizetype pieceLength = 256;
constexpr qsizetype pieceOverlap = 80;

/// The words around a number that tell what it is, and the shapes that tell it without any.
struct Expressions {
    RegularExpression date{
        uR"(^\(?(?:\d{4}[-‑./]\d{1,2}[-‑./]\d{1,2}|\d{1,2}[-‑./]\d{1,2}[-‑./]\d{2,4}|\d{4}\s?[-–]\s?\d{2,5})\)?$)"};
    RegularExpression otherLabelBefore{
        uR"((?:#|№|\b(?:order|ordre|ordrenr|ordrenummer|invoice|faktura|bilag|ticket|case|sag|sagsnr)"
        uR"(|journalnr|ref|reference|id|isbn|sku|batch|lot|serial|serienr|varenr|vare|part|cvr|cvr-nr|konto)"
        uR"(|kontonr|account|reg|regnr|kundenr|medlemsnr|po|tracking|usps|transaction|pid|rss|thread|build)"
        uR"(|version|port|ean|vat|moms|no|nr|nummer|code|kode|pin)\b\.?))"
        uR"(\s*(?:no|nr|id|number|nummer)?\.?\s*[:#]?\s*$)"};
    RegularExpression phoneLabelBefore{
        uR"(\b(?:tel|tlf|telefon|phone|mob|mobil|mobile|cell|call|ring|fax|sms|ph|direct|office|work|home)"
        uR"(|text|dial|kontakt|whatsapp|signal|hotline|support)\b[^\d]{0,20}$)"};
    RegularExpression amountBefore{
        uR"((?:[$€£¥]|\b(?:kr|dkk|usd|eur|gbp|total|subtotal|balance|equity|saldo|beløb|i alt|amount))\.?:?\s*$)"};
    RegularExpression unitAfter{
        uR"(^\s*(?:kr\b|dkk|usd|eur|%|°|mb\b|gb\b|kb\b|km\b|m\b|views|visninger|points|px|x\s?\d|×))"};
    /// Formats in which people write nothing but phone numbers, so that a number need not be in use.
    RegularExpression unmistakable{uR"(^(?:\+|00\d|\(\d{3,5}\)|\(\+\d|(?:1[-. ])?\d{3}[-. ]\d{3}[-. ]\d{4}$)"
                                   uR"(|0\d{2,4} \d{3,4} ?\d{3,4}$))"};
    /// Occurs wherever `unmistakable` can: a cheap reason not to look for such formats.
    RegularExpression unmistakablePart{
        uR"(\+|\(\d{3,5}\)|(?<!\d)(?:00\d|\d{3}[-. ]\d{3}[-. ]\d{4}|0\d{2,4} \d{3,4} ?\d{3,4}))"};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }
};

/// What `line` has from `start` on.
void appendPieces(std::vector<TextRange>& pieces, QStringView line, qsizetype start) {
    while (line.size() - start > pieceLength) {
        pieces.push_back({start, pieceLength});
        // At a blank, if there is one: the rest of a number that was cut would be taken for part of the next.
        const qsizetype earliest = start + pieceLength - pieceOverlap;
        const qsizetype blank = line.sliced(earliest, pieceOverlap / 2).indexOf(u' ');
        start = earliest + std::max<qsizetype>(0, blank);
    }
    pieces.push_back({start, line.size() - start});
}

/// Without the digits in a row that no number has as many of.
std::vector<TextRange> pieces(QStringView line) {
    static const RegularExpression endlessDigits(u"\\d{32,}");
    std::vector<TextRange> pieces;
    qsizetype start = 0;
    for (const TextRange digits : endlessDigits.ranges(line)) {
        appendPieces(pieces, line.first(digits.location), start);
        start = digits.end();
    }
    appendPieces(pieces, line, start);
    return pieces;
}

/// A piece of the line as libphonenumber reads it: it takes UTF-8 and answers in bytes.
class Utf8Piece {
public:
    Utf8Piece(QStringView line, TextRange piece)
        : m_start(piece.location), m_bytes(line.sliced(piece.location, piece.length).toUtf8().toStdString()) {
    }

    const std::string& bytes() const { return m_bytes; }

    /// Within the line.
    TextRange range(const PhoneNumberMatch& match) const {
        const auto utf16Length = [](std::string_view bytes) {
            return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).size();
        };
        const std::string_view bytes = m_bytes;
        return {m_start + utf16Length(bytes.substr(0, match.start())),
                utf16Length(bytes.substr(match.start(), match.end() - match.start()))};
    }

private:
    qsizetype m_start;
    std::string m_bytes;
};

bool intersectsAny(TextRange range, const std::vector<TextRange>& others) {
    return std::ranges::any_of(others, [&](TextRange other) { return range.intersects(other); });
}

/// What libphonenumber finds in any of the regions, the longest where they overlap: a Danish reading often
/// takes the end of an American number. An international number is found in every region.
std::vector<TextRange> candidates(const std::vector<Utf8Piece>& pieces,
                                  PhoneNumberMatcher::Leniency leniency) {
    std::vector<TextRange> found;
    for (const Utf8Piece& piece : pieces) {
        for (const char* region : {"US", "DK", "GB"}) {
            PhoneNumberMatcher matcher(*PhoneNumberUtil::GetInstance(), piece.bytes(), region, leniency,
                                       pieceLength);
            for (PhoneNumberMatch match; matcher.HasNext() && matcher.Next(&match);)
                found.push_back(piece.range(match));
        }
    }
    std::ranges::stable_sort(found, std::ranges::greater{}, &TextRange::length);
    std::vector<TextRange> longest;
    for (const TextRange range : found) {
        if (!intersectsAny(range, longest))
            longest.push_back(range);
    }
    return longest;
}

struct DigitGroups {
    int digits = 0;
    int groups = 0;
    int longestGroup = 0;

    explicit DigitGroups(QStringView text) {
        int group = 0;
        for (const QChar character : text) {
            group = character.isDigit() ? group + 1 : 0;
            digits += group > 0;
            groups += group == 1;
            longestGroup = std::max(longestGroup, group);
        }
    }
};

/// True where the number is cut out of something longer: a decimal, a path, a version, a word.
bool isPartOfSomethingLonger(QStringView line, TextRange number) {
    if (number.location > 0) {
        const QChar before = line[number.location - 1];
        if (before.isLetterOrNumber() || u".,#/_"_s.contains(before))
            return true;
        if (before == u':' && number.location > 1 && line[number.location - 2].isDigit())
            return true; // 09:41 05-06-2025
    }
    if (number.end() >= line.size())
        return false;
    const QChar after = line[number.end()];
    const bool digitFollows = number.end() + 1 < line.size() && line[number.end() + 1].isDigit();
    return after.isLetterOrNumber() || after == u'_' || after == u'%' ||
           (digitFollows && u".,:/"_s.contains(after));
}

/// Rejects the dates, amounts and reference numbers that are also numbers somebody could be called on.
bool isPhoneNumberInContext(QStringView line, TextRange number) {
    const Expressions& expressions = Expressions::shared();
    const QStringView text = line.sliced(number.location, number.length);
    const QStringView before = line.first(number.location).last(std::min(number.location, labelReach));
    const QStringView after = line.sliced(number.end());
    if (isPartOfSomethingLonger(line, number) || expressions.date.hasMatch(text))
        return false;
    if (expressions.otherLabelBefore.hasMatch(before) && !expressions.phoneLabelBefore.hasMatch(before))
        return false;
    if (expressions.amountBefore.hasMatch(before) || expressions.unitAfter.matchAt(after, 0))
        return false;

    const DigitGroups groups(text);
    if (groups.digits < fewestDigits)
        return false;
    // Scores, times and series come in pairs of digits too, but rarely in exactly four.
    const bool international = text.startsWith(u'+') || text.startsWith(u"00") || text.startsWith(u"(+");
    const bool danish = groups.digits == 8 && groups.groups == 4;
    return international || danish || groups.longestGroup > 2;
}

/// libphonenumber is slow: spares it the lines in which no letterless stretch has the digits of a number.
bool hasEnoughDigitsInARow(QStringView line) {
    int digits = 0;
    for (const QChar character : line) {
        if (character.isDigit() && ++digits == fewestDigits)
            return true;
        if (character.isLetter())
            digits = 0;
    }
    return false;
}

} // namespace

std::vector<TextRange> PhoneNumberFinder::find(QStringView line) const {
    if (!hasEnoughDigitsInARow(line))
        return {};
    std::vector<Utf8Piece> utf8;
    for (const TextRange piece : pieces(line))
        utf8.emplace_back(line, piece);
    std::vector<TextRange> numbers = candidates(utf8, PhoneNumberMatcher::VALID);
    const Expressions& expressions = Expressions::shared();
    if (expressions.unmistakablePart.hasMatch(line)) {
        for (const TextRange range : candidates(utf8, PhoneNumberMatcher::POSSIBLE)) {
            if (!intersectsAny(range, numbers) &&
                expressions.unmistakable.hasMatch(line.sliced(range.location, range.length)))
                numbers.push_back(range);
        }
    }
    std::erase_if(numbers, [&](TextRange range) { return !isPhoneNumberInContext(line, range); });
    std::ranges::sort(numbers, {}, &TextRange::location);
    return numbers;
}

} // namespace Veilshot
