#include "Veilshot/Platform/UserDefaults.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

// QSettings writes every type as text and reads it back as text.
const auto trueText = "true"_L1;
const auto falseText = "false"_L1;

} // namespace

UserDefaults::UserDefaults(const QString& path) : m_settings(path, QSettings::IniFormat) {}

UserDefaults& UserDefaults::standard() {
    static UserDefaults& instance =
        *new UserDefaults(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                          u"/Veilshot/Veilshot.conf"_s);
    return instance;
}

std::optional<bool> UserDefaults::boolean(const QString& key) const {
    const auto value = text(key);
    if (value == trueText)
        return true;
    if (value == falseText)
        return false;
    return std::nullopt;
}

std::optional<QString> UserDefaults::text(const QString& key) const {
    const QVariant value = m_settings.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

void UserDefaults::setBoolean(const QString& key, bool value) {
    setText(key, value ? trueText : falseText);
}

void UserDefaults::setText(const QString& key, const QString& value) {
    m_settings.setValue(key, value);
    m_settings.sync();
}

} // namespace Veilshot
