#pragma once

#include <QImage>
#include <QRect>

namespace Veilshot {

/// True when what looks like a face in a box was drawn and not photographed: of one tone with the noise of a
/// JPEG file, of two tones as strokes on their ground, or of a smiley's yellow.
///
/// Takes a bitmap in Format_RGBA8888; the box is in pixels with a top-left origin and clipped to the image.
/// Pure; may be called from several threads at once.
bool looksDrawn(const QImage& image, const QRect& box);

/// The same by what is around the box, for a face that is doubtful anyway: a small face is surrounded by its
/// picture, letters by each other and the button, badge or line that they stand on. Some small faces on even
/// grounds look like that, too.
bool looksDrawnAround(const QImage& image, const QRect& box);

} // namespace Veilshot
