#pragma once

#include <QByteArray>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace Veilshot {

/// What training learnt: how strongly each feature speaks for a token that begins a name, goes on with one or
/// stands outside of any.
struct NameModel {
    static constexpr size_t labelCount = 3; ///< begin, inside, outside

    /// Only the differences between the labels decide, so what a feature says for "outside" is always 0.
    struct Weights {
        uint32_t feature = 0; ///< see NameFeatures.h
        std::array<int8_t, labelCount - 1> steps{};
    };

    float stepSize = 0;                                     ///< what one step of a weight is worth
    std::array<float, labelCount * labelCount> followers{}; ///< label after label, by the earlier one
    std::array<float, labelCount> labels{};
    std::vector<Weights> weights; ///< by ascending feature

    /// The model of a file made by toBytes(); nothing if a single bit of it is wrong or missing.
    static std::optional<NameModel> fromBytes(const QByteArray& bytes);
    QByteArray toBytes() const;
};

} // namespace Veilshot
