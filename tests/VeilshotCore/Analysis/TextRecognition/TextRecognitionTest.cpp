#include "VeilshotCore/Analysis/TextRecognition/TesseractTextRecognizer.h"

#include <QTemporaryDir>
#include <future>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

QImage screenshot() {
    return QImage(QStringLiteral(VEILSHOT_TEST_DATA "/dark-kunde.png")).convertedTo(QImage::Format_RGBA8888);
}

TEST(TextRecognition, ReadsDanishLettersAndTheSignsOfAnAddressInOneLine) {
    const auto outcome = TesseractTextRecognizer().recognize(screenshot(), [] { return false; });
    QString all;
    for (const RecognizedLine& line : std::get<std::vector<RecognizedLine>>(outcome))
        all += line.text() + u'\n';
    for (const QString& text : {u"joergen.oestergaard@example.com"_s, u"Søren"_s, u"280287-7113"_s})
        EXPECT_TRUE(all.contains(text)) << text.toStdString() << " is missing in\n" << all.toStdString();
}

TEST(TextRecognition, GivesTheSameLinesToSeveralCallersAtOnce) {
    const TesseractTextRecognizer recognizer;
    const auto texts = [&] {
        std::vector<std::string> found;
        const auto outcome = recognizer.recognize(screenshot(), [] { return false; });
        for (const RecognizedLine& line : std::get<std::vector<RecognizedLine>>(outcome))
            found.push_back(line.text().toStdString());
        return found;
    };
    auto first = std::async(std::launch::async, texts);
    auto second = std::async(std::launch::async, texts);
    const auto third = texts();
    EXPECT_EQ(first.get(), third);
    EXPECT_EQ(second.get(), third);
}

TEST(TextRecognition, NamesThePackageOfAMissingLanguage) {
    QImage image = screenshot();
    const QTemporaryDir empty;
    const QByteArray before = qgetenv("TESSDATA_PREFIX");
    qputenv("TESSDATA_PREFIX", empty.path().toUtf8());
    const auto outcome = TesseractTextRecognizer().recognize(image, [] { return false; });
    before.isNull() ? qunsetenv("TESSDATA_PREFIX") : qputenv("TESSDATA_PREFIX", before);
    ASSERT_TRUE(std::holds_alternative<AnalysisError>(outcome));
    EXPECT_TRUE(std::get<AnalysisError>(outcome).message.contains(u"tesseract-ocr-dan"));
}

TEST(TextRecognition, OfACancelledScanReturnsEarlyWithoutAnError) {
    const auto outcome = TesseractTextRecognizer().recognize(screenshot(), [] { return true; });
    EXPECT_TRUE(std::get<std::vector<RecognizedLine>>(outcome).empty());
}

} // namespace
} // namespace Veilshot
