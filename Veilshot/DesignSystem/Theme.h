#pragma once

#include "Veilshot/DesignSystem/Spring.h"

#include <QColor>
#include <QObject>
#include <QVariantMap>
#include <QtQmlIntegration>

class QJSEngine;
class QQmlEngine;

namespace Veilshot {

/// Every colour, measure and motion of the user interface. Views name an entry and never a raw colour.
/// Colours follow `isDark` at once. Lengths are in device-independent pixels.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark WRITE setDark NOTIFY isDarkChanged)

    Q_PROPERTY(QColor brand READ brand CONSTANT)
    Q_PROPERTY(QColor onBrand READ onBrand CONSTANT)
    Q_PROPERTY(QColor brandBright READ brandBright NOTIFY isDarkChanged)
    Q_PROPERTY(QColor windowBackground READ windowBackground NOTIFY isDarkChanged)
    Q_PROPERTY(QColor base READ windowBackground NOTIFY isDarkChanged)
    Q_PROPERTY(QColor canvas READ canvas NOTIFY isDarkChanged)
    Q_PROPERTY(QColor surface READ surface NOTIFY isDarkChanged)
    Q_PROPERTY(QColor well READ well NOTIFY isDarkChanged)
    Q_PROPERTY(QColor elevated READ elevated NOTIFY isDarkChanged)
    Q_PROPERTY(QColor hairline READ hairline NOTIFY isDarkChanged)
    Q_PROPERTY(QColor outline READ outline NOTIFY isDarkChanged)
    Q_PROPERTY(QColor textPrimary READ textPrimary NOTIFY isDarkChanged)
    Q_PROPERTY(QColor textSecondary READ textSecondary NOTIFY isDarkChanged)
    Q_PROPERTY(QColor textTertiary READ textTertiary NOTIFY isDarkChanged)
    Q_PROPERTY(QColor success READ success NOTIFY isDarkChanged)
    Q_PROPERTY(QColor danger READ danger NOTIFY isDarkChanged)
    Q_PROPERTY(QColor imageOutline READ imageOutline NOTIFY isDarkChanged)
    Q_PROPERTY(QColor imageShadow READ imageShadow CONSTANT)
    /// Around `brand`.
    Q_PROPERTY(QColor onBrandOutline READ onBrandOutline CONSTANT)
    /// Under what floats above the content: pills, menus, dialogs.
    Q_PROPERTY(QColor floatingShadow READ floatingShadow CONSTANT)
    /// Over the content while a dialog wants an answer.
    Q_PROPERTY(QColor scrim READ scrim NOTIFY isDarkChanged)
    /// The colour of each kind of area, by the kind's raw value: Theme.tints["email"].
    Q_PROPERTY(QVariantMap tints READ tints NOTIFY isDarkChanged)

    Q_PROPERTY(int fontTitle MEMBER fontTitle CONSTANT)
    Q_PROPERTY(int fontBody MEMBER fontBody CONSTANT)
    Q_PROPERTY(int fontLabel MEMBER fontLabel CONSTANT)
    Q_PROPERTY(int fontNote MEMBER fontNote CONSTANT)
    /// Of buttons.
    Q_PROPERTY(int controlHeight MEMBER controlHeight CONSTANT)
    Q_PROPERTY(int controlRadius MEMBER controlRadius CONSTANT)
    /// Of what lies inside a control or list: a chosen segment, a row, an item of a menu.
    Q_PROPERTY(int rowRadius MEMBER rowRadius CONSTANT)
    /// Of what holds controls: dialogs, sheets, the outline of a drop target.
    Q_PROPERTY(int panelRadius MEMBER panelRadius CONSTANT)
    /// From the edge of a panel to its content.
    Q_PROPERTY(int panelPadding MEMBER panelPadding CONSTANT)
    Q_PROPERTY(qreal disabledOpacity MEMBER disabledOpacity CONSTANT)

    /// In milliseconds, easing out: how a control answers the pointer.
    Q_PROPERTY(int hoverDuration MEMBER hoverDuration CONSTANT)
    Q_PROPERTY(Veilshot::Spring spring READ spring CONSTANT)
    Q_PROPERTY(Veilshot::Spring snappy READ snappy CONSTANT)
    Q_PROPERTY(Veilshot::Spring pressing READ pressing CONSTANT)
    Q_PROPERTY(Veilshot::Spring entrance READ entrance CONSTANT)
    /// For what goes to and fro, or fades.
    Q_PROPERTY(QEasingCurve easeInOut READ easeInOut CONSTANT)
    /// In milliseconds: one page for another where motion is reduced.
    Q_PROPERTY(int fadeDuration MEMBER fadeDuration CONSTANT)

public:
    /// Not to be constructed without an argument: Qt would then prefer that to `create` and make one of its
    /// own.
    explicit Theme(QObject* parent);

    /// The one that the views see. It belongs to the application and must exist before the first view.
    static Theme* create(QQmlEngine*, QJSEngine*);

    bool isDark() const { return m_isDark; }
    void setDark(bool isDark);

    static QColor brand() { return {0x00, 0x6f, 0xfc}; }
    /// Text and symbols on `brand`.
    static QColor onBrand() { return Qt::white; }
    QColor brandBright() const { return pick(0x005bcf, 0x5aa2ff); }
    QColor windowBackground() const { return pick(0xf5f6f8, 0x08090a); }
    QColor canvas() const { return pick(0xf5f6f8, 0x0b0c0d); }
    QColor surface() const { return pick(0xffffff, 0x0f1011); }
    QColor well() const { return pick(0xeef0f3, 0x0a0b0c); }
    QColor elevated() const { return pick(0xffffff, 0x1c1d20); }
    QColor hairline() const { return pick(0xe4e7ec, 0x1f2023); }
    QColor outline() const { return pick(0xccd1d9, 0x2c2d31); }
    QColor textPrimary() const { return pick(0x171a20, 0xf7f8f8); }
    QColor textSecondary() const { return pick(0x59616f, 0x8a8f98); }
    QColor textTertiary() const { return pick(0x687180, 0x62666d); }
    QColor success() const { return pick(0x16814e, 0x4cb782); }
    QColor danger() const { return pick(0xc73131, 0xeb5757); }
    QColor imageOutline() const { return withOpacity(pick(0x000000, 0xffffff), 0.08); }
    static QColor imageShadow() { return withOpacity(Qt::black, 0.16); }
    static QColor onBrandOutline() { return withOpacity(Qt::white, 0.1); }
    static QColor floatingShadow() { return withOpacity(Qt::black, 0.4); }
    QColor scrim() const { return withOpacity(Qt::black, m_isDark ? 0.6 : 0.3); }
    QVariantMap tints() const;

    /// Each component raised or lowered by `amount`, where 1 is the whole range; opacity stays.
    Q_INVOKABLE static QColor brightened(const QColor& color, double amount);

    const int fontTitle = 15;
    const int fontBody = 13;
    const int fontLabel = 12;
    const int fontNote = 11;
    const int controlHeight = 32;
    const int controlRadius = 6;
    const int rowRadius = 5;
    const int panelRadius = 10;
    const int panelPadding = 16;
    const qreal disabledOpacity = 0.4;
    const int hoverDuration = 120;
    const int fadeDuration = 200;

    static Spring spring() { return Spring::smooth(); }
    static Spring snappy() { return Spring::snappy(); }
    static Spring pressing() { return Spring::pressing(); }
    static Spring entrance() { return Spring::entrance(); }
    static QEasingCurve easeInOut();

Q_SIGNALS:
    void isDarkChanged();

private:
    QColor pick(QRgb light, QRgb dark) const { return QColor::fromRgb(m_isDark ? dark : light); }
    static QColor withOpacity(QColor color, float opacity) {
        color.setAlphaF(opacity);
        return color;
    }

    bool m_isDark = false;
};

} // namespace Veilshot
