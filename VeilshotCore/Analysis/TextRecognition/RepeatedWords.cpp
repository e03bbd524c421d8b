#include "VeilshotCore/Analysis/TextRecognition/RepeatedWords.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingPart.h"

#include <QHash>
#include <QList>
#include <algorithm>
#include <iterator>

namespace Veilshot {

namespace {

/// A word with its neighbours.
struct Place {
    TextRange word;
    ReadingPart around;
};

/// What may be a name in full, with the passage in which it stands.
struct Run {
    QString text;
    QString passage;
    std::vector<Place> places; ///< elsewhere, of the words of the run
};

/// The range with so many more words on either side, up to a label: that would hide the word wherever it
/// stands, whatever it is.
ReadingPart stretched(const SegmentReading& reading, TextRange range, int words) {
    constexpr int mostCharacters = 80;
    const QString& text = reading.text;
    const auto isEnd = [&, blanks = 0, count = 0](qsizetype at) mutable {
        return QStringView(u":#\t").contains(text[at]) || (text[at] == u' ' && ++blanks > words) ||
               ++count > mostCharacters;
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

class Runs {
public:
    explicit Runs(const std::vector<SegmentReading>& readings) {
        for (const SegmentReading& reading : readings) {
            for (const TextRange range : capitalisedRuns(reading.text))
                add(reading, range);
        }
    }

    void addPlace(const SegmentReading& reading, TextRange word) {
        constexpr int wordsAround = 2;
        for (const std::size_t index : m_byWord.value(keyOf(reading.text, word))) {
            // A run stands in its own line in full.
            if (!reading.text.contains(m_runs[index].text))
                m_runs[index].places.push_back({word, stretched(reading, word, wordsAround)});
        }
    }

    const std::vector<Run>& all() const { return m_runs; }

private:
    static QString keyOf(const QString& text, TextRange word) {
        return text.sliced(word.location, word.length).toLower();
    }

    void add(const SegmentReading& reading, TextRange range) {
        constexpr qsizetype mostRuns = 3; // with the same word
        constexpr int wordsAround = 6;
        const QString text = reading.text.sliced(range.location, range.length);
        QString passage = stretched(reading, range, wordsAround).text();
        if (const auto known = m_byText.constFind(text); known != m_byText.constEnd()) {
            // A mail address beside a name says more than the name alone.
            QString& present = m_runs[*known].passage;
            if (passage.contains(u'@') && !present.contains(u'@'))
                present = std::move(passage);
            return;
        }
        bool isKept = false;
        for (const TextRange word : capitalisedWords(text)) {
            QList<std::size_t>& runs = m_byWord[keyOf(text, word)];
            if (runs.size() >= mostRuns)
                continue;
            if (!isKept) {
                m_byText.insert(text, m_runs.size());
                m_runs.push_back({text, std::move(passage), {}});
            }
            isKept = true;
            const std::size_t index = m_runs.size() - 1;
            if (!runs.contains(index)) // "Ali Ali"
                runs.push_back(index);
        }
    }

    std::vector<Run> m_runs;
    QHash<QString, QList<std::size_t>> m_byWord; ///< in small letters
    QHash<QString, std::size_t> m_byText;
};

RecognizedLine lineOf(const Run& run, QSize image) {
    QString text = run.passage;
    std::vector<RecognizedLine::Symbol> symbols;
    for (const auto& [word, around] : run.places) {
        text += repeatSeparator;
        const qsizetype start = text.size() + word.location - around.range.location;
        std::ranges::move(ReadingPart{around.reading, word}.symbols(start, image),
                          std::back_inserter(symbols));
        text += around.text();
    }
    return {std::move(text), std::move(symbols)};
}

} // namespace

std::vector<RecognizedLine> linesOfRepeatedWords(const std::vector<SegmentReading>& readings, QSize image) {
    Runs runs(readings);
    for (const SegmentReading& reading : readings) {
        for (const TextRange word : capitalisedWords(reading.text))
            runs.addPlace(reading, word);
    }
    std::vector<RecognizedLine> lines;
    for (const Run& run : runs.all()) {
        if (!run.places.empty())
            lines.push_back(lineOf(run, image));
    }
    return lines;
}

} // namespace Veilshot
