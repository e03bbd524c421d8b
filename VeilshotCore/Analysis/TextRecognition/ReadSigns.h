#pragma once

#include <QString>

namespace Veilshot {

/// Writes hyphens and blanks that do not break lines where the digits around them are surely no number to
/// call: in a date of late that is nobody's birthday or has a time of day, between years and thousands,
/// behind a number sign, in the number of an order, an invoice and the like, in the log of a web server. And
/// the letter Ø where a name begins with it that was read as "@", and the zero within a number. The length
/// stays the same.
void settleSigns(QString& text);

} // namespace Veilshot
