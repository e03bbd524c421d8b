#include "NameLearner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <limits>
#include <random>

namespace Veilshot {

namespace {

constexpr size_t labelCount = NameModel::labelCount;
constexpr size_t inside = 1;
constexpr size_t outside = 2;
constexpr double impossible = -1e9;
/// Errors in a label's probability that are not worth a step.
constexpr double negligible = 1e-3;

using Scores = std::array<double, labelCount>;

double logOfSum(const Scores& scores) {
    const double largest = *std::max_element(scores.begin(), scores.end());
    double sum = 0;
    for (const double score : scores)
        sum += std::exp(score - largest);
    return largest + std::log(sum);
}

/// A weight that takes smaller steps the more it has moved.
struct Weight {
    float value = 0;
    float squares = 1e-8f;

    void step(double gradient, double stepSize) {
        squares += static_cast<float>(gradient * gradient);
        value -= static_cast<float>(stepSize * gradient / std::sqrt(static_cast<double>(squares)));
    }
};

using FeatureWeights = std::array<Weight, labelCount>;

/// The size that all features but the `kept` heaviest have at most.
float boundOfHeaviest(std::vector<float> sizes, size_t kept) {
    const auto last = sizes.begin() + static_cast<ptrdiff_t>(std::min(kept, sizes.size() - 1));
    std::nth_element(sizes.begin(), last, sizes.end(), std::greater());
    return *last;
}

/// What all runs learnt, added up, of each feature as differences to what it says for "outside".
class Sums {
public:
    void addFeature(size_t feature, const FeatureWeights& weights) {
        for (size_t label = 0; label < outside; ++label)
            m_features[feature][label] += weights[label].value - weights[outside].value;
    }

    void addFollower(size_t earlier, size_t later, const Weight& weight) {
        m_followers[earlier * labelCount + later] += weight.value;
    }

    NameModel meanOf(size_t runs, const LearningOptions& options) const {
        std::vector<float> sizes;
        sizes.reserve(m_features.size());
        for (const auto& weights : m_features)
            sizes.push_back(std::max(std::abs(weights[0]), std::abs(weights[1])));
        const float largest = std::max(std::ranges::max(sizes), std::numeric_limits<float>::min());
        const float bound = boundOfHeaviest(sizes, options.keptFeatures);
        const auto roundsOfRun = static_cast<size_t>(std::max(1, options.rounds - options.roundsForAll));
        NameModel model;
        model.stepSize = largest / static_cast<float>(runs * roundsOfRun) / 127;
        for (uint32_t feature = 0; feature < nameFeatureLimit; ++feature) {
            if (sizes[feature] <= bound)
                continue;
            NameModel::Weights entry{feature, {}};
            for (size_t label = 0; label < outside; ++label)
                entry.steps[label] =
                    static_cast<int8_t>(std::lrint(m_features[feature][label] / largest * 127));
            if (entry.steps != decltype(entry.steps){})
                model.weights.push_back(entry);
        }
        for (size_t at = 0; at < m_followers.size(); ++at)
            model.followers[at] = m_followers[at] / static_cast<float>(runs);
        for (size_t label = 0; label < outside; ++label)
            model.labels[label] = static_cast<float>(options.bias);
        return model;
    }

private:
    std::vector<std::array<float, outside>> m_features =
        std::vector<std::array<float, outside>>(nameFeatureLimit);
    std::array<float, labelCount * labelCount> m_followers{};
};

class Learner {
public:
    Learner(std::vector<LabelledFeatures> lines, const LearningOptions& options, unsigned seed)
        : m_lines(std::move(lines)), m_options(options), m_random(seed), m_features(nameFeatureLimit) {}

    void learn(Sums& sums) {
        dropFeaturesOfSingleLines();
        for (int round = 0; round < m_options.rounds; ++round) {
            if (round == m_options.roundsForAll)
                keepHeaviestFeatures();
            std::shuffle(m_lines.begin(), m_lines.end(), m_random);
            double loss = 0;
            for (const LabelledFeatures& line : m_lines)
                loss += learn(line);
            std::cout << "round " << round + 1 << ": loss " << loss / static_cast<double>(m_lines.size())
                      << std::endl;
            if (round >= m_options.roundsForAll)
                addFeatures(sums);
        }
        for (size_t earlier = 0; earlier < labelCount; ++earlier) {
            for (size_t later = 0; later < labelCount; ++later)
                sums.addFollower(earlier, later, m_followers[earlier][later]);
        }
    }

private:
    void dropFeaturesOfSingleLines() {
        std::vector<uint8_t> lineCounts(nameFeatureLimit, 0);
        for (const LabelledFeatures& line : m_lines) {
            NameFeatures all;
            for (const NameFeatures& token : line.tokens)
                all.insert(all.end(), token.begin(), token.end());
            std::sort(all.begin(), all.end());
            all.erase(std::unique(all.begin(), all.end()), all.end());
            for (const uint32_t feature : all)
                lineCounts[feature] = static_cast<uint8_t>(std::min(lineCounts[feature] + 1, 2));
        }
        keepFeatures([&](uint32_t feature) { return lineCounts[feature] > 1; });
    }

    void keepHeaviestFeatures() {
        std::vector<float> sizes(nameFeatureLimit, 0);
        for (size_t feature = 0; feature < sizes.size(); ++feature) {
            for (const Weight& weight : m_features[feature])
                sizes[feature] = std::max(sizes[feature], std::abs(weight.value));
        }
        const float bound = boundOfHeaviest(sizes, m_options.keptFeatures);
        keepFeatures([&](uint32_t feature) { return sizes[feature] > bound; });
        for (size_t feature = 0; feature < sizes.size(); ++feature) {
            if (sizes[feature] <= bound)
                m_features[feature] = {};
        }
    }

    template<typename Predicate>
    void keepFeatures(const Predicate& isKept) {
        for (LabelledFeatures& line : m_lines) {
            for (NameFeatures& token : line.tokens)
                std::erase_if(token, [&](uint32_t feature) { return !isKept(feature); });
        }
    }

    /// One step towards the line's labels; returns how surprising they were.
    double learn(const LabelledFeatures& line) {
        const size_t count = line.tokens.size();
        std::bernoulli_distribution isForgotten(m_options.forgotten);
        std::vector<NameFeatures> tokens = line.tokens;
        for (NameFeatures& token : tokens)
            std::erase_if(token, [&](uint32_t) { return isForgotten(m_random); });

        std::vector<Scores> scores(count, Scores{});
        for (size_t at = 0; at < count; ++at) {
            for (const uint32_t feature : tokens[at]) {
                for (size_t label = 0; label < labelCount; ++label)
                    scores[at][label] += static_cast<double>(m_features[feature][label].value);
            }
        }
        const std::vector<Scores> forward = forwardScores(scores);
        const std::vector<Scores> backward = backwardScores(scores);
        const double total = logOfSum(forward.back());

        double rightScore = 0;
        for (size_t at = 0; at < count; ++at) {
            rightScore += scores[at][line.labels[at]];
            rightScore += at > 0 ? follower(line.labels[at - 1], line.labels[at]) : 0;
        }
        for (size_t at = 0; at < count; ++at) {
            Scores errors;
            double sum = 0;
            for (size_t label = 0; label < labelCount; ++label) {
                const double probability = std::exp(forward[at][label] + backward[at][label] - total);
                errors[label] = probability - (line.labels[at] == label ? 1 : 0);
                sum += std::abs(errors[label]);
            }
            if (sum >= negligible)
                stepFeatures(tokens[at], errors);
        }
        for (size_t at = 1; at < count; ++at)
            stepFollowers(line, at, forward[at - 1], scores[at], backward[at], total);
        return total - rightScore;
    }

    std::vector<Scores> forwardScores(const std::vector<Scores>& scores) const {
        std::vector<Scores> forward(scores.size());
        forward[0] = scores[0];
        forward[0][inside] = impossible;
        for (size_t at = 1; at < scores.size(); ++at) {
            for (size_t label = 0; label < labelCount; ++label) {
                Scores ways;
                for (size_t earlier = 0; earlier < labelCount; ++earlier)
                    ways[earlier] = forward[at - 1][earlier] + follower(earlier, label);
                forward[at][label] = scores[at][label] + logOfSum(ways);
            }
        }
        return forward;
    }

    std::vector<Scores> backwardScores(const std::vector<Scores>& scores) const {
        std::vector<Scores> backward(scores.size(), Scores{});
        for (size_t at = scores.size() - 1; at > 0; --at) {
            for (size_t label = 0; label < labelCount; ++label) {
                Scores ways;
                for (size_t later = 0; later < labelCount; ++later)
                    ways[later] = follower(label, later) + scores[at][later] + backward[at][later];
                backward[at - 1][label] = logOfSum(ways);
            }
        }
        return backward;
    }

    double follower(size_t earlier, size_t later) const {
        if (earlier == outside && later == inside)
            return impossible;
        return static_cast<double>(m_followers[earlier][later].value);
    }

    void stepFeatures(const NameFeatures& token, const Scores& errors) {
        for (const uint32_t feature : token) {
            for (size_t label = 0; label < labelCount; ++label)
                m_features[feature][label].step(errors[label], m_options.stepSize);
        }
    }

    void stepFollowers(const LabelledFeatures& line, size_t at, const Scores& before, const Scores& scores,
                       const Scores& behind, double total) {
        for (size_t earlier = 0; earlier < labelCount; ++earlier) {
            for (size_t later = 0; later < labelCount; ++later) {
                if (earlier == outside && later == inside)
                    continue;
                const double score =
                    before[earlier] + follower(earlier, later) + scores[later] + behind[later];
                const bool isRight = line.labels[at - 1] == earlier && line.labels[at] == later;
                m_followers[earlier][later].step(std::exp(score - total) - (isRight ? 1 : 0),
                                                 m_options.stepSize);
            }
        }
    }

    /// What the last rounds ended with counts together, which is steadier than the last alone.
    void addFeatures(Sums& sums) const {
        for (size_t feature = 0; feature < m_features.size(); ++feature)
            sums.addFeature(feature, m_features[feature]);
    }

    std::vector<LabelledFeatures> m_lines;
    LearningOptions m_options;
    std::mt19937 m_random;
    std::vector<FeatureWeights> m_features;
    std::array<FeatureWeights, labelCount> m_followers{};
};

} // namespace

NameModel learntModel(const DrawLines& draw, size_t runs, const LearningOptions& options) {
    Sums sums;
    for (size_t run = 0; run < runs; ++run) {
        std::cout << "run " << run + 1 << " of " << runs << std::endl;
        Learner(draw(run), options, static_cast<unsigned>(run) + 1).learn(sums);
    }
    return sums.meanOf(runs, options);
}

} // namespace Veilshot
