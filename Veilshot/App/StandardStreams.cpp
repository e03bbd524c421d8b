#include "Veilshot/App/StandardStreams.h"

#include <QFile>
#include <algorithm>
#include <cstdio>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace Veilshot::StandardStreams {

namespace {

bool write(std::FILE* stream, const QByteArray& bytes) {
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream) ==
               static_cast<std::size_t>(bytes.size()) &&
           std::fflush(stream) == 0;
}

} // namespace

QString printable(QString text) {
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text;
}

QByteArray readInput(qint64 limit) {
    QFile input;
    QByteArray bytes;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return bytes;
    constexpr qint64 chunk = 1 << 20;
    while (bytes.size() <= limit) {
        const QByteArray part = input.read(std::min(chunk, limit + 1 - bytes.size()));
        if (part.isEmpty())
            break;
        bytes += part;
    }
    return bytes;
}

bool writeOutput(const QByteArray& bytes) {
    return write(stdout, bytes);
}

void writeError(const QString& text) {
    write(stderr, text.toLocal8Bit());
}

void writeErrorLine(const QString& text) {
    writeError(u"veilshot: "_s + printable(text) + u'\n');
}

bool isErrorTerminal() {
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

} // namespace Veilshot::StandardStreams
