#include "Veilshot/Platform/PluginReader.h"

#include <QIODevice>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <cstring>

namespace Veilshot {

namespace {

/// The bytes as a device that notices when a reader wants more than there is. Qt's readers of JPEG, GIF, BMP
/// and XBM do not fail on data that ends early: they return what they have, with grey or nothing below. None
/// of them asks again at the end of data that is complete.
class WatchedBytes : public QIODevice {
public:
    explicit WatchedBytes(const QByteArray& bytes) : m_bytes(bytes) {
        // Unbuffered, because a buffer of QIODevice's own would ask ahead of the reader.
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    qint64 size() const override { return m_bytes.size(); }

    void forgetReads() { m_readAtTheEnd = m_readAcrossTheEnd = false; }
    /// A read found nothing left.
    bool wasReadAtTheEnd() const { return m_readAtTheEnd; }
    /// A read found something, but less than it asked for.
    bool wasReadAcrossTheEnd() const { return m_readAcrossTheEnd; }

protected:
    qint64 readData(char* data, qint64 wanted) override {
        const qint64 available = std::clamp<qint64>(m_bytes.size() - pos(), 0, wanted);
        if (available < wanted)
            (available > 0 ? m_readAcrossTheEnd : m_readAtTheEnd) = true;
        std::memcpy(data, m_bytes.constData() + pos(), static_cast<size_t>(available));
        return available;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QByteArray& m_bytes;
    bool m_readAtTheEnd = false;
    bool m_readAcrossTheEnd = false;
};

/// Drawings and documents have no pixels of their own; they may refer to other files or start programs.
bool isPicture(const QByteArray& format) {
    constexpr std::array documents{"svg", "svgz", "pdf", "eps", "epsf", "epsi", "ps"};
    return !format.isEmpty() &&
           std::ranges::none_of(documents, [&](const char* document) { return format == document; });
}

} // namespace

ReaderOutcome readWithPlugins(const QByteArray& bytes) {
    using Reason = DecodingFailure::Reason;
    WatchedBytes device(bytes);
    QImageReader reader(&device);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    if (!isPicture(format))
        return DecodingFailure{Reason::notAnImage};
    const QSize size = reader.size();
    if (size.isValid()) {
        if (const auto failure = sizeFailure(size))
            return *failure;
    }
    // Only now: recognising the format tries every plugin, and the size of a GIF is found by reading it all.
    device.forgetReads();
    QImage image = reader.read();
    // Qt's BMP reader asks row by row, for exactly what it needs; the others fetch blocks ahead of need.
    if (device.wasReadAtTheEnd() || (format == "bmp" && device.wasReadAcrossTheEnd()))
        return DecodingFailure{Reason::endsEarly};
    if (image.isNull())
        return DecodingFailure{Reason::damaged};
    return image;
}

} // namespace Veilshot
