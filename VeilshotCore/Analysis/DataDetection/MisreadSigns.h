#pragma once

#include "VeilshotCore/Analysis/RewrittenLine.h"

#include <QStringView>

namespace Veilshot {

/// The line as it probably stood in the picture: digits for the letters inside a number ("O1632 96O 274"),
/// without stray underscores ("120571-_8832"), and with the dots of domains ("example. com", "example,com").
/// Only a second form to search: much of what is changed was right.
RewrittenLine withoutMisreadSigns(QStringView line);

} // namespace Veilshot
