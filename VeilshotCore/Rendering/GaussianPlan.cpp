#include "VeilshotCore/Rendering/GaussianPlan.h"

#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

constexpr double leastSigmaInSpacings = 2;
/// Sixteen rows of bytes with the weights 1 to 16 sum up to 34 680: sixteen bits hold it.
constexpr double largestFactor = 16;
constexpr double tailInSigmas = 3.5;

std::vector<float> gaussianKernel(double variance) {
    const int radius = std::max(1, static_cast<int>(std::ceil(tailInSigmas * std::sqrt(variance))));
    std::vector<double> weights;
    double sum = 0;
    for (int distance = 0; distance <= radius; ++distance) {
        weights.push_back(distance == 0 ? 1 : std::exp(-distance * distance / (2 * variance)));
        sum += distance == 0 ? 1 : 2 * weights.back();
    }
    std::vector<float> kernel;
    for (const double weight : weights)
        kernel.push_back(static_cast<float>(weight / sum));
    return kernel;
}

} // namespace

GaussianPlan GaussianPlan::forSigma(double sigma) {
    GaussianPlan plan;
    double variance = sigma * sigma;
    for (;;) {
        const double factor =
            std::floor(std::min(sigma / plan.spacing / leastSigmaInSpacings, largestFactor));
        if (factor < 2)
            break;
        variance -= (factor * factor / 6 + 1.0 / 12) * plan.spacing * plan.spacing;
        plan.origin -= plan.spacing / 2;
        plan.spacing *= factor;
        plan.factors.push_back(static_cast<int>(factor));
    }
    variance /= plan.spacing * plan.spacing;
    if (!plan.factors.empty())
        variance -= 1.0 / 3;
    plan.kernel = gaussianKernel(variance);
    return plan;
}

} // namespace Veilshot
