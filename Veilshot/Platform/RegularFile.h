#pragma once

#include <QByteArray>
#include <QString>
#include <variant>

namespace Veilshot {

/// The bytes of a file, or the reason why there are none, in words to follow the name and a colon. Anything
/// but a regular file (a folder, a pipe, a device) is a reason and is never waited for, and so is a file of
/// more than `limit` bytes, which is not read at all. Throws std::bad_alloc.
std::variant<QByteArray, QString> readRegularFile(const QString& path, qint64 limit);

} // namespace Veilshot
