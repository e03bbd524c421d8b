#include "benchmarks/LargeScreenshot.h"

#include <QPainter>
#include <random>

namespace Veilshot {

namespace {

/// Lines of dark strokes, about the size of letters, on light panels.
QImage makeScreenshot() {
    std::mt19937 random(7);
    const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    QImage image(largeScreenshotSize, QImage::Format_RGBA8888);
    image.fill(QColor(236, 238, 241));
    QPainter painter(&image);
    for (int i = 0; i < 60; ++i)
        painter.fillRect(upTo(5000), upTo(2800), 200 + upTo(900), 100 + upTo(500),
                         QColor(200 + upTo(56), 200 + upTo(56), 200 + upTo(56)));
    for (int line = 20; line < largeScreenshotSize.height() - 30; line += 34) {
        for (int x = 30 + upTo(200); x < largeScreenshotSize.width() - 40; x += 6 + upTo(14))
            painter.fillRect(x, line + upTo(8), 2 + upTo(8), 3 + upTo(18),
                             QColor(upTo(90), upTo(90), upTo(120)));
    }
    return image;
}

} // namespace

const QImage& largeScreenshot() {
    static const QImage image = makeScreenshot();
    return image;
}

} // namespace Veilshot
