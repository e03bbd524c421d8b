#include "Veilshot/Features/MenuBar/MenuBarEntry.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Stage = EditorStore::Stage;

/// A line for each entry: its text, [in brackets] if it cannot be chosen, and its shortcut.
QStringList lines(const MenuBarEntry::Context& context) {
    QStringList lines;
    for (const MenuBarEntry& entry : MenuBarEntry::list(context)) {
        EXPECT_EQ(entry.command.has_value(), entry.kind == MenuBarEntry::Kind::action);
        const QString text = entry.kind == MenuBarEntry::Kind::separator ? u"-"_s
                             : entry.kind == MenuBarEntry::Kind::status  ? u'[' + entry.text + u']'
                                                                         : entry.text;
        lines.push_back((text + u' ' + entry.shortcut.toString(QKeySequence::PortableText)).trimmed());
    }
    return lines;
}

TEST(MenuBarEntry, ListsWhatTheSessionOffers) {
    struct Row {
        MenuBarEntry::Context context;
        QStringList middle;
    };
    const Row rows[] = {
        {{.stage = Stage::Empty, .scanMessage = u"left over"_s, .regionCount = 3}, {}},
        {{.stage = Stage::Scanning, .regionCount = 3}, {u"[Scanning screenshot…]"_s}},
        {{.stage = Stage::Scanning, .scanMessage = u"Finding people…"_s}, {u"[Finding people…]"_s}},
        {{.stage = Stage::Ready}, {u"Copy Protected Image"_s, u"[0 details blurred]"_s}},
        {{.stage = Stage::Ready, .regionCount = 1}, {u"Copy Protected Image"_s, u"[1 details blurred]"_s}},
        {{.stage = Stage::Ready, .regionCount = 1234},
         {u"Copy Protected Image"_s, u"[1234 details blurred]"_s}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(lines(row.context),
                  QStringList({u"Quick Paste… Meta+Shift+B"_s, u"Show Window"_s}) + row.middle +
                      QStringList({u"-"_s, u"Settings…"_s, u"-"_s, u"Quit Veilshot Ctrl+Q"_s}));
}

} // namespace
} // namespace Veilshot
