#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QString>
#include <vector>

namespace Veilshot {

/// Finds the names of people in one line of text.
class NameTagger {
public:
    virtual ~NameTagger() = default;

    /// The personal names in text order, without overlaps; the joined words of one name are one range.
    /// Never fails. May be called from several threads at once.
    virtual std::vector<TextRange> personalNames(const QString& line) const = 0;
};

} // namespace Veilshot
