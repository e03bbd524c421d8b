#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace Veilshot {

/// Text taller than this is not looked for in a picture as it is.
inline constexpr int tallestText = 160;

/// A connected piece of ink: a letter, a part of one, or several touching letters.
struct Blob {
    cv::Rect box;
    int label = 0;
};

/// What stands out from its background and may be text.
struct TextInk {
    cv::Mat contrast; ///< CV_8U
    cv::Mat labels;   ///< CV_32S, 0 where there is no ink
    std::vector<Blob> blobs;
    /// By label: ink that no segment owns but that may be drawn with any, such as the dot of a full stop.
    std::vector<bool> isSpeck;
};

/// Of a CV_8UC3 picture. Rules, frames, icons and the like are left out.
TextInk findTextInk(const cv::Mat& colours);

} // namespace Veilshot
