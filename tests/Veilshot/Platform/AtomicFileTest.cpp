#include "Veilshot/Platform/AtomicFile.h"

#include "tests/Veilshot/FileContents.h"

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using FileContents::read;

TEST(AtomicFile, IsWrittenWholeOrNotAtAll) {
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const QString path = folder.filePath(u"shot.png"_s);
    EXPECT_EQ(writeAtomically(path, "first, and longer", Readership::asUsual), std::nullopt);
    EXPECT_EQ(writeAtomically(path, "second", Readership::asUsual), std::nullopt);
    EXPECT_EQ(read(path), "second");

    const QString secret = folder.filePath(u"secret.png"_s);
    EXPECT_EQ(writeAtomically(secret, "mine", Readership::ownerOnly), std::nullopt);
    EXPECT_EQ(QFile::permissions(secret) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(QFile::remove(secret));

    EXPECT_TRUE(QFile::link(path, folder.filePath(u"link.png"_s)));
    EXPECT_EQ(writeAtomically(folder.filePath(u"link.png"_s), "third", Readership::asUsual), std::nullopt);
    EXPECT_EQ(read(path), "third");

    // A disk that fills up: the process may write no file longer than this.
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit previousLimit = {};
    getrlimit(RLIMIT_FSIZE, &previousLimit);
    const rlimit limit{10'000, previousLimit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto failure = writeAtomically(path, QByteArray(100'000, 'x'), Readership::asUsual);
    setrlimit(RLIMIT_FSIZE, &previousLimit);
    std::signal(SIGXFSZ, previousHandler);
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->toStdString(),
                testing::StartsWith(path.toStdString() + ": the file cannot be written ("));
    EXPECT_EQ(read(path), "third");
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{u"link.png"_s, u"shot.png"_s}));
}

TEST(AtomicFile, IsNotWrittenWhereNoFileCanBe) {
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const auto& [path, reason] : {std::pair(folder.filePath(u"no/where.png"_s),
                                                 u"there is no folder “%1”"_s.arg(folder.filePath(u"no"_s))),
                                       {temporary.path(), u"this is a folder"_s},
                                       {pipe, u"not a regular file"_s}})
        EXPECT_EQ(writeAtomically(path, "data", Readership::asUsual), path + u": "_s + reason);
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"pipe"_s});
}

} // namespace
} // namespace Veilshot
