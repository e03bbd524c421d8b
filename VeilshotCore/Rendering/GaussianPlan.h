#pragma once

#include <vector>

namespace Veilshot {

/// How a Gaussian of a given sigma is made from cheap steps whose variances add up to sigma²:
///
///  1. Shrink, once per factor f: each sample is the average of the 2f samples around it with weights that
///     fall off linearly (½, 3/2, …, f−½, f−½, …, 3/2, ½). The sum of w·d² over the distances d = ±½, ±3/2, …
///     divided by the sum of w, f², is a variance of f²/6 + 1/12 in units of the samples it is made from.
///     Averaging plain blocks is cheaper still, but turns stripes of nearly the block's size, such as lines
///     of text, into visible waves: its response there falls with the first power of the distance from the
///     block's frequency, that of the linear fall-off with the second.
///  2. Blur the samples with a sampled Gaussian; its variance is what the other two leave over.
///  3. Enlarge by weighting the four nearest samples with the cubic B-spline, of variance 1/3 in units of
///     the samples' spacing wherever a pixel lies between them. Interpolating (linear, Catmull-Rom) is either
///     coarser or overshoots.
///
/// All steps act along one axis, the same along both. The only departure from a Gaussian is in the fourth
/// moment and the frequencies folded by shrinking; both stay below one grey level as long as the spacing is
/// at most `sigma / 2`.
struct GaussianPlan {
    /// The first factor of every sigma from 8 up: what the source was shrunk to for one of them serves all.
    static constexpr int commonFactor = 4;
    /// The coarser the samples, the more of the finer ones beyond the blur's reach are read for nothing.
    static constexpr int largestFactor = 12;

    /// Shrinking factors, the first from 2 to 4, the others up to the largest; none for a sigma too small to
    /// shrink.
    std::vector<int> factors;
    /// Between the samples, in pixels.
    double spacing = 1;
    /// The centre of sample 0, in pixels from the image's left or top edge.
    double origin = 0.5;
    /// Weights of the samples at the distances 0, 1, 2, …; with both sides counted they sum up to 1.
    std::vector<float> kernel;

    /// `sigma` in pixels, finite and above zero.
    static GaussianPlan forSigma(double sigma);

    int radius() const { return static_cast<int>(kernel.size()) - 1; }
};

} // namespace Veilshot
