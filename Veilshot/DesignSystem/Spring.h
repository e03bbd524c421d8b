#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

/// A spring from rest to rest, as a curve over time for Qt's animations:
///     Behavior on x { NumberAnimation { duration: Theme.spring.duration; easing: Theme.spring.curve } }
///
/// The motion of a unit mass on a damped spring, released one unit away from its goal: with the angular
/// frequency w = 2 pi / response and the damping fraction z,
///     z = 1:  1 - (1 + w t) exp(-w t)
///     z < 1:  1 - (cos(d t) + (z w / d) sin(d t)) exp(-z w t),  d = w sqrt(1 - z^2)
/// It ends when what is left is less than a thousandth.
class Spring {
    Q_GADGET
    QML_VALUE_TYPE(spring)
    Q_PROPERTY(int duration READ duration CONSTANT)
    Q_PROPERTY(QEasingCurve curve READ curve CONSTANT)

public:
    /// `response` in seconds; 0 < `dampingFraction` <= 1.
    constexpr Spring(double response, double dampingFraction)
        : m_response(response), m_dampingFraction(dampingFraction) {}
    constexpr Spring() : Spring(0.35, 1) {}

    /// Response 0.35 s, no overshoot.
    static constexpr Spring smooth() { return {0.35, 1}; }
    /// Response 0.2 s, a slight overshoot.
    static constexpr Spring snappy() { return {0.2, 0.85}; }
    /// Response 0.1 s, a slight overshoot: a key going down.
    static constexpr Spring pressing() { return {0.1, 0.85}; }
    /// Response 0.7 s, a visible overshoot: something appears.
    static constexpr Spring entrance() { return {0.7, 0.7}; }

    /// How far the motion has come after so many seconds: 0 at the start, 1 at the goal.
    double position(double seconds) const;
    /// When the motion is over, in seconds.
    double settlingTime() const;

    /// In milliseconds.
    int duration() const;
    /// Only for the springs named above.
    QEasingCurve curve() const;

    friend constexpr bool operator==(const Spring&, const Spring&) = default;

private:
    double m_response;
    double m_dampingFraction;
};

} // namespace Veilshot
