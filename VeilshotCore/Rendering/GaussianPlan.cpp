#include "VeilshotCore/Rendering/GaussianPlan.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Veilshot {

namespace {

constexpr double leastSigmaInSpacings = 2;
/// The weights of a sampled Gaussian at the distances 0 … radius, in proportion.
std::vector<double> sampledGaussian(double variance, int radius) {
    std::vector<double> weights{1};
    for (int distance = 1; distance <= radius; ++distance)
        weights.push_back(std::exp(-distance * distance / (2 * variance)));
    return weights;
}

double sumOfBothSides(const std::vector<double>& weights) {
    return 2 * std::accumulate(weights.begin(), weights.end(), 0.0) - weights.front();
}

double varianceOf(const std::vector<double>& weights) {
    double sum = 0;
    for (std::size_t distance = 1; distance < weights.size(); ++distance)
        sum += 2 * weights[distance] * static_cast<double>(distance * distance);
    return sum / sumOfBothSides(weights);
}

int radiusFor(double variance, double tailInSigmas) {
    return std::max(1, static_cast<int>(std::ceil(tailInSigmas * std::sqrt(variance))));
}

/// A Gaussian cut off early, since the other steps reach further, and widened to have the variance all the
/// same.
std::vector<double> compactGaussian(double variance) {
    const int radius = radiusFor(variance, 3.2);
    double parameter = variance;
    for (int step = 0; step < 8; ++step)
        parameter *= variance / varianceOf(sampledGaussian(parameter, radius));
    return sampledGaussian(parameter, radius);
}

} // namespace

GaussianPlan GaussianPlan::forSigma(double sigma) {
    GaussianPlan plan;
    double variance = sigma * sigma;
    for (;;) {
        const double largest = plan.factors.empty() ? commonFactor : largestFactor;
        const double factor = std::floor(std::min(sigma / plan.spacing / leastSigmaInSpacings, largest));
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
    const std::vector<double> weights = plan.factors.empty()
                                            ? sampledGaussian(variance, radiusFor(variance, 3.5))
                                            : compactGaussian(variance);
    const double sum = sumOfBothSides(weights);
    for (const double weight : weights)
        plan.kernel.push_back(static_cast<float>(weight / sum));
    return plan;
}

} // namespace Veilshot
