#include "Veilshot/Platform/FilePanel.h"

#include "Veilshot/Platform/ImageDecoder.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <QWindow>

namespace Veilshot {

namespace {

/// The first of these that is there. Otherwise the dialog would open wherever the program was started.
QUrl startFolder(const QUrl& lastFolder) {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    for (const QString& path : {lastFolder.toLocalFile(), pictures}) {
        if (QFileInfo(path).isDir())
            return QUrl::fromLocalFile(path);
    }
    return QUrl::fromLocalFile(QDir::homePath());
}

/// Of the file itself: who types a path need not be in its folder.
QUrl folderOf(const QString& path) {
    return QUrl::fromLocalFile(QFileInfo(path).path());
}

/// The endings of the files that ImageDecoder reads: one filter for all of them, so that nobody has to know
/// which.
QString imageNameFilter() {
    QStringList patterns{QStringLiteral("*.heic"), QStringLiteral("*.heif"), QStringLiteral("*.avif")};
    const QMimeDatabase types;
    for (const QByteArray& name : QImageReader::supportedMimeTypes()) {
        if (ImageDecoder::isPictureType(QString::fromLatin1(name)))
            patterns += types.mimeTypeForName(QString::fromLatin1(name)).globPatterns();
    }
    patterns.removeDuplicates();
    return QStringLiteral("Images (%1)").arg(patterns.join(u' '));
}

/// A Qt Quick window cannot be the dialog's parent, but the window manager keeps the dialog above it.
void placeOverActiveWindow(QFileDialog& dialog) {
    dialog.winId(); // makes the window
    dialog.windowHandle()->setTransientParent(QGuiApplication::focusWindow());
}

bool isAccepted(QFileDialog& dialog) {
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
}

} // namespace

SystemFilePanel& SystemFilePanel::shared() {
    static SystemFilePanel panel;
    return panel;
}

std::optional<QUrl> SystemFilePanel::chooseDestination(const Destination& destination) {
    QFileDialog dialog(nullptr, destination.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setMimeTypeFilters({destination.mimeType});
    dialog.setDefaultSuffix(destination.suffix);
    dialog.setSupportedSchemes({QStringLiteral("file")});
    dialog.setDirectoryUrl(startFolder(m_lastFolder));
    placeOverActiveWindow(dialog);
    dialog.selectFile(destination.proposedName);
    while (isAccepted(dialog)) {
        QString path = dialog.selectedFiles().constFirst();
        m_lastFolder = folderOf(path);
        if (QFileInfo(path).suffix().compare(destination.suffix, Qt::CaseInsensitive) == 0)
            return QUrl::fromLocalFile(path);
        // The dialog adds the suffix only to a name without any.
        path += u'.' + destination.suffix;
        if (!QFileInfo::exists(path))
            return QUrl::fromLocalFile(path);
        dialog.selectFile(path); // and asks whether to replace that one
    }
    return std::nullopt;
}

std::optional<QUrl> SystemFilePanel::chooseImage(const QString& title) {
    QFileDialog dialog(nullptr, title);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({imageNameFilter(), QStringLiteral("All files (*)")});
    dialog.setSupportedSchemes({QStringLiteral("file")});
    dialog.setDirectoryUrl(startFolder(m_lastFolder));
    placeOverActiveWindow(dialog);
    if (!isAccepted(dialog))
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    m_lastFolder = folderOf(path);
    return QUrl::fromLocalFile(path);
}

} // namespace Veilshot
