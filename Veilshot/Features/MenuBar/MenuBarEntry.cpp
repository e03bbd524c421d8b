#include "Veilshot/Features/MenuBar/MenuBarEntry.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

std::vector<MenuBarEntry> MenuBarEntry::list(const Context& context) {
    const auto status = [](const QString& text) { return MenuBarEntry{Kind::status, text}; };

    std::vector<MenuBarEntry> entries{
        {Kind::action, u"Quick Paste…"_s, Command::quickPaste, Qt::META | Qt::SHIFT | Qt::Key_B},
        {Kind::action, u"Show Window"_s, Command::showWindow}};
    switch (context.stage) {
    case EditorStore::Stage::Empty:
        break;
    case EditorStore::Stage::Scanning:
        entries.push_back(
            status(context.scanMessage.isEmpty() ? u"Scanning screenshot…"_s : context.scanMessage));
        break;
    case EditorStore::Stage::Ready:
        entries.push_back({Kind::action, u"Copy Protected Image"_s, Command::copyProtectedImage});
        entries.push_back(status(u"%1 details blurred"_s.arg(context.regionCount)));
        break;
    }
    entries.push_back({Kind::separator});
    entries.push_back({Kind::action, u"Settings…"_s, Command::openSettings});
    entries.push_back({Kind::separator});
    entries.push_back({Kind::action, u"Quit Veilshot"_s, Command::quit, Qt::CTRL | Qt::Key_Q});
    return entries;
}

} // namespace Veilshot
