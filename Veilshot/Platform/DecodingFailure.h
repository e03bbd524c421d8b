#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <optional>
#include <variant>

namespace Veilshot {

/// Why image data did not become a picture.
struct DecodingFailure {
    enum class Reason { damaged, endsEarly, notAnImage, outOfMemory, tooManyPixels };

    Reason reason = Reason::damaged;
    /// What the header says, for `tooManyPixels`.
    QSize size = {};

    /// The reason in words for people, to follow the name of the file and a colon.
    QString message() const;
};

/// What each reader returns: the picture in any of Qt's formats, upright, with its colour space if the data
/// names one; or why there is none.
using ReaderOutcome = std::variant<QImage, DecodingFailure>;

/// The failure of an image with this size in its header, if it is too large to decode at all.
std::optional<DecodingFailure> sizeFailure(QSize size);

} // namespace Veilshot
