#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"
#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"

#include <QStringView>
#include <cstdint>
#include <vector>

namespace Veilshot {

/// What speaks for or against a token being part of a name, as numbers below `nameFeatureLimit`: hashes of
/// the token, its spelling, what the lists know of it, and the same of its neighbours. A model knows a weight
/// for some of these numbers, so a model fits exactly one version of this function.
using NameFeatures = std::vector<uint32_t>;

inline constexpr int nameFeatureBits = 22;
inline constexpr uint32_t nameFeatureLimit = 1u << nameFeatureBits;

/// One list for every token, sorted and without repetitions. `tokens` are those of `line`, `listed` what a
/// ListNameTagger finds in it.
std::vector<NameFeatures> nameFeatures(const NameLexicon& lexicon, QStringView line,
                                       const std::vector<NameToken>& tokens,
                                       const std::vector<TextRange>& listed);

} // namespace Veilshot
