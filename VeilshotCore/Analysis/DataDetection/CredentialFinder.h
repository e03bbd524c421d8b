#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// Finds what opens an account or a service: passwords behind their label, keys of well-known shapes, signed
/// tokens, and other long runs of letters and digits that no person would choose.
class CredentialFinder {
public:
    /// The credentials in text order, without overlaps; a label does not belong to one. Never fails. May be
    /// called from several threads at once.
    std::vector<TextRange> find(QStringView line) const;
};

} // namespace Veilshot
