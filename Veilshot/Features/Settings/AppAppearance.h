#pragma once

#include <QString>
#include <array>

namespace Veilshot {

class UserDefaults;

/// The user's choice of colours, in the order of the picker.
enum class AppAppearance { system, light, dark };

inline constexpr std::array allAppAppearances{AppAppearance::system, AppAppearance::light,
                                              AppAppearance::dark};

/// The choice kept under "appAppearance"; `system` if there is none, or none that is known.
AppAppearance readAppAppearance(const UserDefaults& defaults);
void writeAppAppearance(AppAppearance appearance, UserDefaults& defaults);

/// "System", "Light" or "Dark".
QString title(AppAppearance appearance);
/// Whether windows are to be dark on a desktop that is dark or not.
bool isDark(AppAppearance appearance, bool isDesktopDark);

} // namespace Veilshot
