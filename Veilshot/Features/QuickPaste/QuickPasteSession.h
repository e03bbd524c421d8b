#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Platform/ItemProvider.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <functional>

namespace Veilshot {

class Clipboard;
class FilePanel;

/// What the quick-paste panel shows, and the three ways in which it takes a picture. Every picture goes to
/// the editing session, of which it is the only one that is asked for here: a later one takes its place, and
/// `cancel` calls it off. Main thread only; pictures are decoded by workers.
class QuickPasteSession : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to the panel's controller.")
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(bool isDropTargeted READ isDropTargeted WRITE setDropTargeted NOTIFY isDropTargetedChanged)
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)

public:
    /// All of it must outlive the session.
    struct Collaborators {
        EditorStore& store;
        const Clipboard& clipboard;
        FilePanel& filePanel;
        std::function<void()> beep;
    };

    explicit QuickPasteSession(Collaborators collaborators, QObject* parent = nullptr);

    /// The last input that could not be used, or empty.
    QString errorMessage() const { return m_errorMessage; }
    bool isDropTargeted() const { return m_isDropTargeted; }
    void setDropTargeted(bool isTargeted);
    /// False until the panel is on the screen.
    bool isShown() const { return m_isShown; }
    void setShown(bool isShown);
    bool isChoosingFile() const { return m_isChoosingFile; }

    /// Back to the start. A picture that has been asked for still comes.
    void reset();

    Q_INVOKABLE void paste();
    /// Returns at once; the file panel follows from the event loop.
    Q_INVOKABLE void openImage();
    /// False if none of the items is a picture.
    bool drop(const ItemProviders& items);
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void errorMessageChanged();
    void isDropTargetedChanged();
    void isShownChanged();

    /// A picture, or a file that should be one, has gone to the editing session.
    void completed();
    void cancelled();
    /// The user has just acted on the panel by way of another window, which may have kept the keyboard.
    void usedFromElsewhere();

private:
    using Request = EditorStore::Request;

    Request makeRequest() { return m_request = m_collaborators.store.makeRequest(); }
    bool isCurrent(Request request) const { return request == m_request; }
    void show(const QImage& bitmap, Request request);
    void chooseFile();
    void fail(const QString& message);
    void setErrorMessage(const QString& message);

    Collaborators m_collaborators;
    QString m_errorMessage;
    bool m_isDropTargeted = false;
    bool m_isShown = false;
    bool m_isChoosingFile = false;
    /// The picture that is awaited; 0 for none.
    Request m_request = 0;
};

} // namespace Veilshot
