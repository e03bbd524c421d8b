#include "VeilshotCore/Analysis/PeopleSearch/FaceVerifier.h"

#include "VeilshotCore/Analysis/PeopleSearch/FaceCandidate.h"
#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <opencv2/imgproc.hpp>
#include <opencv2/objdetect.hpp>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The candidate is brought to this width, …
constexpr double faceWidth = 60;
/// … has this part of its sides around it, …
constexpr double surroundings = 0.5;
/// … and hits smaller than this are parts of faces.
constexpr int smallestHit = 32;
constexpr double scaleStep = 1.1;
constexpr int shortestCrop = 8;

enum class Facing { asGiven, mirrored };

bool load(cv::CascadeClassifier& cascade, const QString& path) {
    // OpenCV complains on the terminal about a file that is missing, so it is not asked to open one.
    if (!QFileInfo(path).isReadable())
        return false;
    try {
        return cascade.load(QFile::encodeName(path).toStdString());
    } catch (const cv::Exception&) {
        return false;
    }
}

/// The most neighbours of any hit on the face.
int strongestHit(cv::CascadeClassifier& cascade, const cv::Mat& grey, const QRectF& face, Facing facing) {
    cv::Mat mirrored;
    if (facing == Facing::mirrored)
        cv::flip(grey, mirrored, 1);
    std::vector<cv::Rect> hits;
    std::vector<int> neighbours;
    cascade.detectMultiScale(facing == Facing::mirrored ? mirrored : grey, hits, neighbours, scaleStep, 1, 0,
                             {smallestHit, smallestHit});
    int strongest = 0;
    for (std::size_t i = 0; i < hits.size(); ++i) {
        const cv::Rect& hit = hits[i];
        const int left = facing == Facing::mirrored ? grey.cols - hit.x - hit.width : hit.x;
        if (coverSameFace(QRectF(left, hit.y, hit.width, hit.height), face))
            strongest = std::max(strongest, neighbours[i]);
    }
    return strongest;
}

} // namespace

struct FaceVerifier::Cascades {
    cv::CascadeClassifier frontal;
    cv::CascadeClassifier profile;
};

FaceVerifier::FaceVerifier(std::unique_ptr<Cascades> cascades) : m_cascades(std::move(cascades)) {}
FaceVerifier::~FaceVerifier() = default;

AnalysisOutcome<std::unique_ptr<FaceVerifier>> FaceVerifier::create(const QString& cascadeFolder) {
    auto cascades = std::make_unique<Cascades>();
    const QDir folder(cascadeFolder);
    const std::pair<cv::CascadeClassifier&, QString> files[] = {
        {cascades->frontal, u"haarcascade_frontalface_alt2.xml"_s},
        {cascades->profile, u"haarcascade_profileface.xml"_s}};
    for (const auto& [cascade, name] : files) {
        if (!load(cascade, folder.filePath(name)))
            return AnalysisError{u"Faces cannot be found because “%1” is missing or damaged; please install "
                                 "the package opencv-data."_s.arg(folder.filePath(name))};
    }
    return std::unique_ptr<FaceVerifier>(new FaceVerifier(std::move(cascades)));
}

FaceSupport FaceVerifier::support(const QImage& image, const QRectF& box) {
    const double marginX = surroundings * box.width();
    const double marginY = surroundings * box.height();
    const QRect crop = box.adjusted(-marginX, -marginY, marginX, marginY).toAlignedRect() & image.rect();
    if (crop.width() < shortestCrop || crop.height() < shortestCrop)
        return {};
    const double scale = faceWidth / box.width();
    const cv::Mat grey = greyPixels(image, crop, scale);
    const QRectF face((box.x() - crop.x()) * scale, (box.y() - crop.y()) * scale, box.width() * scale,
                      box.height() * scale);
    return {strongestHit(m_cascades->frontal, grey, face, Facing::asGiven),
            std::max(strongestHit(m_cascades->profile, grey, face, Facing::asGiven),
                     strongestHit(m_cascades->profile, grey, face, Facing::mirrored))};
}

} // namespace Veilshot
