#include "Veilshot/Features/Settings/AppearanceSetting.h"

#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Platform/DesktopColorScheme.h"

namespace Veilshot {

AppearanceSetting::AppearanceSetting(UserDefaults& defaults, const DesktopColorScheme& desktop, Theme& theme,
                                     QObject* parent)
    : QObject(parent), m_defaults(defaults), m_desktop(desktop), m_theme(theme),
      m_appearance(readAppAppearance(defaults)) {
    connect(&desktop, &DesktopColorScheme::isDarkChanged, this, &AppearanceSetting::apply);
    apply();
}

QStringList AppearanceSetting::titles() {
    QStringList titles;
    for (const AppAppearance appearance : allAppAppearances)
        titles.push_back(title(appearance));
    return titles;
}

int AppearanceSetting::index() const {
    return int(m_appearance);
}

void AppearanceSetting::setIndex(int index) {
    const AppAppearance appearance = allAppAppearances.at(size_t(index));
    if (appearance == m_appearance)
        return;
    m_appearance = appearance;
    writeAppAppearance(appearance, m_defaults);
    apply();
    Q_EMIT indexChanged();
}

void AppearanceSetting::apply() {
    m_theme.setDark(isDark(m_appearance, m_desktop.isDark()));
}

} // namespace Veilshot
