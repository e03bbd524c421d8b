#include "Veilshot/Features/Onboarding/OnboardingStore.h"

#include "Veilshot/Platform/UserDefaults.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(OnboardingStore, RemembersItsCompletion) {
    const QTemporaryDir temporary;
    const QString path = temporary.filePath(u"settings.conf"_s);
    const auto isComplete = [&] {
        UserDefaults defaults(path);
        return OnboardingStore(defaults).isComplete();
    };
    EXPECT_FALSE(isComplete());
    UserDefaults defaults(path);
    OnboardingStore store(defaults);
    bool wasWritten = false;
    QObject::connect(&store, &OnboardingStore::isCompleteChanged, [&] { wasWritten = isComplete(); });
    store.complete();
    EXPECT_TRUE(wasWritten) << "whoever hears of it may end the process";
    for (const QString& byHand : {u"false"_s, u"1"_s}) {
        defaults.setText(u"onboardingCompleted"_s, byHand);
        EXPECT_FALSE(isComplete()) << byHand.toStdString();
    }
}

} // namespace
} // namespace Veilshot
