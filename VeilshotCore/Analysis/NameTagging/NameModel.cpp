#include "VeilshotCore/Analysis/NameTagging/NameModel.h"

#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <cmath>

namespace Veilshot {

namespace {

constexpr quint32 signature = 0x564e4d32; // "VNM2"
constexpr auto checksumMethod = QCryptographicHash::Md5;
constexpr qsizetype checksumSize = 16;

QByteArray checksumOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, checksumMethod);
}

void prepare(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_6_4);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

/// Small numbers in one byte, larger ones in several of seven bits.
void appendGap(QByteArray& bytes, uint32_t gap) {
    for (; gap >= 0x80; gap >>= 7)
        bytes += static_cast<char>(gap | 0x80);
    bytes += static_cast<char>(gap);
}

/// Takes bytes off the front of a file; a million of them, too many for a stream.
class ByteReader {
public:
    explicit ByteReader(QByteArrayView bytes) : m_bytes(bytes) {}

    uint8_t next() {
        m_isShort = m_isShort || m_at == m_bytes.size();
        return m_isShort ? 0 : static_cast<uint8_t>(m_bytes[m_at++]);
    }
    uint32_t nextGap() {
        uint32_t gap = 0;
        uint8_t part = 0x80;
        for (int shift = 0; shift < 28 && (part & 0x80); shift += 7) {
            part = next();
            gap |= static_cast<uint32_t>(part & 0x7f) << shift;
        }
        return gap;
    }
    /// Whether there were as many bytes as wanted and no more.
    bool isExactlyUsed() const { return !m_isShort && m_at == m_bytes.size(); }

private:
    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_isShort = false;
};

} // namespace

QByteArray NameModel::toBytes() const {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    prepare(stream);
    stream << signature << stepSize;
    for (const float weight : followers)
        stream << weight;
    for (const float weight : labels)
        stream << weight;
    stream << static_cast<quint32>(weights.size());
    uint32_t previous = 0;
    for (const Weights& entry : weights) {
        appendGap(bytes, entry.feature - previous);
        for (const int8_t step : entry.steps)
            bytes += static_cast<char>(step);
        previous = entry.feature;
    }
    return bytes + checksumOf(bytes);
}

std::optional<NameModel> NameModel::fromBytes(const QByteArray& bytes) {
    if (bytes.size() < checksumSize)
        return std::nullopt;
    const QByteArray content = bytes.chopped(checksumSize);
    if (checksumOf(content) != bytes.last(checksumSize))
        return std::nullopt;

    NameModel model;
    QDataStream stream(content);
    prepare(stream);
    quint32 readSignature = 0;
    quint32 count = 0;
    stream >> readSignature >> model.stepSize;
    for (float& weight : model.followers)
        stream >> weight;
    for (float& weight : model.labels)
        stream >> weight;
    stream >> count;
    const bool isWhole = stream.status() == QDataStream::Ok;
    if (!isWhole || readSignature != signature || count > nameFeatureLimit)
        return std::nullopt;
    model.weights.resize(count);
    ByteReader reader(QByteArrayView(content).sliced(stream.device()->pos()));
    uint32_t feature = 0;
    for (Weights& entry : model.weights) {
        feature += reader.nextGap();
        entry.feature = feature;
        for (int8_t& step : entry.steps)
            step = static_cast<int8_t>(reader.next());
    }
    if (!reader.isExactlyUsed() || feature >= nameFeatureLimit)
        return std::nullopt;
    return model;
}

} // namespace Veilshot
