#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// The parts of a line that strong signs set apart: dashes and dots between blanks, bars, brackets, quotation
/// marks, @handles, the colons and commas of a record. In order, without blanks at their ends; none for a
/// line that is all one part.
std::vector<TextRange> nameSections(QStringView line);

} // namespace Veilshot
