#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QString>
#include <QtGlobal>
#include <unicode/regex.h>

namespace Veilshot {

namespace {

/// In ICU's unit, steps of the matching engine that take roughly a millisecond each. A line of a screenshot
/// matches in well under one step.
constexpr int32_t matchTimeLimit = 100;

/// Shares the text's memory; valid as long as the view.
icu::UnicodeString aliased(QStringView text) {
    return {false, reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

RegularExpression::Match currentMatch(const icu::RegexMatcher& matcher) {
    UErrorCode status = U_ZERO_ERROR;
    const auto range = [&](int32_t group) {
        const int32_t start = matcher.start(group, status);
        return TextRange{start, matcher.end(group, status) - start};
    };
    RegularExpression::Match match{range(0), {}};
    for (int32_t group = 1; group <= matcher.groupCount(); ++group)
        match.groups.push_back(range(group));
    return match;
}

} // namespace

struct RegularExpression::Compiled {
    std::unique_ptr<icu::RegexPattern> pattern;

    std::unique_ptr<icu::RegexMatcher> matcher(const icu::UnicodeString& text) const {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::RegexMatcher> matcher(pattern->matcher(text, status));
        matcher->setTimeLimit(matchTimeLimit, status);
        return matcher;
    }
};

RegularExpression::RegularExpression(QStringView pattern, CaseSensitivity caseSensitivity) {
    UErrorCode status = U_ZERO_ERROR;
    const uint32_t flags = caseSensitivity == CaseSensitivity::insensitive ? UREGEX_CASE_INSENSITIVE : 0;
    std::unique_ptr<icu::RegexPattern> compiled(icu::RegexPattern::compile(aliased(pattern), flags, status));
    if (U_FAILURE(status))
        qFatal("The expression “%s” does not compile: %s", qUtf8Printable(pattern.toString()),
               u_errorName(status));
    m_compiled = std::make_unique<const Compiled>(std::move(compiled));
}

RegularExpression::~RegularExpression() = default;
RegularExpression::RegularExpression(RegularExpression&&) noexcept = default;
RegularExpression& RegularExpression::operator=(RegularExpression&&) noexcept = default;

std::vector<TextRange> RegularExpression::ranges(QStringView text) const {
    const icu::UnicodeString subject = aliased(text);
    const auto matcher = m_compiled->matcher(subject);
    std::vector<TextRange> ranges;
    UErrorCode status = U_ZERO_ERROR;
    while (matcher->find(status)) {
        const int32_t start = matcher->start(status);
        ranges.push_back({start, matcher->end(status) - start});
    }
    return ranges;
}

std::vector<RegularExpression::Match> RegularExpression::matches(QStringView text) const {
    const icu::UnicodeString subject = aliased(text);
    const auto matcher = m_compiled->matcher(subject);
    std::vector<Match> matches;
    UErrorCode status = U_ZERO_ERROR;
    while (matcher->find(status))
        matches.push_back(currentMatch(*matcher));
    return matches;
}

std::optional<RegularExpression::Match> RegularExpression::firstMatch(QStringView text,
                                                                      qsizetype from) const {
    const icu::UnicodeString subject = aliased(text);
    const auto matcher = m_compiled->matcher(subject);
    UErrorCode status = U_ZERO_ERROR;
    if (!matcher->find(from, status) || U_FAILURE(status))
        return std::nullopt;
    return currentMatch(*matcher);
}

std::optional<RegularExpression::Match> RegularExpression::matchAt(QStringView text, qsizetype at) const {
    const icu::UnicodeString subject = aliased(text);
    const auto matcher = m_compiled->matcher(subject);
    UErrorCode status = U_ZERO_ERROR;
    matcher->region(at, subject.length(), status);
    matcher->useTransparentBounds(true);
    matcher->useAnchoringBounds(false);
    if (!matcher->lookingAt(status) || U_FAILURE(status))
        return std::nullopt;
    return currentMatch(*matcher);
}

} // namespace Veilshot
