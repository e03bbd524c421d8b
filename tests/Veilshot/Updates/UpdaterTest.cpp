#include "Veilshot/Updates/Updater.h"

#include "Veilshot/Features/Updates/CheckForUpdatesViewModel.h"
#include "Veilshot/Features/Updates/KeptUpdateSchedule.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/StandIns.h"
#include "tests/Veilshot/Updates/FeedServer.h"
#include "tests/Veilshot/Updates/SignedFeed.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace Veilshot::SignedFeed;
using Veilshot::StandIns::waitUntil;

namespace Veilshot {
namespace {

using Manner = FeedServer::Manner;

const FeedServer::Answer silence;

QString describe(const UpdateState& state) {
    if (const auto* found = std::get_if<UpdateFound>(&state))
        return u"%1: %2 (%3)"_s.arg(found->version, found->notes, found->page.toString());
    if (const auto* failure = std::get_if<UpdateCheckFailed>(&state))
        return failure->message;
    if (std::holds_alternative<UpToDate>(state))
        return u"up to date"_s;
    return std::holds_alternative<CheckingForUpdates>(state) ? u"checking"_s : u"idle"_s;
}

struct UpdaterTest : testing::Test {
    FeedServer server;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(u"defaults.conf"_s)};
    StandIns::ManualClock clock;
    UpdateSchedule schedule = keptUpdateSchedule(defaults, clock);
    Updater::Limits limits{.feedBytes = 100'000, .lookInterval = 20ms};

    std::optional<UpdateConfiguration> configuration() const {
        return UpdateConfiguration{server.address(), publicKey(), *ReleaseVersion::parse(u"1.4.0"_s)};
    }

    /// What the user is shown in the end.
    QString outcome() {
        schedule.setLastCheck(clock.now());
        Updater updater(configuration(), schedule, limits);
        updater.start();
        updater.checkForUpdates();
        EXPECT_EQ(describe(updater.state()), u"checking"_s);
        EXPECT_TRUE(waitUntil([&] { return describe(updater.state()) != u"checking"_s; }));
        EXPECT_FALSE(updater.canCheckForUpdates()) << "while a result is shown";
        return describe(updater.state());
    }
};

const QString unreadable = u"The update server’s answer couldn’t be read."_s;
const QString unverified =
    u"A newer version is announced, but its signature is wrong. It may not be genuine."_s;
const QString astray = u"The update server refers to an address that Veilshot won’t follow."_s;
const QString found = u"1.5.0: Fewer areas are missed. (https://example.org/1.5.0)"_s;

TEST_F(UpdaterTest, TellsWhatAFeedSays) {
    const Entry newer;
    const Entry installed{.version = "1.4.0"};
    const Entry beta{.version = "1.4.0-beta"};
    const QByteArray newerSignature = signature(newer);
    const QByteArray good = feed(item(installed) + item(newer) + item(beta));

    const QByteArray insecure = "http://127.0.0.1/1.5.0";
    const struct {
        const char* name;
        QByteArray body;
        QString outcome;
    } rows[]{
        {"newer, long", good + QByteArray(90'000, ' '), found},
        {"the same", feed(item(installed)), u"up to date"_s},
        {"older, wrongly signed", feed(item(beta, newerSignature)), u"up to date"_s},
        {"no release", feed("<item><title>News</title></item>"), u"up to date"_s},
        {"text to be shown as it is", feed(item({.notes = "<b>\n\n& ’æ"})),
         u"1.5.0: <b>\n\n& ’æ (https://example.org/1.5.0)"_s},
        {"another link", feed(item({.link = "https://example.net/1.5.0"}, newerSignature)), unverified},
        {"other notes", feed(item({.notes = "Nothing is new."}, newerSignature)), unverified},
        {"half a signature", feed(item(newer, "aGFsZg==")), unverified},
        {"the newest wrongly signed", feed(item(newer) + item({.version = "1.6.0"}, newerSignature)),
         unverified},
        {"signed link that is not secure", feed(item({.link = insecure})),
         u"A newer version is announced, but its download page isn’t secure."_s},
        {"one release without a version", feed(item(installed) + item({.version = ""})), unreadable},
        {"one release without a signature", feed(item(installed) + item(newer, "")), unreadable},
        {"link of two lines", feed(item({.link = "https://example.org/\n1.5.0"})), unreadable},
        {"endless notes", feed(item({.notes = QByteArray(50'000, 'x')})), unreadable},
        {"cut off", good.chopped(10), unreadable},
        {"document type", "<!DOCTYPE rss [<!ENTITY a \"b\">]>\n" + good.mid(good.indexOf("<rss")),
         unreadable},
        {"not a feed", "<html><body>Welcome to our hotel</body></html>", unreadable},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        server.requests.clear();
        server.answers = {FeedServer::page(row.body)};
        EXPECT_EQ(outcome(), row.outcome);
    }
}

TEST_F(UpdaterTest, SaysWhatIsWrongWithAServer) {
    const QByteArray unbounded = "HTTP/1.1 200 OK\r\n\r\n<rss>";
    const FeedServer::Answer good = FeedServer::page(feed(item(Entry())));
    const struct {
        const char* name;
        std::vector<FeedServer::Answer> answers;
        std::chrono::milliseconds duration;
        QString outcome;
    } rows[]{
        {"never ends",
         {{unbounded, Manner::trickling}},
         100ms,
         u"The update server took too long to answer."_s},
        {"sends too much", {{unbounded, Manner::endless}}, 30s, u"The update server’s answer is too long."_s},
        {"has no feed",
         {{"HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"}},
         30s,
         u"The update server answered with error 404."_s},
        {"hangs up",
         {{{}, Manner::hangingUp}},
         30s,
         u"The update server couldn’t be reached. Check your internet connection."_s},
        {"moved", {FeedServer::redirection("/elsewhere"), good}, 30s, found},
        {"moved in circles", {FeedServer::redirection("/elsewhere")}, 30s, astray},
        {"moved to where anybody listens", {FeedServer::redirection("http://example.invalid/")}, 30s, astray},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        server.requests.clear();
        server.answers = row.answers;
        limits.downloadDuration = row.duration;
        EXPECT_EQ(outcome(), row.outcome);
    }
}

TEST_F(UpdaterTest, TellsTheServerNothingButItsVersion) {
    server.answers = {FeedServer::redirection("/elsewhere"), FeedServer::page(feed(item(Entry())))};
    EXPECT_EQ(outcome(), found);
    ASSERT_EQ(server.requests.size(), 2u);
    const QByteArray host = server.address().authority().toLatin1();
    for (const QByteArray& request : server.requests) {
        QByteArrayList lines = request.trimmed().split('\n');
        EXPECT_TRUE(lines.takeFirst().startsWith("GET /"));
        for (QByteArray& line : lines)
            line = line.trimmed();
        EXPECT_THAT(lines, testing::UnorderedElementsAre("Host: " + host, "User-Agent: Veilshot/1.4.0",
                                                         "Accept-Language: en", "Accept-Encoding: identity",
                                                         "Cache-Control: no-cache", "Pragma: no-cache",
                                                         "Connection: Keep-Alive"));
    }
}

TEST_F(UpdaterTest, CanCheckOnlyWhenNothingIsGoingOn) {
    server.answers = {silence, FeedServer::page(feed({}))};
    schedule.setLastCheck(clock.now());
    Updater updater(configuration(), schedule, limits);
    const CheckForUpdatesViewModel model(updater, u"1.4.0"_s, [](const QUrl&) { return true; });
    std::vector<bool> changes;
    QObject::connect(&model, &CheckForUpdatesViewModel::canCheckForUpdatesChanged,
                     [&] { changes.push_back(model.canCheckForUpdates()); });

    updater.checkForUpdates();
    EXPECT_EQ(describe(updater.state()), u"idle"_s) << "before the start";
    updater.start();
    updater.checkForUpdates();
    updater.checkForUpdates();
    updater.dismiss();
    EXPECT_EQ(describe(updater.state()), u"checking"_s);
    ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
    updater.cancel();
    updater.checkForUpdates();
    ASSERT_TRUE(waitUntil([&] { return describe(updater.state()) == u"up to date"_s; }));
    updater.dismiss();
    EXPECT_THAT(changes, testing::ElementsAre(true, false, true, false, true));
    EXPECT_EQ(server.requests.size(), 2u);

    Updater unconfigured({}, schedule, limits);
    unconfigured.start();
    unconfigured.checkForUpdates();
    EXPECT_FALSE(CheckForUpdatesViewModel(unconfigured, {}, {}).canCheckForUpdates());
}

TEST_F(UpdaterTest, AsksOnceADayAndSpeaksOnlyOfNews) {
    const FeedServer::Answer old = FeedServer::page(feed({}));
    server.answers = {old, FeedServer::page("nonsense"), FeedServer::page(feed(item(Entry())))};
    {
        Updater firstRun(configuration(), schedule, limits);
        std::vector<QString> states;
        QObject::connect(&firstRun, &Updater::stateChanged,
                         [&] { states.push_back(describe(firstRun.state())); });
        const auto isDone = [&](size_t requests) {
            return waitUntil(
                [&] { return server.requests.size() == requests && firstRun.canCheckForUpdates(); });
        };
        firstRun.start();
        ASSERT_TRUE(isDone(1));
        clock.advance(24h);
        ASSERT_TRUE(isDone(2)) << "while it runs";
        EXPECT_THAT(states, testing::IsEmpty());
    }
    clock.advance(24h - 1s);
    Updater secondRun(configuration(), schedule, limits);
    secondRun.start();
    EXPECT_TRUE(secondRun.canCheckForUpdates()) << "a failed check counts, and the last run is remembered";
    clock.advance(1s);
    ASSERT_TRUE(waitUntil([&] { return describe(secondRun.state()) == found; }));

    schedule.setLastCheck(clock.now().addDays(1000));
    EXPECT_TRUE(schedule.isDue()) << "the clock was set back";
}

} // namespace
} // namespace Veilshot
