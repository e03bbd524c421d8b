#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace Veilshot {

/// What the settings say with numbers in it. One form for every count.
class SettingsTexts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// What switching the history on means.
    Q_INVOKABLE static QString historyNote(int limit);
    /// What the user is told before all copies go.
    Q_INVOKABLE static QString clearMessage(int entryCount);
};

} // namespace Veilshot
