#pragma once

#include "VeilshotCore/Analysis/TextRecognition/TextInk.h"

namespace Veilshot {

/// The blobs of one line and the box around them.
struct LineGroup {
    std::vector<int> blobs;
    cv::Rect box;
};

/// The blobs of `ink`, found in `colours`, by lines without wide gaps; a line ends at the border of its cell.
std::vector<LineGroup> groupIntoLines(const TextInk& ink, const cv::Mat& colours);

} // namespace Veilshot
