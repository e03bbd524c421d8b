#include "Veilshot/Platform/ImageDecoder.h"

#include "Veilshot/Platform/DecodingFailure.h"
#include "Veilshot/Platform/HeifReader.h"
#include "Veilshot/Platform/PluginReader.h"
#include "Veilshot/Platform/PngReader.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QLoggingCategory>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <tiffio.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// 96 dots per inch, what Qt gives a new image; a QImage cannot be without a resolution.
constexpr int dotsPerMeter = 3780;

void prepareImageLibraries() {
    // A caller prints the one line that matters; the libraries' own remarks would stand around it.
    // libpng, which writes to the standard error of its own accord, is not used through Qt for that reason.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.gui.icc=false"_s);
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    // In binary megabytes, at four bytes a pixel. It bounds those readers that cannot tell the size first.
    QImageReader::setAllocationLimit(ImageDecoder::maximumMegapixels * 4);
}

ImageError error(const QString& name, const QString& reason) {
    QString printable = name;
    for (QChar& character : printable) {
        if (character.category() == QChar::Other_Control)
            character = u'?'; // a line break in a file's name must not break the message in two
    }
    return {printable + u": "_s + reason};
}

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

/// The bytes of the file, or the reason why there are none.
std::variant<QByteArray, QString> contents(const QString& path) {
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
        return u"this is a folder, not an image"_s;
    if (!S_ISREG(status.st_mode))
        return reasonFor(ENXIO);
    if (status.st_size == 0)
        return u"the file is empty"_s;
    if (status.st_size > ImageDecoder::maximumFileSize)
        return u"the file is larger than 1 gigabyte"_s;
    QByteArray bytes = file.read(status.st_size);
    if (bytes.isEmpty())
        return u"the file cannot be read (%1)"_s.arg(file.errorString());
    return bytes;
}

ReaderOutcome read(const QByteArray& bytes) {
    static const bool isPrepared = (prepareImageLibraries(), true);
    Q_UNUSED(isPrepared)
    if (isPng(bytes))
        return readPng(bytes);
    if (isHeif(bytes))
        return readHeif(bytes);
    return readWithPlugins(bytes);
}

QImage withoutTexts(const QImage& image) {
    // A text cannot be taken away from a QImage, and every kind of copy Qt offers keeps them.
    QImage fresh(image.size(), image.format());
    if (fresh.isNull())
        return fresh;
    const auto bytesPerRow = size_t(image.width()) * 4;
    for (int row = 0; row < image.height(); ++row)
        std::memcpy(fresh.scanLine(row), image.constScanLine(row), bytesPerRow);
    return fresh;
}

} // namespace

DecodedImage ImageDecoder::decodeFile(const QString& path) try {
    const auto bytes = contents(path);
    if (const QString* reason = std::get_if<QString>(&bytes))
        return error(path, *reason);
    return decodeBytes(std::get<QByteArray>(bytes), path);
} catch (const std::bad_alloc&) {
    return error(path, DecodingFailure{DecodingFailure::Reason::outOfMemory}.message());
}

DecodedImage ImageDecoder::decodeBytes(const QByteArray& bytes, const QString& name) try {
    ReaderOutcome outcome = read(bytes);
    if (const DecodingFailure* failure = std::get_if<DecodingFailure>(&outcome))
        return error(name, failure->message());
    QImage bitmap = toBitmap(std::move(std::get<QImage>(outcome)));
    if (bitmap.isNull())
        throw std::bad_alloc();
    return bitmap;
} catch (const std::bad_alloc&) {
    return error(name, DecodingFailure{DecodingFailure::Reason::outOfMemory}.message());
}

QImage ImageDecoder::toBitmap(QImage image) {
    if (image.isNull())
        return image;
    image.convertTo(QImage::Format_RGBA8888);
    const QColorSpace colorSpace = image.colorSpace();
    if (colorSpace.isValid()) {
        if (colorSpace != QColorSpace(QColorSpace::SRgb))
            image.convertToColorSpace(QColorSpace::SRgb);
        image.setColorSpace({});
    }
    if (!image.textKeys().isEmpty())
        image = withoutTexts(image);
    if (image.devicePixelRatio() != 1)
        image.setDevicePixelRatio(1);
    if (!image.offset().isNull())
        image.setOffset({});
    if (image.dotsPerMeterX() != dotsPerMeter || image.dotsPerMeterY() != dotsPerMeter) {
        image.setDotsPerMeterX(dotsPerMeter);
        image.setDotsPerMeterY(dotsPerMeter);
    }
    return image;
}

} // namespace Veilshot
