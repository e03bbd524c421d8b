#pragma once

#include <QStringView>

namespace Veilshot {

/// Whether these words, in any case and possibly with a misread letter, are the name of a Danish post town,
/// without the letter of a district ("København N" is not, "København" is).
bool isDanishTown(QStringView name);

} // namespace Veilshot
