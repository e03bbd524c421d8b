#pragma once

#include <QStringView>

namespace Veilshot {

/// Between a passage that may hold a name in full and the places elsewhere in the picture at which a word of
/// it stands with its neighbours, and between these. A rare first name or a surname alone says little in its
/// own line; where "Ottavia Bellini" is found, "Ottavia has noted it" is told. No text that was read holds
/// the private character.
inline constexpr QStringView repeatSeparator = u"\t\uE000\t";

/// Such a line repeats what others hold: it is there to tell names and nothing else.
inline bool hasRepeatedWords(QStringView line) {
    return line.contains(repeatSeparator);
}

} // namespace Veilshot
