#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QString>
#include <vector>

namespace Veilshot {

/// A line of text and where the names in it lie.
struct LabelledLine {
    QString text;
    std::vector<TextRange> names;
    std::vector<TextRange> others; ///< personal details of other kinds: no harm if a name is seen there
};

/// The lines of a file with one JSON object per line: "text" and "spans", each with "kind", "start" and
/// "length" in UTF-16 code units; only the kinds "name" and
/// "other" count. Throws std::runtime_error for a file that
/// cannot be read and nlohmann::json::exception for one that holds something else.
std::vector<LabelledLine> readLabelledLines(const QString& path);

} // namespace Veilshot
