#pragma once

#include "VeilshotCore/Analysis/DataDetector.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds e-mail addresses, web addresses and the numbers of machines of which the reading got a sign wrong,
/// lost one or put a blank in: "anna_bergebrightloom.com", "https ://example.com", "172,16.28.i99". And the
/// long numbers of machines, which are written with colons.
class MisreadLinkFinder {
public:
    /// The links in text order, without overlaps; those of e-mail addresses begin with "mailto:". What is
    /// read well is not its business, though it may be found too. Never fails. May be called from several
    /// threads at once.
    std::vector<DataMatch> find(QStringView line) const;
};

} // namespace Veilshot
