#include "VeilshotCore/Analysis/NameTagging/NamesInCells.h"

#include "VeilshotCore/Analysis/ColumnLine.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// Knows the whole cells that are names by themselves.
class KnownCells : public NameTagger {
public:
    std::vector<TextRange> personalNames(const QString& cell) const override {
        const QStringList names{u"Ove Juul"_s, u"Ida"_s, u"Bo Lund"_s};
        return names.contains(cell) ? std::vector{TextRange{0, cell.size()}} : std::vector<TextRange>();
    }
};

TEST(NamesInCells, AreToldByTheLabelOrTheCompanyOfACell) {
    struct Row {
        QStringList cells;
        QStringList names;
    };
    const Row rows[] = {
        {{u"Last name"_s, u"Achterberg"_s, u"Hope"_s, u"2013"_s}, {u"Achterberg"_s, u"Hope"_s}},
        {{u"Assignee"_s, u"Tuuli Bäckström"_s}, {u"Tuuli Bäckström"_s}},
        {{u"Assignee"_s, u"Nobody yet"_s}, {}},
        {{u"Author"_s, u"Ove Juul"_s, u"Zbigniew topatka"_s, u"Ida"_s},
         {u"Ove Juul"_s, u"Zbigniew topatka"_s, u"Ida"_s}},
        {{u"Owner"_s, u"Mark Complete"_s}, {}},
        {{u"Next of kin"_s, u"Clemency Rook"_s}, {u"Clemency Rook"_s}},
        {{u"Surname (family name)"_s, u"TREBARWITH-OBUZOR"_s}, {u"TREBARWITH-OBUZOR"_s}},
        {{u"First name"_s, u"Description"_s}, {}}, // a header and the next
        {{QString(), u"Ove Juul"_s, u"Ida"_s}, {u"Ove Juul"_s, u"Ida"_s}},
        {{u"Guests"_s, u"Ove Juul"_s, u"Yes"_s, u"Xiomara Peña"_s}, {u"Ove Juul"_s, u"Xiomara Peña"_s}},
        {{u"Guests"_s, u"Awaiting"_s, u"Maybe"_s}, {}},
        {{u"First name"_s, u"Last name"_s, u"Description"_s, u"Office"_s}, {}}, // a form
        {{u"Full name"_s, u"Description"_s, u"Office"_s}, {}},
        {{u"Wednesday"_s, u"Ove Juul"_s, u"Ida"_s, u"Hjalte"_s, u"Bo Lund"_s, u"Monday"_s},
         {u"Ove Juul"_s, u"Ida"_s, u"Hjalte"_s, u"Bo Lund"_s}},
        {{u"Table 5"_s, u"Ida"_s, u"Storm"_s, u"Hjalte"_s}, {u"Ida"_s, u"Storm"_s, u"Hjalte"_s}},
        {{u"Where"_s, u"Ida"_s, u"Skanderborg"_s, u"Odder"_s, u"Hjalte"_s}, {u"Ida"_s}},
    };
    for (const Row& row : rows) {
        const QString line = row.cells.join(row.cells.size() > 2 ? cellSeparator.toString() : u"\t"_s);
        QStringList found;
        for (const TextRange range : namesInCells(line, KnownCells()))
            found.push_back(line.sliced(range.location, range.length));
        EXPECT_EQ(found.join(u"; ").toStdString(), row.names.join(u"; ").toStdString()) << line.toStdString();
    }
}

} // namespace
} // namespace Veilshot
