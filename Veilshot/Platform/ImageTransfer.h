#pragma once

#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/ItemProvider.h"

#include <QFuture>
#include <QImage>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <variant>

namespace Veilshot {

class Clipboard;

/// The edge between the editor and what surrounds it: how a picture comes in by clipboard, drop or file, and
/// where one goes out to. Called in the main thread, which never decodes: every picture that is delivered is
/// in ImageDecoder's bitmap format, made by a worker.
namespace ImageTransfer {

/// A dropped item that turned out not to be a picture.
struct UnreadableItemError {
    static QString localizedDescription();
};

/// The picture, or a sentence for people that says why there is none.
using LoadedItem = std::variant<QImage, QString>;

/// The picture on the clipboard, or nothing if it holds none: a decoded picture, data of an image type, or
/// copied image files, of which the first counts. The future always has a result.
QFuture<std::optional<QImage>> imageFromPasteboard(const Clipboard& clipboard);

/// Loads the first item that offers a picture: an image object or, failing that, data of its first image
/// type. True if there is one: then `completion` is called once, later, in the main thread. False if not:
/// then it never is. A load that has begun cannot be cancelled.
bool load(const ItemProviders& providers, std::function<void(const LoadedItem&)> completion);

/// The picture in a file, or nothing. The future always has a result.
QFuture<std::optional<QImage>> imageFromFile(const QUrl& url);

/// Asks the user where the protected PNG goes. Blocks in the panel; nothing if it was cancelled.
std::optional<QUrl> chooseExportURL(FilePanel& panel);

} // namespace ImageTransfer

} // namespace Veilshot
