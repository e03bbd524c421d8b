#pragma once

#include "VeilshotCore/Analysis/DataDetector.h"

#include <QString>
#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <string>
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

/// Takes lines with what is to be found in brackets.
template<class Finder>
void expectFound(const std::vector<std::string>& rows) {
    for (const std::string& row : rows) {
        std::string line;
        std::ranges::remove_copy_if(row, std::back_inserter(line),
                                    [](char sign) { return sign == '[' || sign == ']'; });
        std::string marked;
        std::size_t end = 0;
        for (const std::string& text : foundIn<Finder>(line.c_str())) {
            const std::size_t start = std::min(line.find(text, end), line.size());
            marked += line.substr(end, start - end) + '[' + text + ']';
            end = start + text.size();
        }
        EXPECT_EQ(marked + line.substr(std::min(end, line.size())), row);
    }
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
