#include "Veilshot/Platform/ItemProvider.h"

#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/RegularFile.h"

#include <QFileInfo>
#include <QMimeData>
#include <QMimeDatabase>
#include <QUrl>
#include <QtConcurrentRun>
#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

class MimeItem : public ItemProvider {
public:
    explicit MimeItem(const QMimeData& data) : m_data(data) {}

    QImage image() const override {
        if (!m_data.hasImage() || (isFromElsewhere() && hasImageBytes()))
            return {};
        return qvariant_cast<QImage>(m_data.imageData());
    }

    QStringList registeredTypes() const override { return m_data.formats(); }

    QFuture<Data> loadData(const QString& type) const override {
        // Only now, while the drop or the clipboard's owner is waiting, can the data be had.
        return QtFuture::makeReadyFuture(Data(m_data.data(type)));
    }

private:
    /// Another program's data. Qt would decode the picture among it here and now, in the main thread.
    bool isFromElsewhere() const { return m_data.inherits("QInternalMimeData"); }

    bool hasImageBytes() const { return std::ranges::any_of(m_data.formats(), ImageDecoder::isPictureType); }

    const QMimeData& m_data;
};

class FileItem : public ItemProvider {
public:
    explicit FileItem(QString path) : m_path(std::move(path)) {}

    QImage image() const override { return {}; }
    QStringList registeredTypes() const override {
        // By its name if that tells: to look into many files, or into one on a slow disk, takes long.
        const QMimeDatabase types;
        const QMimeType byName = types.mimeTypeForFile(m_path, QMimeDatabase::MatchExtension);
        return {(byName.isDefault() ? types.mimeTypeForFile(m_path) : byName).name()};
    }
    QFuture<Data> loadData(const QString&) const override { return QtConcurrent::run(read, m_path); }

private:
    static Data read(const QString& path) {
        const QString prefix = QFileInfo(path).fileName() + u": "_s;
        try {
            auto bytes = readRegularFile(path, ImageDecoder::maximumFileSize);
            if (const auto* reason = std::get_if<QString>(&bytes))
                return prefix + *reason;
            return bytes;
        } catch (const std::bad_alloc&) {
            return prefix + u"there is not enough memory for the file"_s;
        }
    }

    QString m_path;
};

} // namespace

ItemProviders itemProviders(const QMimeData& data) {
    ItemProviders providers;
    providers.push_back(std::make_unique<MimeItem>(data));
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            providers.push_back(std::make_unique<FileItem>(url.toLocalFile()));
    }
    return providers;
}

} // namespace Veilshot
