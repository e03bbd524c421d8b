#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <variant>

namespace Veilshot {

/// Why a file or some bytes gave no image: one sentence for people, "shot.png: permission denied".
struct ImageError {
    QString message;

    friend bool operator==(const ImageError&, const ImageError&) = default;
};

using DecodedImage = std::variant<QImage, ImageError>;

/// The one way into the program for pictures of any origin. What comes out is *the bitmap format*:
/// Format_RGBA8888 with straight alpha, in sRGB but with no colour space attached, upright, device pixel
/// ratio 1, 96 dots per inch, no texts. No later stage converts, and nothing but pixels can leak from one.
///
/// The content decides the format: PNG, JPEG, GIF, BMP, WebP, TIFF and whatever else the installed image
/// plugins of Qt read, and HEIC, HEIF and AVIF. The first page or frame of several is taken. An image whose
/// data ends early is refused as a whole, because a reader would fill the rest with grey.
///
/// All functions may be called from several threads at once. They block for as long as decoding takes
/// (a second for a very large image) and throw nothing. The first call turns the messages of the image
/// libraries off for the process: it sets the logging rules "qt.gui.imageio*" and "qt.gui.icc" (who sets
/// rules later must repeat them) and clears libtiff's handlers. It also raises QImageReader's allocation
/// limit. Only the video decoders below libheif may still print a line of their own, about damaged HEIC and
/// AVIF data.
namespace ImageDecoder {

/// Larger images are refused by what their header says, before any of their pixels are decoded.
inline constexpr int maximumMegapixels = 512;
/// Larger files are refused unread.
inline constexpr qint64 maximumFileSize = 1'000'000'000;

/// Anything but a regular file (a folder, a pipe, a device) is an error and is never waited for.
/// The path is given in messages as it stands here.
DecodedImage decodeFile(const QString& path);

/// `name` stands for the bytes in messages: a file name, or for example "clipboard".
DecodedImage decodeBytes(const QByteArray& bytes, const QString& name);

/// Whether data of this MIME type is a picture as opposed to a drawing, which has no pixels to read.
bool isPictureType(const QString& mimeType);

/// An image that some other part of Qt decoded (the clipboard's), in the bitmap format. Shares the pixels
/// with `image` where nothing needs to change. Null for a null image, or if memory runs out.
QImage toBitmap(QImage image);

} // namespace ImageDecoder

} // namespace Veilshot
