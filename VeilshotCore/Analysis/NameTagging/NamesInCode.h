#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <vector>

namespace Veilshot {

/// What code, a query or a settings file gives a field of a person's name: `surname == "Tuilagi"`,
/// `last_name <> 'Mba'`, `"firstName": "Ai"`. Without the quotes.
std::vector<TextRange> namesInCode(QStringView line);

} // namespace Veilshot
