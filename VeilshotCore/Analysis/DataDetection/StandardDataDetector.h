#pragma once

#include "VeilshotCore/Analysis/DataDetection/LinkFinder.h"
#include "VeilshotCore/Analysis/DataDetection/PhoneNumberFinder.h"
#include "VeilshotCore/Analysis/DataDetection/PostalAddressFinder.h"
#include "VeilshotCore/Analysis/DataDetector.h"

namespace Veilshot {

/// The data detector of the product: all three finders over the whole line. Costs nothing to construct; the
/// finders' expressions and lists are built once per process, at the first line that needs them.
class StandardDataDetector final : public DataDetector {
public:
    std::vector<DataMatch> matches(const QString& line) const override;

private:
    LinkFinder m_links;
    PhoneNumberFinder m_phoneNumbers;
    PostalAddressFinder m_postalAddresses;
};

} // namespace Veilshot
