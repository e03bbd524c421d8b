#pragma once

#include "Veilshot/Platform/DecodingFailure.h"

#include <QByteArray>

namespace Veilshot {

/// Whether the bytes begin as a HEIC, HEIF or AVIF file does.
bool isHeif(const QByteArray& bytes);

/// Reads the primary image with libheif, which applies the file's own rotation, mirroring and cropping.
ReaderOutcome readHeif(const QByteArray& bytes);

} // namespace Veilshot
