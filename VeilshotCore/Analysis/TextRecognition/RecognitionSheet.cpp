#include "VeilshotCore/Analysis/TextRecognition/RecognitionSheet.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

/// Height of a line's ink, in pixels, from which the network gains nothing by enlarging; twelve-pixel fonts
/// get about twice as large. Larger text loses by it.
constexpr double sufficientHeight = 28;
constexpr double largestHeight = 60;
constexpr double largestScale = 3;

/// Tesseract's coordinates are 16-bit.
constexpr double widestRow = 30'000;

constexpr int rowGap = 14;
constexpr int sideMargin = 20;
constexpr int edgeMargin = 10;

/// A sheet takes no more work than this, in pixels of text width, so that the last worker is not left alone
/// with a long one and a cancelled scan ends soon.
constexpr double mostWork = 12'000;
constexpr double leastWork = 1'500;
/// What a row costs beside its width.
constexpr double workPerRow = 60;

double scaleFor(const QRect& box) {
    double scale = 1;
    if (box.height() < sufficientHeight)
        scale = std::min(largestScale, sufficientHeight / box.height());
    else if (box.height() > largestHeight)
        scale = largestHeight / box.height();
    return std::min(scale, widestRow / box.width());
}

QSize scaledSize(const QRect& box, double scale) {
    return {std::max(1, static_cast<int>(std::lround(box.width() * scale))),
            std::max(1, static_cast<int>(std::lround(box.height() * scale)))};
}

double workOf(const TextSegment& segment) {
    // The network scales every line to the same height.
    return static_cast<double>(segment.box.width()) / segment.box.height() * sufficientHeight + workPerRow;
}

} // namespace

RecognitionSheet::RecognitionSheet(const std::vector<TextSegment>& segments, std::vector<std::size_t> indices)
    : m_segments(segments), m_indices(std::move(indices)) {
    int top = edgeMargin;
    int widest = 0;
    for (const std::size_t index : m_indices) {
        const QRect& box = segments[index].box;
        const double scale = scaleFor(box);
        const QSize size = scaledSize(box, scale);
        m_rows.push_back({top, size, scale});
        top += size.height() + rowGap;
        widest = std::max(widest, size.width());
    }
    m_size = {widest + 2 * sideMargin, top + edgeMargin - rowGap};
}

QImage RecognitionSheet::draw() const {
    QImage page(m_size, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    cv::Mat canvas(page.height(), page.width(), CV_8U, page.bits(),
                   static_cast<std::size_t>(page.bytesPerLine()));
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const QImage& ink = m_segments[m_indices[row]].ink;
        const cv::Mat source(ink.height(), ink.width(), CV_8U, const_cast<uchar*>(ink.constBits()),
                             static_cast<std::size_t>(ink.bytesPerLine()));
        const QSize size = m_rows[row].size;
        const cv::Mat target = canvas(cv::Rect(sideMargin, m_rows[row].top, size.width(), size.height()));
        cv::resize(source, target, target.size(), 0, 0,
                   m_rows[row].scale < 1 ? cv::INTER_AREA : cv::INTER_CUBIC);
    }
    return page;
}

std::vector<std::vector<TesseractEngine::Symbol>>
RecognitionSheet::distribute(const std::vector<TesseractEngine::Symbol>& symbols) const {
    std::vector<std::vector<TesseractEngine::Symbol>> shares(m_rows.size());
    for (const TesseractEngine::Symbol& symbol : symbols) {
        // A row reaches half-way into the gaps around it.
        const auto next =
            std::ranges::upper_bound(m_rows, symbol.box.center().y() + rowGap / 2.0, {},
                                     [](const Row& row) { return static_cast<double>(row.top); });
        const std::size_t index = next == m_rows.begin() ? 0 : next - m_rows.begin() - 1;
        const Row& row = m_rows[index];
        const QRectF ink(0, 0, m_segments[m_indices[index]].box.width(),
                         m_segments[m_indices[index]].box.height());
        const QRectF box = symbol.box.translated(-sideMargin, -row.top);
        shares[index].push_back(symbol);
        shares[index].back().box = QRectF(box.x() / row.scale, box.y() / row.scale, box.width() / row.scale,
                                          box.height() / row.scale) &
                                   ink;
    }
    return shares;
}

std::vector<RecognitionSheet> planSheets(const std::vector<TextSegment>& segments, int workers) {
    std::vector<std::size_t> order(segments.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return segments[index].box.height(); });
    double total = 0;
    for (const TextSegment& segment : segments)
        total += workOf(segment);
    const double limit = std::clamp(total / workers, leastWork, mostWork);

    std::vector<RecognitionSheet> sheets;
    std::vector<std::size_t> indices;
    double work = 0;
    for (const std::size_t index : order) {
        indices.push_back(index);
        work += workOf(segments[index]);
        if (work >= limit) {
            sheets.emplace_back(segments, std::move(indices));
            indices.clear();
            work = 0;
        }
    }
    if (!indices.empty())
        sheets.emplace_back(segments, std::move(indices));
    return sheets;
}

} // namespace Veilshot
