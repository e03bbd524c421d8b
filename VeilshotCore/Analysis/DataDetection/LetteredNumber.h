#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>

namespace Veilshot {

/// A number with the letters that belong to it: its series in front, glued to it or a blank apart ("KT 4471
/// 0926"), and one or two glued behind. Not a word, a currency or a label such as "NHS". Anything but digits
/// with blanks and hyphens between is given back as it came.
TextRange withLettersOfNumber(QStringView line, TextRange number);

} // namespace Veilshot
