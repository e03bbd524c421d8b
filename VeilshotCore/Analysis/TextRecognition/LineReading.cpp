#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TextRecognition/FixedPitch.h"
#include "VeilshotCore/Analysis/TextRecognition/InkColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// A blank that was read is one only where the ink has a gap at least this wide, as a share of the line's ink
/// height. Between plain words and numbers the recognizer is nearly always right, even where a bold or narrow
/// font leaves two pixels; keys and links it tears. Signs that join the parts of a token stand in wider gaps,
/// in fonts of fixed width above all, and so do the dots of an address already begun. Blanks read into tokens
/// end at 0.154, beside joining signs at 0.286, in addresses at 0.357.
constexpr double narrowestBlankOfWords = 0.06;
constexpr double narrowestBlank = 0.16;
constexpr double narrowestBlankBesideSign = 0.3;
constexpr double narrowestBlankInAddress = 0.4;

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

/// Whether it reads like a word of a sentence, a number or a short code, with its punctuation. Keys are
/// letters now and then, but not in the cases of a word.
bool isPlainWord(const QString& word) {
    static const RegularExpression plain(
        uR"(^["'(\[{„“‘«<]*(?:[\p{L}'’.&-]*\p{L}|\+?\d+(?:[.,-]\d+)*|[\p{L}\d]{1,4})[.,;!?%)\]}”’'">»]*$)");
    static const RegularExpression changingCase(uR"(\p{Ll}\p{Lu}.*\p{Ll}\p{Lu})",
                                                RegularExpression::CaseSensitivity::sensitive);
    return plain.hasMatch(word) && !changingCase.hasMatch(word);
}

/// A name of a machine or a file goes on behind its dot: "github. com".
bool goesOnBehindDot(const QString& word, const QString& next) {
    return word.endsWith(u'.') && word.size() > 2 && word[word.size() - 2].isLetter() &&
           next.front().isLower();
}

double narrowestBlankBetween(const QString& word, const QString& nextWord) {
    const QChar last = word.back();
    const QChar next = nextWord.front();
    if (next == u'/' && (word.endsWith(u"http:") || word.endsWith(u"https:")))
        return std::numeric_limits<double>::infinity();
    if ((isAddress(word) || isToken(word)) && (last == u'.' || next == u'.'))
        return narrowestBlankInAddress;
    // "anna. lund@example.org", but not "Ask me. anna@example.org" with a blank of a whole character
    if (nextWord.contains(u'@') && goesOnBehindDot(word, nextWord))
        return narrowestBlankInAddress;
    if (u"_/@="_s.contains(last) || u"_/@=:"_s.contains(next) || word.contains(u'='))
        return narrowestBlankBesideSign;
    const bool arePlain = isPlainWord(word) && isPlainWord(nextWord) && !goesOnBehindDot(word, nextWord);
    return arePlain ? narrowestBlankOfWords : narrowestBlank;
}

double distance(const TesseractEngine::Symbol& left, const TesseractEngine::Symbol& right) {
    return right.box.center().x() - left.box.center().x();
}

std::optional<double> pitchOf(const Symbols& symbols) {
    constexpr std::size_t leastPairs = 12;
    std::vector<double> distances;
    for (std::size_t index = 1; index < symbols.size(); ++index) {
        if (!symbols[index].beginsWord)
            distances.push_back(distance(symbols[index - 1], symbols[index]));
    }
    return fixedPitch(std::move(distances), leastPairs);
}

/// The word that begins with this symbol, as it was read.
QString wordFrom(std::span<const TesseractEngine::Symbol> symbols) {
    QString word;
    for (const TesseractEngine::Symbol& symbol : symbols) {
        if (symbol.beginsWord && !word.isEmpty())
            break;
        word += symbol.text;
    }
    return word;
}

/// Whether the ink confirms the blank that was read between the word so far and the word that begins with
/// `next`. In fonts of fixed width an address or a key has gaps as wide as blanks elsewhere; there a whole
/// character is missing.
bool isBlankBetween(const QString& word, const TesseractEngine::Symbol& previous,
                    std::span<const TesseractEngine::Symbol> next, const InkColumns& columns, int height,
                    std::optional<double> pitch) {
    constexpr double narrowestFixedBlank = 1.35; // in pitches, from character to character
    const QString nextWord = wordFrom(next);
    if (word.isEmpty() || nextWord.isEmpty())
        return true;
    const QRectF& left = previous.box;
    const QRectF& right = next.front().box;
    if (pitch && (isAddress(word) || isToken(word)) &&
        distance(previous, next.front()) < narrowestFixedBlank * *pitch)
        return false;
    const double narrowest = narrowestBlankBetween(word, nextWord);
    // The boxes of letters are estimates and often lie a little beside their ink.
    const bool isLenient = narrowest == narrowestBlankOfWords;
    const double from = isLenient ? left.left() : left.center().x();
    const double to = isLenient ? right.right() : right.center().x();
    return columns.widestBlank(from, to) >= narrowest * height;
}

/// Whether the symbol is what the low stroke was read as: an underscore, a hyphen, or, if short, a full stop.
bool isReadFrom(const TesseractEngine::Symbol& symbol, const ColumnRun& stroke, int height) {
    constexpr double widestFullStop = 0.45;
    const bool isStop = symbol.text == u"." && stroke.width() < widestFullStop * height;
    return (symbol.text == u"_" || symbol.text == u"-" || isStop) &&
           std::abs(symbol.box.center().x() - stroke.centre()) < 0.8 * stroke.width();
}

/// With the underscores that the recognizer left out.
Symbols withUnderscores(const Symbols& recognized, const InkColumns& columns, int height) {
    Symbols symbols = recognized;
    for (const ColumnRun& run : columns.underscores()) {
        const bool isRead = std::ranges::any_of(
            symbols, [&](const TesseractEngine::Symbol& symbol) { return isReadFrom(symbol, run, height); });
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

} // namespace

SegmentReading readSegment(const TextSegment& segment, const Symbols& recognized) {
    SegmentReading reading{{}, {}, segment.box};
    const InkColumns columns(segment.ink);
    Symbols symbols = withUnderscores(recognized, columns, segment.ink.height());
    narrowPunctuation(symbols);
    const std::optional<double> pitch = pitchOf(symbols);
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
    for (std::size_t index = 0; index < symbols.size(); ++index) {
        const TesseractEngine::Symbol& symbol = symbols[index];
        if (index > 0 && symbol.beginsWord &&
            isBlankBetween(word, symbols[index - 1], std::span(symbols).subspan(index), columns,
                           segment.ink.height(), pitch)) {
            endWord();
            reading.text += u' ';
        }
        reading.symbols.push_back({{reading.text.size(), symbol.text.size()}, symbol.box});
        reading.text += symbol.text;
        word += symbol.text;
    }
    endWord();
    return reading;
}

} // namespace Veilshot
