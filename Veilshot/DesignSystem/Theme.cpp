#include "Veilshot/DesignSystem/Theme.h"

#include "VeilshotCore/Models/SensitiveKind.h"

#include <QQmlEngine>
#include <algorithm>

namespace Veilshot {

namespace {

Theme* theme = nullptr;

} // namespace

Theme::Theme(QObject* parent) : QObject(parent) {
    theme = this;
}

Theme* Theme::create(QQmlEngine*, QJSEngine*) {
    Q_ASSERT(theme);
    QQmlEngine::setObjectOwnership(theme, QQmlEngine::CppOwnership);
    return theme;
}

void Theme::setDark(bool isDark) {
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    Q_EMIT isDarkChanged();
}

QVariantMap Theme::tints() const {
    const std::pair<SensitiveKind, QColor> table[] = {{SensitiveKind::address, pick(0xb75c13, 0xf2994a)},
                                                      {SensitiveKind::custom, brandBright()},
                                                      {SensitiveKind::email, pick(0x1873c5, 0x4ea7fc)},
                                                      {SensitiveKind::identity, pick(0x8250c7, 0xbb87fc)},
                                                      {SensitiveKind::name, pick(0xbd397b, 0xe36ba7)},
                                                      {SensitiveKind::payment, success()},
                                                      {SensitiveKind::person, pick(0x087d91, 0x26b5ce)},
                                                      {SensitiveKind::phone, pick(0x967000, 0xf2c94c)},
                                                      {SensitiveKind::secret, danger()},
                                                      {SensitiveKind::web, pick(0x2b6ec5, 0x5e9ef0)}};
    QVariantMap tints;
    for (const auto& [kind, tint] : table)
        tints.insert(rawValue(kind), tint);
    return tints;
}

QEasingCurve Theme::easeInOut() {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

QColor Theme::brightened(const QColor& color, double amount) {
    const auto moved = [amount](float component) { return std::clamp(component + float(amount), 0.f, 1.f); };
    return QColor::fromRgbF(moved(color.redF()), moved(color.greenF()), moved(color.blueF()), color.alphaF());
}

} // namespace Veilshot
