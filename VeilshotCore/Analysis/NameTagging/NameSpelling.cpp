#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <QByteArray>
#include <QFile>
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace Veilshot {

using namespace Qt::StringLiterals;

namespace {

// As tools/name-model/learn-spelling.py has them.
constexpr unsigned tableBits = 15;
constexpr double stepsPerPoint = 32;
constexpr size_t shortestGroup = 2;
constexpr size_t longestGroup = 5;

/// What every group of letters speaks for a name, in steps; all zero if it cannot be read.
const QByteArray& table() {
    static const QByteArray bytes = [] {
        constexpr qsizetype size = 1 << tableBits;
        QFile file(u":/Veilshot/Analysis/NameSpelling.bin"_s);
        const QByteArray read = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return read.size() == size ? read : QByteArray(size, '\0');
    }();
    return bytes;
}

uint32_t placeOf(std::string_view group) {
    uint32_t value = 2166136261U;
    for (const char letter : group)
        value = (value ^ static_cast<unsigned char>(letter)) * 16777619U;
    return (value * 2654435769U) >> (32 - tableBits);
}

} // namespace

double spellingOfName(std::string_view folded) {
    const std::string bounded = '^' + std::string(folded) + '$';
    std::vector<uint32_t> places;
    for (size_t length = shortestGroup; length <= longestGroup; ++length) {
        for (size_t at = 0; at + length <= bounded.size(); ++at)
            places.push_back(placeOf(std::string_view(bounded).substr(at, length)));
    }
    std::ranges::sort(places);
    const auto repeated = std::ranges::unique(places);
    places.erase(repeated.begin(), repeated.end());
    int steps = 0;
    for (const uint32_t place : places)
        steps += static_cast<signed char>(table()[static_cast<qsizetype>(place)]);
    return steps / stepsPerPoint;
}

} // namespace Veilshot
