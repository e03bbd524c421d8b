#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds dates of birth, and the numbers of passports, insurances and banks that are too short or too mixed
/// with letters to look like a number to call.
class PersonalNumberFinder {
public:
    /// The dates and numbers in text order, without overlaps and without their labels. A date is one of birth
    /// behind a word that says so, and when it lies long enough ago in digits or alone on its line. Never
    /// fails. May be called from several threads at once.
    std::vector<TextRange> find(QStringView line) const;
};

} // namespace Veilshot
