#pragma once

#include "Veilshot/Features/Settings/AppAppearance.h"

#include <QObject>
#include <QStringList>
#include <QtQmlIntegration>

namespace Veilshot {

class DesktopColorScheme;
class Theme;
class UserDefaults;

/// Keeps the theme light or dark as the user has chosen, or as the desktop is, while the application runs.
class AppearanceSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one appearance.")
    Q_PROPERTY(QStringList titles READ titles CONSTANT)
    /// The place of the choice among the titles.
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)

public:
    /// All must outlive it.
    AppearanceSetting(UserDefaults& defaults, const DesktopColorScheme& desktop, Theme& theme,
                      QObject* parent = nullptr);

    static QStringList titles();
    int index() const;
    void setIndex(int index);

Q_SIGNALS:
    void indexChanged();

private:
    void apply();

    UserDefaults& m_defaults;
    const DesktopColorScheme& m_desktop;
    Theme& m_theme;
    AppAppearance m_appearance;
};

} // namespace Veilshot
