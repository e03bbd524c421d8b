#pragma once

#include "VeilshotCore/Analysis/DataDetector.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds web addresses (with a scheme, with "www.", or a bare domain) and e-mail addresses.
class LinkFinder {
public:
    /// The links in text order, without overlaps and without the punctuation around them. An e-mail address
    /// becomes "mailto:…"; a web address without a scheme gets "http://". Nothing is looked up: a bare domain
    /// counts when its ending is on the installed list of public suffixes. Never fails. May be called from
    /// several threads at once.
    std::vector<DataMatch> find(QStringView line) const;
};

} // namespace Veilshot
