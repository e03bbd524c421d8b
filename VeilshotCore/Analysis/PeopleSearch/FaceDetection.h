#pragma once

#include "VeilshotCore/Analysis/PeopleSearch/FaceCandidate.h"

namespace cv {
class Mat;
}

namespace Veilshot {

/// Everything in a grey picture (CV_8U) that resembles a face of at least 80 pixels, however weakly; in its
/// pixels, strongest first. Uses dlib's detector (five HOG filters, from frontal to half profile), which is
/// unpacked by the first call and then stays in memory. May be called from several threads at once. Takes
/// about a tenth of a second and ten megabytes per megapixel; may throw std::bad_alloc or dlib::error.
std::vector<FaceCandidate> detectFaces(const cv::Mat& grey);

} // namespace Veilshot
