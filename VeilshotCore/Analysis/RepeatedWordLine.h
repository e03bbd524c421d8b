#pragma once

#include <QStringView>

namespace Veilshot {

/// Between a passage that may hold a name in full and a word of it that stands elsewhere in the picture, with
/// its neighbours. A rare first name or a surname alone says little in its own line; where "Ottavia Bellini"
/// is found, "Ottavia has noted it" is told.
inline constexpr QStringView repeatSeparator = u"\t\u2261\t";

} // namespace Veilshot
