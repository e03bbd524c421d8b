#include "VeilshotCore/Analysis/TextRecognition/DetailLabels.h"

#include "VeilshotCore/Analysis/TextRecognition/ReadingPlacement.h"

namespace Veilshot {

DetailLabels::DetailLabels(const std::vector<SegmentReading>& readings) {
    for (const SegmentReading& reading : readings) {
        const auto topic = m_topics.emplace_back(topicOfLabel(reading.text));
        m_hasAddresses = m_hasAddresses || topic == LabelTopic::address || topic == LabelTopic::postcode;
    }
    for (std::size_t index = 0; index < readings.size(); ++index) {
        if (m_topics[index] == LabelTopic::houseNumber && !isBesideStreet(index, readings))
            m_topics[index].reset();
    }
}

bool DetailLabels::isOfDetail(std::size_t index) const {
    const auto topic = m_topics[index];
    return topic && (m_hasAddresses || (topic != LabelTopic::town && topic != LabelTopic::state));
}

bool DetailLabels::isOfNumber(std::size_t index) const {
    const auto topic = m_topics[index];
    return topic == LabelTopic::birth || topic == LabelTopic::number || topic == LabelTopic::postcode;
}

bool DetailLabels::mayBeValue(const SegmentReading& reading, std::size_t index) const {
    return !reading.text.isEmpty() && !reading.text.endsWith(u':') && !m_topics[index];
}

bool DetailLabels::isBesideStreet(std::size_t number, const std::vector<SegmentReading>& readings) const {
    for (std::size_t index = 0; index < readings.size(); ++index) {
        if (m_topics[index] == LabelTopic::address && isFarBeside(readings[index], readings[number]))
            return true;
    }
    return false;
}

} // namespace Veilshot
