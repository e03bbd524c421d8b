#pragma once

#include "Veilshot/Platform/DecodingFailure.h"

#include <QByteArray>

namespace Veilshot {

/// Whether the bytes begin as a PNG file does.
bool isPng(const QByteArray& bytes);

/// Reads a PNG file with libpng. Qt's own reader is not used because libpng, as Qt sets it up, prints every
/// failure to the standard error, and because it would first make pixels in another order.
ReaderOutcome readPng(const QByteArray& bytes);

} // namespace Veilshot
