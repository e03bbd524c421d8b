#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds postal addresses as they are written in the United States, the United Kingdom and Denmark, and the
/// common forms of Canada, Ireland, Australia, the other countries of Europe and Japan.
///
/// A street with its number, a town with its postcode and a post-office box each count alone. What stands
/// beside one (house, floor, flat, town, country) belongs to it.
class PostalAddressFinder {
public:
    /// The addresses in text order, without overlaps. Never fails. May be called from several threads at
    /// once.
    std::vector<TextRange> find(QStringView line) const;
};

} // namespace Veilshot
