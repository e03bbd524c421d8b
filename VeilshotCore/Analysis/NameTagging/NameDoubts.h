#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Whether the model may be wrong about the name: a single word that means something else and is in no list
/// of names, is in none and has no capital or is spelt like a Danish noun, or fills the line and means
/// something else as well or does not look like a name; several words that are all spelt like Danish nouns.
bool isDoubtfulName(TextRange name, QStringView line, const std::vector<NameToken>& tokens);

/// Whether the name is something else whoever found it: a date, a street, a town in quotation marks or among
/// numbers, a code, what a school or company is called after.
bool isOtherThanName(TextRange name, QStringView line, const std::vector<NameToken>& tokens);

} // namespace Veilshot
