#pragma once

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <vector>

namespace Veilshot {

/// The parts of postal addresses, as expressions. An address is recognized by an anchor, a part that hardly
/// occurs elsewhere, and then grows over the parts beside it that prove nothing by themselves.
struct PostalAddressGrammar {
    /// Parts that count alone: a street with its number, a town with its state or postcode, a post-office
    /// box.
    std::vector<RegularExpression> anchors;
    /// A Danish postcode and a capitalized word: an anchor only if that is a town. Groups: the country
    /// prefix, the postcode, the first word, the second word.
    RegularExpression danishPlace;
    /// The same of other countries. Groups: the postcode, the first word, the second word.
    RegularExpression europeanPlace;
    /// The other way round: up to four words and a postcode. Groups: the words, of which only the last
    /// must be there, then the postcode.
    RegularExpression placeBeforePostcode;

    /// Parts that may follow, with the separator before them: floor, flat, town, postcode, country.
    std::vector<RegularExpression> continuations;
    /// Those of `continuations` that end an address for certain: what stands before them belongs to it.
    std::vector<RegularExpression> places;
    /// A name between commas ("Ugelbølle"): a part of the address where a place follows.
    RegularExpression area;
    /// A name between the address and the end of the line.
    RegularExpression lastArea;

    /// In the text before an anchor and up to its end: a flat or with whom, or the name of a house that
    /// begins the line or the sentence. Group 1 is what belongs to the address.
    RegularExpression precedingUnit;
    RegularExpression precedingHouse;
    /// All from the beginning of the line or the sentence, if it has a number.
    RegularExpression precedingParts;

    /// Built at the first call, kept for good.
    static const PostalAddressGrammar& shared();

private:
    PostalAddressGrammar();
};

} // namespace Veilshot
