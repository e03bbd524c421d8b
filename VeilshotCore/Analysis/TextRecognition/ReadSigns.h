#pragma once

#include <QString>

namespace Veilshot {

/// Writes hyphens and blanks that do not break lines where the digits around them are surely no number to
/// call: in a date with a time of day, behind a number sign, between thousands. And the letter Ø where it was
/// taken for a sign that no handle of a person would have there. The length stays the same.
void settleSigns(QString& text);

} // namespace Veilshot
