#include "Veilshot/Platform/ImageTransfer.h"

#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/ImageDecoder.h"

#include <QCoreApplication>
#include <QThreadPool>
#include <QtConcurrentRun>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using ImageTransfer::LoadedItem;
using ImageTransfer::UnreadableItemError;

LoadedItem decoded(const ItemProvider::Data& data) {
    if (const auto* error = std::get_if<QString>(&data))
        return *error;
    auto image = ImageDecoder::decodeBytes(std::get<QByteArray>(data), {});
    if (std::holds_alternative<ImageError>(image))
        return UnreadableItemError::localizedDescription();
    return std::get<QImage>(std::move(image));
}

LoadedItem converted(const QImage& image) {
    QImage bitmap = ImageDecoder::toBitmap(image);
    if (bitmap.isNull())
        return UnreadableItemError::localizedDescription();
    return bitmap;
}

/// Nothing if the item offers no picture.
std::optional<QFuture<LoadedItem>> startLoading(const ItemProvider& provider) {
    if (const QImage image = provider.image(); !image.isNull())
        return QtConcurrent::run(converted, image);
    const QStringList types = provider.registeredTypes();
    const auto type = std::ranges::find_if(types, ImageDecoder::isPictureType);
    if (type == types.end())
        return std::nullopt;
    return provider.loadData(*type).then(QThreadPool::globalInstance(), decoded);
}

std::optional<QFuture<LoadedItem>> startLoading(const ItemProviders& providers) {
    for (const auto& provider : providers) {
        if (auto loading = startLoading(*provider))
            return loading;
    }
    return std::nullopt;
}

std::optional<QImage> imageOf(const LoadedItem& item) {
    const auto* image = std::get_if<QImage>(&item);
    return image ? std::optional(*image) : std::nullopt;
}

} // namespace

QString ImageTransfer::UnreadableItemError::localizedDescription() {
    return u"The dropped item isn’t a readable image."_s;
}

QFuture<std::optional<QImage>> ImageTransfer::imageFromPasteboard(const Clipboard& clipboard) {
    const QMimeData* contents = clipboard.contents();
    if (auto loading = contents ? startLoading(itemProviders(*contents)) : std::nullopt)
        return loading->then(imageOf);
    return QtFuture::makeReadyFuture(std::optional<QImage>());
}

bool ImageTransfer::load(const ItemProviders& providers, std::function<void(const LoadedItem&)> completion) {
    const auto loading = startLoading(providers);
    if (loading)
        whenDone(*loading, QCoreApplication::instance(), std::move(completion));
    return loading.has_value();
}

QFuture<std::optional<QImage>> ImageTransfer::imageFromFile(const QUrl& url) {
    return QtConcurrent::run([path = url.toLocalFile()]() -> std::optional<QImage> {
        auto image = ImageDecoder::decodeFile(path);
        if (std::holds_alternative<ImageError>(image))
            return std::nullopt;
        return std::get<QImage>(std::move(image));
    });
}

std::optional<QUrl> ImageTransfer::chooseExportURL(FilePanel& panel) {
    return panel.chooseDestination({.title = u"Export Protected Screenshot"_s,
                                    .proposedName = u"protected-screenshot.png"_s,
                                    .mimeType = u"image/png"_s,
                                    .suffix = u"png"_s});
}

} // namespace Veilshot
