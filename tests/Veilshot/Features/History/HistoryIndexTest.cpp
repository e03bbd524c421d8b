#include "Veilshot/Features/History/HistoryIndex.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(HistoryIndex, IsReadAsAWholeOrNotAtAll) {
    const QByteArray id = "01234567-89AB-CDEF-0123-456789ABCDEF";
    const QByteArray whole =
        R"([{"id":")" + id + R"(","createdAt":1.5,"regionCount":2,"pixelWidth":3,"pixelHeight":4}])";
    const auto entry = [&](qint64 milliseconds, qint64 regionCount) {
        const QDateTime start(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
        return HistoryEntries{
            {QUuid(QString::fromLatin1(id)), start.addMSecs(milliseconds), regionCount, 3, 4}};
    };
    const HistoryEntries usual = entry(1500, 2);
    const auto unreadable = std::nullopt;
    struct Row {
        QByteArray part;
        QByteArray replacement;
        std::optional<HistoryEntries> entries;
    };
    for (const Row& row : {
             Row{whole, whole, usual},
             Row{whole,
                 R"([{"pixelHeight":4,"pixelWidth":3,"regionCount":2,"createdAt":1.5, "id" : ")" + id +
                     "\"}\n]",
                 usual},
             Row{"[{", R"([{"tags":[{"id":7}],)", usual},
             Row{"}]", "}," + QByteArray(whole).replace(":2", ":5").replace(id, id.toLower()).mid(1), usual},
             Row{"1.5", "-2", entry(-2000, 2)},
             Row{"1.5", "18446744073709551615", entry(1'000'000'000'000'000, 2)},
             Row{":2", ":9223372036854775807", entry(1500, std::numeric_limits<qint64>::max())},

             Row{R"("id":")" + id + "\",", "", unreadable},
             Row{R"(,"pixelHeight":4)", "", unreadable},
             Row{"}]", "},{}]", unreadable},
             Row{id, id.chopped(1), unreadable},
             Row{id, "{" + id + "}", unreadable},
             Row{id, QByteArray(id).replace("-", ""), unreadable},
             Row{"1.5", R"("1.5")", unreadable},
             Row{"1.5", "1e400", unreadable},
             Row{":2", ":2.5", unreadable},
             Row{":2", ":9223372036854775808", unreadable},
             Row{":3", R"(:"3")", unreadable},
             Row{"}]", "},null]", unreadable},
             Row{"}]", "}", unreadable},
             Row{whole, "{}", unreadable},
             Row{whole, "", unreadable},
         }) {
        const QByteArray json = QByteArray(whole).replace(row.part, row.replacement);
        EXPECT_EQ(HistoryIndex::decode(json), row.entries) << json.toStdString();
    }
}

} // namespace
} // namespace Veilshot
