#include "VeilshotCore/Analysis/PeopleSearch/HogPeopleAnalyzer.h"

#include <QBuffer>
#include <QPainter>
#include <QTemporaryDir>
#include <random>

using namespace Qt::StringLiterals;
using namespace testing;

namespace Veilshot {

namespace {

constexpr float usedConfidence = 0.3F;

enum class Theme { light, dark };
enum class Crop { square, round };

QColor ground(Theme theme) {
    return theme == Theme::light ? QColor(252, 252, 252) : QColor(30, 31, 34);
}

/// Lines of strokes as thin, dense and anti-aliased as small text.
void drawTextLikeLines(QPainter& painter, const QRect& area, Theme theme) {
    std::mt19937 random(7);
    painter.setPen(QPen(theme == Theme::light ? QColor(40, 40, 40) : QColor(225, 225, 225), 1.3));
    painter.setRenderHint(QPainter::Antialiasing);
    for (int y = area.top(); y + 12 < area.bottom(); y += 20) {
        for (int x = area.left(); x + 6 < area.right(); x += 7) {
            if (random() % 6 == 0)
                continue;
            painter.drawLine(x, y + static_cast<int>(random() % 4), x + 4, y + 10);
            painter.drawEllipse(QRectF(x + 0.5, y + 3.3, 4.5, 5.5 + random() % 3));
        }
    }
}

QImage textPage(Theme theme) {
    QImage page(640, 400, QImage::Format_RGBA8888);
    page.fill(ground(theme));
    QPainter painter(&page);
    drawTextLikeLines(painter, page.rect().adjusted(20, 20, -20, -20), theme);
    return page;
}

/// Two strokes and two rings at a time, and discs with such initials, all far from each other.
QImage pageOfShortWords() {
    QImage page(640, 400, QImage::Format_RGBA8888);
    page.fill(ground(Theme::dark));
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 60; ++i) {
        const QPointF place(30 + i % 10 * 60 + i % 7, 20 + i / 10 * 60 + i % 5);
        if (i % 4 == 0) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(109, 76, 65));
            painter.drawEllipse(QRectF(place - QPointF(12, 9), QSizeF(40, 40)));
        }
        painter.setPen(QPen(QColor(220, 220, 220), 2.2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QRectF(place + QPointF(0, 9), QSizeF(6.5, 8)));
        painter.drawLine(place + QPointF(7, 2), place + QPointF(7, 18));
        painter.drawLine(place + QPointF(13, 3), place + QPointF(12, 18));
    }
    painter.end();
    return page;
}

/// Small buttons with rings that have a line across, as letters, each of a grey of its own.
QImage pageOfButtons() {
    QImage page(640, 400, QImage::Format_RGBA8888);
    page.fill(ground(Theme::light));
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 60; ++i) {
        const QPointF place(14 + i % 10 * 62 + i % 7, 14 + i / 10 * 62 + i % 5);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(60 + i, 60 + i, 60 + i));
        painter.drawRoundedRect(QRectF(place, QSizeF(52, 23)), 4, 4);
        painter.setPen(QPen(QColor(225, 225, 225), 2));
        painter.setBrush(Qt::NoBrush);
        for (int k = 0; k < 4; ++k) {
            const QRectF ring(place + QPointF(6.3 + 11.5 * k, 6.3), QSizeF(8.4, 10.5));
            painter.drawArc(ring, 0, 16 * ((i + k) % 3 == 0 ? 180 : 330));
            painter.drawLine(QPointF(ring.left(), ring.center().y()),
                             QPointF(ring.right(), ring.center().y()));
        }
    }
    painter.end();
    return page;
}

/// Small discs with two letters each.
QImage pageOfInitials() {
    QImage page(640, 400, QImage::Format_RGBA8888);
    page.fill(ground(Theme::light));
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 60; ++i) {
        const QPointF place(20 + i % 10 * 60 + i % 7, 20 + i / 10 * 60 + i % 8);
        painter.setPen(Qt::NoPen);
        painter.setBrush(i % 2 == 0 ? QColor(109, 76, 65) : QColor(216, 67, 21));
        painter.drawEllipse(QRectF(place, QSizeF(24, 24)));
        painter.setPen(QPen(QColor(235, 235, 235), 1.3));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QRectF(place + QPointF(5, 8), QSizeF(6, 8)));
        painter.drawRect(QRectF(place + QPointF(13.5, 8), QSizeF(5, 8)));
    }
    painter.end();
    return page;
}

QImage throughJpeg(const QImage& page, int quality = 80) {
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    page.convertToFormat(QImage::Format_RGB32).save(&buffer, "JPEG", quality);
    return QImage::fromData(file, "JPEG").convertToFormat(QImage::Format_RGBA8888);
}

QImage noise(QSize size) {
    QImage image(size, QImage::Format_RGBA8888);
    std::mt19937 random(3);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int level = 100 + static_cast<int>(random() % 16) + (x + y) % 64;
            image.setPixelColor(x, y, QColor(level, level - 10, level - 20));
        }
    }
    return image;
}

QImage filled(QSize size, QColor colour) {
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(colour);
    return image;
}

QImage portrait() {
    return QImage(QStringLiteral(VEILSHOT_TEST_DATA "/portrait.jpg"));
}

PeopleObservations observed(const QImage& image) {
    const auto outcome = HogPeopleAnalyzer().analyze(image, [] { return false; });
    if (const auto* error = std::get_if<AnalysisError>(&outcome)) {
        ADD_FAILURE() << qPrintable(error->message);
        return {};
    }
    return std::get<PeopleObservations>(outcome);
}

std::vector<QRectF> facesInUse(const PeopleObservations& observations, QSize image) {
    std::vector<QRectF> faces;
    for (const PersonObservation& face : observations.faces) {
        if (face.confidence >= usedConfidence)
            faces.push_back(face.boundingBox.toPixels(image));
    }
    return faces;
}

} // namespace

TEST(HogPeopleAnalyzerTest, SeesNobodyInText) {
    for (const Theme theme : {Theme::light, Theme::dark}) {
        const QImage page = textPage(theme);
        EXPECT_THAT(observed(page).faces, IsEmpty());
        EXPECT_THAT(facesInUse(observed(throughJpeg(page)), page.size()), IsEmpty());
    }
    const struct {
        const char* what;
        QImage drawn;
        std::vector<int> qualities;
    } pages[] = {{"words", pageOfShortWords(), {40, 80}},
                 {"buttons", pageOfButtons(), {50, 60}},
                 {"initials", pageOfInitials(), {80}}};
    for (const auto& [what, drawn, qualities] : pages) {
        for (const int quality : qualities) {
            const QImage page = throughJpeg(drawn, quality);
            EXPECT_THAT(facesInUse(observed(page), page.size()), IsEmpty()) << what << " at " << quality;
        }
    }
    // A face's outlines without its shades.
    QImage stencil = portrait().convertToFormat(QImage::Format_RGB32);
    for (int i = 0; i < stencil.width() * stencil.height(); ++i) {
        auto* pixel = reinterpret_cast<QRgb*>(stencil.bits()) + i;
        *pixel = qGray(*pixel) < 140 ? qRgb(28, 28, 28) : qRgb(228, 228, 228);
    }
    QImage page = filled({144, 144}, QColor(228, 228, 228));
    QPainter(&page).drawImage(40, 40,
                              stencil.scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    EXPECT_THAT(facesInUse(observed(throughJpeg(page)), page.size()), IsEmpty());
    // A face in a smiley's yellow.
    QImage smiley = portrait().convertToFormat(QImage::Format_RGB32);
    for (int i = 0; i < smiley.width() * smiley.height(); ++i) {
        auto* pixel = reinterpret_cast<QRgb*>(smiley.bits()) + i;
        *pixel = qRgb(150 + qGray(*pixel) * 2 / 5, 120 + qGray(*pixel) * 2 / 5, 20);
    }
    EXPECT_THAT(facesInUse(observed(smiley), smiley.size()), IsEmpty());
}

struct AvatarPage {
    int side;
    Theme theme;
    Crop crop;
    bool isJpeg = false;
};

class HogPeopleAnalyzerAvatarTest : public TestWithParam<AvatarPage> {};

TEST_P(HogPeopleAnalyzerAvatarTest, FindsEveryFaceInsideItsPicture) {
    const auto [side, theme, crop, isJpeg] = GetParam();
    const QImage picture = portrait().scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage page(480, 2 * side + 120, QImage::Format_RGBA8888);
    page.fill(ground(theme));
    const QRect places[] = {{40, 40, side, side}, {40, side + 80, side, side}};
    {
        QPainter painter(&page);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        for (const QRect& place : places) {
            QBrush brush(picture);
            brush.setTransform(QTransform::fromTranslate(place.x(), place.y()));
            painter.setBrush(brush);
            if (crop == Crop::round)
                painter.drawEllipse(place);
            else
                painter.drawRect(place);
        }
        painter.setBrush(Qt::NoBrush);
        drawTextLikeLines(painter, page.rect().adjusted(side + 60, 20, -20, -20), theme);
    }
    const std::vector<QRectF> faces = facesInUse(observed(isJpeg ? throughJpeg(page) : page), page.size());
    // In the portrait the face spans from (80, 70) to (173, 163) of 256 pixels.
    const double unit = side / 256.0;
    const double tolerance = side / 10.0 + (isJpeg ? 8 : 0); // whose blocks carry the edge on
    EXPECT_THAT(faces, SizeIs(2));
    for (const QRect& place : places) {
        const QRectF picturePlace = QRectF(place).adjusted(-tolerance, -tolerance, tolerance, tolerance);
        const QPointF nose(place.x() + 126 * unit, place.y() + 117 * unit);
        EXPECT_THAT(faces, Contains(Truly([&](const QRectF& face) {
                        return face.contains(nose) && face.width() > 60 * unit && picturePlace.contains(face);
                    })));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, HogPeopleAnalyzerAvatarTest,
    Values(AvatarPage{24, Theme::light, Crop::round}, AvatarPage{32, Theme::light, Crop::square},
           AvatarPage{32, Theme::dark, Crop::round}, AvatarPage{64, Theme::light, Crop::round},
           AvatarPage{64, Theme::dark, Crop::square}, AvatarPage{200, Theme::light, Crop::square},
           AvatarPage{200, Theme::dark, Crop::round}, AvatarPage{36, Theme::dark, Crop::round, true},
           AvatarPage{20, Theme::dark, Crop::round, true}, AvatarPage{24, Theme::light, Crop::round, true}),
    [](const TestParamInfo<AvatarPage>& page) {
        return std::to_string(page.param.side) + (page.param.theme == Theme::dark ? "Dark" : "Light") +
               (page.param.crop == Crop::round ? "Round" : "Square") + (page.param.isJpeg ? "Jpeg" : "");
    });

TEST(HogPeopleAnalyzerTest, KeepsTheFaceOfABodyAndClipsTheBodyToThePhotograph) {
    QImage photo = noise({300, 500});
    QPainter(&photo).drawImage(QRect(80, 40, 140, 140), portrait());
    QImage page = filled({500, 700}, Qt::white);
    QPainter(&page).drawImage(100, 100, photo);
    const PeopleObservations observations = observed(page);
    ASSERT_THAT(facesInUse(observations, page.size()), Not(IsEmpty()));
    ASSERT_THAT(observations.bodies, Not(IsEmpty()));
    const QRectF body = observations.bodies.front().boundingBox.toPixels(page.size());
    EXPECT_TRUE(body.contains(facesInUse(observations, page.size()).front()));
    EXPECT_TRUE(QRectF(photo.rect()).translated(100, 100).adjusted(-16, -16, 16, 16).contains(body));
    EXPECT_GT(body.height(), 300);
}

TEST(HogPeopleAnalyzerTest, SurvivesPicturesOfAnyShapeAndStaysWithinTheirBounds) {
    std::vector<QImage> pictures{QImage(), filled({300, 300}, Qt::transparent), portrait()};
    for (const QSize size : {QSize(1, 20000), QSize(20000, 1)})
        pictures.push_back(filled(size, Qt::white));
    for (const QSize size : {QSize(1, 1), QSize(1, 500), QSize(500, 1), QSize(17, 900), QSize(16, 16),
                             QSize(3000, 40), QSize(1000, 700)})
        pictures.push_back(noise(size));
    for (const QImage& picture : pictures) {
        SCOPED_TRACE(testing::Message() << picture.width() << " x " << picture.height());
        const PeopleObservations observations = observed(picture);
        for (const auto& list : {observations.faces, observations.bodies}) {
            for (const PersonObservation& person : list) {
                EXPECT_THAT(person.confidence, AllOf(Ge(0.1F), Le(1.0F)));
                EXPECT_FALSE(person.boundingBox.isEmpty());
                EXPECT_EQ(person.boundingBox.intersected(NormalizedRect::unit()), person.boundingBox);
            }
        }
    }
}

TEST(HogPeopleAnalyzerTest, FindsTheSameInEveryPixelFormat) {
    for (const auto format :
         {QImage::Format_RGBA8888, QImage::Format_BGR888, QImage::Format_Grayscale8, QImage::Format_RGB16}) {
        const QImage picture = portrait().convertToFormat(format);
        EXPECT_THAT(facesInUse(observed(picture), picture.size()), SizeIs(1));
    }
}

TEST(HogPeopleAnalyzerTest, NamesThePackageWhenCascadesAreMissingOrDamaged) {
    QTemporaryDir missing;
    QTemporaryDir damaged;
    QFile file(damaged.filePath(u"haarcascade_frontalface_alt2.xml"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<opencv_storage><cascade");
    file.close();
    for (const QString& folder : {missing.path(), damaged.path()}) {
        const HogPeopleAnalyzer analyzer(folder);
        const auto outcome = analyzer.analyze(portrait(), [] { return false; });
        ASSERT_TRUE(std::holds_alternative<AnalysisError>(outcome));
        EXPECT_TRUE(std::get<AnalysisError>(outcome).message.contains(u"opencv-data"));
        // A page without photographs needs none of them.
        EXPECT_TRUE(std::holds_alternative<PeopleObservations>(
            analyzer.analyze(textPage(Theme::light), [] { return false; })));
    }
}

TEST(HogPeopleAnalyzerTest, EndsWithoutAnErrorOnceCancelled) {
    const auto outcome = HogPeopleAnalyzer().analyze(portrait(), [] { return true; });
    ASSERT_TRUE(std::holds_alternative<PeopleObservations>(outcome));
    EXPECT_THAT(std::get<PeopleObservations>(outcome).faces, IsEmpty());
}

} // namespace Veilshot
