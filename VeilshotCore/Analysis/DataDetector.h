#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QString>
#include <vector>

namespace Veilshot {

/// Something in a line of text that has a form of its own.
struct DataMatch {
    enum class Type { address, link, phoneNumber };

    Type type = Type::link;
    TextRange range;
    /// For a link, where it leads, scheme included ("mailto:" for an e-mail address); empty otherwise.
    QString url;

    friend bool operator==(const DataMatch&, const DataMatch&) = default;
};

/// Finds postal addresses, links and phone numbers in one line of text.
class DataDetector {
public:
    virtual ~DataDetector() = default;

    /// The matches in text order; matches of different types may overlap. Never fails. May be called from
    /// several threads at once.
    virtual std::vector<DataMatch> matches(const QString& line) const = 0;
};

} // namespace Veilshot
