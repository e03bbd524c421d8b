#include "Veilshot/Features/Settings/SettingsTexts.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(SettingsTexts, SayHowManyCopiesAreKeptAndGo) {
    EXPECT_EQ(SettingsTexts::historyNote(30),
              u"When you copy or export an image, its protected version is saved on this Mac. Originals are "
              u"never saved. The last 30 are kept."_s);
    EXPECT_EQ(SettingsTexts::clearMessage(1), u"This deletes the 1 protected images saved on this Mac."_s);
}

} // namespace
} // namespace Veilshot
