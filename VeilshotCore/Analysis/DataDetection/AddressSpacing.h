#pragma once

#include "VeilshotCore/Analysis/RewrittenLine.h"

#include <QStringView>

namespace Veilshot {

/// The line with the blanks that belong into an address and were not read, as in a tight font:
/// "Tingvej10,2.tv,4300Holbæk". Leaves what looks like the names of a program alone.
RewrittenLine withBlanksOfAddresses(QStringView line);

} // namespace Veilshot
