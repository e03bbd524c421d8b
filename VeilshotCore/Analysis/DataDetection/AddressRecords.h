#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// A record of a file of people ("Berg,Anna,anna@berg.dk,Engvej 4,4000,Roskilde"): at least four fields
/// between commas, semicolons, bars or tabs, a mail address or a number to call among them.
struct AddressRecord {
    /// In text order, without the blanks and quotes around them. Empty if the line is no such record.
    std::vector<TextRange> fields;
    /// From street to town, where a postcode stands in a field of its own beside them.
    std::vector<TextRange> addresses;

    explicit AddressRecord(QStringView line);
};

} // namespace Veilshot
