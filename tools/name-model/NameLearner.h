#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"
#include "VeilshotCore/Analysis/NameTagging/NameModel.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace Veilshot {

/// A line to learn from: the features of every token, and whether it begins a name (0), goes on with one (1)
/// or stands outside (2).
struct LabelledFeatures {
    std::vector<NameFeatures> tokens;
    std::vector<uint8_t> labels;
};

/// The lines of one run, counted from 0, which may differ in what was drawn at random.
using DrawLines = std::function<std::vector<LabelledFeatures>(size_t run)>;

struct LearningOptions {
    int rounds = 18;              ///< how often a run looks at all lines
    int roundsForAll = 4;         ///< after these only the heaviest features go on
    size_t keptFeatures = 250000; ///< so many: three bytes each in the model's file
    double forgotten = 0.4;       ///< share of a token's features hidden from each step
    double stepSize = 0.15;
    double bias = 0.8; ///< added in favour of names: a missed one is worse than a needless one
};

/// Learns a linear-chain conditional random field by stochastic gradient steps with a rate of its own for
/// every weight (AdaGrad). Hiding features at random makes it spread its trust, which helps most where the
/// lists do not know a name; dlib's structural SVM on the same features flagged three times as many nameless
/// lines of screenshots at the same number of names found. Two runs that drew differently differ in whether
/// they find a doubtful name; their mean is better than either. The same lines and options give the same
/// model.
NameModel learntModel(const DrawLines& draw, size_t runs, const LearningOptions& options);

} // namespace Veilshot
