#pragma once

#include <QtGlobal>

namespace Veilshot {

/// A range within one line of text, in UTF-16 code units as QString counts them. Every range in the
/// library uses this unit: mixing it with bytes or code points would hide the wrong part of a line.
struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;

    constexpr qsizetype end() const { return location + length; }
    constexpr bool intersects(const TextRange& other) const {
        return location < other.end() && other.location < end();
    }

    friend constexpr bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace Veilshot
