#pragma once

#include "Veilshot/Features/Editor/CanvasStatus.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/History/HistoryStore.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QtQmlIntegration>

namespace Veilshot {

/// A line of the inspector's counts.
struct CategoryLine {
    Q_GADGET
    QML_VALUE_TYPE(categoryLine)
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(qint64 count MEMBER count)

public:
    QString kind; ///< raw value
    QString label;
    qint64 count = 0;

    friend bool operator==(const CategoryLine&, const CategoryLine&) = default;
};

/// What the editor's views show of the stores, in words and numbers.
class EditorPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store MEMBER m_store WRITE setStore NOTIFY changed REQUIRED)
    Q_PROPERTY(Veilshot::HistoryStore* history MEMBER m_history WRITE setHistory NOTIFY changed REQUIRED)
    Q_PROPERTY(bool isDropTargeted MEMBER m_isDropTargeted NOTIFY changed)

    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY changed)
    Q_PROPERTY(bool isReady READ isReady NOTIFY changed)

    Q_PROPERTY(QString summaryTitle READ summaryTitle NOTIFY changed)
    Q_PROPERTY(QString summarySubtitle READ summarySubtitle NOTIFY changed)
    Q_PROPERTY(QList<Veilshot::CategoryLine> categories READ categories NOTIFY changed)
    Q_PROPERTY(QString detectedStatus READ detectedStatus NOTIFY changed)
    Q_PROPERTY(int detectedCount READ detectedCount NOTIFY changed)
    Q_PROPERTY(QString reviewTitle READ reviewTitle NOTIFY changed)
    Q_PROPERTY(int removedCount READ removedCount NOTIFY changed)
    Q_PROPERTY(int customCount READ customCount NOTIFY changed)
    Q_PROPERTY(QString customCountText READ customCountText NOTIFY changed)
    Q_PROPERTY(QString privacyNote READ privacyNote NOTIFY changed)

    Q_PROPERTY(QStringList styleTitles READ styleTitles CONSTANT)
    Q_PROPERTY(int styleIndex READ styleIndex WRITE setStyleIndex NOTIFY changed)
    Q_PROPERTY(bool usesIntensity READ usesIntensity NOTIFY changed)
    Q_PROPERTY(QString intensityLabel READ intensityLabel NOTIFY changed)
    Q_PROPERTY(QStringList previewModeTitles READ previewModeTitles CONSTANT)
    Q_PROPERTY(int previewModeIndex READ previewModeIndex WRITE setPreviewModeIndex NOTIFY changed)

    /// The pill over the canvas; empty when there is none.
    Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
    Q_PROPERTY(bool isStatusBusy READ isStatusBusy NOTIFY changed)

public:
    using QObject::QObject;

    void setStore(EditorStore* store);
    void setHistory(HistoryStore* history);

    bool isEmpty() const { return stage() == EditorStore::Stage::Empty; }
    bool isScanning() const { return stage() == EditorStore::Stage::Scanning; }
    bool isReady() const { return stage() == EditorStore::Stage::Ready; }

    QString summaryTitle() const;
    QString summarySubtitle() const;
    QList<CategoryLine> categories() const;
    QString detectedStatus() const;
    int detectedCount() const;
    QString reviewTitle() const;
    int removedCount() const;
    int customCount() const;
    QString customCountText() const;
    QString privacyNote() const;

    static QStringList styleTitles();
    int styleIndex() const;
    void setStyleIndex(int index);
    bool usesIntensity() const;
    QString intensityLabel() const;
    static QStringList previewModeTitles();
    int previewModeIndex() const;
    void setPreviewModeIndex(int index);

    QString statusText() const;
    bool isStatusBusy() const;

    /// Scans the image on screen once more.
    Q_INVOKABLE void scanAgain();
    /// Marks the area on the image, or takes the mark away unless it has gone to another area since. It goes
    /// back to an area that was entered before and not left: where the keyboard is while the pointer passes
    /// others.
    Q_INVOKABLE void enterRegion(QUuid id);
    Q_INVOKABLE void leaveRegion(QUuid id);

Q_SIGNALS:
    void changed();

private:
    std::optional<CanvasStatus> status() const;
    EditorStore::Stage stage() const { return m_store ? m_store->stage() : EditorStore::Stage::Empty; }

    QPointer<EditorStore> m_store;
    QPointer<HistoryStore> m_history;
    bool m_isDropTargeted = false;
    QList<QUuid> m_enteredRegions; ///< the latest last
};

} // namespace Veilshot
