#include "Veilshot/Updates/Appcast.h"
#include "Veilshot/Updates/PublicKey.h"
#include "tests/Veilshot/FileContents.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// Its output; nothing if it fails.
std::optional<QByteArray> run(const QStringList& arguments) {
    QProcess program;
    program.start(QStringLiteral(VEILSHOT_SIGN_RELEASE), arguments);
    program.waitForFinished();
    return program.exitCode() == 0 ? std::optional(program.readAllStandardOutput()) : std::nullopt;
}

TEST(SignRelease, MakesItemsThatTheProgramVerifies) {
    const QTemporaryDir folder;
    const QString key = folder.filePath(u"key"_s);
    const auto printedKey = run({u"new-key"_s, key});
    ASSERT_TRUE(printedKey);
    EXPECT_EQ(QFileInfo(key).permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
    EXPECT_FALSE(run({u"new-key"_s, key})) << "a key is never overwritten";

    const QString notes =
        FileContents::write(folder.filePath(u"notes"_s), "\n• æøå & <b>\r\n\r\n  indented ]]>\n\n");
    const QString link = u"https://example.org/?a=1&b=2"_s;
    EXPECT_FALSE(run({u"sign"_s, key, u"1.5"_s, u"http://example.org/"_s, notes}));
    const auto item = run({u"sign"_s, key, u"1.5"_s, link, notes});
    ASSERT_TRUE(item);

    const auto appcast = Appcast::parse("<rss version=\"2.0\"><channel>" + *item + "</channel></rss>");
    ASSERT_TRUE(appcast && appcast->releases.size() == 1);
    const Release& release = appcast->releases[0];
    EXPECT_EQ(release.notes, u"• æøå & <b>\n\n  indented ]]>"_s);
    EXPECT_EQ(release.page(), QUrl(link));
    EXPECT_TRUE(
        PublicKey::fromBase64(printedKey->trimmed())->verifies(release.signature, release.statement()));
}

} // namespace
} // namespace Veilshot
