#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"
#include "VeilshotCore/Analysis/NameTagging/NameModel.h"

#include <memory>
#include <vector>

namespace Veilshot {

/// Neighbouring tokens, by their places in the line.
struct TokenSpan {
    size_t first = 0;
    size_t last = 0; ///< inclusive

    friend constexpr bool operator==(const TokenSpan&, const TokenSpan&) = default;
};

/// Applies a model: finds the most plausible set of names among the tokens of a line. Serves any number of
/// threads.
class NameSegmenter {
public:
    explicit NameSegmenter(const NameModel& model);
    ~NameSegmenter();

    /// The names in order, for the features of every token.
    std::vector<TokenSpan> names(const std::vector<NameFeatures>& features) const;

private:
    struct Implementation;
    std::unique_ptr<const Implementation> m_implementation;
};

} // namespace Veilshot
