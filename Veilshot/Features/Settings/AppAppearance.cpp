#include "Veilshot/Features/Settings/AppAppearance.h"

#include "Veilshot/Platform/UserDefaults.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString appearanceKey = u"appAppearance"_s;

QString storedValue(AppAppearance appearance) {
    return title(appearance).toLower();
}

} // namespace

AppAppearance readAppAppearance(const UserDefaults& defaults) {
    const auto* const found = std::ranges::find(allAppAppearances, defaults.text(appearanceKey), storedValue);
    return found == allAppAppearances.end() ? AppAppearance::system : *found;
}

void writeAppAppearance(AppAppearance appearance, UserDefaults& defaults) {
    defaults.setText(appearanceKey, storedValue(appearance));
}

QString title(AppAppearance appearance) {
    switch (appearance) {
    case AppAppearance::system:
        return u"System"_s;
    case AppAppearance::light:
        return u"Light"_s;
    case AppAppearance::dark:
        return u"Dark"_s;
    }
    return {};
}

bool isDark(AppAppearance appearance, bool isDesktopDark) {
    return appearance == AppAppearance::system ? isDesktopDark : appearance == AppAppearance::dark;
}

} // namespace Veilshot
