#include "VeilshotCore/Analysis/PeopleSearch/AreaTones.h"

namespace Veilshot {

AreaTones AreaTones::of(const QImage& image, const QRect& area) {
    constexpr int mostSamplesPerSide = 512;
    constexpr int steepStep = 30;
    const QRect pixels = area & image.rect();
    const int strideX = 1 + pixels.width() / mostSamplesPerSide;
    const int strideY = 1 + pixels.height() / mostSamplesPerSide;
    AreaTones tones;
    for (int y = pixels.top(); y <= pixels.bottom(); y += strideY) {
        for (int x = pixels.left(); x <= pixels.right(); x += strideX) {
            const uchar* pixel = image.constScanLine(y) + 4 * static_cast<std::ptrdiff_t>(x);
            tones.add(pixel);
            if (x == pixels.right() || y == pixels.bottom())
                continue;
            for (const uchar* next : {pixel + 4, pixel + image.bytesPerLine()}) {
                ++tones.m_steps;
                tones.m_steepSteps += std::abs(GreyLevels::of(next) - GreyLevels::of(pixel)) > steepStep;
            }
        }
    }
    return tones;
}

void AreaTones::add(const uchar* pixel) {
    constexpr int leastYellow = 106;
    const int level = GreyLevels::of(pixel);
    m_levels.add(level);
    m_smileyYellow += level - pixel[2] > leastYellow && 10 * pixel[1] > 7 * pixel[0];
    const double red = 0.713 * (pixel[0] - level); // as in BT.601
    m_redSum += red;
    m_redSquares += red * red;
}

const GreyLevels& AreaTones::levels() const {
    return m_levels;
}

double AreaTones::steepShare() const {
    return static_cast<double>(m_steepSteps) / std::max(1, m_steps);
}

double AreaTones::smileyYellowShare() const {
    return static_cast<double>(m_smileyYellow) / std::max(1, m_levels.count());
}

double AreaTones::spreadOfRed() const {
    const double count = std::max(1, m_levels.count());
    return std::sqrt(std::max(0.0, m_redSquares / count - m_redSum * m_redSum / (count * count)));
}

} // namespace Veilshot
