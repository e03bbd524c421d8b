#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace Veilshot {

/// Who may read a file that is made.
enum class Readership {
    asUsual,  ///< whom the user's umask lets, or whoever could read the file that is replaced
    ownerOnly ///< mode 0600
};

/// Writes the file in one step: it is complete under `path`, or whatever stood there before is untouched and
/// nothing is left beside it. Follows symbolic links; replaces only regular files. Returns nothing, or why it
/// failed in a sentence that begins with the path. May be called from any thread.
std::optional<QString> writeAtomically(const QString& path, const QByteArray& bytes, Readership readership);

} // namespace Veilshot
