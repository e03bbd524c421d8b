#pragma once

#include <QStringView>

namespace Veilshot {

/// Whether these words, in any case and possibly with a misread letter, are the name of a large city outside
/// Denmark, as it is called there, and the postcode has the digits, letters and signs of those of its
/// country.
bool isLargeCity(QStringView name, QStringView postcode);

} // namespace Veilshot
