#pragma once

#include "Veilshot/Features/History/HistoryEntry.h"

#include <QLocale>
#include <QString>

/// What the views say about kept copies. Dates follow the locale, the rest is English.
namespace Veilshot::HistoryTexts {

/// How long ago the moment was, in the largest unit that fits: "now", "3 hours ago", "yesterday", "last
/// week". Days and longer units are counted by the calendar, so that names such as "yesterday" are true, in
/// the time zone of `now`. A moment to come, which takes a clock that was set back, is "now".
QString relativeDate(const QDateTime& moment, const QDateTime& now, const QLocale& locale);
/// Day, abbreviated month, year, hours and minutes, in the time zone of `moment`.
QString dateWithTime(const QDateTime& moment, const QLocale& locale);

/// "1 area hidden", "2 areas hidden".
QString areasHidden(qint64 regionCount);
/// "2 areas hidden · 1920 × 1080".
QString summary(const HistoryEntry& entry);
/// What a screen reader says of the copy. One form for every count.
QString accessibleLabel(const HistoryEntry& entry);
/// What the user is told before all copies go.
QString clearMessage(qint64 entryCount);

} // namespace Veilshot::HistoryTexts
