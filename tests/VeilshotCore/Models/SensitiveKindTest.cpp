#include "VeilshotCore/Models/SensitiveKind.h"

#include <gmock/gmock.h>
#include <set>

namespace Veilshot {
namespace {

TEST(SensitiveKind, RawValuesNameEveryKindOnceAndAreCaseSensitive) {
    std::set<QString> seen;
    for (const SensitiveKind kind : allSensitiveKinds) {
        EXPECT_EQ(sensitiveKindFromRawValue(rawValue(kind)), kind);
        seen.insert(rawValue(kind));
    }
    EXPECT_EQ(seen.size(), 10u);
    EXPECT_EQ(sensitiveKindFromRawValue(u"Email"), std::nullopt);
    EXPECT_EQ(sensitiveKindFromRawValue(u""), std::nullopt);
}

TEST(SensitiveKind, TextsBelongToTheirKind) {
    EXPECT_EQ(label(SensitiveKind::custom), u"Custom blurs");
    EXPECT_EQ(label(SensitiveKind::person), u"People");
    EXPECT_EQ(singularLabel(SensitiveKind::email), u"Email address");
    EXPECT_EQ(systemImage(SensitiveKind::web), u"network");
}

} // namespace
} // namespace Veilshot
