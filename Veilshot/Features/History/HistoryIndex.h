#pragma once

#include "Veilshot/Features/History/HistoryEntry.h"

#include <QByteArray>
#include <optional>

/// The text of the index file: a JSON array of objects with the keys "id" (36 characters, upper case),
/// "createdAt" (seconds since 2001-01-01 00:00:00 UTC, with a fraction), "regionCount", "pixelWidth" and
/// "pixelHeight", written in this order and without blanks.
namespace Veilshot::HistoryIndex {

QByteArray encode(const HistoryEntries& entries);

/// Nothing unless every entry has every key with a value of its type. Keys may come in any order, unknown
/// ones are ignored, and of several entries with one id the first counts.
std::optional<HistoryEntries> decode(const QByteArray& json);

/// The id as it stands in the index and in file names.
QString idText(QUuid id);

} // namespace Veilshot::HistoryIndex
