#include "Veilshot/Features/History/HistoryTexts.h"

#include <QTimeZone>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

const QLocale english(QLocale::English, QLocale::UnitedStates);
const QLocale danish(QLocale::Danish, QLocale::Denmark);

/// In Copenhagen, an hour ahead of UTC in winter.
QDateTime local(const char* text) {
    return QDateTime(QDateTime::fromString(QLatin1StringView(text), u"yyyy-MM-dd HH:mm:ss"_s).date(),
                     QDateTime::fromString(QLatin1StringView(text), u"yyyy-MM-dd HH:mm:ss"_s).time(),
                     QTimeZone("Europe/Copenhagen"));
}

TEST(HistoryTexts, NamesTheLargestUnitThatFitsByTheCalendar) {
    const struct {
        const char* moment;
        const char* now;
        const char* text;
        const char* danishText;
    } rows[] = {
        {"2026-11-18 12:00:05", "2026-11-18 12:00:00", "now", "nu"}, // the clock was set back
        {"2026-11-18 12:00:00", "2026-11-18 12:01:59", "1 minute ago", "for 1 minut siden"},
        {"2026-11-18 12:00:00", "2026-11-18 12:59:59", "59 minutes ago", "for 59 minutter siden"},
        {"2026-11-18 00:00:00", "2026-11-18 23:59:59", "23 hours ago", "for 23 timer siden"},
        {"2026-11-17 22:30:00", "2026-11-18 00:30:00", "2 hours ago", "for 2 timer siden"},
        // 34 hours, in which "yesterday" ended; in UTC it would have been the 15th
        {"2026-11-16 00:30:00", "2026-11-17 23:00:00", "yesterday", "i går"},
        {"2026-11-12 12:00:00", "2026-11-18 12:00:00", "6 days ago", "for 6 dage siden"},
        // A Wednesday; weeks begin on Sunday in America and on Monday in Denmark.
        {"2026-11-11 12:00:00", "2026-11-18 12:00:00", "last week", "sidste uge"},
        {"2026-11-08 12:00:00", "2026-11-18 12:00:00", "last week", "for 2 uger siden"},
        {"2026-10-18 12:00:00", "2026-11-18 12:00:00", "last month", "sidste måned"},
        {"2025-11-19 12:00:00", "2026-11-18 12:00:00", "12 months ago", "for 12 måneder siden"},
        {"2025-11-18 12:00:00", "2026-11-18 12:00:00", "last year", "sidste år"},
        {"2023-06-01 12:00:00", "2026-11-18 12:00:00", "3 years ago", "for 3 år siden"},
    };
    for (const auto& row : rows) {
        const QDateTime moment = local(row.moment).toUTC();
        const QDateTime now = local(row.now);
        EXPECT_EQ(HistoryTexts::relativeDate(moment, now, english).toStdString(), row.text) << row.moment;
        EXPECT_EQ(HistoryTexts::relativeDate(moment, now, danish).toStdString(), row.danishText)
            << row.moment;
    }
    EXPECT_EQ(HistoryTexts::relativeDate(local(rows[2].moment), local(rows[2].now), QLocale::c()),
              u"59 minutes ago"_s);
}

TEST(HistoryTexts, GivesTheDateWithTheTimeInItsZone) {
    const QDateTime moment = local("2026-01-23 16:05:59");
    EXPECT_EQ(HistoryTexts::dateWithTime(moment, danish), u"23. jan. 2026 16.05"_s);
    // Unicode's data set the day period off by another space from one version to the next.
    EXPECT_THAT(HistoryTexts::dateWithTime(moment, english).simplified().toStdString(),
                testing::MatchesRegex("Jan 23, 2026(,| at) 4:05.*PM"));
}

TEST(HistoryTexts, CountsAreas) {
    const HistoryEntry entry{{}, {}, 1, 2560, 1440};
    EXPECT_EQ(HistoryTexts::summary(entry), u"1 area hidden \u00b7 2560 \u00d7 1440"_s);
    EXPECT_EQ(HistoryTexts::areasHidden(1200), u"1200 areas hidden"_s);
}

} // namespace
} // namespace Veilshot
