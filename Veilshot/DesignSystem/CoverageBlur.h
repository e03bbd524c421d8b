#pragma once

#include <QColor>
#include <QImage>

namespace Veilshot::CoverageBlur {

/// How many standard deviations away a Gaussian has faded to less than what eight bits can show.
inline constexpr qreal reach = 3;

/// The shape, of the format Alpha8, blurred by a Gaussian with this standard deviation in pixels and drawn in
/// the colour. As large as the shape; outside of it is empty.
QImage make(const QImage& shape, qreal sigma, const QColor& color);

} // namespace Veilshot::CoverageBlur
