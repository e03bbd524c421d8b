#pragma once

#include <QFuture>
#include <QImage>
#include <QString>
#include <QUrl>
#include <optional>

class QThreadPool;

namespace Veilshot {

/// Encodes the bitmap and writes the local file on a worker of the pool. The future always has a result:
/// nothing, or what to tell the user if there is no file.
QFuture<std::optional<QString>> startPngExport(QThreadPool& pool, const QImage& bitmap, const QUrl& url);

} // namespace Veilshot
