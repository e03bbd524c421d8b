#pragma once

#include <QStringList>

namespace Veilshot {

/// What is an address by itself as it is written on the continent of Europe (Denmark, Norway, Sweden,
/// Finland, Iceland, Germany, the Netherlands, Poland, France, Italy, Spain, Portugal), as expressions for
/// case-sensitive matching: streets with their number, with or without a town. And the blocks and streets
/// of Japan and Korea.
QStringList continentalAddresses();

} // namespace Veilshot
