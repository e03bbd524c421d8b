#include "Veilshot/Features/MenuBar/MenuBarView.h"

#include "Veilshot/DesignSystem/Symbol.h"
#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Platform/TrayHost.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// In a colour that shows on light and on dark panels, drawn for each size by itself to stay sharp. Where the
/// tray draws icons itself, the installed one, if any, which it can colour as it likes.
QIcon icon(TrayHost::Kind kind) {
    QIcon drawn;
    for (const int size : {16, 22, 24, 32, 44, 48, 64})
        drawn.addPixmap(QPixmap::fromImage(Symbol::image(u"eye.slash"_s, size, Theme::brand())));
    return kind == TrayHost::Kind::onBus ? QIcon::fromTheme(u"org.veilshot.Veilshot-symbolic"_s, drawn)
                                         : drawn;
}

/// Whether an action that shows the one can go on to show the other.
bool isSameLine(const MenuBarEntry& one, const MenuBarEntry& other) {
    return one.kind == other.kind && one.command == other.command;
}

void show(const MenuBarEntry& entry, QAction& action) {
    action.setText(entry.text);
    action.setShortcut(entry.shortcut);
    action.setSeparator(entry.kind == MenuBarEntry::Kind::separator);
    action.setEnabled(entry.kind == MenuBarEntry::Kind::action);
    action.setData(entry.command ? QVariant(int(*entry.command)) : QVariant());
}

} // namespace

MenuBarView::MenuBarView(EditorStore& store, const TrayHost& host, QObject* parent)
    : QObject(parent), m_store(store), m_host(host), m_menu(std::make_unique<QMenu>()) {
    connect(&store, &EditorStore::stageChanged, this, &MenuBarView::updateMenu);
    connect(&store, &EditorStore::scanMessageChanged, this, &MenuBarView::updateMenu);
    connect(&store, &EditorStore::regionsChanged, this, &MenuBarView::updateMenu);
    connect(m_menu.get(), &QMenu::triggered, this,
            [this](const QAction* action) { carryOut(Command(action->data().toInt())); });
    updateMenu();
    connect(&host, &TrayHost::isPresentChanged, this, &MenuBarView::updateIcon);
    updateIcon();
}

MenuBarView::~MenuBarView() = default;

void MenuBarView::updateMenu() {
    const auto entries =
        MenuBarEntry::list({m_store.stage(), m_store.scanMessage(), qsizetype(m_store.regions().size())});
    // Lines come and go only where the menu begins to differ, because an open one must neither flicker nor
    // close.
    const auto head = std::ranges::mismatch(m_entries, entries, isSameLine).in1 - m_entries.begin();
    for (size_t surplus = m_entries.size(); surplus > entries.size(); --surplus)
        delete m_menu->actions().at(head);
    for (size_t lack = m_entries.size(); lack < entries.size(); ++lack)
        m_menu->insertAction(m_menu->actions().value(head), new QAction(m_menu.get()));
    for (size_t line = 0; line < entries.size(); ++line)
        show(entries[line], *m_menu->actions().at(line));
    m_entries = entries;
}

void MenuBarView::carryOut(Command command) {
    switch (command) {
    case Command::quickPaste:
        return Q_EMIT quickPasteRequested();
    case Command::showWindow:
        return Q_EMIT showWindowRequested();
    case Command::copyProtectedImage:
        return m_store.copyProtectedImage();
    case Command::openSettings:
        return Q_EMIT settingsRequested();
    case Command::quit:
        return Q_EMIT quitRequested();
    }
}

void MenuBarView::updateIcon() {
    // Qt decides once and for all how it reaches the tray, when the first icon is made: not before there is
    // one. And it tells a tray that comes back of the icon too early to be heard by all: so there is a new
    // one.
    m_icon.reset();
    if (!m_host.isPresent())
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(icon(m_host.kind()));
    m_icon->setToolTip(u"Veilshot"_s);
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    Q_EMIT showWindowRequested();
            });
    m_icon->show();
}

} // namespace Veilshot
