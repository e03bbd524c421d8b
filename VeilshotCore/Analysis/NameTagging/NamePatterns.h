#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Names that their form or the words around them give away even where no list holds them: owners ("Konrads
/// mor"), people spoken to ("Gethin, please …"), initials ("Adaeze N.", "Tamm, K."), bylines, passengers. In
/// order.
std::vector<TextRange> namesByPattern(const NameLexicon& lexicon, QStringView line);

} // namespace Veilshot
