#include "VeilshotCore/Detection/SensitiveTextDetector.h"

#include <QThread>
#include <atomic>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Veilshot {
namespace {

/// A line whose characters are equally wide, from `x` to `x` + length × 0.01, at the height `y`.
RecognizedLine lineAt(double x, double y, const QString& text) {
    std::vector<RecognizedLine::Symbol> symbols;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index] != u' ')
            symbols.push_back({{index, 1}, {x + 0.01 * double(index), y, 0.01, 0.02}});
    }
    return {text, symbols};
}

class StubRecognizer : public TextRecognizer {
public:
    AnalysisOutcome<std::vector<RecognizedLine>> outcome;
    mutable std::atomic<QThread*> thread = nullptr;
    std::function<void()> duringRecognition = [] {};

    AnalysisOutcome<std::vector<RecognizedLine>> recognize(const QImage&,
                                                           const CancellationCheck&) const override {
        thread = QThread::currentThread();
        duringRecognition();
        return outcome;
    }
};

class StubDataDetector : public DataDetector {
public:
    std::vector<DataMatch> found;
    std::vector<DataMatch> matches(const QString&) const override { return found; }
};

class StubTagger : public NameTagger {
public:
    std::vector<TextRange> found;
    std::vector<TextRange> personalNames(const QString&) const override { return found; }
};

struct SensitiveTextDetectorTest : testing::Test {
    std::shared_ptr<StubRecognizer> recognizer = std::make_shared<StubRecognizer>();
    std::shared_ptr<StubDataDetector> dataDetector = std::make_shared<StubDataDetector>();
    std::shared_ptr<StubTagger> tagger = std::make_shared<StubTagger>();
    SensitiveTextDetector detector{{recognizer, dataDetector, tagger}};

    SensitiveRegions regionsOf(std::vector<RecognizedLine> lines) {
        recognizer->outcome = std::move(lines);
        return std::get<SensitiveRegions>(detector.detect({}).result());
    }
};

std::vector<SensitiveKind> kinds(const SensitiveRegions& regions) {
    std::vector<SensitiveKind> kinds;
    for (const SensitiveRegion& region : regions)
        kinds.push_back(region.kind());
    return kinds;
}

void expectNear(const NormalizedRect& actual, const NormalizedRect& expected) {
    for (const auto side :
         {&NormalizedRect::x, &NormalizedRect::y, &NormalizedRect::width, &NormalizedRect::height})
        EXPECT_NEAR(actual.*side, expected.*side, 1e-12);
}

TEST_F(SensitiveTextDetectorTest, HidesALabelledLineAsAWhole) {
    const auto regions = regionsOf({lineAt(0.1, 0.5, u"Email: a@b.dk"_s)});
    EXPECT_THAT(kinds(regions), ElementsAre(SensitiveKind::identity));
    expectNear(regions[0].normalizedRect(), {0.1 - 0.006, 0.5 - 0.008, 0.13 + 0.012, 0.02 + 0.016});
}

TEST_F(SensitiveTextDetectorTest, HidesOnlyTheHitOfAnyOtherLineAndClipsItToTheImage) {
    auto regions = regionsOf({lineAt(0.1, 0.5, u"æ “to” a@b.dk ok"_s)});
    ASSERT_THAT(kinds(regions), ElementsAre(SensitiveKind::email));
    expectNear(regions[0].normalizedRect(), {0.17 - 0.006, 0.492, 0.06 + 0.012, 0.036});

    regions = regionsOf({lineAt(0, 0.99, u"a@b.dk"_s)});
    expectNear(regions[0].normalizedRect(), {0, 0.982, 0.066, 0.018});
}

TEST_F(SensitiveTextDetectorTest, KeepsTheFirstOfSeveralHitsOnTheSameText) {
    dataDetector->found = {{DataMatch::Type::link, {0, 11}, u"mailto:x"_s}};
    tagger->found = {{0, 11}};
    EXPECT_THAT(kinds(regionsOf({lineAt(0.1, 0.5, u"010190-1234"_s)})), ElementsAre(SensitiveKind::identity));
    EXPECT_THAT(kinds(regionsOf({lineAt(0.1, 0.5, u"Nothing Now"_s)})), ElementsAre(SensitiveKind::email));
}

TEST_F(SensitiveTextDetectorTest, GivesDataMatchesTheirKindsByTypeAndScheme) {
    dataDetector->found = {{DataMatch::Type::address, {0, 2}, {}},
                           {DataMatch::Type::link, {3, 2}, u"mailto:a@b.dk"_s},
                           {DataMatch::Type::link, {6, 2}, u"MAILTO:a@b.dk"_s},
                           {DataMatch::Type::link, {9, 2}, {}},
                           {DataMatch::Type::phoneNumber, {12, 2}, {}}};
    std::vector<SensitiveKind> found;
    for (const auto& match : SensitiveTextDetector::dataDetectorMatches({}, *dataDetector))
        found.push_back(match.kind);
    EXPECT_THAT(found, ElementsAre(SensitiveKind::address, SensitiveKind::email, SensitiveKind::web,
                                   SensitiveKind::web, SensitiveKind::phone));
}

TEST_F(SensitiveTextDetectorTest, SkipsRangesThatHaveNoPlaceInTheLine) {
    tagger->found = {{1, 1}, {90, 4}, {-3, 2}, {0, 0}, {4, 3}};
    const auto regions = regionsOf({lineAt(0.1, 0.5, u"😀  Ann"_s)}); // the first range splits the emoji
    EXPECT_THAT(kinds(regions), ElementsAre(SensitiveKind::name));
}

TEST_F(SensitiveTextDetectorTest, LooksForTheWantedKindsAlone) {
    using Kinds = SensitiveTextDetector::Kinds;
    recognizer->outcome = std::vector{lineAt(0.1, 0.5, u"Email: www.b.dk/?a@b.dk"_s)};
    const auto found = [&](const Kinds& wanted) {
        const SensitiveTextDetector selective({recognizer, dataDetector, tagger}, wanted);
        return kinds(std::get<SensitiveRegions>(selective.detect({}).result()));
    };
    EXPECT_THAT(found({SensitiveKind::email, SensitiveKind::identity}), ElementsAre(SensitiveKind::identity));
    EXPECT_THAT(found({SensitiveKind::web, SensitiveKind::email}), ElementsAre(SensitiveKind::web));
    EXPECT_THAT(found({SensitiveKind::email}),
                ElementsAre(SensitiveKind::email)); // not dropped for what is unwanted
    EXPECT_THAT(found({SensitiveKind::phone}), IsEmpty());
}

TEST_F(SensitiveTextDetectorTest, TakesOnlyNamesFromALineThatRepeatsOthers) {
    tagger->found = {{9, 3}};
    EXPECT_THAT(kinds(regionsOf({lineAt(0.1, 0.5, u"a@b.dk\t\uE000\tIda, name: 7"_s)})),
                ElementsAre(SensitiveKind::name));
}

TEST_F(SensitiveTextDetectorTest, WorksOffTheCallersThreadAndFindsNothingInAPictureWithoutText) {
    for (int run = 0; run < 20;
         ++run) { // also when the worker is not quick enough to begin before it is waited for
        EXPECT_THAT(regionsOf({}), IsEmpty());
        EXPECT_NE(recognizer->thread, QThread::currentThread());
    }
}

TEST_F(SensitiveTextDetectorTest, PassesTheRecognizersErrorOn) {
    recognizer->outcome = AnalysisError{u"no language data"_s};
    EXPECT_EQ(std::get<AnalysisError>(detector.detect({}).result()).message, u"no language data");
    recognizer->duringRecognition = [] { throw std::bad_alloc(); };
    EXPECT_THAT(std::get<AnalysisError>(detector.detect({}).result()).message.toStdString(),
                testing::HasSubstr("memory"));
}

TEST_F(SensitiveTextDetectorTest, ReportsCancellationAsNeitherResultNorError) {
    recognizer->outcome = std::vector{lineAt(0.1, 0.5, u"a@b.dk"_s)};
    std::atomic<bool> mayFinish = false;
    recognizer->duringRecognition = [&] {
        while (!mayFinish)
            QThread::msleep(1);
    };
    auto future = detector.detect({});
    future.cancel();
    mayFinish = true;
    future.waitForFinished();
    EXPECT_TRUE(future.isCanceled());
    EXPECT_EQ(future.resultCount(), 0);
}

SensitiveRegion region(const NormalizedRect& rect, SensitiveKind kind) {
    return {QUuid::createUuid(), rect, kind};
}

TEST(RemovingDuplicates, DropsWhatLiesMoreThanFourFifthsInsideALargerRegion) {
    const auto large = region({0, 0, 0.5, 0.5}, SensitiveKind::identity);
    const auto exactlyFourFifths = region({0.25, 0.375, 0.25, 0.15625}, SensitiveKind::name);
    const auto more = region({0.25, 0.375, 0.25, 0.15}, SensitiveKind::email);
    const auto apart = region({0.75, 0.75, 0.0625, 0.0625}, SensitiveKind::phone);
    EXPECT_THAT(SensitiveTextDetector::removingDuplicates({apart, more, exactlyFourFifths, large}),
                ElementsAre(large, exactlyFourFifths, apart));
}

TEST(RemovingDuplicates, KeepsTheEarlierOfTwoEqualRegions) {
    const auto first = region({0.25, 0.25, 0.25, 0.25}, SensitiveKind::web);
    const auto second = region({0.25, 0.25, 0.25, 0.25}, SensitiveKind::secret);
    EXPECT_THAT(SensitiveTextDetector::removingDuplicates({first, second}), ElementsAre(first));
    const auto flat = region({0.25, 0.25, 0.25, 0}, SensitiveKind::web);
    EXPECT_THAT(SensitiveTextDetector::removingDuplicates({flat, first}), ElementsAre(first, flat));
}

} // namespace
} // namespace Veilshot
