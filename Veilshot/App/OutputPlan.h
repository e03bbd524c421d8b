#pragma once

#include "Veilshot/App/ScanRequest.h"

#include <QString>
#include <QStringList>
#include <variant>

namespace Veilshot {

/// Where the result of each image goes, in the order of the images, or why the request cannot be carried out:
/// a result would replace one of the images, or two results would be the same file. Looks at the file system,
/// so that links and other spellings of the same file are recognised; changes nothing.
std::variant<QStringList, QString> planOutputs(const ScanRequest& request);

} // namespace Veilshot
