#include "VeilshotCore/Analysis/NameTagging/FrontCoding.h"

#include <algorithm>
#include <string_view>

namespace Veilshot {

namespace {

/// Nothing for any other character than a count.
qsizetype sharedLetters(char count) {
    return count >= '0' && count <= '9' ? count - '0' : count >= 'A' && count <= 'Z' ? count - 'A' + 10 : -1;
}

} // namespace

QByteArray frontDecoded(const QByteArray& coded) {
    constexpr std::string_view usualFlags = " l";
    QByteArray lines;
    lines.reserve(2 * coded.size());
    qsizetype previous = 0; // where its line begins
    qsizetype length = 0;   // of its key
    std::string_view rest(coded.constData(), static_cast<size_t>(coded.size()));
    while (!rest.empty()) {
        const size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const qsizetype shared = line.empty() ? -1 : sharedLetters(line.front());
        if (shared < 0 || shared > length)
            continue;
        const std::string_view own = line.substr(1);
        const size_t blank = own.find(' ');
        const qsizetype start = lines.size();
        lines.append(lines.constData() + previous, shared).append(own.data(), std::ssize(own));
        if (blank == std::string_view::npos)
            lines.append(usualFlags.data(), std::ssize(usualFlags));
        lines.append('\n');
        previous = start;
        length = shared + static_cast<qsizetype>(std::min(blank, own.size()));
    }
    return lines;
}

} // namespace Veilshot
