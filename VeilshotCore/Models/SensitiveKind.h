#pragma once

#include <QString>
#include <array>
#include <optional>

namespace Veilshot {

/// The category of a sensitive detail. The order is the order of `allSensitiveKinds`.
enum class SensitiveKind { address, custom, email, identity, name, payment, person, phone, secret, web };

inline constexpr std::array allSensitiveKinds{
    SensitiveKind::address, SensitiveKind::custom,  SensitiveKind::email,  SensitiveKind::identity,
    SensitiveKind::name,    SensitiveKind::payment, SensitiveKind::person, SensitiveKind::phone,
    SensitiveKind::secret,  SensitiveKind::web};

/// The kind's name in reports and on the command line, for example "email".
QString rawValue(SensitiveKind kind);
/// The kind with exactly this raw value (case-sensitive), or nothing.
std::optional<SensitiveKind> sensitiveKindFromRawValue(QStringView rawValue);

/// Plural, for list headings: "Email addresses".
QString label(SensitiveKind kind);
/// "Email address".
QString singularLabel(SensitiveKind kind);
/// The name of the symbol drawn beside the kind: "envelope".
QString systemImage(SensitiveKind kind);

} // namespace Veilshot
