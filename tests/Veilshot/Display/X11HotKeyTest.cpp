#include "Veilshot/Platform/X11HotKey.h"

#include "tests/Veilshot/StandIns.h"

#include <QProcess>
#include <cstdlib>
#include <gmock/gmock.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>
// The header has a member of that name.
#define explicit explicitMembers
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

constexpr std::uint8_t superKey = 133, shiftKey = 50, capsLock = 66, numLock = 77;
constexpr std::uint8_t keyOfUsB = 56, keyOfDvorakB = 57;

/// The keyboard, and a program that would like to have its keys, on a connection of their own.
class OtherProgram {
public:
    ~OtherProgram() { xcb_disconnect(m_connection); }

    void send(std::uint8_t event, std::initializer_list<std::uint8_t> keys) {
        constexpr std::uint32_t pause = 2; // ms: no finger is down again within the same one
        for (const std::uint8_t key : keys)
            finish(xcb_test_fake_input_checked(m_connection, event, key, pause, XCB_NONE, 0, 0, 0));
    }

    void type(std::initializer_list<std::uint8_t> keys) {
        send(XCB_KEY_PRESS, keys);
        send(XCB_KEY_RELEASE, keys);
    }

    void pressShortcut(std::uint8_t key) { type({superKey, shiftKey, key}); }

    /// Of the layouts that the keyboard has.
    void switchToLayout(std::uint8_t index) {
        finish(xcb_xkb_latch_lock_state_checked(m_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, true, index, 0,
                                                false, 0));
    }

    /// Tries to have the shortcut with that key, and gives it back.
    bool mayHave(std::uint8_t key) {
        constexpr auto state = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const bool isFree = finish(xcb_grab_key_checked(m_connection, false, root, state, key,
                                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        finish(xcb_ungrab_key_checked(m_connection, key, root, state));
        return isFree;
    }

private:
    static xcb_connection_t* connect() {
        auto* connection = xcb_connect(nullptr, nullptr);
        std::free(xcb_xkb_use_extension_reply(connection, xcb_xkb_use_extension(connection, 1, 0), nullptr));
        return connection;
    }

    bool finish(xcb_void_cookie_t request) {
        auto* error = xcb_request_check(m_connection, request);
        std::free(error);
        return !error;
    }

    xcb_connection_t* m_connection = connect();
};

/// Counts what the server sends for a key, repetitions included.
struct KeyPresses : QAbstractNativeEventFilter {
    int count = 0;

    KeyPresses() { QCoreApplication::instance()->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        count += static_cast<xcb_generic_event_t*>(message)->response_type == XCB_KEY_PRESS;
        return false;
    }
};

struct X11Keyboard : testing::Test {
    QObject context;
    OtherProgram other;
    int runs = 0;
    std::unique_ptr<GlobalHotKey> hotKey;

    void SetUp() override { layOut({u"us"_s, u"-variant"_s, {}}); }

    static void layOut(const QStringList& layout) {
        ASSERT_EQ(QProcess::execute(u"setxkbmap"_s, QStringList{u"-layout"_s} + layout), 0);
    }

    std::unique_ptr<GlobalHotKey> registered() {
        return X11HotKey::create(&context, [this] { ++runs; });
    }
};

TEST_F(X11Keyboard, RunsTheActionOncePerPressWhateverLockIsOn) {
    hotKey = registered();
    ASSERT_TRUE(hotKey);
    EXPECT_FALSE(registered()) << "it is taken, by this program itself";
    int expected = 0;
    for (const std::uint8_t lock :
         {capsLock, numLock, capsLock, numLock}) { // with each, with both and with none
        other.type({lock});
        other.pressShortcut(keyOfUsB);
        ++expected;
        ASSERT_TRUE(waitUntil([&] { return runs >= expected; })) << "after key " << int(lock);
    }
    const KeyPresses presses;
    other.send(XCB_KEY_PRESS, {superKey, shiftKey, keyOfUsB});
    EXPECT_TRUE(waitUntil([&] { return presses.count > 3; }));
    other.send(XCB_KEY_RELEASE, {superKey, shiftKey, keyOfUsB});
    other.pressShortcut(keyOfUsB);
    EXPECT_TRUE(waitUntil([&] { return runs >= expected + 2; }));
    EXPECT_EQ(runs, expected + 2);
}

TEST_F(X11Keyboard, RunsNothingOnceItOrItsContextIsGone) {
    std::unique_ptr<GlobalHotKey> dropped = X11HotKey::create(&context, [&] {
        ++runs;
        dropped.reset();
    });
    ASSERT_TRUE(dropped);
    other.pressShortcut(keyOfUsB);
    other.pressShortcut(keyOfUsB);
    EXPECT_TRUE(waitUntil([&] { return !dropped; }));

    auto owner = std::make_unique<QObject>();
    hotKey = X11HotKey::create(owner.get(), [&] { ++runs; });
    ASSERT_TRUE(hotKey) << "it was given back";
    const KeyPresses presses;
    owner.reset();
    other.pressShortcut(keyOfUsB);
    EXPECT_TRUE(waitUntil([&] { return presses.count > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
}

TEST_F(X11Keyboard, LeavesTheShortcutToTheProgramThatHasIt) {
    QProcess program;
    const auto hears = [&](const QByteArray& word) {
        return waitUntil([&] { return program.canReadLine(); }) && program.readLine().trimmed() == word;
    };
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"WAYLAND_DISPLAY"_s);
    environment.remove(u"XDG_SESSION_TYPE"_s);
    program.setProcessEnvironment(environment);

    hotKey = registered();
    program.start(VEILSHOT_HOT_KEY_HOLDER, {});
    EXPECT_TRUE(hears("failed"));
    other.pressShortcut(keyOfUsB);
    EXPECT_TRUE(waitUntil([&] { return runs == 1; }));
    program.kill();
    program.waitForFinished();

    hotKey.reset();
    program.start(VEILSHOT_HOT_KEY_HOLDER, {});
    EXPECT_TRUE(hears("registered"));
    EXPECT_FALSE(registered());
    other.pressShortcut(keyOfUsB);
    EXPECT_TRUE(hears("pressed"));
    program.kill();
    program.waitForFinished();
    EXPECT_TRUE(waitUntil([&] { return (hotKey = registered()) != nullptr; }));
}

TEST_F(X11Keyboard, FollowsTheLayout) {
    hotKey = registered();
    ASSERT_TRUE(hotKey);
    const struct {
        QStringList keyboard; // none: the one before
        std::uint8_t layout, key, otherKey;
    } layouts[] = {
        {{u"us"_s, u"-variant"_s, u"dvorak"_s}, 0, keyOfDvorakB, keyOfUsB},
        {{u"ru"_s, u"-variant"_s, {}}, 0, keyOfUsB, keyOfDvorakB},
        {{u"ru,us"_s, u"-variant"_s, u",dvorak"_s}, 0, keyOfDvorakB, keyOfUsB},
        {{u"us,us"_s, u"-variant"_s, u",dvorak"_s}, 0, keyOfUsB, keyOfDvorakB},
        {{}, 1, keyOfDvorakB, keyOfUsB},
    };
    for (const auto& [keyboard, layout, key, otherKey] : layouts) {
        SCOPED_TRACE(keyboard.join(u' ').toStdString() + ", layout " + std::to_string(layout));
        if (!keyboard.isEmpty())
            layOut(keyboard);
        other.switchToLayout(layout);
        EXPECT_TRUE(waitUntil([&] { return !other.mayHave(key) && other.mayHave(otherKey); }));
        runs = 0;
        other.pressShortcut(otherKey);
        other.pressShortcut(key);
        EXPECT_TRUE(waitUntil([&] { return runs > 0; }));
        EXPECT_EQ(runs, 1);
    }
}

} // namespace
} // namespace Veilshot
