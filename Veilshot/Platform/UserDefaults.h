#pragma once

#include <QSettings>
#include <QString>
#include <optional>

namespace Veilshot {

/// The user's settings, kept between starts. Main thread only.
class UserDefaults {
public:
    /// Kept in the given INI file, which is made by the first write.
    explicit UserDefaults(const QString& path);

    /// The application's own, in the per-user configuration folder.
    static UserDefaults& standard();

    /// Nothing when the key is absent or its value is of another type.
    std::optional<bool> boolean(const QString& key) const;
    std::optional<QString> text(const QString& key) const;

    /// Written to the file at once: the process may end at any time.
    void setBoolean(const QString& key, bool value);
    void setText(const QString& key, const QString& value);

private:
    QSettings m_settings;
};

} // namespace Veilshot
