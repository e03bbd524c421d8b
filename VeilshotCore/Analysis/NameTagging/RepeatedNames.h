#pragma once

#include "VeilshotCore/Analysis/NameTagger.h"

namespace Veilshot {

/// In a line with repeatSeparator, the words behind the passage that belong to a name of several words in it,
/// found by `tagger`. One that means something else as well counts only if nothing stands beside it.
std::vector<TextRange> repeatedNames(const QString& line, const NameTagger& tagger);

} // namespace Veilshot
