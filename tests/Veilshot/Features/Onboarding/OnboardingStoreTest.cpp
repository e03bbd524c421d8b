#include "Veilshot/Features/Onboarding/OnboardingStore.h"

#include "Veilshot/Platform/UserDefaults.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(OnboardingStore, RemembersItsCompletionButNotThePresses) {
    const QTemporaryDir temporary;
    const QString path = temporary.filePath(u"settings.conf"_s);
    {
        UserDefaults defaults(path);
        OnboardingStore store(defaults);
        EXPECT_FALSE(store.isComplete());
        bool wasWritten = false;
        QObject::connect(&store, &OnboardingStore::isCompleteChanged, [&] {
            wasWritten = UserDefaults(path).boolean(u"onboardingCompleted"_s).value_or(false);
        });
        store.countShortcutPress();
        store.countShortcutPress();
        EXPECT_EQ(store.shortcutPressCount(), 2);
        store.complete();
        EXPECT_TRUE(store.isComplete());
        EXPECT_TRUE(wasWritten) << "whoever hears of it may end the process";
    }
    UserDefaults defaults(path);
    EXPECT_TRUE(OnboardingStore(defaults).isComplete());
    EXPECT_EQ(OnboardingStore(defaults).shortcutPressCount(), 0);
    // Written by hand, or by something else.
    for (const QString& other : {u"false"_s, u"1"_s, u"yes"_s, u""_s}) {
        defaults.setText(u"onboardingCompleted"_s, other);
        EXPECT_FALSE(OnboardingStore(defaults).isComplete()) << other.toStdString();
    }
}

} // namespace
} // namespace Veilshot
