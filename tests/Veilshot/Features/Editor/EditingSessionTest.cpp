#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/History/HistoryPreview.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/PngFile.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/FolderWatch.h"
#include "tests/Veilshot/StandIns.h"

#include <QDir>
#include <QMimeData>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <map>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

/// A home and a folder for temporary files that nobody else uses, for as long as it lives.
struct Home {
    QTemporaryDir folder;
    std::map<const char*, QByteArray> before;

    Home() {
        for (const char* name : {"HOME", "TMPDIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
            before[name] = qgetenv(name);
            const QString place = folder.filePath(QString::fromLatin1(name).toLower());
            QDir().mkpath(place);
            qputenv(name, QFile::encodeName(place));
        }
    }
    ~Home() {
        for (const auto& [name, value] : before)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
};

TEST(EditingSession, LeavesNothingOnDiskButTheProtectedCopy) {
    const QString systemTemporaryFolder = QDir::tempPath();
    const Home home;
    FolderWatch watch;
    watch.add(home.folder.path(), FolderWatch::Depth::tree);
    watch.add(systemTemporaryFolder, FolderWatch::Depth::folder);
    watch.start();

    SystemClipboard clipboard;
    StandIns::AnsweringPanel panel;
    const SystemClock clock;
    UserDefaults defaults(home.folder.filePath(u"xdg_config_home/Veilshot.conf"_s));
    HistoryStore history(HistoryStore::defaultDirectory(), defaults, clock);
    EditorStore store(&history, EditorStore::Collaborators::real(clipboard, panel, clock));

    store.load(QUrl::fromLocalFile(QStringLiteral(VEILSHOT_TEST_DATA "/light-mail.png")));
    ASSERT_TRUE(waitUntil([&] { return store.stage() == EditorStore::Stage::Ready; }));
    ASSERT_GE(store.detectedRegions().size(), 6u);
    const QImage safe = store.protectedImage().bitmap();
    ASSERT_NE(safe, store.originalImage().bitmap());
    const QByteArray safePng = PngFile::encodePng(safe);
    const QByteArray previewPng =
        PngFile::encodePng(HistoryPreview::downscaled(safe, HistoryStore::previewPixels));

    store.copyProtectedImage();
    EXPECT_EQ(clipboard.contents()->data(u"image/png"_s), safePng);
    EXPECT_EQ(qvariant_cast<QImage>(clipboard.contents()->imageData()), safe);
    panel.answer = QUrl::fromLocalFile(home.folder.filePath(u"home/safe.png"_s));
    store.exportProtectedImage();
    history.setEnabled(true); // writes the settings
    store.clear();
    store.finishExports();
    history.finishRecordings();
    EXPECT_EQ(history.entries().size(), 1u);

    QSet<QByteArray> seen;
    QSet<QString> readPaths;
    const auto sightings = watch.stop();
    for (const auto& [path, bytes, isRead] : sightings) {
        if (!path.startsWith(home.folder.path())) { // other programs' business, unless it is a picture
            EXPECT_FALSE(std::holds_alternative<QImage>(ImageDecoder::decodeBytes(bytes, path)))
                << path.toStdString();
            continue;
        }
        const bool isText = path.contains(u"/history.json"_s) || path.contains(u"/Veilshot.conf"_s);
        EXPECT_TRUE(isText || safePng.startsWith(bytes) || previewPng.startsWith(bytes))
            << path.toStdString();
        EXPECT_LT(isText ? bytes.size() : 0, 1000) << path.toStdString();
        seen.insert(bytes);
        if (isRead)
            readPaths.insert(path);
    }
    for (const auto& [path, bytes, isRead] : sightings) {
        // A file without a name ("#" and a number) or with a passing one was read under the name it got.
        const QString lastingPath = path.left(path.lastIndexOf(u'.'));
        EXPECT_TRUE(isRead || path.contains(u"/#"_s) || path.endsWith(u".lock"_s) ||
                    readPaths.contains(lastingPath))
            << path.toStdString();
    }
    EXPECT_TRUE(seen.contains(safePng) && seen.contains(previewPng)) << "or the watch is blind";
}

} // namespace
} // namespace Veilshot
