#pragma once

#include "VeilshotCore/Analysis/NameTagger.h"

namespace Veilshot {

/// Whether the line is made of cells: a label and its value, or a column from its header down.
bool hasCells(const QString& line);

/// The names in such a line. `tagger` sees each cell alone; what says nothing by itself ("Achterberg",
/// "Hope") is a name below or beside a label of names, below another label of people if it looks like one,
/// and in a column most of which are names. The first cell, a label or a header, counts only if it is a name
/// by itself.
std::vector<TextRange> namesInCells(const QString& line, const NameTagger& tagger);

} // namespace Veilshot
