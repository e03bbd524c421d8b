#pragma once

#include <QStringList>

namespace Veilshot {

/// What is an address by itself as it is written in Denmark, Norway, Sweden, Germany and France, as
/// expressions for case-sensitive matching: streets with their number, with or without a town.
QStringList continentalAddresses();

} // namespace Veilshot
