#include "VeilshotCore/Analysis/PeopleSearch/FaceSearchPlan.h"

#include "VeilshotCore/Analysis/PeopleSearch/OverlappingTiles.h"

namespace Veilshot {

namespace {

constexpr double largestEnlargedArea = 40e6;

// Lengths in the scaled picture.
constexpr int longestTileSide = 3200;
constexpr int tileOverlap = 400;
/// Against `tileOverlap`: the detector's 80 pixels are 320 in the tiles.
constexpr double coarseReduction = 4;

/// Small pictures get some ground around them, for faces that fill them.
constexpr int smallPictureSide = 200;
constexpr int smallPictureBorder = 48;

double enlargement(double area) {
    if (area <= 0.006e6)
        return 6;
    if (area <= 0.06e6)
        return 5;
    return std::min(4.0, std::sqrt(largestEnlargedArea / area));
}

} // namespace

std::vector<FaceSearchStep> planFaceSearch(const QRect& region) {
    const double scale = enlargement(static_cast<double>(region.width()) * region.height());
    const int border = std::min(region.width(), region.height()) <= smallPictureSide ? smallPictureBorder : 0;
    const std::vector<QRect> tiles = overlappingTiles(region, static_cast<int>(longestTileSide / scale),
                                                      static_cast<int>(std::ceil(tileOverlap / scale)));
    std::vector<FaceSearchStep> steps;
    for (const QRect& tile : tiles)
        steps.push_back({tile, scale, border});
    if (tiles.size() > 1)
        steps.push_back({region, scale / coarseReduction, border});
    return steps;
}

} // namespace Veilshot
