#include "Veilshot/Platform/HeifReader.h"

#include <QColorSpace>
#include <algorithm>
#include <cstring>
#include <libheif/heif.h>
#include <memory>

namespace Veilshot {

namespace {

template<auto release>
struct Releaser {
    template<typename Resource>
    void operator()(Resource* resource) const {
        release(resource);
    }
};

using Context = std::unique_ptr<heif_context, Releaser<heif_context_free>>;
using ImageHandle = std::unique_ptr<heif_image_handle, Releaser<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Releaser<heif_image_release>>;
using DecodingOptions = std::unique_ptr<heif_decoding_options, Releaser<heif_decoding_options_free>>;
using NclxProfile = std::unique_ptr<heif_color_profile_nclx, Releaser<heif_nclx_color_profile_free>>;

DecodingFailure failure(const heif_error& error) {
    using Reason = DecodingFailure::Reason;
    if (error.subcode == heif_suberror_End_of_data)
        return {Reason::endsEarly};
    if (error.code == heif_error_Memory_allocation_error)
        return {Reason::outOfMemory};
    return {Reason::damaged};
}

QColorSpace colorSpace(const heif_image_handle* handle) {
    if (const size_t length = heif_image_handle_get_raw_color_profile_size(handle)) {
        QByteArray profile(qsizetype(length), Qt::Uninitialized);
        if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok)
            return {};
        return QColorSpace::fromIccProfile(profile);
    }
    heif_color_profile_nclx* codes = nullptr;
    if (heif_image_handle_get_nclx_color_profile(handle, &codes).code != heif_error_Ok)
        return {};
    const NclxProfile owner(codes);
    // Of the code points only Display P3 is met in pictures of screens; the rest is taken as sRGB.
    return codes->color_primaries == heif_color_primaries_SMPTE_EG_432_1 ? QColorSpace(QColorSpace::DisplayP3)
                                                                         : QColorSpace();
}

} // namespace

bool isHeif(const QByteArray& bytes) {
    constexpr qsizetype boxHeaderAndBrands = 64;
    return QByteArrayView(bytes).sliced(std::min<qsizetype>(4, bytes.size())).startsWith("ftyp") &&
           heif_check_filetype(reinterpret_cast<const uint8_t*>(bytes.constData()),
                               int(std::min(bytes.size(), boxHeaderAndBrands))) != heif_filetype_no;
}

ReaderOutcome readHeif(const QByteArray& bytes) {
    using Reason = DecodingFailure::Reason;
    const Context context(heif_context_alloc());
    heif_error error = heif_context_read_from_memory_without_copy(context.get(), bytes.constData(),
                                                                  size_t(bytes.size()), nullptr);
    if (error.code != heif_error_Ok)
        return failure(error);

    heif_image_handle* rawHandle = nullptr;
    error = heif_context_get_primary_image_handle(context.get(), &rawHandle);
    if (error.code != heif_error_Ok)
        return failure(error);
    const ImageHandle handle(rawHandle);
    const QSize announced(heif_image_handle_get_width(rawHandle), heif_image_handle_get_height(rawHandle));
    if (const auto tooLarge = sizeFailure(announced))
        return *tooLarge;

    const DecodingOptions options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    // Otherwise a tile that is missing or broken stays grey.
    options->strict_decoding = 1;
    heif_image* rawImage = nullptr;
    error = heif_decode_image(rawHandle, &rawImage, heif_colorspace_RGB, heif_chroma_interleaved_RGBA,
                              options.get());
    if (error.code != heif_error_Ok)
        return failure(error);
    const Image decoded(rawImage);

    const QSize size(heif_image_get_width(rawImage, heif_channel_interleaved),
                     heif_image_get_height(rawImage, heif_channel_interleaved));
    int stride = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(rawImage, heif_channel_interleaved, &stride);
    if (!rows || size.isEmpty())
        return DecodingFailure{Reason::damaged};
    QImage image(size, heif_image_handle_is_premultiplied_alpha(rawHandle)
                           ? QImage::Format_RGBA8888_Premultiplied
                           : QImage::Format_RGBA8888);
    if (image.isNull())
        return DecodingFailure{Reason::outOfMemory};
    for (int row = 0; row < size.height(); ++row)
        std::memcpy(image.scanLine(row), rows + qsizetype(row) * stride, size_t(size.width()) * 4);
    image.setColorSpace(colorSpace(rawHandle));
    return image;
}

} // namespace Veilshot
