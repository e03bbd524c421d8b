#pragma once

#include <opencv2/core.hpp>

namespace Veilshot {

/// How much each pixel stands out from the background around it: 0 on the background itself, up to 255.
///
/// The interface of a program is drawn on flat areas: pages, panels, bubbles, badges. Each pixel that is not
/// part of such an area is compared with the nearest one, largest channel difference. So light text on a dark
/// sidebar, white text on a blue bubble and black text on a page all become ink of the same polarity, and the
/// edges between areas vanish. Far from any flat area (photographs, scans) the local mean stands in.
///
/// Takes and returns a top-left raster: CV_8UC3 of any channel order in, CV_8UC1 of the same size out.
cv::Mat backgroundContrast(const cv::Mat& colours);

} // namespace Veilshot
