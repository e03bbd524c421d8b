#pragma once

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Models/SensitiveKind.h"

#include <QStringView>
#include <vector>

/// The fixed rules with which a line of recognized text is searched. Everything here is built once, on first
/// use, is read-only afterwards and may be used from several threads.
namespace Veilshot::TextPatterns {

struct Rule {
    SensitiveKind kind;
    RegularExpression expression;
    /// Whether a text that the expression matched counts.
    bool (*validator)(QStringView text);
};

/// The nine rules in the order in which their matches are reported.
const std::vector<Rule>& rules();

/// Matches a label such as "Name:" or "konto #" anywhere in a line.
const RegularExpression& labeledLine();

/// The check-digit test of payment cards (ISO/IEC 7812-1, annex B) over 13 to 19 digits; everything that is
/// not a digit is skipped.
bool passesLuhn(QStringView text);

} // namespace Veilshot::TextPatterns
