#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

namespace Veilshot {

/// With a symbol for each character, all of one width.
SegmentReading evenReading(const QString& text, const QRect& box);

} // namespace Veilshot
