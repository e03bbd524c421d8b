#pragma once

#include <QStringView>

namespace Veilshot {

/// Whether these words, in any case, are the name of a Danish post town, without the letter of a district
/// ("København N" is not, "København" is). Letters that are easily misread are put up with: "Norresundby" for
/// "Nørresundby", and any single one in a long name.
bool isDanishTown(QStringView name);

} // namespace Veilshot
