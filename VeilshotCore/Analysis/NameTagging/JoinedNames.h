#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// What is a name because it is joined to one of these names: "Kirstine" in "Kirstine & Palle Storgaard", and
/// by a comma in lists that have a label ("Cc: Tjorven, Anna") or, for several words, two names already. In
/// order of the line.
std::vector<TextRange> namesJoinedTo(const std::vector<TextRange>& names, const NameLexicon& lexicon,
                                     QStringView line);

} // namespace Veilshot
