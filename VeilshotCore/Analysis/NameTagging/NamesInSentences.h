#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <vector>

namespace Veilshot {

/// Names that the words around them give away even where no list holds them: owners ("Konrads mor"), people
/// who are spoken to ("Gethin, please …"), spoken of ("ask Hyacinth or", "her daughter Clemency") or do
/// something. In order.
std::vector<TextRange> namesInSentences(const NameLexicon& lexicon, const NameLine& line);

} // namespace Veilshot
