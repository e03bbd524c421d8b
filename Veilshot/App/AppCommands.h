#pragma once

#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

/// What any window can ask of the application. A window emits; the application acts.
class AppCommands : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one set of commands.")

public:
    using QObject::QObject;

Q_SIGNALS:
    void quickPasteRequested();
    void settingsRequested();
    void aboutRequested();
    void quitRequested();
};

} // namespace Veilshot
