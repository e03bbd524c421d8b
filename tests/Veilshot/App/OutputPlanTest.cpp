#include "Veilshot/App/OutputPlan.h"

#include "tests/Veilshot/FileContents.h"

#include <QDir>
#include <QTemporaryDir>
#include <filesystem>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

struct OutputPlanTest : testing::Test {
    QTemporaryDir folder;

    QString file(const QString& name) const { return folder.filePath(name); }

    void SetUp() override {
        ASSERT_TRUE(QDir(folder.path()).mkpath(u"sub"_s));
        FileContents::write(file(u"shot.png"_s), {});
        std::filesystem::create_symlink(file(u"shot.png"_s).toStdString(), file(u"link.png"_s).toStdString());
        std::filesystem::create_hard_link(file(u"shot.png"_s).toStdString(),
                                          file(u"hard.png"_s).toStdString());
    }

    static auto plan(const QStringList& images, const QString& output) {
        ScanRequest request;
        request.images = images;
        request.output = output;
        return planOutputs(request);
    }
    static auto planInto(const QStringList& images, const QString& directory) {
        ScanRequest request;
        request.images = images;
        request.outputDirectory = directory;
        return planOutputs(request);
    }
};

TEST_F(OutputPlanTest, NeverReplacesAnImageUnderWhateverName) {
    const QString shot = file(u"shot.png"_s);
    for (const QString& same : {shot, file(u"link.png"_s), file(u"hard.png"_s), file(u"sub/../shot.png"_s)}) {
        const auto planned = plan({shot}, same);
        ASSERT_TRUE(std::holds_alternative<QString>(planned)) << same.toStdString();
        EXPECT_TRUE(std::get<QString>(planned).contains(same));
    }
    EXPECT_TRUE(std::holds_alternative<QString>(planInto({file(u"sub/shot.gif"_s), shot}, folder.path())));
    EXPECT_TRUE(std::holds_alternative<QStringList>(plan({shot}, file(u"other.png"_s))));
}

TEST_F(OutputPlanTest, WritesNoTwoResultsToOneFileAndNoneOverTheAreas) {
    std::filesystem::create_symlink("b.png", file(u"sub/a.png"_s).toStdString());
    FileContents::write(file(u"sub/b.png"_s), {});
    EXPECT_TRUE(std::holds_alternative<QString>(planInto({u"a.png"_s, u"b.png"_s}, file(u"sub"_s))));

    ScanRequest request;
    request.images = {u"a.png"_s};
    request.output = file(u"hard.png"_s);
    request.regionsFile = file(u"link.png"_s);
    EXPECT_TRUE(std::get<QString>(planOutputs(request)).contains(u"areas"));
}

TEST_F(OutputPlanTest, NamesResultsAfterTheirImages) {
    EXPECT_EQ(std::get<QStringList>(planInto({u"a/x.v2.jpg"_s, u"-"_s}, u"out"_s)),
              (QStringList{u"out/x.v2.png"_s, u"out/standard-input.png"_s}));
    const auto clash = planInto({u"a/x.png"_s, u"b/x.jpg"_s}, u"out"_s);
    EXPECT_TRUE(std::get<QString>(clash).contains(u"out/x.png"));
}

} // namespace
} // namespace Veilshot
