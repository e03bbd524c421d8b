#include "Veilshot/Platform/PngReader.h"

#include <QColorSpace>
#include <csetjmp>
#include <cstring>
#include <png.h>

namespace Veilshot {

namespace {

/// One run of libpng over the bytes. libpng leaves a failed call by longjmp, which passes over destructors:
/// the two member functions that call it keep to plain values, and everything else is done between them.
class PngRun {
public:
    explicit PngRun(const QByteArray& bytes) : m_bytes(bytes) {
        m_png = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, fail, ignoreWarning);
        m_info = m_png ? png_create_info_struct(m_png) : nullptr;
        if (!m_info)
            return;
        // The sides are libpng's to check only against what the format allows; the area is ours.
        png_set_user_limits(m_png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        png_set_read_fn(m_png, this, readBytes);
    }
    ~PngRun() { png_destroy_read_struct(&m_png, &m_info, nullptr); }
    Q_DISABLE_COPY_MOVE(PngRun)

    bool isValid() const { return m_info; }
    bool ranOut() const { return m_ranOut; }
    QSize size() const {
        return {int(png_get_image_width(m_png, m_info)), int(png_get_image_height(m_png, m_info))};
    }

    /// Up to the pixels.
    bool readHeader() {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_read_info(m_png, m_info);
        return true;
    }

    /// All pixels, as 8-bit red, green, blue and straight alpha, and the rest of the file.
    bool readPixels(uchar* pixels, qsizetype bytesPerRow) {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_set_expand(m_png);
        png_set_scale_16(m_png);
        png_set_gray_to_rgb(m_png);
        png_set_add_alpha(m_png, 0xff, PNG_FILLER_AFTER);
        const int passes = png_set_interlace_handling(m_png);
        png_read_update_info(m_png, m_info);
        const auto height = qsizetype(png_get_image_height(m_png, m_info));
        for (int pass = 0; pass < passes; ++pass) {
            for (qsizetype row = 0; row < height; ++row)
                png_read_row(m_png, pixels + row * bytesPerRow, nullptr);
        }
        png_read_end(m_png, nullptr);
        return true;
    }

    QColorSpace colorSpace() const {
        png_charp name = nullptr;
        png_bytep profile = nullptr;
        png_uint_32 length = 0;
        int compression = 0;
        if (!png_get_iCCP(m_png, m_info, &name, &compression, &profile, &length))
            return {};
        return QColorSpace::fromIccProfile(QByteArray(reinterpret_cast<char*>(profile), length));
    }

private:
    [[noreturn]] static void fail(png_structp png, png_const_charp) { png_longjmp(png, 1); }
    static void ignoreWarning(png_structp, png_const_charp) {}
    static void readBytes(png_structp png, png_bytep target, size_t wanted) {
        PngRun& run = *static_cast<PngRun*>(png_get_io_ptr(png));
        if (wanted > size_t(run.m_bytes.size() - run.m_position)) {
            run.m_ranOut = true;
            png_longjmp(png, 1);
        }
        std::memcpy(target, run.m_bytes.constData() + run.m_position, wanted);
        run.m_position += qsizetype(wanted);
    }

    const QByteArray& m_bytes;
    qsizetype m_position = 0;
    bool m_ranOut = false;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
};

} // namespace

bool isPng(const QByteArray& bytes) {
    return bytes.startsWith(QByteArrayView("\x89PNG\r\n\x1a\n"));
}

ReaderOutcome readPng(const QByteArray& bytes) {
    using Reason = DecodingFailure::Reason;
    PngRun run(bytes);
    if (!run.isValid())
        return DecodingFailure{Reason::outOfMemory};
    if (!run.readHeader())
        return DecodingFailure{run.ranOut() ? Reason::endsEarly : Reason::damaged};
    if (const auto failure = sizeFailure(run.size()))
        return *failure;
    QImage image(run.size(), QImage::Format_RGBA8888);
    if (image.isNull())
        return DecodingFailure{Reason::outOfMemory};
    if (!run.readPixels(image.bits(), image.bytesPerLine()))
        return DecodingFailure{run.ranOut() ? Reason::endsEarly : Reason::damaged};
    image.setColorSpace(run.colorSpace());
    return image;
}

} // namespace Veilshot
