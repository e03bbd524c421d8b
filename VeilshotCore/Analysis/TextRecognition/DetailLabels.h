#pragma once

#include "VeilshotCore/Analysis/TellingLabel.h"
#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <optional>
#include <vector>

namespace Veilshot {

/// Which readings of a picture are labels of details. Those of a town and a state count only where other
/// labels of addresses stand, for a table may list towns of which nothing else is said; that of the number of
/// a house only beside the one of its street. All indices are those of the readings.
class DetailLabels {
public:
    explicit DetailLabels(const std::vector<SegmentReading>& readings);

    bool isOfDetail(std::size_t index) const;
    /// Whether it is one whose value always has digits.
    bool isOfNumber(std::size_t index) const;
    /// Whether the text may stand beside or below one: not the label of the next.
    bool mayBeValue(const SegmentReading& reading, std::size_t index) const;

private:
    bool isBesideStreet(std::size_t number, const std::vector<SegmentReading>& readings) const;

    std::vector<std::optional<LabelTopic>> m_topics;
    bool m_hasAddresses = false;
};

} // namespace Veilshot
