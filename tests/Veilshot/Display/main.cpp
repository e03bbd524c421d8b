#include "tests/Veilshot/Platform/PrivateBus.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <cstdio>
#include <gmock/gmock.h>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

/// An X server without a screen. It ends when the process does, even by a crash.
class DisplayServer {
public:
    DisplayServer() {
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
        m_process.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s,
                                    u"-screen"_s, u"0"_s, u"1280x800x24"_s});
        while (!m_process.canReadLine() && m_process.waitForReadyRead())
            continue;
    }

    ~DisplayServer() {
        m_process.terminate();
        m_process.waitForFinished();
    }

    /// Empty if it did not start.
    QByteArray display() {
        const QByteArray number = m_process.readLine().trimmed();
        return number.isEmpty() ? number : ':' + number;
    }

    QByteArray errors() {
        return m_process.errorString().toLocal8Bit() + '\n' + m_process.readAllStandardError();
    }

private:
    QProcess m_process;
};

/// An empty home of the tests' own: dialogs keep settings there.
void useHome(const QTemporaryDir& home) {
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qunsetenv(folder);
}

} // namespace

int main(int argumentCount, char** arguments) {
    testing::InitGoogleMock(&argumentCount, arguments);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();

    const QTemporaryDir home;
    useHome(home);
    DisplayServer server;
    const QByteArray display = server.display();
    if (display.isEmpty()) {
        std::fprintf(stderr, "Xvfb does not start: %s\n", server.errors().constData());
        return 1;
    }
    qputenv("DISPLAY", display);
    const Veilshot::PrivateBus bus;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    // The same panels on every desktop.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
