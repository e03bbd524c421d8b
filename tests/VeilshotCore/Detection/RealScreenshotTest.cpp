#include "VeilshotCore/Detection/PeopleDetector.h"
#include "VeilshotCore/Detection/SensitiveTextDetector.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace Veilshot {
namespace {

QString dataFile(const QString& name) {
    return QStringLiteral(VEILSHOT_TEST_DATA) + u'/' + name;
}

struct Detail {
    QString kind;
    QString text;
    NormalizedRect rect;
};

struct Screenshot {
    QImage image;
    std::vector<Detail> details;
};

/// A picture and what it holds, as measured by the browser that drew it.
Screenshot load(const QString& name) {
    Screenshot screenshot;
    screenshot.image = QImage(dataFile(name + u".png"_s)).convertedTo(QImage::Format_RGBA8888);
    QFile truth(dataFile(name + u".json"_s));
    EXPECT_TRUE(truth.open(QIODevice::ReadOnly)) << name.toStdString();
    const QJsonArray details = QJsonDocument::fromJson(truth.readAll())[u"details"].toArray();
    for (const QJsonValue& detail : details) {
        const QJsonArray rect = detail[u"rect"].toArray();
        const QRectF pixels(rect[0].toDouble(), rect[1].toDouble(), rect[2].toDouble(), rect[3].toDouble());
        screenshot.details.push_back({detail[u"kind"].toString(), detail[u"text"].toString(),
                                      NormalizedRect::fromPixels(pixels, screenshot.image.size())});
    }
    return screenshot;
}

SensitiveRegions scan(const QImage& image) {
    const DetectionOutcome outcome = SensitiveTextDetector().detect(image).result();
    if (const auto* error = std::get_if<AnalysisError>(&outcome)) {
        ADD_FAILURE() << error->message.toStdString();
        return {};
    }
    return std::get<SensitiveRegions>(outcome);
}

/// Whether the detail is hidden from its left to its right, low, in the middle and high.
bool isHidden(const Detail& detail, const SensitiveRegions& regions) {
    constexpr int steps = 50;
    const auto isCovered = [&](double x, double y) {
        return std::ranges::any_of(regions, [&](const SensitiveRegion& region) {
            const NormalizedRect& rect = region.normalizedRect();
            return rect.x <= x && x <= rect.maxX() && rect.y <= y && y <= rect.maxY();
        });
    };
    for (int step = 0; step < steps; ++step) {
        const double x = detail.rect.x + detail.rect.width * (step + 0.5) / steps;
        for (const double share : {0.25, 0.5, 0.75}) {
            if (!isCovered(x, detail.rect.y + detail.rect.height * share))
                return false;
        }
    }
    return true;
}

class RealScreenshot : public testing::TestWithParam<QString> {};

TEST_P(RealScreenshot, HasEveryDetailHiddenAndTheRestLeftReadable) {
    const Screenshot screenshot = load(GetParam());
    ASSERT_FALSE(screenshot.image.isNull());
    ASSERT_THAT(screenshot.details, testing::Not(IsEmpty()));
    const SensitiveRegions regions = scan(screenshot.image);
    for (const Detail& detail : screenshot.details)
        EXPECT_TRUE(isHidden(detail, regions))
            << detail.kind.toStdString() << ' ' << detail.text.toStdString();

    double hidden = 0;
    for (const SensitiveRegion& region : regions)
        hidden += region.normalizedRect().area();
    EXPECT_LT(hidden, 0.15);
}

INSTANTIATE_TEST_SUITE_P(LightEnglishAndDarkDanish, RealScreenshot,
                         testing::Values(u"light-mail"_s, u"dark-kunde"_s), [](const auto& test) {
                             return test.param.left(test.param.indexOf(u'-')).toStdString();
                         });

TEST(RealScreenshot, WithoutAnythingPersonalIsLeftAlone) {
    const QImage article = load(u"plain-text"_s).image;
    EXPECT_THAT(scan(article), IsEmpty());
    EXPECT_THAT(std::get<SensitiveRegions>(PeopleDetector().detect(article).result()), IsEmpty());
}

} // namespace
} // namespace Veilshot
