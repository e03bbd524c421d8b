#pragma once

#include <QStringView>

namespace Veilshot {

/// Between the cells of a column in the line that repeats them, from the header down. What is told by the
/// company a cell keeps, such as a rare surname among others, shows in no line of its own. The sign between
/// the tabs keeps anybody from reading two cells as one detail.
inline constexpr QStringView cellSeparator = u"\t\u2502\t";

} // namespace Veilshot
