#include "VeilshotCore/Analysis/RewrittenLine.h"

#include <algorithm>

namespace Veilshot {

RewrittenLine::RewrittenLine(QStringView original, std::vector<Edit> edits) {
    std::ranges::stable_sort(edits, {}, [](const Edit& edit) { return edit.range.location; });
    m_origins.reserve(static_cast<std::size_t>(original.size()) + edits.size());
    qsizetype reached = 0;
    const auto keepUpTo = [&](qsizetype end) {
        m_text += original.sliced(reached, end - reached);
        for (; reached < end; ++reached)
            m_origins.push_back({reached, 1});
    };
    qsizetype lastStart = -1;
    for (const Edit& edit : edits) {
        if (edit.range.location < reached || edit.range.location == lastStart)
            continue;
        keepUpTo(edit.range.location);
        m_text += edit.text;
        m_origins.insert(m_origins.end(), static_cast<std::size_t>(edit.text.size()), edit.range);
        lastStart = edit.range.location;
        reached = edit.range.end();
        m_isChanged = true;
    }
    keepUpTo(original.size());
}

TextRange RewrittenLine::original(TextRange range) const {
    const TextRange first = m_origins[static_cast<std::size_t>(range.location)];
    const TextRange last = m_origins[static_cast<std::size_t>(range.end() - 1)];
    return {first.location, last.end() - first.location};
}

} // namespace Veilshot
