#pragma once

#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

class EditorStore;
class FilePanel;

/// Lets the user choose an image file and opens it in the session.
class ImageImporter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to the window's owner.")

public:
    /// Both must outlive the importer.
    ImageImporter(EditorStore& store, FilePanel& panel, QObject* parent = nullptr);

    /// Returns at once; the panel follows from the event loop.
    Q_INVOKABLE void present();

private:
    EditorStore& m_store;
    FilePanel& m_panel;
    bool m_isPresenting = false;
};

} // namespace Veilshot
