#include "VeilshotCore/Analysis/PeopleSearch/FaceCandidate.h"

#include <tuple>

namespace Veilshot {

namespace {

constexpr double commonShareOfUnion = 0.30;
constexpr double commonShareOfSmaller = 0.65;

double area(const QRectF& rect) {
    return rect.width() * rect.height();
}

} // namespace

bool coverSameFace(const QRectF& a, const QRectF& b) {
    const double common = area(a & b);
    return common > commonShareOfUnion * (area(a) + area(b) - common) ||
           common > commonShareOfSmaller * std::min(area(a), area(b));
}

std::vector<FaceCandidate> distinctFaces(std::vector<FaceCandidate> candidates) {
    std::ranges::sort(candidates, [](const FaceCandidate& a, const FaceCandidate& b) {
        // The place decides between equals, so that the threads' order never shows in the result.
        return std::tuple(-a.score, a.box.y(), a.box.x()) < std::tuple(-b.score, b.box.y(), b.box.x());
    });
    std::vector<FaceCandidate> distinct;
    for (const FaceCandidate& candidate : candidates) {
        const bool known = std::ranges::any_of(
            distinct, [&](const FaceCandidate& face) { return coverSameFace(face.box, candidate.box); });
        if (!known)
            distinct.push_back(candidate);
    }
    return distinct;
}

} // namespace Veilshot
