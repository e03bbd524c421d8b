#include "VeilshotCore/Analysis/PeopleSearch/BodyEstimate.h"

namespace Veilshot {

namespace {

// In units of the face's larger side.
constexpr double halfWidth = 1.7;
constexpr double aboveBrow = 0.5;
constexpr double belowBrow = 7.5;
constexpr double leastBelowChin = 1.5;

} // namespace

std::optional<QRectF> estimatedBody(const QRectF& face, const QRectF& photo) {
    const double side = std::max(face.width(), face.height());
    if (!(side > 0) || photo.bottom() - face.bottom() < leastBelowChin * side)
        return std::nullopt;
    const QRectF body(QPointF(face.center().x() - halfWidth * side, face.top() - aboveBrow * side),
                      QPointF(face.center().x() + halfWidth * side, face.top() + belowBrow * side));
    const QRectF clipped = body & photo;
    if (clipped.isEmpty())
        return std::nullopt;
    return clipped;
}

} // namespace Veilshot
