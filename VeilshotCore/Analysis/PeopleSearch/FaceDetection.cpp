// The only source with dlib's headers: they take long to compile.
#include "VeilshotCore/Analysis/PeopleSearch/FaceDetection.h"

#include <dlib/image_processing/frontal_face_detector.h>
#include <dlib/opencv/cv_image.h>

namespace Veilshot {

namespace {

/// Low, because weak hits are verified afterwards by other means.
constexpr double scoreThreshold = -0.6;

} // namespace

std::vector<FaceCandidate> detectFaces(const cv::Mat& grey) {
    static const dlib::frontal_face_detector prototype = dlib::get_frontal_face_detector();
    // A detector keeps the features of the picture it works on: threads cannot share one, and a copy that
    // ends here gives that memory back.
    dlib::frontal_face_detector detector = prototype;
    std::vector<dlib::rect_detection> detections;
    detector(dlib::cv_image<unsigned char>(grey), detections, scoreThreshold);
    std::vector<FaceCandidate> candidates;
    candidates.reserve(detections.size());
    for (const dlib::rect_detection& detection : detections) {
        const dlib::rectangle& rect = detection.rect;
        candidates.push_back(
            {QRectF(rect.left(), rect.top(), rect.width(), rect.height()), detection.detection_confidence});
    }
    return distinctFaces(std::move(candidates));
}

} // namespace Veilshot
