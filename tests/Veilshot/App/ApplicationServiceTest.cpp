#include "Veilshot/App/ApplicationService.h"

#include "tests/Veilshot/Platform/PrivateBus.h"
#include "tests/Veilshot/StandIns.h"

#include <QDir>
#include <QtConcurrent>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Action = WindowRequest::Action;
using Start = ApplicationService::Start;

TEST(ApplicationServiceTest, TheFirstStartTakesTheRequestsOfAllLaterOnes) {
    PrivateBus bus;
    ApplicationService first(bus.connection(u"first"_s));
    ASSERT_EQ(first.start({}, {}), Start::first);
    std::vector<WindowRequest> requests;
    QObject::connect(&first, &ApplicationService::requested, &first,
                     [&](const WindowRequest& request) { requests.push_back(request); });

    // In a thread of its own, as it waits for the first one's answer.
    auto startAgain = [&, name = 0](const WindowRequest& request, const ActivationToken& token = {}) mutable {
        const auto connection = bus.connection(u"later %1"_s.arg(++name));
        auto start = QtConcurrent::run([=] { return ApplicationService(connection).start(request, token); });
        EXPECT_TRUE(StandIns::waitUntil([&] { return start.isFinished(); }));
        EXPECT_EQ(start.result(), Start::handedOver);
    };
    startAgain({Action::show, {}}, {.startupId = {}, .activationToken = u"token-1"_s});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-1");
    startAgain({Action::openImage, u"100% of #1 ø?.png"_s});
    startAgain({Action::quickPaste, {}});

    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].action, Action::show);
    EXPECT_EQ(requests[1].action, Action::openImage);
    EXPECT_EQ(requests[1].image, QDir().absoluteFilePath(u"100% of #1 ø?.png"_s));
    EXPECT_EQ(requests[2].action, Action::quickPaste);
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST(ApplicationServiceTest, SaysWhenTheNameIsTakenByAProcessThatDoesNotAnswer) {
    PrivateBus bus;
    auto other = bus.connection(u"other"_s);
    ASSERT_TRUE(other.registerService(ApplicationService::serviceName)); // without the object
    EXPECT_EQ(ApplicationService(bus.connection(u"later"_s)).start({}, {}), Start::unanswered);
}

TEST(ApplicationServiceTest, RunsAloneWithoutABus) {
    EXPECT_EQ(ApplicationService(QDBusConnection(u"nowhere"_s)).start({}, {}), Start::first);
}

} // namespace
} // namespace Veilshot
