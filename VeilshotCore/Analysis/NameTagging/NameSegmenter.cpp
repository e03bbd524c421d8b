#include "VeilshotCore/Analysis/NameTagging/NameSegmenter.h"

#include <algorithm>
#include <dlib/svm/sequence_segmenter.h>

namespace Veilshot {

namespace {

/// Hands dlib the places of a token's features in the model, one list per token.
struct ModelFeatures {
    using sequence_type = std::vector<std::vector<uint32_t>>;
    static constexpr bool use_BIO_model = true;
    static constexpr bool use_high_order_features = false;
    static constexpr bool allow_negative_weights = true;

    unsigned long count = 1;

    unsigned long num_features() const { return count; }
    unsigned long window_size() const { return 1; }

    template<typename FeatureSetter>
    void get_features(FeatureSetter& setFeature, const sequence_type& line, unsigned long at) const {
        for (const uint32_t feature : line[at])
            setFeature(feature);
    }
};

using Segmenter = dlib::sequence_segmenter<ModelFeatures>;

Segmenter segmenterFor(const NameModel& model) {
    constexpr size_t labels = NameModel::labelCount;
    ModelFeatures features;
    features.count = std::max<unsigned long>(model.weights.size(), 1); // dlib wants at least one
    dlib::matrix<double, 0, 1> weights;
    weights.set_size(static_cast<long>(dlib::total_feature_vector_size(features)));
    weights = 0;
    for (size_t at = 0; at < model.weights.size(); ++at) {
        for (size_t label = 0; label < model.weights[at].steps.size(); ++label)
            weights(static_cast<long>(label * features.count + at)) =
                static_cast<double>(model.stepSize) * model.weights[at].steps[label];
    }
    auto rest = static_cast<long>(labels * features.count);
    for (const float weight : model.followers)
        weights(rest++) = static_cast<double>(weight);
    for (const float weight : model.labels)
        weights(rest++) = static_cast<double>(weight);
    return Segmenter(weights, features);
}

} // namespace

struct NameSegmenter::Implementation {
    std::vector<uint32_t> known; ///< the features the model has weights for, ascending
    Segmenter segmenter;

    explicit Implementation(const NameModel& model) : segmenter(segmenterFor(model)) {
        known.reserve(model.weights.size());
        for (const NameModel::Weights& weights : model.weights)
            known.push_back(weights.feature);
    }

    std::vector<uint32_t> placesOf(const NameFeatures& features) const {
        std::vector<uint32_t> places;
        places.reserve(features.size());
        auto at = known.begin();
        for (const uint32_t feature : features) { // both ascend
            at = std::lower_bound(at, known.end(), feature);
            if (at != known.end() && *at == feature)
                places.push_back(static_cast<uint32_t>(at - known.begin()));
        }
        return places;
    }
};

NameSegmenter::NameSegmenter(const NameModel& model)
    : m_implementation(std::make_unique<const Implementation>(model)) {}

NameSegmenter::~NameSegmenter() = default;

std::vector<TokenSpan> NameSegmenter::names(const std::vector<NameFeatures>& features) const {
    ModelFeatures::sequence_type line;
    line.reserve(features.size());
    for (const NameFeatures& token : features)
        line.push_back(m_implementation->placesOf(token));

    std::vector<TokenSpan> names;
    for (const auto& [first, end] : m_implementation->segmenter(line))
        names.push_back({first, end - 1});
    return names;
}

} // namespace Veilshot
