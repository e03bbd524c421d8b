#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <algorithm>

namespace Veilshot {

RecognizedLine::RecognizedLine(QString text, std::vector<Symbol> symbols)
    : m_text(std::move(text)), m_symbols(std::move(symbols)) {
    for (const Symbol& symbol : m_symbols)
        m_boundingBox = m_boundingBox.united(symbol.box);
}

std::optional<NormalizedRect> RecognizedLine::boundingBox(TextRange range) const {
    if (range.location < 0 || range.length <= 0 || range.end() > m_text.size())
        return std::nullopt;
    NormalizedRect box;
    for (const Symbol& symbol : m_symbols) {
        if (symbol.range.intersects(range))
            box = box.united(symbol.box);
    }
    if (box.isEmpty())
        return std::nullopt;
    return box;
}

} // namespace Veilshot
