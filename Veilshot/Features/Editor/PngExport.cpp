#include "Veilshot/Features/Editor/PngExport.h"

#include "Veilshot/Platform/AtomicFile.h"
#include "Veilshot/Platform/PngFile.h"

#include <QtConcurrentRun>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

std::optional<QString> exportPng(const QImage& bitmap, const QString& path) {
    const QByteArray png = PngFile::encodePng(bitmap);
    if (png.isEmpty())
        return u"The protected image couldn’t be encoded as PNG."_s;
    if (const auto reason = writeAtomically(path, png, Readership::asUsual))
        return u"Export failed: "_s + *reason;
    return std::nullopt;
}

} // namespace

QFuture<std::optional<QString>> startPngExport(QThreadPool& pool, const QImage& bitmap, const QUrl& url) {
    return QtConcurrent::run(&pool, exportPng, bitmap, url.toLocalFile());
}

} // namespace Veilshot
