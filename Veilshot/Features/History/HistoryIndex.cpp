#include "Veilshot/Features/History/HistoryIndex.h"

#include <QTimeZone>
#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

using nlohmann::ordered_json;

namespace Veilshot {

namespace {

QDateTime epoch() {
    return {QDate(2001, 1, 1), QTime(0, 0), Qt::UTC};
}

std::optional<QUuid> decodeId(const ordered_json& value) {
    if (!value.is_string())
        return std::nullopt;
    const auto text = QString::fromStdString(value.get<std::string>());
    const QUuid id(text);
    // QUuid reads other notations too, and gives a null id for what it cannot read.
    const bool isCanonical = HistoryIndex::idText(id).compare(text, Qt::CaseInsensitive) == 0;
    return isCanonical ? std::optional(id) : std::nullopt;
}

std::optional<QDateTime> decodeMoment(const ordered_json& value) {
    if (!value.is_number())
        return std::nullopt;
    constexpr double farFuture = 1e12; // seconds; so that no moment overflows
    const double seconds = std::clamp(value.get<double>(), -farFuture, farFuture);
    return epoch().addMSecs(std::llround(seconds * 1000));
}

std::optional<qint64> decodeCount(const ordered_json& value) {
    const bool isTooLarge =
        value.is_number_unsigned() && value.get<quint64>() > quint64(std::numeric_limits<qint64>::max());
    return value.is_number_integer() && !isTooLarge ? std::optional(value.get<qint64>()) : std::nullopt;
}

std::optional<HistoryEntry> decodeEntry(const ordered_json& object) {
    if (!object.is_object())
        return std::nullopt;
    for (const char* key : {"id", "createdAt", "regionCount", "pixelWidth", "pixelHeight"}) {
        if (!object.contains(key))
            return std::nullopt;
    }
    const auto id = decodeId(object["id"]);
    const auto createdAt = decodeMoment(object["createdAt"]);
    const auto regionCount = decodeCount(object["regionCount"]);
    const auto pixelWidth = decodeCount(object["pixelWidth"]);
    const auto pixelHeight = decodeCount(object["pixelHeight"]);
    if (!id || !createdAt || !regionCount || !pixelWidth || !pixelHeight)
        return std::nullopt;
    return HistoryEntry{*id, *createdAt, *regionCount, *pixelWidth, *pixelHeight};
}

} // namespace

QString HistoryIndex::idText(QUuid id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QByteArray HistoryIndex::encode(const HistoryEntries& entries) {
    ordered_json array = ordered_json::array();
    for (const HistoryEntry& entry : entries) {
        array.push_back({{"id", idText(entry.id).toStdString()},
                         {"createdAt", double(epoch().msecsTo(entry.createdAt)) / 1000},
                         {"regionCount", entry.regionCount},
                         {"pixelWidth", entry.pixelWidth},
                         {"pixelHeight", entry.pixelHeight}});
    }
    return QByteArray::fromStdString(array.dump());
}

std::optional<HistoryEntries> HistoryIndex::decode(const QByteArray& json) {
    const auto array = ordered_json::parse(json.begin(), json.end(), nullptr, false);
    if (!array.is_array())
        return std::nullopt;
    HistoryEntries entries;
    for (const ordered_json& object : array) {
        const auto entry = decodeEntry(object);
        if (!entry)
            return std::nullopt;
        if (std::ranges::find(entries, entry->id, &HistoryEntry::id) == entries.end())
            entries.push_back(*entry);
    }
    return entries;
}

} // namespace Veilshot
