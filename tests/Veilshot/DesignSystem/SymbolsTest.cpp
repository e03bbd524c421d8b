#include "VeilshotCore/Models/SensitiveKind.h"
#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <QDir>
#include <QPainter>
#include <QSvgRenderer>
#include <gmock/gmock.h>
#include <numeric>
#include <span>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

// The share of a 48-pixel square that the picture covers; nothing for a picture that cannot be read.
double coverage(const QString& path) {
    QSvgRenderer renderer(path);
    QImage image(48, 48, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto row = std::span(image.constScanLine(y), std::size_t(image.width()));
        sum = std::accumulate(row.begin(), row.end(), sum);
    }
    return renderer.isValid() ? sum / (255. * image.width() * image.height()) : 0.;
}

} // namespace

TEST(Symbols, ShowEveryKindAndStyleAndReadFromTheirFiles) {
    const QDir module(u":/qt/qml/Veilshot/DesignSystem"_s);
    QSet<QString> paths{module.filePath(u"Icons/veilshot.svg"_s)};
    for (const QFileInfo& file : QDir(module.filePath(u"Symbols"_s)).entryInfoList())
        paths << file.filePath();
    for (const SensitiveKind kind : allSensitiveKinds)
        paths << module.filePath(u"Symbols/%1.svg"_s.arg(systemImage(kind)));
    for (const RedactionStyle style : allRedactionStyles)
        paths << module.filePath(u"Symbols/%1.svg"_s.arg(systemImage(style)));
    for (const QString& path : paths) {
        EXPECT_GT(coverage(path), 0.05) << qPrintable(path);
        EXPECT_LT(coverage(path), 0.95) << qPrintable(path);
    }
}

} // namespace Veilshot
