#include "Veilshot/Platform/AtomicFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace Veilshot {

std::optional<QString> writeAtomically(const QString& path, const QByteArray& bytes, Readership readership) {
    const QFileInfo target(path);
    if (!target.dir().exists())
        return u"%1: there is no folder “%2”"_s.arg(path, target.path());
    if (target.isDir())
        return u"%1: this is a folder"_s.arg(path);
    // QSaveFile would put a file in the place of a device.
    if (target.exists() && !target.isFile())
        return u"%1: not a regular file"_s.arg(path);
    QSaveFile file(path);
    const bool isOpen =
        file.open(QIODevice::WriteOnly) &&
        (readership == Readership::asUsual || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    // Flushed by itself, because commit does not notice when the last bytes find no room.
    if (!isOpen || file.write(bytes) != bytes.size() || !file.flush() || !file.commit())
        return u"%1: the file cannot be written (%2)"_s.arg(path, file.errorString());
    return std::nullopt;
}

} // namespace Veilshot
