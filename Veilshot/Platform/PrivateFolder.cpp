#include "Veilshot/Platform/PrivateFolder.h"

#include <QDir>
#include <QFileInfo>

namespace Veilshot {

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

bool makeMissing(const QFileInfo& folder) {
    if (folder.isDir())
        return true;
    if (folder.exists() || !makeMissing(QFileInfo(folder.path())))
        return false;
    // Another process may have been faster.
    return QDir().mkdir(folder.filePath(), ownerOnly) || QFileInfo(folder.filePath()).isDir();
}

} // namespace

bool makePrivateFolder(const QString& path) {
    const QFileInfo folder(QDir::cleanPath(path));
    if (!folder.isDir())
        return makeMissing(folder);
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    // A folder that is not the user's own stays as it is: what goes into it is closed to others by itself.
    if (folder.permissions() & others)
        QFile::setPermissions(folder.filePath(), ownerOnly);
    return true;
}

} // namespace Veilshot
