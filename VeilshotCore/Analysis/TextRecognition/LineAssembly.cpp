#include "VeilshotCore/Analysis/TextRecognition/LineAssembly.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TextRecognition/CombinedLines.h"
#include "VeilshotCore/Analysis/TextRecognition/FixedPitch.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadSigns.h"
#include "VeilshotCore/Analysis/TextRecognition/ReadingPlacement.h"
#include "VeilshotCore/Analysis/TextRecognition/RepeatedWords.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace Veilshot {

namespace {

/// How far apart the characters of two readings stand if their font is of fixed width.
std::optional<double> commonPitch(const SegmentReading& left, const SegmentReading& right) {
    constexpr std::size_t leastPairs = 6;
    std::vector<double> distances;
    for (const SegmentReading* reading : {&left, &right}) {
        for (std::size_t index = 1; index < reading->symbols.size(); ++index) {
            const auto& [previousRange, previousBox] = reading->symbols[index - 1];
            const auto& [range, box] = reading->symbols[index];
            if (previousRange.end() == range.location)
                distances.push_back(box.center().x() - previousBox.center().x());
        }
    }
    return fixedPitch(std::move(distances), leastPairs);
}

/// Whether one blank of a font of fixed width lies between the two.
bool isOneBlankApart(const SegmentReading& left, const SegmentReading& right) {
    constexpr double tolerance = 0.4; // of a character
    if (left.symbols.empty() || right.symbols.empty())
        return false;
    const auto pitch = commonPitch(left, right);
    const double distance = right.symbols.front().box.center().x() - left.symbols.back().box.center().x();
    return pitch && std::abs(distance - 2 * *pitch) <= tolerance * *pitch;
}

/// Whether the two are parts of one telephone number: "+1 (423)" and "670-6361".
bool isTornNumber(const SegmentReading& left, const SegmentReading& right) {
    constexpr double widestBlank = 1.8; // in heights
    static const RegularExpression begun(uR"((?:\+\d{1,3}(?: \d{2,4})*|\(\d{2,4}\)(?: \d{3})?)$)");
    static const RegularExpression rest(uR"(^(?:\(\d{2,4}\)|\d{2}))");
    return right.box.left() - left.box.right() <= widestBlank * left.box.height() &&
           begun.hasMatch(left.text) && rest.hasMatch(right.text);
}

/// What the end of `left` is torn from.
std::optional<std::size_t> restOf(const SegmentReading& left, const std::vector<SegmentReading>& readings) {
    std::optional<std::size_t> nearest;
    for (std::size_t other = 0; other < readings.size(); ++other) {
        if (isBeside(left, readings[other]) && !readings[other].text.isEmpty() &&
            (!nearest || readings[other].box.left() < readings[*nearest].box.left()))
            nearest = other;
    }
    const bool isTorn =
        nearest && (isOneBlankApart(left, readings[*nearest]) || isTornNumber(left, readings[*nearest]));
    return isTorn ? nearest : std::nullopt;
}

void append(SegmentReading& reading, const SegmentReading& rest) {
    if (!reading.text.isEmpty())
        reading.text += u' ';
    for (const SegmentReading::Symbol& symbol : rest.symbols)
        reading.symbols.push_back(
            {{symbol.range.location + reading.text.size(), symbol.range.length}, symbol.box});
    reading.text += rest.text;
    reading.box |= rest.box;
}

/// Readings joined in chains: `next` has for each the one that goes on with it, if any. Each is the next of
/// one at most.
std::vector<SegmentReading> joined(const std::vector<SegmentReading>& readings,
                                   const std::vector<std::optional<std::size_t>>& next) {
    std::vector<bool> isFirst(readings.size(), true);
    for (const auto& rest : next) {
        if (rest)
            isFirst[*rest] = false;
    }
    std::vector<SegmentReading> result;
    for (std::size_t first = 0; first < readings.size(); ++first) {
        if (!isFirst[first] || readings[first].text.isEmpty())
            continue;
        SegmentReading whole = readings[first];
        for (std::optional<std::size_t> rest = next[first]; rest; rest = next[*rest])
            append(whole, readings[*rest]);
        result.push_back(std::move(whole));
    }
    return result;
}

std::vector<SegmentReading> withTornLinesWhole(const std::vector<SegmentReading>& readings) {
    std::vector<std::optional<std::size_t>> next(readings.size());
    std::vector<bool> isRest(readings.size(), false);
    for (std::size_t left = 0; left < readings.size(); ++left) {
        const auto rest = readings[left].text.isEmpty() ? std::nullopt : restOf(readings[left], readings);
        if (rest && !isRest[*rest]) {
            next[left] = rest;
            isRest[*rest] = true;
        }
    }
    return joined(readings, next);
}

std::vector<SegmentReading> withValuesAtLabels(const std::vector<SegmentReading>& readings) {
    std::vector<std::optional<std::size_t>> valueOf(readings.size());
    std::vector<bool> isValue(readings.size(), false);
    for (std::size_t label = 0; label < readings.size(); ++label) {
        if (!readings[label].text.endsWith(u':'))
            continue;
        std::optional<std::size_t> nearest;
        for (std::size_t other = 0; other < readings.size(); ++other) {
            if (!isValue[other] && isBeside(readings[label], readings[other]) &&
                (!nearest || readings[other].box.left() < readings[*nearest].box.left()))
                nearest = other;
        }
        valueOf[label] = nearest;
        if (nearest)
            isValue[*nearest] = true;
    }
    return joined(readings, valueOf);
}

} // namespace

std::vector<RecognizedLine> assembleLines(const std::vector<SegmentReading>& readings, QSize image) {
    const std::vector<SegmentReading> whole = withTornLinesWhole(readings);
    std::vector<RecognizedLine> lines;
    for (const SegmentReading& reading : withValuesAtLabels(whole)) {
        std::vector<RecognizedLine::Symbol> symbols;
        for (const SegmentReading::Symbol& symbol : reading.symbols)
            symbols.push_back({symbol.range, NormalizedRect::fromPixels(symbol.box, image)});
        QString text = reading.text;
        settleSigns(text);
        lines.emplace_back(std::move(text), std::move(symbols));
    }
    std::ranges::move(combinedLines(whole, image), std::back_inserter(lines));
    std::ranges::move(linesOfRepeatedWords(whole, image), std::back_inserter(lines));
    return lines;
}

} // namespace Veilshot
