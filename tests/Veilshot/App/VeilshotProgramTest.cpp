#include "tests/Veilshot/FileContents.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using nlohmann::ordered_json;

namespace Veilshot {
namespace {

struct ProgramRun {
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

/// The program itself, in a folder of its own with two real screenshots.
struct VeilshotProgram : testing::Test {
    QTemporaryDir folder;

    void SetUp() override {
        for (const QString& name : {u"light-mail.png"_s, u"plain-text.png"_s})
            ASSERT_TRUE(QFile::copy(QStringLiteral(VEILSHOT_TEST_DATA "/") + name, folder.filePath(name)));
    }

    ProgramRun run(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcess program;
        program.setWorkingDirectory(folder.path());
        program.start(QStringLiteral(VEILSHOT_PROGRAM), arguments);
        program.write(input);
        program.closeWriteChannel();
        EXPECT_TRUE(program.waitForFinished(120'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QByteArray contents(const QString& name) const { return FileContents::read(folder.filePath(name)); }
    void write(const QString& name, const QByteArray& bytes) const {
        FileContents::write(folder.filePath(name), bytes);
    }

    /// The areas that it reports for the image.
    ordered_json detected(const QStringList& arguments) const {
        const ProgramRun result = run(QStringList{u"detect"_s, u"--json"_s} + arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        return ordered_json::parse(result.output.toStdString())["regions"];
    }
};

QImage decoded(const QByteArray& png) {
    return QImage::fromData(png).convertedTo(QImage::Format_RGBA8888);
}

TEST_F(VeilshotProgram, WritesACopyThatDiffersExactlyInTheReportedAreas) {
    const QByteArray before = contents(u"light-mail.png"_s);
    const ProgramRun result = run({u"protect"_s, u"light-mail.png"_s, u"-o"_s, u"safe.png"_s, u"--style"_s,
                                   u"blackout"_s, u"--json"_s});
    ASSERT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.isEmpty()) << result.errors.toStdString();
    EXPECT_EQ(files(), (QStringList{u"light-mail.png"_s, u"plain-text.png"_s, u"safe.png"_s}));
    EXPECT_EQ(contents(u"light-mail.png"_s), before);

    const auto report = ordered_json::parse(result.output.toStdString());
    for (const char* key : {"image", "width", "height", "seconds"})
        EXPECT_TRUE(report.contains(key)) << key;
    ASSERT_GE(report["regions"].size(), 6u);

    const QImage original = decoded(before);
    const QImage safe = decoded(contents(u"safe.png"_s));
    ASSERT_EQ(safe.size(), original.size());
    QImage expected = original;
    for (const auto& region : report["regions"]) {
        const double x = region["rect"][0], y = region["rect"][1], w = region["rect"][2],
                     h = region["rect"][3];
        const int left = int(std::floor(x * original.width()));
        const int right = int(std::ceil(x * original.width() + w * original.width()));
        const int top = original.height() - int(std::ceil(y * original.height() + h * original.height()));
        const int bottom = original.height() - int(std::floor(y * original.height()));
        for (int row = std::max(0, top); row < bottom; ++row) {
            for (int column = left; column < std::min(right, original.width()); ++column)
                expected.setPixelColor(column, row, Qt::black);
        }
    }
    EXPECT_EQ(safe, expected);
}

TEST_F(VeilshotProgram, PipesAnImageThrough) {
    const QByteArray original = contents(u"light-mail.png"_s);
    const ProgramRun result = run({u"protect"_s, u"-"_s, u"-o"_s, u"-"_s, u"--only"_s, u"email"_s}, original);
    ASSERT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(decoded(result.output).size(), decoded(original).size());
    EXPECT_NE(decoded(result.output), decoded(original));
}

TEST_F(VeilshotProgram, CarriesOnAfterAFailureAndReportsInOrder) {
    write(u"broken.png"_s, contents(u"light-mail.png"_s).left(20'000));
    const ProgramRun result = run({u"protect"_s, u"plain-text.png"_s, u"broken.png"_s, u"missing.png"_s,
                                   u"light-mail.png"_s, u"--output-dir"_s, u"out"_s, u"--json"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(QDir(folder.filePath(u"out"_s)).entryList(QDir::Files | QDir::Hidden),
              (QStringList{u"light-mail.png"_s, u"plain-text.png"_s}));
    const QList<QByteArray> errors = result.errors.trimmed().split('\n');
    ASSERT_EQ(errors.size(), 2) << result.errors.toStdString();
    EXPECT_TRUE(errors[0].contains("broken.png: "));
    EXPECT_TRUE(errors[1].contains("missing.png: "));
    const QList<QByteArray> reports = result.output.trimmed().split('\n');
    ASSERT_EQ(reports.size(), 2);
    EXPECT_EQ(ordered_json::parse(reports[0].toStdString())["image"], "plain-text.png");
    EXPECT_EQ(ordered_json::parse(reports[1].toStdString())["image"], "light-mail.png");
    // Nothing personal: the copy has the very pixels of the image.
    EXPECT_EQ(decoded(contents(u"out/plain-text.png"_s)), decoded(contents(u"plain-text.png"_s)));
}

TEST_F(VeilshotProgram, HidesAreasGivenByHandToo) {
    write(u"areas.json"_s, "[[0, 0, 0.5, 0.5]]");
    const auto regions = detected({u"plain-text.png"_s, u"--regions"_s, u"areas.json"_s});
    ASSERT_EQ(regions.size(), 1u);
    EXPECT_EQ(regions[0]["kind"], "custom");
}

TEST_F(VeilshotProgram, FindsEachWantedKindAlone) {
    // On the page, "CPR: …" lines count as identity details as a whole, with what else is in them.
    for (const auto& [image, kind] : {std::pair(u"dark-kunde.png"_s, u"payment"_s),
                                      {u"dark-kunde.png"_s, u"name"_s},
                                      {u"portrait.jpg"_s, u"person"_s}}) {
        const auto regions = detected({QStringLiteral(VEILSHOT_TEST_DATA "/") + image, u"--only"_s, kind});
        EXPECT_GE(regions.size(), 1u) << kind.toStdString();
        for (const auto& region : regions)
            EXPECT_EQ(region["kind"], kind.toStdString());
    }
}

TEST_F(VeilshotProgram, NamesAnImageAsItIsWritten) {
    write(u"100%25.png"_s, contents(u"plain-text.png"_s));
    EXPECT_TRUE(run({u"detect"_s, u"100%25.png"_s}).output.startsWith("100%25.png: "));
}

TEST_F(VeilshotProgram, RefusesToReplaceItsInputOrToGuess) {
    const QByteArray before = contents(u"light-mail.png"_s);
    write(u"bad.json"_s, "[[1, 2, 3]]");
    const QList<QStringList> mistakes{
        {u"protect"_s, u"light-mail.png"_s, u"-o"_s, u"light-mail.png"_s},
        {u"protect"_s, u"light-mail.png"_s, u"--output-dir"_s, u"."_s},
        {u"detect"_s, u"light-mail.png"_s, u"--regions"_s, u"bad.json"_s},
        {u"detect"_s, u"light-mail.png"_s, u"--regions"_s, u"none.json"_s},
        {u"--window"_s},
    };
    for (const QStringList& arguments : mistakes) {
        const ProgramRun result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_FALSE(result.errors.isEmpty());
        EXPECT_TRUE(result.output.isEmpty());
    }
    EXPECT_EQ(contents(u"light-mail.png"_s), before);
    EXPECT_EQ(files(), (QStringList{u"bad.json"_s, u"light-mail.png"_s, u"plain-text.png"_s}));
}

TEST_F(VeilshotProgram, LeavesAnEarlierResultWhenItFails) {
    write(u"safe.png"_s, "earlier");
    write(u"broken.jpg"_s, "not an image");
    const ProgramRun result = run({u"protect"_s, u"broken.jpg"_s, u"-o"_s, u"safe.png"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(contents(u"safe.png"_s), "earlier");
    EXPECT_EQ(run({u"protect"_s, u"plain-text.png"_s, u"-o"_s, u"no/such/folder/safe.png"_s}).exitCode, 1);
}

} // namespace
} // namespace Veilshot
