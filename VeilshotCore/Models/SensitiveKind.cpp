#include "VeilshotCore/Models/SensitiveKind.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Texts {
    QLatin1StringView rawValue;
    QLatin1StringView label;
    QLatin1StringView singularLabel;
    QLatin1StringView systemImage;
};

const Texts& texts(SensitiveKind kind) {
    static constexpr std::array<Texts, allSensitiveKinds.size()> table{{
        {"address"_L1, "Addresses"_L1, "Address"_L1, "house"_L1},
        {"custom"_L1, "Custom blurs"_L1, "Custom blur"_L1, "rectangle.dashed"_L1},
        {"email"_L1, "Email addresses"_L1, "Email address"_L1, "envelope"_L1},
        {"identity"_L1, "Identity details"_L1, "Identity detail"_L1, "person.text.rectangle"_L1},
        {"name"_L1, "Names"_L1, "Name"_L1, "person"_L1},
        {"payment"_L1, "Payment details"_L1, "Payment detail"_L1, "creditcard"_L1},
        {"person"_L1, "People"_L1, "Person"_L1, "person.crop.rectangle"_L1},
        {"phone"_L1, "Phone numbers"_L1, "Phone number"_L1, "phone"_L1},
        {"secret"_L1, "Secrets"_L1, "Secret"_L1, "key"_L1},
        {"web"_L1, "Web details"_L1, "Web detail"_L1, "network"_L1},
    }};
    return table[static_cast<std::size_t>(kind)];
}

} // namespace

QString rawValue(SensitiveKind kind) {
    return texts(kind).rawValue;
}

std::optional<SensitiveKind> sensitiveKindFromRawValue(QStringView rawValue) {
    const auto found = std::ranges::find_if(
        allSensitiveKinds, [&](SensitiveKind kind) { return texts(kind).rawValue == rawValue; });
    if (found == allSensitiveKinds.end())
        return std::nullopt;
    return *found;
}

QString label(SensitiveKind kind) {
    return texts(kind).label;
}

QString singularLabel(SensitiveKind kind) {
    return texts(kind).singularLabel;
}

QString systemImage(SensitiveKind kind) {
    return texts(kind).systemImage;
}

} // namespace Veilshot
