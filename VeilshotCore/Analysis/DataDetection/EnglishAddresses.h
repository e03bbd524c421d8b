#pragma once

#include <QStringList>

namespace Veilshot {

/// What is an address by itself as it is written in the United States, Canada, the United Kingdom and
/// Ireland, as expressions for case-sensitive matching: streets with their number, towns with their state or
/// postcode.
QStringList englishAddresses();

} // namespace Veilshot
