#include "VeilshotCore/Models/SensitiveKind.h"
#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <QDir>
#include <QPainter>
#include <QSvgRenderer>
#include <gmock/gmock.h>
#include <numeric>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The share of the square that the picture covers; nothing for a picture that cannot be read.
double coverage(const QString& path) {
    QImage image(48, 48, QImage::Format_Alpha8); // of which no row needs padding
    image.fill(0);
    QPainter painter(&image);
    QSvgRenderer(path).render(&painter);
    painter.end();
    const auto bytes = image.sizeInBytes();
    return std::accumulate(image.constBits(), image.constBits() + bytes, 0.) / (255. * double(bytes));
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
    for (const QString& path : paths)
        EXPECT_NEAR(coverage(path), 0.5, 0.45) << qPrintable(path);
}

} // namespace Veilshot
