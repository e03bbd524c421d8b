#include "Veilshot/Platform/DecodingFailure.h"

#include "Veilshot/Platform/ImageDecoder.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace Veilshot {

QString DecodingFailure::message() const {
    switch (reason) {
    case Reason::damaged:
        return u"the image data is damaged or of a kind that cannot be read"_s;
    case Reason::endsEarly:
        return u"the image data ends too early"_s;
    case Reason::notAnImage:
        return u"not an image that can be read"_s;
    case Reason::outOfMemory:
        return u"there is not enough memory for the image"_s;
    case Reason::tooManyPixels:
        return u"the image is %1×%2 pixels (%3 megapixels); the limit is %4 megapixels"_s.arg(size.width())
            .arg(size.height())
            .arg(std::ceil(double(size.width()) * size.height() / 1e6), 0, 'f', 0)
            .arg(ImageDecoder::maximumMegapixels);
    }
    return {};
}

std::optional<DecodingFailure> sizeFailure(QSize size) {
    if (qint64(size.width()) * size.height() <= ImageDecoder::maximumMegapixels * qint64(1'000'000))
        return std::nullopt;
    return DecodingFailure{DecodingFailure::Reason::tooManyPixels, size};
}

} // namespace Veilshot
