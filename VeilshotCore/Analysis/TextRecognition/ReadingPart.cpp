#include "VeilshotCore/Analysis/TextRecognition/ReadingPart.h"

#include "VeilshotCore/Analysis/TextRecognition/ReadSigns.h"

namespace Veilshot {

std::vector<RecognizedLine::Symbol> ReadingPart::symbols(qsizetype offset, QSize image) const {
    std::vector<RecognizedLine::Symbol> symbols;
    for (const SegmentReading::Symbol& symbol : reading.symbols) {
        if (symbol.range.intersects(range))
            symbols.push_back({{symbol.range.location - range.location + offset, symbol.range.length},
                               NormalizedRect::fromPixels(symbol.box, image)});
    }
    return symbols;
}

ReadingPart whole(const SegmentReading& reading) {
    return {reading, {0, reading.text.size()}};
}

RecognizedLine lineWithBoxesOf(std::size_t index, const std::vector<ReadingPart>& parts, QStringView between,
                               QSize image) {
    QString text;
    std::vector<RecognizedLine::Symbol> symbols;
    for (std::size_t at = 0; at < parts.size(); ++at) {
        if (at > 0)
            text += between;
        if (at == index)
            symbols = parts[at].symbols(text.size(), image);
        text += parts[at].text();
    }
    settleSigns(text);
    return {std::move(text), std::move(symbols)};
}

void appendForEach(std::vector<RecognizedLine>& lines, const std::vector<ReadingPart>& parts,
                   QStringView between, QSize image) {
    for (std::size_t index = 0; index < parts.size(); ++index)
        lines.push_back(lineWithBoxesOf(index, parts, between, image));
}

} // namespace Veilshot
