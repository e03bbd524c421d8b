#include "VeilshotCore/Models/SensitiveKind.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(SensitiveKind, RawValuesNameEveryKindOnceAndAreCaseSensitive) {
    std::vector<std::string> names;
    for (const SensitiveKind kind : allSensitiveKinds) {
        EXPECT_EQ(sensitiveKindFromRawValue(rawValue(kind)), kind);
        names.push_back(rawValue(kind).toStdString());
    }
    EXPECT_THAT(names, testing::ElementsAre("address", "custom", "email", "identity", "name", "payment",
                                            "person", "phone", "secret", "web"));
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
