#include "Veilshot/Features/History/HistoryTexts.h"

#include <memory>
#include <unicode/datefmt.h>
#include <unicode/reldatefmt.h>
#include <unicode/timezone.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

icu::Locale icuLocale(const QLocale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    // Of the "C" locale, whose names are no words, Qt gives "en".
    return icu::Locale::forLanguageTag(locale.bcp47Name().toStdString(), status);
}

QString fromICU(const icu::UnicodeString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

struct Age {
    qint64 count;
    URelativeDateTimeUnit unit;
};

Age age(const QDateTime& moment, const QDateTime& now, Qt::DayOfWeek firstDayOfWeek) {
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    const qint64 seconds = moment.secsTo(now);
    if (seconds < minute)
        return {0, UDAT_REL_UNIT_SECOND};
    if (seconds < hour)
        return {seconds / minute, UDAT_REL_UNIT_MINUTE};

    const QDate day = moment.date();
    const QDate today = now.date();
    const qint64 days = day.daysTo(today);
    // Shortly after midnight, what was done late in the evening is not a day old to anybody.
    if (days < 1 || seconds < 6 * hour)
        return {seconds / hour, UDAT_REL_UNIT_HOUR};
    if (days < 7)
        return {days, UDAT_REL_UNIT_DAY};
    if (day.addMonths(1) > today) {
        const auto weekStart = [&](QDate date) {
            return date.addDays(-((date.dayOfWeek() - firstDayOfWeek + 7) % 7));
        };
        return {weekStart(day).daysTo(weekStart(today)) / 7, UDAT_REL_UNIT_WEEK};
    }
    const int years = today.year() - day.year();
    if (day.addYears(1) > today)
        return {years * 12 + today.month() - day.month(), UDAT_REL_UNIT_MONTH};
    return {years, UDAT_REL_UNIT_YEAR};
}

QString areas(qint64 count) {
    return count == 1 ? u"1 area"_s : QString::number(count) + u" areas"_s;
}

} // namespace

QString HistoryTexts::relativeDate(const QDateTime& moment, const QDateTime& now, const QLocale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::RelativeDateTimeFormatter formatter(icuLocale(locale), nullptr, UDAT_STYLE_LONG,
                                                   UDISPCTX_CAPITALIZATION_NONE, status);
    const auto [count, unit] = age(moment.toTimeZone(now.timeZone()), now, locale.firstDayOfWeek());
    icu::UnicodeString text;
    formatter.format(-double(count), unit, text, status);
    return fromICU(text);
}

QString HistoryTexts::dateWithTime(const QDateTime& moment, const QLocale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createInstanceForSkeleton("yMMMdjm", icuLocale(locale), status));
    if (U_FAILURE(status))
        return {};
    // Qt has converted to the time zone already: not every zone of its has a name that ICU knows.
    format->setTimeZone(*icu::TimeZone::getGMT());
    icu::UnicodeString text;
    format->format(QDateTime(moment.date(), moment.time(), Qt::UTC).toMSecsSinceEpoch(), text);
    return fromICU(text);
}

QString HistoryTexts::areasHidden(qint64 regionCount) {
    return areas(regionCount) + u" hidden"_s;
}

QString HistoryTexts::summary(const HistoryEntry& entry) {
    return u"%1 · %2 × %3"_s.arg(areasHidden(entry.regionCount), QString::number(entry.pixelWidth),
                                 QString::number(entry.pixelHeight));
}

QString HistoryTexts::accessibleLabel(const HistoryEntry& entry) {
    return u"Protected screenshot, %1 areas hidden"_s.arg(entry.regionCount);
}

QString HistoryTexts::clearMessage(qint64 entryCount) {
    return u"This deletes the %1 protected images saved on this Mac. Your original screenshots are not affected."_s
        .arg(entryCount);
}

} // namespace Veilshot
