#pragma once

#include "VeilshotCore/Models/SensitiveRegion.h"

#include <QByteArray>
#include <QString>
#include <variant>

namespace Veilshot {

/// Reads areas that somebody drew up by hand: a list of normalized bottom-left rectangles [x, y, width,
/// height], or of objects with such a "rect", or an object with such a list under "regions" (a report of this
/// program). Every region is clipped to the image and of the kind `custom`. Otherwise a text that says what
/// is wrong.
std::variant<SensitiveRegions, QString> parseRegions(const QByteArray& json);

} // namespace Veilshot
