#pragma once

#include "VeilshotCore/Analysis/PeopleSearch/GreyLevels.h"

#include <QImage>
#include <QRect>

namespace Veilshot {

/// The tones in a part of a picture, by which drawn shapes differ from photographs.
class AreaTones {
public:
    /// Takes a bitmap in Format_RGBA8888; `area` is in pixels with a top-left origin and clipped to the
    /// image. Large areas are sampled.
    static AreaTones of(const QImage& image, const QRect& area);

    const GreyLevels& levels() const;

    // All 0…1, and 0 of an empty area.
    /// Of the steps to the right and down, those that are steep as the edges of strokes are.
    double steepShare() const;
    /// Of the pixels, those with the yellow of smileys. Faces in warm light are more orange.
    double smileyYellowShare() const;

    /// The standard deviation of how red the pixels are, in levels of chroma. It hardly varies within a face.
    double spreadOfRed() const;

private:
    void add(const uchar* pixel);

    GreyLevels m_levels;
    int m_steps = 0;
    int m_steepSteps = 0;
    int m_smileyYellow = 0;
    double m_redSum = 0;
    double m_redSquares = 0;
};

} // namespace Veilshot
