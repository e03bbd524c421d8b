#include "Veilshot/DesignSystem/Spring.h"

#include <cmath>
#include <numbers>

namespace Veilshot {

namespace {

/// Qt takes a bare function, so that every spring needs one of its own.
template<Spring (*spring)()>
double progress(double share) {
    static const double end = spring().settlingTime();
    // The very end is the goal itself: otherwise a thousandth would be missing for good.
    return share >= 1 ? 1 : spring().position(share * end);
}

} // namespace

double Spring::position(double seconds) const {
    const double frequency = 2 * std::numbers::pi / m_response;
    const double decay = std::exp(-m_dampingFraction * frequency * seconds);
    if (m_dampingFraction >= 1)
        return 1 - (1 + frequency * seconds) * decay;
    const double damped = frequency * std::sqrt(1 - m_dampingFraction * m_dampingFraction);
    return 1 - (std::cos(damped * seconds) +
                m_dampingFraction * frequency / damped * std::sin(damped * seconds)) *
                   decay;
}

double Spring::settlingTime() const {
    constexpr double remainder = 0.001;
    constexpr double step = 0.001;
    // Backwards from where it is surely at rest: a spring that overshoots passes its goal on the way.
    double time = 10 * m_response;
    while (time > step && std::abs(1 - position(time - step)) < remainder)
        time -= step;
    return time;
}

int Spring::duration() const {
    return int(std::ceil(settlingTime() * 1000));
}

QEasingCurve Spring::curve() const {
    QEasingCurve curve;
    curve.setCustomType(*this == pressing()   ? progress<&Spring::pressing>
                        : *this == entrance() ? progress<&Spring::entrance>
                        : *this == snappy()   ? progress<&Spring::snappy>
                                              : progress<&Spring::smooth>);
    return curve;
}

} // namespace Veilshot
