#pragma once

#include "VeilshotCore/Analysis/DataDetection/CredentialFinder.h"
#include "VeilshotCore/Analysis/DataDetection/LinkFinder.h"
#include "VeilshotCore/Analysis/DataDetection/MisreadLinkFinder.h"
#include "VeilshotCore/Analysis/DataDetection/PersonalNumberFinder.h"
#include "VeilshotCore/Analysis/DataDetection/PhoneNumberFinder.h"
#include "VeilshotCore/Analysis/DataDetection/PostalAddressFinder.h"
#include "VeilshotCore/Analysis/DataDetector.h"

#include <QString>
#include <vector>

namespace Veilshot {

/// The data detector of the product: all finders over the whole line, and again over what it probably was
/// where signs of it were misread. What is worth hiding but neither link, number to call nor address goes by
/// the type that comes closest: a credential is reported as a link that leads nowhere known, a date of birth
/// or the number of a document as a phone number, which dates in digits pass for anyway. Costs nothing to
/// construct; the finders' expressions and lists are built once per process, at the first line that needs
/// them.
class StandardDataDetector final : public DataDetector {
public:
    std::vector<DataMatch> matches(const QString& line) const override;

private:
    /// Of the line as it stands, by finder; those of the phone numbers, which take the longest to look for,
    /// apart.
    std::vector<DataMatch> matchesButPhones(const QString& line) const;
    std::vector<DataMatch> phones(const QString& line) const;

    LinkFinder m_links;
    MisreadLinkFinder m_misreadLinks;
    CredentialFinder m_credentials;
    PhoneNumberFinder m_phoneNumbers;
    PersonalNumberFinder m_personalNumbers;
    PostalAddressFinder m_postalAddresses;
};

} // namespace Veilshot
