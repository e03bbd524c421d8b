#pragma once

#include "Veilshot/Platform/DecodingFailure.h"

#include <QByteArray>

namespace Veilshot {

/// Reads with Qt's image plugins whatever they recognise by content, and turns it upright by its EXIF data.
ReaderOutcome readWithPlugins(const QByteArray& bytes);

} // namespace Veilshot
