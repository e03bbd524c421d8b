#include "Veilshot/Platform/FileManager.h"

#include "tests/Veilshot/Platform/PrivateBus.h"
#include "tests/Veilshot/StandIns.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
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

struct FileManagerTest : testing::Test {
    PrivateBus bus;
    FileManagerService service;
    std::vector<QUrl> opened;
    const QUrl file = QUrl::fromLocalFile(u"/home/øjvind/my shots/50%.png"_s);
    const QUrl folder = QUrl::fromLocalFile(u"/home/øjvind/my shots"_s);

    SystemFileManager::OpenFolder open = [this](const QUrl& url) { opened.push_back(url); };
};

TEST_F(FileManagerTest, AsksTheDesktopToSelectTheFileAndOpensTheFolderIfThatIsRefused) {
    auto desktop = bus.connection(u"desktop"_s);
    ASSERT_TRUE(desktop.registerVirtualObject(u"/org/freedesktop/FileManager1"_s, &service));
    ASSERT_TRUE(desktop.registerService(u"org.freedesktop.FileManager1"_s));
    SystemFileManager fileManager(bus.connection(u"veilshot"_s), open);
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return !service.calls.empty(); }));
    EXPECT_EQ(service.calls[0].member(), u"ShowItems"_s);
    EXPECT_EQ(service.calls[0].arguments(),
              QVariantList({QStringList(u"file:///home/%C3%B8jvind/my%20shots/50%25.png"_s), u""_s}));

    service.refuses = true;
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return !opened.empty(); }));
    EXPECT_THAT(opened, testing::ElementsAre(folder)) << "not for the call that was granted";
}

TEST_F(FileManagerTest, OpensTheFolderWhereNoFileManagerOrNoBusAnswers) {
    SystemFileManager(QDBusConnection(u"none"_s), open).reveal(file);
    EXPECT_THAT(opened, testing::ElementsAre(folder));

    SystemFileManager fileManager(bus.connection(u"veilshot"_s), open);
    fileManager.reveal(file);
    ASSERT_TRUE(StandIns::waitUntil([&] { return opened.size() == 2; }));
    EXPECT_EQ(opened[1], folder);
}

} // namespace
} // namespace Veilshot
