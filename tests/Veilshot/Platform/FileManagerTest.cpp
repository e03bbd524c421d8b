#include "Veilshot/Platform/FileManager.h"

#include "tests/Veilshot/StandIns.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// Writes down what it is asked for.
class FileManagerService : public QDBusVirtualObject {
public:
    std::vector<QDBusMessage> calls;
    bool refuses = false;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        calls.push_back(message);
        return bus.send(refuses ? message.createErrorReply(QDBusError::Failed, u"no"_s)
                                : message.createReply());
    }
};

/// A bus that starts no service by itself.
struct FileManagerTest : testing::Test {
    const QTemporaryDir temporary;
    QProcess daemon;
    FileManagerService service;
    std::vector<QUrl> opened;
    const QUrl file = QUrl::fromLocalFile(u"/home/øjvind/my shots/50%.png"_s);
    const QUrl folder = QUrl::fromLocalFile(u"/home/øjvind/my shots"_s);

    void SetUp() override {
        QFile configuration(temporary.filePath(u"bus.conf"_s));
        ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
        configuration.write(
            "<busconfig><listen>unix:dir=" + QFile::encodeName(temporary.path()) +
            "</listen><policy context='default'><allow eavesdrop='true'/><allow send_destination='*'/>"
            "<allow own='*'/></policy></busconfig>");
        configuration.close();
        daemon.start(u"dbus-daemon"_s,
                     {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + configuration.fileName()});
        if (!daemon.waitForStarted())
            GTEST_SKIP() << "dbus-daemon: " << daemon.errorString().toStdString();
        ASSERT_TRUE(daemon.canReadLine() || daemon.waitForReadyRead());
        m_address = QString::fromLocal8Bit(daemon.readLine()).trimmed();
    }

    void TearDown() override {
        for (const QString& name : {u"desktop"_s, u"veilshot"_s})
            QDBusConnection::disconnectFromBus(name);
        daemon.kill();
        daemon.waitForFinished();
    }

    QDBusConnection connection(const QString& name) const {
        return QDBusConnection::connectToBus(m_address, name);
    }

    void startService() {
        auto bus = connection(u"desktop"_s);
        ASSERT_TRUE(bus.registerVirtualObject(u"/org/freedesktop/FileManager1"_s, &service));
        ASSERT_TRUE(bus.registerService(u"org.freedesktop.FileManager1"_s));
    }

    SystemFileManager::OpenFolder open = [this](const QUrl& url) { opened.push_back(url); };

private:
    QString m_address;
};

TEST_F(FileManagerTest, AsksTheDesktopToSelectTheFileAndOpensTheFolderIfThatIsRefused) {
    startService();
    SystemFileManager fileManager(connection(u"veilshot"_s), open);
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return !service.calls.empty(); }));
    EXPECT_EQ(service.calls[0].interface(), u"org.freedesktop.FileManager1"_s);
    EXPECT_EQ(service.calls[0].member(), u"ShowItems"_s);
    EXPECT_EQ(service.calls[0].arguments(),
              QVariantList({QStringList(u"file:///home/%C3%B8jvind/my%20shots/50%25.png"_s), u""_s}));

    service.refuses = true;
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return !opened.empty(); }));
    // Once: not for the call that was granted.
    EXPECT_THAT(opened, testing::ElementsAre(folder));
}

TEST_F(FileManagerTest, OpensTheFolderWhereNoFileManagerOrNoBusAnswers) {
    SystemFileManager(QDBusConnection(u"none"_s), open).reveal(file);
    EXPECT_THAT(opened, testing::ElementsAre(folder));

    SystemFileManager fileManager(connection(u"veilshot"_s), open);
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return opened.size() == 2; }));
    EXPECT_EQ(opened[1], folder);
}

} // namespace
} // namespace Veilshot
