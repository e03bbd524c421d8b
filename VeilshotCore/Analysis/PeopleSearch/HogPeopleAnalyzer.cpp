#include "VeilshotCore/Analysis/PeopleSearch/HogPeopleAnalyzer.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"
#include "VeilshotCore/Analysis/PeopleSearch/AvatarSearch.h"
#include "VeilshotCore/Analysis/PeopleSearch/BodyEstimate.h"
#include "VeilshotCore/Analysis/PeopleSearch/DrawnFaces.h"
#include "VeilshotCore/Analysis/PeopleSearch/FaceAreas.h"
#include "VeilshotCore/Analysis/PeopleSearch/FaceConfidence.h"
#include "VeilshotCore/Analysis/PeopleSearch/FaceDetection.h"
#include "VeilshotCore/Analysis/PeopleSearch/FaceSearchPlan.h"
#include "VeilshotCore/Analysis/PeopleSearch/FaceVerifier.h"
#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"
#include "VeilshotCore/Analysis/PeopleSearch/PhotoRegions.h"

#include <QtConcurrentMap>
#include <opencv2/imgproc.hpp>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// From here on the detector alone is right nearly always; the cascades would only cost time.
constexpr double convincingScore = 0.25;
constexpr double leastConfidence = 0.1;
constexpr double avatarConfidence = 0.35;
/// An avatar needs no box of its own when this part of a face this likely lies inside it.
constexpr double faceInsideAvatar = 0.5;
constexpr double faceConfidenceInAvatar = 0.3;
/// Around a photograph, so that an avatar's flat ground is seen.
constexpr int groundAroundAvatar = 16;
/// As many rows of a drawn surface below a face are the end of its photograph.
constexpr int rowsThatEndPhoto = 3;

struct Face {
    FaceCandidate candidate;
    double confidence = 0;
};

/// One piece of work on the photographs: a look for faces or for avatars.
struct SearchJob {
    std::optional<FaceSearchStep> faces;
    QRect avatarArea;
    std::vector<FaceCandidate> candidates;
    std::vector<QRect> avatars;
};

double area(const QRectF& rect) {
    return rect.width() * rect.height();
}

std::vector<SearchJob> plannedJobs(const QImage& image, const std::vector<QRect>& photos) {
    std::vector<SearchJob> jobs;
    for (const QRect& faceArea : faceAreas(image, photos)) {
        for (const FaceSearchStep& step : planFaceSearch(faceArea))
            jobs.push_back({step, {}, {}, {}});
    }
    for (const QRect& photo : photos) {
        jobs.push_back(
            {std::nullopt,
             photo.adjusted(-groundAroundAvatar, -groundAroundAvatar, groundAroundAvatar, groundAroundAvatar),
             {},
             {}});
    }
    return jobs;
}

std::vector<FaceCandidate> candidatesIn(const QImage& image, const FaceSearchStep& step) {
    cv::Mat grey = greyPixels(image, step.source, step.scale);
    if (step.border > 0)
        cv::copyMakeBorder(grey, grey, step.border, step.border, step.border, step.border,
                           cv::BORDER_REPLICATE);
    std::vector<FaceCandidate> candidates = detectFaces(grey);
    for (FaceCandidate& candidate : candidates) {
        const QRectF& box = candidate.box;
        candidate.box = QRectF(step.source.x() + (box.x() - step.border) / step.scale,
                               step.source.y() + (box.y() - step.border) / step.scale,
                               box.width() / step.scale, box.height() / step.scale) &
                        QRectF(image.rect());
    }
    std::erase_if(candidates, [](const FaceCandidate& candidate) { return candidate.box.isEmpty(); });
    return candidates;
}

bool holdsFace(const QRect& avatar, const std::vector<Face>& faces) {
    return std::ranges::any_of(faces, [&](const Face& face) {
        const QRectF& box = face.candidate.box;
        return face.confidence >= faceConfidenceInAvatar &&
               area(box & QRectF(avatar)) > faceInsideAvatar * area(box);
    });
}

/// The photograph that holds most of the face.
QRect photoAround(const QRectF& face, const std::vector<QRect>& photos) {
    return *std::ranges::max_element(photos, {},
                                     [&](const QRect& photo) { return area(face & QRectF(photo)); });
}

bool isSmoothStep(const uchar* a, const uchar* b) {
    return std::abs(a[0] - b[0]) <= 1 && std::abs(a[1] - b[1]) <= 1 && std::abs(a[2] - b[2]) <= 1;
}

/// True when the row's pixels within the columns of `area` differ by a level at most from the next one and
/// from the one above: a drawn surface, plain or with a gradient. The noise of a photograph forbids it.
bool isDrawnSurface(const QImage& image, const QRect& area, int y) {
    const uchar* pixel = image.constScanLine(y) + 4 * static_cast<std::ptrdiff_t>(area.left());
    const uchar* above = pixel - (y > 0 ? image.bytesPerLine() : 0);
    for (int x = area.left(); x < area.right(); ++x, pixel += 4, above += 4) {
        if (!isSmoothStep(pixel, pixel + 4) || !isSmoothStep(pixel, above))
            return false;
    }
    return true;
}

/// The photograph without what follows below the face after a drawn band as wide as the face. Avatars in a
/// column are one photograph to the search, and no body goes on from one to the next.
QRect cutBelowFace(const QImage& image, QRect photo, const QRectF& face) {
    const QRect below = QRectF(face.x(), face.bottom(), face.width(), photo.height()).toRect() & photo;
    int bandHeight = 0;
    for (int y = below.top(); y <= below.bottom(); ++y) {
        bandHeight = isDrawnSurface(image, below, y) ? bandHeight + 1 : 0;
        if (bandHeight == rowsThatEndPhoto) {
            photo.setBottom(y - rowsThatEndPhoto);
            break;
        }
    }
    return photo;
}

PersonObservation observation(const QRectF& box, double confidence, QSize image) {
    return {static_cast<float>(confidence),
            NormalizedRect::fromPixels(box, image).intersected(NormalizedRect::unit())};
}

} // namespace

HogPeopleAnalyzer::HogPeopleAnalyzer(const QString& cascadeFolder) : m_cascadeFolder(cascadeFolder) {}

HogPeopleAnalyzer::~HogPeopleAnalyzer() = default;

QString HogPeopleAnalyzer::defaultCascadeFolder() {
    return QStringLiteral(VEILSHOT_CASCADE_FOLDER);
}

AnalysisOutcome<PeopleObservations> HogPeopleAnalyzer::analyze(const QImage& image,
                                                               const CancellationCheck& isCancelled) const {
    const QImage bitmap = image.convertedTo(QImage::Format_RGBA8888);
    if (bitmap.isNull() && !image.isNull())
        throw std::bad_alloc();
    return search(bitmap, isCancelled);
}

AnalysisOutcome<PeopleObservations> HogPeopleAnalyzer::search(const QImage& image,
                                                              const CancellationCheck& isCancelled) const {
    PeopleObservations observations;
    const std::vector<QRect> photos = photoRegions(image);
    if (photos.empty() || isCancelled())
        return observations;
    // Before the search, so that missing files are reported at once and for every photograph alike.
    auto firstVerifier = takeVerifier();
    if (const auto* error = std::get_if<AnalysisError>(&firstVerifier))
        return *error;
    m_verifiers.giveBack(std::get<std::unique_ptr<FaceVerifier>>(std::move(firstVerifier)));

    std::vector<SearchJob> jobs = plannedJobs(image, photos);
    QtConcurrent::blockingMap(&analysisPool(), jobs, [&](SearchJob& job) {
        if (isCancelled())
            return;
        if (job.faces)
            job.candidates = candidatesIn(image, *job.faces);
        else
            job.avatars = findAvatars(image, job.avatarArea);
    });
    std::vector<FaceCandidate> candidates;
    std::vector<QRect> avatars;
    for (const SearchJob& job : jobs) {
        candidates.insert(candidates.end(), job.candidates.begin(), job.candidates.end());
        avatars.insert(avatars.end(), job.avatars.begin(), job.avatars.end());
    }

    std::vector<Face> faces;
    for (const FaceCandidate& candidate : distinctFaces(std::move(candidates)))
        faces.push_back({candidate, 0});
    QtConcurrent::blockingMap(&analysisPool(), faces, [&](Face& face) {
        if (!isCancelled())
            face.confidence = confidence(image, face.candidate);
    });
    if (isCancelled())
        return observations;

    for (const Face& face : faces) {
        if (face.confidence < leastConfidence)
            continue;
        const QRectF& box = face.candidate.box;
        observations.faces.push_back(observation(box, face.confidence, image.size()));
        const QRect photo = cutBelowFace(image, photoAround(box, photos), box);
        if (const auto body = estimatedBody(box, QRectF(photo)))
            observations.bodies.push_back(observation(*body, face.confidence, image.size()));
    }
    std::ranges::sort(avatars, {}, [](const QRect& box) { return std::tuple(box.y(), box.x()); });
    const auto repeated = std::ranges::unique(avatars);
    avatars.erase(repeated.begin(), repeated.end());
    for (const QRect& avatar : avatars) {
        if (!holdsFace(avatar, faces))
            observations.faces.push_back(observation(QRectF(avatar), avatarConfidence, image.size()));
    }
    return observations;
}

AnalysisOutcome<std::unique_ptr<FaceVerifier>> HogPeopleAnalyzer::takeVerifier() const {
    if (auto idle = m_verifiers.take())
        return idle;
    return FaceVerifier::create(m_cascadeFolder);
}

double HogPeopleAnalyzer::confidence(const QImage& image, const FaceCandidate& candidate) const {
    const QRect box = candidate.box.toRect();
    const bool isDoubtful = candidate.score < convincingScore;
    if (looksDrawn(image, box) || (isDoubtful && looksDrawnAround(image, box)))
        return 0;
    FaceEvidence evidence{candidate.score, 0, 0, candidate.box.width()};
    if (isDoubtful) {
        // The first verifier could be loaded, so the others can.
        auto verifier = std::get<std::unique_ptr<FaceVerifier>>(takeVerifier());
        const FaceSupport support = verifier->support(image, candidate.box);
        m_verifiers.giveBack(std::move(verifier));
        evidence.frontalSupport = support.frontal;
        evidence.profileSupport = support.profile;
    }
    return faceConfidence(evidence);
}

} // namespace Veilshot
