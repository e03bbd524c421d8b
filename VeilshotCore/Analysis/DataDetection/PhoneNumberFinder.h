#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds the phone numbers of all countries when written internationally, and those of the United States,
/// Denmark and the United Kingdom as they are written at home.
class PhoneNumberFinder {
public:
    /// The numbers in text order, without overlaps; an extension belongs to its number, a label does not.
    /// Never fails. May be called from several threads at once.
    std::vector<TextRange> find(QStringView line) const;
};

} // namespace Veilshot
