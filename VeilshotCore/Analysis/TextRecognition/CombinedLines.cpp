#include "VeilshotCore/Analysis/TextRecognition/CombinedLines.h"

#include "VeilshotCore/Analysis/ColumnLine.h"
#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TellingLabel.h"
#include "VeilshotCore/Analysis/TextRecognition/DetailLabels.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingPart.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingPlacement.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingTexts.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// A line with a label and its colon would be hidden whole, whatever stands behind it.
ReadingPart withoutColon(const SegmentReading& label) {
    qsizetype length = label.text.size();
    while (length > 0 && u":# "_s.contains(label.text[length - 1]))
        --length;
    return {label, {0, length}};
}

/// Its comma is written by what joins it to the next.
ReadingPart withoutComma(const SegmentReading& reading) {
    return {reading, {0, reading.text.size() - (reading.text.endsWith(u',') ? 1 : 0)}};
}

/// The last words, or the first.
enum class End { first, last };

ReadingPart words(int count, const SegmentReading& reading, End end) {
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

ReadingPart fewWords(const SegmentReading& reading, End end) {
    return words(8, reading, end);
}

/// Whether it is a line of a text that is wrapped, not a cell of a table.
bool isProse(const SegmentReading& reading) {
    constexpr int leastWidth = 18; // in heights
    static const RegularExpression smallWord(uR"((?<![\p{L}\p{N}])\p{Ll}{2,}(?![\p{L}\p{N}]))",
                                             RegularExpression::CaseSensitivity::sensitive);
    return reading.box.width() >= leastWidth * reading.box.height() &&
           smallWord.ranges(reading.text).size() >= 3;
}

/// "Leaving drinks for Hyacinth", "Mbeki" on a narrow card, or one word below another as close as lines of a
/// text.
bool isTornName(const SegmentReading& upper, const SegmentReading& lower) {
    using enum RegularExpression::CaseSensitivity;
    constexpr double widestGap = 0.6; // in heights
    static const RegularExpression begun(uR"((?:(?<!\S)\p{Ll}+|\p{L}:) \p{Lu}\p{Ll}{2,}$)", sensitive);
    static const RegularExpression rest(uR"(^\p{Lu}\p{Ll}[\p{L}-]+$)", sensitive);
    const int height = std::max(upper.box.height(), lower.box.height());
    const bool isClose = lower.box.top() - upper.box.bottom() <= widestGap * height;
    return rest.hasMatch(lower.text) &&
           (begun.hasMatch(upper.text) || (isClose && rest.hasMatch(upper.text)));
}

/// Whether the two belong to one text and may be read across the end of the line; not where a time or a date
/// begins the next line of a log.
bool isWrapped(const SegmentReading& upper, const SegmentReading& lower) {
    static const RegularExpression time(uR"(^\[?\d+[:./-]\d)");
    return (isProse(upper) && !time.hasMatch(lower.text)) || goesOnInText(upper.text, lower.text) ||
           isTornName(upper, lower);
}

void appendColumnOfDetails(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                           const DetailLabels& labels, const std::vector<std::size_t>& column, QSize image) {
    if (!labels.isOfDetail(column.front()) || labels.isOfNumber(column.front()))
        return;
    const SegmentReading& header = readings[column.front()];
    for (const std::size_t cell : std::span(column).subspan(1)) {
        const SegmentReading& value = readings[cell];
        if (!isBelow(header, value) && labels.mayBeValue(value, cell)) // or it is told already
            appendForEach(lines, {withoutColon(header), whole(value)}, u"\t", image);
    }
}

/// Numbers in rows of any height, as far as every cell has digits.
void appendColumnOfNumbers(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                           const DetailLabels& labels, std::size_t header, QSize image) {
    static const RegularExpression digits(uR"(\d.*\d)");
    if (!labels.isOfNumber(header))
        return;
    for (const std::size_t cell : cellsBelow(header, readings)) {
        const SegmentReading& value = readings[cell];
        if (!labels.mayBeValue(value, cell) || !digits.hasMatch(value.text))
            break;
        if (!isBelow(readings[header], value)) // or it is told already
            appendForEach(lines, {withoutColon(readings[header]), whole(value)}, u"\t", image);
    }
}

void appendLabelled(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                    const DetailLabels& labels, std::size_t labelIndex, QSize image) {
    const SegmentReading& label = readings[labelIndex];
    const bool isPerson = isLabelOfPerson(label.text);
    if (!isPerson && !labels.isOfDetail(labelIndex))
        return;
    const bool isCertain = !isPerson || isLabelOfName(label.text);
    const auto append = [&](std::size_t index) {
        const SegmentReading& value = readings[index];
        if (isPerson ? mayBeName(value.text) : labels.mayBeValue(value, index))
            appendForEach(lines, {withoutColon(label), whole(value)}, u"\t", image);
        const SegmentReading* row = &value;
        while (!isPerson && isRowOfWords(row->text)) {
            const auto next = std::ranges::find_if(
                readings, [&](const SegmentReading& lower) { return isBelow(*row, lower); });
            if (next == readings.end() || !isRowOfWords(next->text))
                break;
            row = &*next;
            appendForEach(lines, {withoutColon(label), whole(*row)}, u"\t", image);
        }
    };
    std::optional<std::size_t> beside;
    std::optional<std::size_t> field;
    bool isAlone = true;
    for (std::size_t index = 0; index < readings.size(); ++index) {
        const SegmentReading& value = readings[index];
        if (isBelow(label, value)) {
            append(index);
            isAlone = false;
        }
        if ((isCertain ? isFarBeside(label, value) : isBeside(label, value)) &&
            (!beside || value.box.left() < readings[*beside].box.left()))
            beside = index;
        if (isCertain && isInFieldBelow(label, value) &&
            (!field || value.box.top() < readings[*field].box.top()))
            field = index;
    }
    if (beside)
        append(*beside);
    if (field && isAlone)
        append(*field);
}

/// An address that stands below each other: a street, perhaps an area, a town with its postcode or both
/// apart.
void appendAddress(std::vector<RecognizedLine>& lines, const SegmentReading& end,
                   const std::vector<SegmentReading>& readings, QSize image) {
    constexpr std::size_t mostParts = 5;
    if (!isPlace(end.text) && !isBarePostcode(end.text))
        return;
    std::vector<const SegmentReading*> rows{&end}; // upwards
    while (rows.size() < mostParts) {
        const SegmentReading& lower = *rows.back();
        const auto upper = std::ranges::find_if(
            readings, [&](const SegmentReading& reading) { return isBelow(reading, lower); });
        if (upper == readings.end() || goesOnInText(upper->text, lower.text))
            return;
        rows.push_back(&*upper);
        if (mayBeStreet(upper->text)) {
            std::vector<ReadingPart> parts;
            std::transform(rows.rbegin(), rows.rend(), std::back_inserter(parts),
                           [](const SegmentReading* row) { return withoutComma(*row); });
            return appendForEach(lines, parts, u", ", image);
        }
        if (!isTown(upper->text))
            return;
    }
}

/// Without the label and the colon, with which both lines would be hidden whole.
ReadingPart behindLabel(const ReadingPart& part) {
    const QString colon = u": "_s;
    const qsizetype at = part.text().lastIndexOf(colon);
    const qsizetype length = at < 0 ? 0 : at + colon.size();
    return {part.reading, {part.range.location + length, part.range.length - length}};
}

void appendWrapped(std::vector<RecognizedLine>& lines, const ReadingPart& upper, const ReadingPart& lower,
                   QSize image) {
    const ReadingPart unlabelled = behindLabel(upper);
    if (unlabelled.range.length > 0 && !hasLabel(unlabelled.text()) && !hasLabel(lower.text()))
        appendForEach(lines, {unlabelled, lower}, u" ", image);
}

void appendContinued(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                     QSize image) {
    for (const SegmentReading& lower : readings) {
        if (lower.text.isEmpty())
            continue;
        for (const SegmentReading& upper : readings) {
            if (!isBelow(upper, lower))
                continue;
            if (isTornToken(upper.text, lower.text))
                appendForEach(lines, {words(1, upper, End::last), words(1, lower, End::first)}, u"", image);
            else if (goesOnInCell(upper.text, lower.text))
                appendForEach(lines, {whole(upper), whole(lower)}, u" ", image);
            else if (isWrapped(upper, lower))
                appendWrapped(lines, fewWords(upper, End::last), fewWords(lower, End::first), image);
        }
        appendAddress(lines, lower, readings, image);
    }
}

void appendColumns(std::vector<RecognizedLine>& lines, const std::vector<SegmentReading>& readings,
                   const std::vector<std::vector<std::size_t>>& columns, QSize image) {
    for (const std::vector<std::size_t>& column : columns) {
        const auto count =
            std::ranges::count_if(column, [&](std::size_t cell) { return mayBeName(readings[cell].text); });
        if (2 * static_cast<std::size_t>(count) < column.size())
            continue;
        const ReadingPart header = withoutColon(readings[column.front()]);
        QString text;
        std::vector<RecognizedLine::Symbol> symbols;
        if (!hasLabel(header.text())) {
            text = header.text();
            symbols = header.symbols(0, image);
        }
        for (auto index = column.begin() + 1; index != column.end(); ++index) {
            const ReadingPart cell = whole(readings[*index]);
            if (!mayBeName(cell.text()))
                continue;
            text += cellSeparator;
            std::ranges::copy(cell.symbols(text.size(), image), std::back_inserter(symbols));
            text += cell.text();
        }
        lines.emplace_back(text, std::move(symbols));
    }
}

} // namespace

std::vector<RecognizedLine> combinedLines(const std::vector<SegmentReading>& readings, QSize image) {
    const std::vector<std::vector<std::size_t>> columns = columnsOf(readings);
    std::vector<RecognizedLine> lines;
    const DetailLabels labels(readings);
    for (std::size_t label = 0; label < readings.size(); ++label) {
        appendLabelled(lines, readings, labels, label, image);
        appendColumnOfNumbers(lines, readings, labels, label, image);
    }
    for (const std::vector<std::size_t>& column : columns)
        appendColumnOfDetails(lines, readings, labels, column, image);
    appendContinued(lines, readings, image);
    appendColumns(lines, readings, columns, image);
    return lines;
}

} // namespace Veilshot
