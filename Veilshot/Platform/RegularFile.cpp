#include "Veilshot/Platform/RegularFile.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

QString reasonFor(int errorNumber) {
    switch (errorNumber) {
    case ENOENT:
    case ENOTDIR:
        return u"there is no such file"_s;
    case EACCES:
    case EPERM:
        return u"permission denied"_s;
    case ENXIO:
        return u"not a regular file"_s;
    default:
        return u"the file cannot be read (%1)"_s.arg(
            QString::fromStdString(std::generic_category().message(errorNumber)));
    }
}

} // namespace

std::variant<QByteArray, QString> readRegularFile(const QString& path, qint64 limit) {
    if (path.contains(QChar::Null))
        return reasonFor(ENOENT);
    // Opened before it is asked what it is, so that nobody can put something else in its place in between;
    // without blocking, because opening a pipe would wait for someone to write into it.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return reasonFor(errno);
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle)) {
        ::close(descriptor);
        return file.errorString();
    }
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return reasonFor(errno);
    if (S_ISDIR(status.st_mode))
        return u"this is a folder"_s;
    if (!S_ISREG(status.st_mode))
        return reasonFor(ENXIO);
    if (status.st_size == 0)
        return u"the file is empty"_s;
    if (status.st_size > limit)
        return u"the file is too large (%1 bytes; the limit is %2)"_s.arg(status.st_size).arg(limit);
    QByteArray bytes = file.read(status.st_size);
    if (bytes.isEmpty())
        return u"the file cannot be read (%1)"_s.arg(file.errorString());
    return bytes;
}

} // namespace Veilshot
