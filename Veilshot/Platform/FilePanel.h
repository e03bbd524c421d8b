#pragma once

#include <QString>
#include <QUrl>
#include <optional>

namespace Veilshot {

/// The desktop's panels for choosing files. Main thread only; a panel is modal and blocks until it is closed.
class FilePanel {
public:
    virtual ~FilePanel() = default;

    /// What a save panel shows. New folders may always be made in it.
    struct Destination {
        QString title;
        QString proposedName;
        QString mimeType; ///< the only type on offer
        QString suffix;   ///< what every name chosen ends with, without the point

        friend bool operator==(const Destination&, const Destination&) = default;
    };

    /// The local file to write, or nothing if the user cancelled. The user has agreed to replace a file that
    /// exists.
    virtual std::optional<QUrl> chooseDestination(const Destination& destination) = 0;

    /// A local picture file, or nothing if the user cancelled.
    virtual std::optional<QUrl> chooseImage(const QString& title) = 0;
};

/// The platform's file dialog, or Qt's where there is none, over the window that is active. Needs a
/// QApplication.
class SystemFilePanel : public FilePanel {
public:
    /// The application's: all its panels open where the last one was left.
    static SystemFilePanel& shared();

    std::optional<QUrl> chooseDestination(const Destination& destination) override;
    std::optional<QUrl> chooseImage(const QString& title) override;

private:
    /// Where the last file was, so that the next panel opens there.
    QUrl m_lastFolder;
};

} // namespace Veilshot
