#pragma once

#include <QString>
#include <QVersionNumber>
#include <compare>
#include <optional>

namespace Veilshot {

/// A version such as "1.10.2" or "2.0-beta.3", in the order in which versions follow each other: number by
/// number, where missing ones are 0, and what has a suffix before the same version without one.
class ReleaseVersion {
public:
    /// Nothing unless the text is one to four numbers with points between them, and after a hyphen, if there
    /// is one, letters, digits, points and hyphens.
    static std::optional<ReleaseVersion> parse(const QString& text);

    const QString& text() const { return m_text; }

    friend std::weak_ordering operator<=>(const ReleaseVersion& left, const ReleaseVersion& right);
    friend bool operator==(const ReleaseVersion& left, const ReleaseVersion& right) {
        return (left <=> right) == 0;
    }

private:
    QString m_text;
    QVersionNumber m_number;
    QString m_suffix;
};

} // namespace Veilshot
