#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <memory>
#include <optional>
#include <vector>

namespace Veilshot {

/// A compiled expression with ICU's syntax and semantics. Immutable, so that one instance serves any number
/// of threads. Matching is limited in time: an expression that would take long on some line gives up there
/// and returns what it has found so far, so that no text can hang a scan.
class RegularExpression {
public:
    enum class CaseSensitivity { insensitive, sensitive };

    /// `pattern` is a constant of the program. One that does not compile is a programming error and stops it.
    explicit RegularExpression(QStringView pattern,
                               CaseSensitivity caseSensitivity = CaseSensitivity::insensitive);
    ~RegularExpression();
    RegularExpression(RegularExpression&&) noexcept;
    RegularExpression& operator=(RegularExpression&&) noexcept;

    /// One match: the range of the whole, then of each capture group; a group that took no part has a
    /// negative location.
    struct Match {
        TextRange range;
        std::vector<TextRange> groups;
    };

    /// All matches, leftmost first and not overlapping. Look-behind sees the text before a match.
    std::vector<TextRange> ranges(QStringView text) const;
    std::vector<Match> matches(QStringView text) const;
    /// The first match at or after `from`.
    std::optional<Match> firstMatch(QStringView text, qsizetype from = 0) const;
    /// The match that begins exactly at `at`, if there is one. Look-behind sees the text before `at`.
    std::optional<Match> matchAt(QStringView text, qsizetype at) const;
    bool hasMatch(QStringView text) const { return firstMatch(text).has_value(); }

private:
    struct Compiled;
    std::unique_ptr<const Compiled> m_compiled;
};

} // namespace Veilshot
