#include "Veilshot/Features/Editor/PngExport.h"

#include "Veilshot/Platform/AtomicFile.h"
#include "Veilshot/Platform/PngFile.h"

#include <QtConcurrentRun>
#include <new>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

QByteArray encodeGuarded(const QImage& bitmap) {
    try {
        return PngFile::encodePng(bitmap);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

std::optional<QString> exportPng(const QImage& bitmap, const QString& path) {
    const QByteArray png = encodeGuarded(bitmap);
    if (png.isEmpty())
        return u"The protected image couldn’t be encoded as PNG."_s;
    if (const auto reason = writeAtomically(path, png, Readership::asUsual))
        return u"Export failed: "_s + *reason;
    return std::nullopt;
}

} // namespace

QFuture<std::optional<QString>> startPngExport(const QImage& bitmap, const QUrl& url) {
    return QtConcurrent::run(exportPng, bitmap, url.toLocalFile());
}

} // namespace Veilshot
