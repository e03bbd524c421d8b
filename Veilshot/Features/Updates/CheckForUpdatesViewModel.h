#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration>
#include <functional>

namespace Veilshot {

class Updater;

/// What the menu's "Check for Updates…" and the update window show of the updater, and what they do with it.
/// Main thread only.
class CheckForUpdatesViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application checks for updates in one place.")
    /// From the first moment on that of the updater.
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    Q_PROPERTY(Stage stage READ stage NOTIFY changed)
    /// What is going on or has come of it, and a sentence more about that.
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    /// What is new in the version found. Plain text, from the network: never to be shown as anything else.
    Q_PROPERTY(QString notes READ notes NOTIFY changed)

public:
    /// What the window is about; it is closed at `None`.
    enum Stage { None, Checking, UpToDate, UpdateFound, Failed };
    Q_ENUM(Stage)

    /// Shows a page in the user's browser; false if that could not be done.
    using PageOpener = std::function<bool(const QUrl&)>;

    /// `updater` must outlive it. `installedVersion` is that of this program.
    CheckForUpdatesViewModel(Updater& updater, const QString& installedVersion, PageOpener openPage,
                             QObject* parent = nullptr);

    bool canCheckForUpdates() const;
    Stage stage() const;
    QString title() const;
    QString message() const;
    QString notes() const;

    Q_INVOKABLE void checkForUpdates();
    /// Ends a check, or takes its result away.
    Q_INVOKABLE void close();
    /// Opens the page of the version found and closes. If it cannot be opened, `message` says where it is.
    Q_INVOKABLE void openDownloadPage();

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void changed();

private:
    Updater& m_updater;
    QString m_installedVersion;
    PageOpener m_openPage;
    bool m_couldNotOpenPage = false;
};

} // namespace Veilshot
