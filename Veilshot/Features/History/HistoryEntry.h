#pragma once

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QUuid>
#include <QtQmlIntegration>
#include <vector>

namespace Veilshot {

/// A protected copy that is kept.
struct HistoryEntry {
    Q_GADGET
    QML_VALUE_TYPE(historyEntry)
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QDateTime createdAt MEMBER createdAt)
    Q_PROPERTY(qint64 regionCount MEMBER regionCount)
    Q_PROPERTY(qint64 pixelWidth MEMBER pixelWidth)
    Q_PROPERTY(qint64 pixelHeight MEMBER pixelHeight)

public:
    QUuid id;            ///< also names the image files
    QDateTime createdAt; ///< in UTC, to the millisecond
    qint64 regionCount = 0;
    /// Of the full image.
    qint64 pixelWidth = 0;
    qint64 pixelHeight = 0;

    friend bool operator==(const HistoryEntry&, const HistoryEntry&) = default;
    friend size_t qHash(const HistoryEntry& entry, size_t seed = 0) {
        return qHashMulti(seed, entry.id, entry.createdAt, entry.regionCount, entry.pixelWidth,
                          entry.pixelHeight);
    }
};

/// Newest first.
using HistoryEntries = std::vector<HistoryEntry>;

} // namespace Veilshot
