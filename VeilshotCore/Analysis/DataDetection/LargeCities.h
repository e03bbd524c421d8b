#pragma once

#include <QStringView>

namespace Veilshot {

/// Whether these words, in any case and possibly with a misread letter, are the name of a large city of
/// Europe outside Denmark, as it is called there.
bool isLargeCity(QStringView name);

} // namespace Veilshot
