#include "VeilshotCore/Analysis/TextRecognition/RepeatedWords.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingPart.h"

#include <QHash>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// What may be a name in full, with the passage in which it stands.
struct Run {
    QString text;
    ReadingPart passage;
};

/// The range with so many more words on either side, up to a label: that would hide the word wherever it
/// stands, whatever it is.
ReadingPart stretched(const SegmentReading& reading, TextRange range, int words) {
    const QString& text = reading.text;
    const auto isEnd = [&, blanks = 0](qsizetype at) mutable {
        return QStringView(u":#\t").contains(text[at]) || (text[at] == u' ' && ++blanks > words);
    };
    qsizetype start = range.location;
    for (auto isStart = isEnd; start > 0 && !isStart(start - 1);)
        --start;
    qsizetype end = range.end();
    for (auto isBehind = isEnd; end < text.size() && !isBehind(end);)
        ++end;
    return {reading, {start, end - start}};
}

std::vector<TextRange> capitalisedWords(const QString& text) {
    static const RegularExpression expression(
        uR"((?<![\p{L}\p{N}_@./-])\p{Lu}(?:'\p{Lu})?[\p{L}-]{2,}(?![\p{L}\p{N}_@/]))",
        RegularExpression::CaseSensitivity::sensitive);
    return expression.ranges(text);
}

/// "Ottavia Bellini", "Bellini, Ottavia", "O. Bellini", "Anna van der Berg".
std::vector<TextRange> capitalisedRuns(const QString& text) {
    static const RegularExpression expression(
        uR"((?<![\p{L}\p{N}_@./-])\p{Lu}[\p{L}'-]*\.?(?:,? (?:\p{Ll}{1,3} ){0,2}\p{Lu}[\p{L}'-]*\.?){1,5}(?![\p{L}\p{N}_@/]))",
        RegularExpression::CaseSensitivity::sensitive);
    return expression.ranges(text);
}

/// The runs by the words that they hold, in small letters.
QHash<QString, std::vector<Run>> runsByWord(const std::vector<SegmentReading>& readings) {
    constexpr std::size_t mostRuns = 3;
    constexpr int wordsAroundRun = 6;
    QHash<QString, std::vector<Run>> runs;
    for (const SegmentReading& reading : readings) {
        for (const TextRange range : capitalisedRuns(reading.text)) {
            const QString text = reading.text.sliced(range.location, range.length);
            const ReadingPart passage = stretched(reading, range, wordsAroundRun);
            for (const TextRange word : capitalisedWords(text)) {
                std::vector<Run>& known = runs[text.sliced(word.location, word.length).toLower()];
                if (known.size() < mostRuns && std::ranges::find(known, text, &Run::text) == known.end())
                    known.push_back({text, passage});
            }
        }
    }
    return runs;
}

} // namespace

std::vector<RecognizedLine> linesOfRepeatedWords(const std::vector<SegmentReading>& readings, QSize image) {
    constexpr int wordsAroundPlace = 2;
    const QHash<QString, std::vector<Run>> runs = runsByWord(readings);
    std::vector<RecognizedLine> lines;
    for (const SegmentReading& reading : readings) {
        for (const TextRange word : capitalisedWords(reading.text)) {
            const QString text = reading.text.sliced(word.location, word.length);
            const ReadingPart place = stretched(reading, word, wordsAroundPlace);
            for (const Run& run : runs.value(text.toLower())) {
                // A run stands in its own line in full.
                if (reading.text.contains(run.text))
                    continue;
                QString line = run.passage.text();
                line += repeatSeparator;
                auto symbols = ReadingPart{reading, word}.symbols(
                    line.size() + word.location - place.range.location, image);
                line += place.text();
                lines.emplace_back(std::move(line), std::move(symbols));
            }
        }
    }
    return lines;
}

} // namespace Veilshot
