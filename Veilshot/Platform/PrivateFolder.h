#pragma once

#include <QString>

namespace Veilshot {

/// Makes the folder and every parent that is missing, each for its owner alone (mode 0700). A folder that is
/// there already is closed to others; its parents are left as they are. False when there is no such folder
/// afterwards.
bool makePrivateFolder(const QString& path);

} // namespace Veilshot
