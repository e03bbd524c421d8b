#pragma once

#include <string_view>

namespace Veilshot {

/// How much the letters of a word nobody knows look like a name's and not like a Danish word's, which no list
/// holds all of: mostly between -8 ("fakturaadresse") and 5 ("jaswinder"), above 0 for nine names in ten.
/// Takes folded words, see foldedName(); 0 for one of letters it has not learnt. Any thread.
double spellingOfName(std::string_view folded);

} // namespace Veilshot
