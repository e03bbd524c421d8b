#include "Veilshot/Features/History/HistoryIndex.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "tests/Veilshot/FileContents.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

const QString recorder = QStringLiteral(VEILSHOT_HISTORY_RECORDER);

/// The entries of the index, none before there is one. Every image that it lists must be complete.
HistoryEntries completeEntries(const QDir& folder) {
    const QString path = folder.filePath(u"history.json"_s);
    if (!QFile::exists(path))
        return {};
    const QByteArray json = FileContents::read(path);
    const auto entries = HistoryIndex::decode(json);
    EXPECT_TRUE(entries) << json.toStdString();
    for (const HistoryEntry& entry : entries.value_or(HistoryEntries())) {
        for (const QString& ending : {u".png"_s, u"-thumb.png"_s}) {
            const auto image =
                ImageDecoder::decodeFile(folder.filePath(HistoryIndex::idText(entry.id) + ending));
            EXPECT_TRUE(std::holds_alternative<QImage>(image))
                << std::get<ImageError>(image).message.toStdString();
        }
    }
    return entries.value_or(HistoryEntries());
}

TEST(HistoryFailure, LeavesACompleteHistoryWheneverTheProcessIsKilled) {
    const QTemporaryDir folder;
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int start = 0; start < 40 && !testing::Test::HasFailure(); ++start) {
        QProcess program;
        program.start(recorder, {folder.path(), u"1000000"_s});
        ASSERT_TRUE(program.waitForReadyRead()) << program.readAllStandardError().toStdString();
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20'000));
        program.kill();
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
        completeEntries(folder.path());
    }
    EXPECT_EQ(completeEntries(folder.path()).size(), 30u);
}

TEST(HistoryFailure, LeavesACompleteHistoryWhereverTheDiskIsFull) {
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const auto runPrivately = [&](const QString& script) {
        auto program = std::make_unique<QProcess>();
        program->setWorkingDirectory(folder.path());
        program->setProcessChannelMode(QProcess::MergedChannels);
        program->start(u"unshare"_s,
                       {u"--map-root-user"_s, u"--mount"_s, u"sh"_s, u"-ec"_s, script, recorder});
        program->waitForFinished(120'000);
        return program;
    };
    ASSERT_TRUE(folder.mkdir(u"disk"_s));
    const auto probe = runPrivately(u"mount -t tmpfs -o size=4k tmpfs disk"_s);
    if (probe->error() == QProcess::FailedToStart || probe->exitCode() != 0)
        GTEST_SKIP() << "no disk of one's own here: " << probe->readAll().toStdString();

    // A copy takes two pages and the index one, so that the disk gets full in every place there is.
    const auto program = runPrivately(uR"(page=$(getconf PAGESIZE)
        for pages in 1 2 3 4 5 6 7 8 9 10 11 12; do
            mount -t tmpfs -o size=$((pages * page)) tmpfs disk
            "$0" disk 12 > $pages.txt
            cp -a disk $pages
            umount disk
        done)"_s);
    ASSERT_EQ(program->exitCode(), 0) << program->readAll().toStdString();
    for (int pages = 1; pages <= 12; ++pages) {
        SCOPED_TRACE(pages);
        const QDir disk(folder.filePath(QString::number(pages)));
        EXPECT_EQ(completeEntries(disk).empty(), pages <= 2);
        for (const QString& name : disk.entryList(QDir::Files | QDir::Hidden))
            EXPECT_TRUE(name.endsWith(u".png"_s) || name == u"history.json"_s) << name.toStdString();
        const QByteArray lines = FileContents::read(disk.path() + u".txt"_s);
        EXPECT_TRUE(lines.endsWith("-\n")) << lines.toStdString();
    }
}

} // namespace
} // namespace Veilshot
