#pragma once

#include <QRectF>
#include <optional>

namespace Veilshot {

/// Where the body of a face is, from the proportions of people who stand or sit upright: 3.4 face sides wide
/// and down to 7.5 of them below the brow, clipped to the photograph that the face was seen in. Nothing when
/// the photograph ends so soon below the chin that it shows a head only. Both in pixels, top-left origin.
///
/// Detectors made for whole bodies were tried and rejected: they hit a tenth of the people and put most of
/// their boxes elsewhere, while nearly every body derived from a face is one.
std::optional<QRectF> estimatedBody(const QRectF& face, const QRectF& photo);

} // namespace Veilshot
