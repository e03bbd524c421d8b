#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <string>
#include <vector>

namespace Veilshot {

/// What stands in the ranges, in UTF-8 so that a failing test prints it.
inline std::vector<std::string> textsOf(QStringView line, const std::vector<TextRange>& ranges) {
    std::vector<std::string> texts;
    for (const TextRange range : ranges)
        texts.push_back(line.sliced(range.location, range.length).toUtf8().toStdString());
    return texts;
}

} // namespace Veilshot
