#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TextRecognition/InkColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// Blanks between words are at least this wide, as a share of the line's ink height. Signs that join the
/// parts of a token stand in wider gaps, in fonts of fixed width above all, and so do the dots of an address
/// already begun. (On the ink of 12 screenshots, real blanks began at 0.176, blanks read into tokens ended at
/// 0.154; beside joining signs at 0.286, in addresses at 0.357.)
constexpr double narrowestBlank = 0.16;
constexpr double narrowestBlankBesideSign = 0.3;
constexpr double narrowestBlankInAddress = 0.4;

/// A value belongs to the label before it up to this distance, in heights of the label.
constexpr double farthestValue = 16;

using Symbols = std::vector<TesseractEngine::Symbol>;

/// Whether the word is longer than people's words are and has letters and digits: a key, a part of one.
bool isToken(const QString& word) {
    constexpr qsizetype leastLength = 14;
    return word.size() >= leastLength &&
           std::ranges::any_of(word, [](QChar character) { return character.isDigit(); }) &&
           std::ranges::any_of(word, [](QChar character) { return character.isLetter(); });
}

bool isAddress(const QString& word) {
    return word.contains(u"://") || word.contains(u'@') || word.startsWith(u"www.");
}

double narrowestBlankBetween(const QString& word, QChar last, QChar next) {
    if (next == u'/' && (word.endsWith(u"http:") || word.endsWith(u"https:")))
        return std::numeric_limits<double>::infinity();
    if ((isAddress(word) || isToken(word)) && (last == u'.' || next == u'.'))
        return narrowestBlankInAddress;
    if (u"_/@="_s.contains(last) || u"_/@=:"_s.contains(next) || word.contains(u'='))
        return narrowestBlankBesideSign;
    return narrowestBlank;
}

double distance(const TesseractEngine::Symbol& left, const TesseractEngine::Symbol& right) {
    return right.box.center().x() - left.box.center().x();
}

/// How far apart the characters of a line in a font of fixed width stand; nothing for other fonts.
std::optional<double> fixedPitch(const Symbols& symbols) {
    constexpr std::size_t leastPairs = 12;
    constexpr double tolerance = 0.22;
    constexpr double leastShare = 0.8;
    std::vector<double> distances;
    for (std::size_t index = 1; index < symbols.size(); ++index) {
        if (!symbols[index].beginsWord)
            distances.push_back(distance(symbols[index - 1], symbols[index]));
    }
    if (distances.size() < leastPairs)
        return std::nullopt;
    const auto median = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::ranges::nth_element(distances, median);
    const double pitch = *median;
    const auto regular = std::ranges::count_if(
        distances, [&](double other) { return std::abs(other - pitch) <= tolerance * pitch; });
    return static_cast<double>(regular) >= leastShare * static_cast<double>(distances.size())
               ? std::optional(pitch)
               : std::nullopt;
}

/// Whether the ink confirms the blank that was read between the word so far and `next`. In fonts of fixed
/// width an address or a key has gaps as wide as blanks elsewhere; there a whole character is missing.
bool isBlankBetween(const QString& word, const TesseractEngine::Symbol& previous,
                    const TesseractEngine::Symbol& next, const InkColumns& columns, int height,
                    std::optional<double> pitch) {
    constexpr double narrowestFixedBlank = 1.35; // in pitches, from character to character
    if (word.isEmpty() || next.text.isEmpty())
        return true;
    if (pitch && (isAddress(word) || isToken(word)) &&
        distance(previous, next) < narrowestFixedBlank * *pitch)
        return false;
    return columns.widestBlank(previous.box.center().x(), next.box.center().x()) >=
           narrowestBlankBetween(word, word.back(), next.text.front()) * height;
}

/// With the underscores that the recognizer left out.
Symbols withUnderscores(const Symbols& recognized, const InkColumns& columns, int height) {
    Symbols symbols = recognized;
    for (const ColumnRun& run : columns.underscores()) {
        const bool isRead = std::ranges::any_of(symbols, [&](const TesseractEngine::Symbol& symbol) {
            return symbol.text == u"_" &&
                   std::abs(symbol.box.center().x() - run.centre()) < 0.8 * run.width();
        });
        if (isRead)
            continue;
        const auto next = std::ranges::find_if(symbols, [&](const TesseractEngine::Symbol& symbol) {
            return symbol.box.center().x() > run.centre();
        });
        const QRectF box(run.begin, 0, run.width(), height);
        if (next != symbols.begin() && next != symbols.end())
            symbols.insert(next, {u"_"_s, box, false});
    }
    return symbols;
}

/// With hyphens and blanks that do not break lines where the digits around them are surely no number to call:
/// in a date with a time of day, behind a number sign, between thousands. And with the letter Ø where it was
/// taken for a sign that no handle of a person would have there.
void settleSigns(QString& text) {
    static const RegularExpression joinedDigits(
        uR"((?<![\d-])(?:(?:19|20)\d\d(-)[01]\d(-)[0-3]\d|[0-3]\d(-)[01]\d(-)(?:19|20)\d\d))"
        uR"((?=[T_ ]{1,2}[0-2]?\d[:.][0-5]\d))"
        uR"(|(?<=#)\d+(-)\d+(?![\d-])|(?<![\d+()\p{L}-] ?)[1-9]( )\d{3}( )\d{3}(?![\d()-]| [\d(-]))");
    static const RegularExpression misreadLetter(
        uR"((?<=\p{Lu}\p{Ll}{1,20} )(@)(?=\p{Ll}{3,}(?![\p{L}\d_@-]|\.\w)))",
        RegularExpression::CaseSensitivity::sensitive);
    constexpr QChar nonBreakingHyphen(0x2011);
    constexpr QChar nonBreakingBlank(0x00A0);
    for (const auto& match : joinedDigits.matches(text)) {
        for (const TextRange sign : match.groups) {
            if (sign.location >= 0)
                text[sign.location] = text[sign.location] == u'-' ? nonBreakingHyphen : nonBreakingBlank;
        }
    }
    for (const TextRange sign : misreadLetter.ranges(text))
        text[sign.location] = u'Ø';
}

/// The recognizer often counts the last letter of a word to the comma behind it: gives the letter its share
/// back.
void narrowPunctuation(Symbols& symbols) {
    constexpr double widestSign = 0.8; // in widths of a usual character
    constexpr double usualSign = 0.35;
    std::vector<double> widths;
    for (const TesseractEngine::Symbol& symbol : symbols)
        widths.push_back(symbol.box.width());
    if (widths.empty())
        return;
    const auto median = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
    std::ranges::nth_element(widths, median);
    for (std::size_t index = 1; index < symbols.size(); ++index) {
        QRectF& letter = symbols[index - 1].box;
        QRectF& sign = symbols[index].box;
        const bool endsWord = index + 1 == symbols.size() || symbols[index + 1].beginsWord;
        const bool isSign = u".,;:"_s.contains(symbols[index].text);
        if (isSign && endsWord && !symbols[index].beginsWord && sign.width() > widestSign * *median) {
            sign.setLeft(sign.right() - usualSign * *median);
            letter.setRight(std::max(letter.right(), sign.left()));
        }
    }
}

bool isBeside(const SegmentReading& label, const SegmentReading& value) {
    const QRect& left = label.box;
    const QRect& right = value.box;
    const int common = std::min(left.bottom(), right.bottom()) - std::max(left.top(), right.top()) + 1;
    const int gap = right.left() - left.right();
    return 2 * common >= std::min(left.height(), right.height()) && gap > 0 &&
           gap <= farthestValue * left.height();
}

/// Whether one stands right below the other as in a column, flush left.
bool isBelow(const SegmentReading& upper, const SegmentReading& lower) {
    constexpr double mostShift = 0.8;
    constexpr double widestGap = 1.4;
    const int height = std::max(upper.box.height(), lower.box.height());
    const int gap = lower.box.top() - upper.box.bottom();
    return gap > 0 && gap <= widestGap * height &&
           std::abs(lower.box.left() - upper.box.left()) <= mostShift * height;
}

/// Labels of details that nothing but their label tells from other words and numbers.
bool isTellingLabel(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:(?:date of )?birth(?: ?da(?:y|te))?|born|dob|født|fødselsda(?:g|to))"
        uR"(|(?:[\p{L}-]+ ){0,2}(?:pass(?:word|code|phrase)?|secret|token|pin(?: ?code)?|(?:api|access|license) key)"
        uR"(|kodeord|adgangskode|pinkode|nøgle|pas(?:nummer)?)|kørekort|driv\w+ licen[cs]e|sundhedskort)"
        uR"(|(?:passport|pas|id|identity|ni|national insurance|social security|tax|ssn|tin|health|patient))"
        uR"((?:[- ]?(?:card|no|nr|number|nummer|id)){1,2})[.*]?$)");
    return text.size() <= 32 && expression.hasMatch(text);
}

/// Whether the first text goes on in the second, which stands below it in the same column: an address with
/// its floor or postcode, a number with its last digits.
bool goesOnIn(const QString& upper, const QString& lower) {
    static const RegularExpression restOfAddress(
        uR"(^(?:\d{4,5}(?:-\d{4})?|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2}|(?:st|kl|\d{1,2})\.? ?(?:sal)?,? ?(?:t[vh]|mf)\.?)$)");
    static const RegularExpression restOfNumber(uR"(^\d{2,4}(?: \d{2})?$)");
    static const RegularExpression begunNumber(uR"([\p{L}+,].*\d{2} \d{2,4}$)");
    static const RegularExpression word(uR"(\p{L}{2})");
    return (restOfAddress.hasMatch(lower) && word.hasMatch(upper)) ||
           (restOfNumber.hasMatch(lower) && begunNumber.hasMatch(upper));
}

/// A part of a reading: from one character on up to another.
struct Part {
    const SegmentReading& reading;
    TextRange range;

    QString text() const { return reading.text.sliced(range.location, range.length); }

    std::vector<RecognizedLine::Symbol> symbols(qsizetype offset, QSize image) const {
        std::vector<RecognizedLine::Symbol> symbols;
        for (const SegmentReading::Symbol& symbol : reading.symbols) {
            if (symbol.range.intersects(range))
                symbols.push_back({{symbol.range.location - range.location + offset, symbol.range.length},
                                   NormalizedRect::fromPixels(symbol.box, image)});
        }
        return symbols;
    }
};

Part whole(const SegmentReading& reading) {
    return {reading, {0, reading.text.size()}};
}

/// The text of both, `between` them, in which only one of them has boxes: twice, so that a detail that lies
/// in both is covered where each of its parts stands and not around both.
void appendBothWays(std::vector<RecognizedLine>& lines, const Part& first, QChar between, const Part& second,
                    QSize image) {
    QString text = first.text() + between + second.text();
    settleSigns(text);
    lines.emplace_back(text, first.symbols(0, image));
    lines.emplace_back(text, second.symbols(first.range.length + 1, image));
}

/// The last words, or the first.
enum class End { first, last };

Part fewWords(const SegmentReading& reading, End end) {
    constexpr int count = 8;
    constexpr qsizetype mostCharacters = 80;
    const QString& text = reading.text;
    qsizetype at = end == End::first ? 0 : text.size() - 1;
    const qsizetype step = end == End::first ? 1 : -1;
    int blanks = 0;
    qsizetype length = 0;
    for (; at >= 0 && at < text.size() && length < mostCharacters; at += step, ++length) {
        if (text[at] == u' ' && ++blanks == count)
            break;
    }
    return {reading, end == End::first ? TextRange{0, length} : TextRange{text.size() - length, length}};
}

/// Whether it is a line of a text that is wrapped, not a cell of a table.
bool isProse(const SegmentReading& reading) {
    constexpr int leastWidth = 18; // in heights
    static const RegularExpression smallWord(uR"((?<![\p{L}\p{N}])\p{Ll}{2,}(?![\p{L}\p{N}]))",
                                             RegularExpression::CaseSensitivity::sensitive);
    return reading.box.width() >= leastWidth * reading.box.height() &&
           smallWord.ranges(reading.text).size() >= 3;
}

/// Whether the two belong to one wrapped text and may be read across the end of the line. Not with a label in
/// them, which would give all of both away, nor where a time or a date begins the next line of a log.
bool isWrapped(const SegmentReading& upper, const SegmentReading& lower) {
    static const RegularExpression label(uR"(\p{L}\s*[:#])");
    static const RegularExpression time(uR"(^\[?\d+[:./-]\d)");
    return isProse(upper) && !time.hasMatch(lower.text) && !label.hasMatch(upper.text) &&
           !label.hasMatch(lower.text);
}

/// Lines in addition to those of the segments, where only two segments together show what they hold.
void appendLinesOfPairs(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                        QSize image) {
    for (const SegmentReading& label : readings) {
        if (!isTellingLabel(label.text))
            continue;
        const SegmentReading* beside = nullptr;
        for (const SegmentReading& value : readings) {
            if (isBelow(label, value))
                appendBothWays(lines, whole(label), u'\t', whole(value), image);
            if (isBeside(label, value) && (!beside || value.box.left() < beside->box.left()))
                beside = &value;
        }
        if (beside)
            appendBothWays(lines, whole(label), u'\t', whole(*beside), image);
    }
    for (const SegmentReading& lower : readings) {
        if (lower.text.isEmpty())
            continue;
        for (const SegmentReading& upper : readings) {
            if (!isBelow(upper, lower))
                continue;
            if (goesOnIn(upper.text, lower.text))
                appendBothWays(lines, whole(upper), u' ', whole(lower), image);
            else if (isWrapped(upper, lower))
                appendBothWays(lines, fewWords(upper, End::last), u' ', fewWords(lower, End::first), image);
        }
    }
}

} // namespace

SegmentReading readSegment(const TextSegment& segment, const Symbols& recognized) {
    SegmentReading reading{{}, {}, segment.box};
    const InkColumns columns(segment.ink);
    Symbols symbols = withUnderscores(recognized, columns, segment.ink.height());
    narrowPunctuation(symbols);
    const std::optional<double> pitch = fixedPitch(symbols);
    QString word;
    std::size_t wordBegin = 0;
    const auto endWord = [&] {
        if (wordBegin == reading.symbols.size())
            return;
        QRectF ink;
        for (std::size_t index = wordBegin; index < reading.symbols.size(); ++index)
            ink |= reading.symbols[index].box;
        const RowRun rows = columns.inkRows(ink.left(), ink.right());
        for (std::size_t index = wordBegin; index < reading.symbols.size(); ++index) {
            QRectF& box = reading.symbols[index].box;
            box = QRectF(box.x(), rows.begin, box.width(), rows.end - rows.begin)
                      .translated(segment.box.topLeft());
        }
        wordBegin = reading.symbols.size();
        word.clear();
    };
    const TesseractEngine::Symbol* previous = nullptr;
    for (const TesseractEngine::Symbol& symbol : symbols) {
        if (previous && symbol.beginsWord &&
            isBlankBetween(word, *previous, symbol, columns, segment.ink.height(), pitch)) {
            endWord();
            reading.text += u' ';
        }
        reading.symbols.push_back({{reading.text.size(), symbol.text.size()}, symbol.box});
        reading.text += symbol.text;
        word += symbol.text;
        previous = &symbol;
    }
    endWord();
    return reading;
}

std::vector<RecognizedLine> assembleLines(const std::vector<SegmentReading>& readings, QSize image) {
    std::vector<std::optional<std::size_t>> valueOf(readings.size());
    std::vector<bool> isValue(readings.size(), false);
    for (std::size_t label = 0; label < readings.size(); ++label) {
        if (!readings[label].text.endsWith(u':'))
            continue;
        std::optional<std::size_t> nearest;
        for (std::size_t other = 0; other < readings.size(); ++other) {
            if (!isValue[other] && !readings[other].text.isEmpty() &&
                isBeside(readings[label], readings[other]) &&
                (!nearest || readings[other].box.left() < readings[*nearest].box.left()))
                nearest = other;
        }
        valueOf[label] = nearest;
        if (nearest)
            isValue[*nearest] = true;
    }

    std::vector<RecognizedLine> lines;
    for (std::size_t first = 0; first < readings.size(); ++first) {
        if (isValue[first] || readings[first].text.isEmpty())
            continue;
        QString text;
        std::vector<RecognizedLine::Symbol> symbols;
        for (std::optional<std::size_t> part = first; part; part = valueOf[*part]) {
            if (!text.isEmpty())
                text += u' ';
            for (const SegmentReading::Symbol& symbol : readings[*part].symbols)
                symbols.push_back({{symbol.range.location + text.size(), symbol.range.length},
                                   NormalizedRect::fromPixels(symbol.box, image)});
            text += readings[*part].text;
        }
        settleSigns(text);
        lines.emplace_back(std::move(text), std::move(symbols));
    }
    appendLinesOfPairs(lines, readings, image);
    return lines;
}

} // namespace Veilshot
