#pragma once

#include "VeilshotCore/Analysis/DataDetector.h"

#include <QString>
#include <gmock/gmock.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace Veilshot {

using Texts = std::vector<std::string>;

/// What a finder finds in the line, in UTF-8 so that a failing test prints it.
template<class Finder>
Texts foundIn(const char* utf8) {
    const QString line = QString::fromUtf8(utf8);
    Texts texts;
    for (const auto& found : Finder().find(line)) {
        TextRange range;
        if constexpr (requires { found.range; })
            range = found.range;
        else
            range = found;
        texts.push_back(line.mid(range.location, range.length).toStdString());
    }
    return texts;
}

template<class Finder>
void expectFound(const std::vector<std::pair<const char*, Texts>>& rows) {
    for (const auto& [line, texts] : rows)
        EXPECT_EQ(foundIn<Finder>(line), texts) << line;
}

template<class Finder>
void expectFoundWhole(const std::vector<const char*>& lines) {
    for (const char* line : lines)
        EXPECT_EQ(foundIn<Finder>(line), Texts{line});
}

template<class Finder>
void expectNothingFound(const std::vector<const char*>& lines) {
    for (const char* line : lines)
        EXPECT_EQ(foundIn<Finder>(line), Texts{}) << line;
}

} // namespace Veilshot
