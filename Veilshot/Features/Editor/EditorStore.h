#pragma once

#include "Veilshot/Features/Editor/DisplayImage.h"
#include "Veilshot/Features/Editor/ScanTask.h"
#include "Veilshot/Platform/ItemProvider.h"
#include "VeilshotCore/Models/SensitiveRegion.h"
#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <QUrl>
#include <QUuid>
#include <QtQmlIntegration>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace Veilshot {

class Clipboard;
class Clock;
class FilePanel;
class HistoryStore;
class SessionRecorder;

/// The editing session: the image, the areas to hide and how, and the state of the scan. Every view reads its
/// properties and acts through its operations; nothing else changes an image or a list of areas.
///
/// Main thread only: scanning, decoding, encoding and writing happen on workers, rendering here. It waits
/// only for the user in a panel, and for another program to hand over what it copied or dragged. All that one
/// operation changes is changed before the first signal is sent. A failure that a user can act on becomes
/// `errorMessage` and leaves the session as it was; other failures are silent.
class EditorStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one session.")
    Q_PROPERTY(Stage stage READ stage NOTIFY stageChanged)
    Q_PROPERTY(Veilshot::DisplayImage originalImage READ originalImage NOTIFY originalImageChanged)
    Q_PROPERTY(Veilshot::DisplayImage protectedImage READ protectedImage NOTIFY protectedImageChanged)
    Q_PROPERTY(Veilshot::SensitiveRegions regions READ regions NOTIFY regionsChanged)
    Q_PROPERTY(PreviewMode previewMode READ previewMode WRITE setPreviewMode NOTIFY previewModeChanged)
    Q_PROPERTY(double blurRadius READ blurRadius WRITE setBlurRadius NOTIFY blurRadiusChanged)
    Q_PROPERTY(Veilshot::RedactionStyle redactionStyle READ redactionStyle WRITE setRedactionStyle NOTIFY
                   redactionStyleChanged)
    Q_PROPERTY(QUuid highlightedRegionID READ highlightedRegionID WRITE setHighlightedRegionID NOTIFY
                   highlightedRegionIDChanged)
    Q_PROPERTY(bool isAddingCustomBlur READ isAddingCustomBlur WRITE setAddingCustomBlur NOTIFY
                   isAddingCustomBlurChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage WRITE setErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(bool didCopy READ didCopy NOTIFY didCopyChanged)
    Q_PROPERTY(QString scanMessage READ scanMessage NOTIFY scanMessageChanged)

public:
    enum class Stage { Empty, Scanning, Ready };
    Q_ENUM(Stage)
    /// The names are also the labels.
    enum class PreviewMode { Protected, Original };
    Q_ENUM(PreviewMode)

    /// How many areas of a kind there are.
    struct CategoryCount {
        SensitiveKind kind;
        qint64 count;

        friend bool operator==(const CategoryCount&, const CategoryCount&) = default;
    };

    using Rendering = std::function<QImage(const QImage& bitmap, const SensitiveRegions& regions,
                                           RedactionStyle style, double intensity)>;

    /// What the store works with. All of it must outlive the store.
    struct Collaborators {
        /// With the real detectors and the real renderer.
        static Collaborators real(Clipboard& clipboard, FilePanel& filePanel, const Clock& clock);

        Detection detectText;
        Detection detectPeople;
        Rendering render;
        Clipboard& clipboard;
        FilePanel& filePanel;
        const Clock& clock;
    };

    /// Protected copies are recorded in `history`, or never if that is null.
    EditorStore(HistoryStore* history, Collaborators collaborators, QObject* parent = nullptr);
    ~EditorStore() override;

    /// The application's one session, made on first use. It lives as long as the process.
    static EditorStore& shared();

    Stage stage() const { return m_fields.stage; }
    /// The image that was loaded, and the current rendering of it. Null without a session; the same image
    /// until the first results of the scan are there.
    const DisplayImage& originalImage() const { return m_fields.originalImage; }
    const DisplayImage& protectedImage() const { return m_fields.protectedImage; }
    /// Everything to hide, in the order in which it was added.
    const SensitiveRegions& regions() const { return m_fields.regions; }
    SensitiveRegions detectedRegions() const;
    SensitiveRegions customRegions() const;
    /// Detected areas that the user removed, the last one last.
    const SensitiveRegions& removedDetectedRegions() const { return m_fields.removedDetectedRegions; }
    /// One for each kind that occurs, in the order of the kinds' labels.
    std::vector<CategoryCount> categoryCounts() const;
    /// In pixels of the image; not limited here. See ScreenshotRedactor::render.
    double blurRadius() const { return m_fields.blurRadius; }
    RedactionStyle redactionStyle() const { return m_fields.redactionStyle; }
    PreviewMode previewMode() const { return m_fields.previewMode; }
    /// The area under the pointer, or a null id.
    QUuid highlightedRegionID() const { return m_fields.highlightedRegionID; }
    bool isAddingCustomBlur() const { return m_fields.isAddingCustomBlur; }
    /// The last failure, until a view has shown and emptied it.
    QString errorMessage() const { return m_fields.errorMessage; }
    /// True for 1.5 seconds after a copy.
    bool didCopy() const { return m_fields.didCopy; }
    /// What the scan is doing, or empty.
    QString scanMessage() const { return m_fields.scanMessage; }

    void setBlurRadius(double radius);
    void setRedactionStyle(RedactionStyle style);
    void setPreviewMode(PreviewMode mode);
    void setHighlightedRegionID(QUuid id);
    void setAddingCustomBlur(bool isAdding);
    void setErrorMessage(const QString& message);

    /// Starts a session with the image and scans it. An image in another format than ImageDecoder's is
    /// converted here and now.
    void load(const QImage& image);
    void load(const DisplayImage& image);
    /// Loads a local file once a worker has decoded it. Of several pictures that are asked for by file,
    /// clipboard or drop one after the other the latest stays, whichever is decoded first.
    Q_INVOKABLE void load(const QUrl& url);
    /// Loads the first picture of a drop, later, and then calls `onLoad`, if any, unless a later picture came
    /// before. False if nothing in the drop is a picture.
    bool load(const ItemProviders& providers, std::function<void()> onLoad);
    Q_INVOKABLE void pasteFromClipboard();

    /// A place in the order in which pictures are asked for.
    using Request = quint64;
    /// For who fetches a picture itself: taken when it is asked for, and given back with it.
    Request makeRequest() { return ++m_latestRequest; }
    /// Starts a session with the bitmap (see ImageDecoder) unless a later picture came before. False if one
    /// did.
    bool load(const QImage& bitmap, Request request);

    /// Takes a detected area off the list; an id of another area does nothing.
    Q_INVOKABLE void removeDetectedRegion(QUuid id);
    Q_INVOKABLE void restoreLastRemovedRegion();
    /// Hides what of the rectangle lies in the image, unless that is thinner than 0.005 of the image.
    void addCustomBlur(const NormalizedRect& normalizedRect);
    Q_INVOKABLE void undoCustomBlur();
    Q_INVOKABLE void clearCustomBlurs();
    /// Renders the image again from the current areas, style and intensity.
    void renderPreview();

    /// Both do nothing before the scan has ended, because until then the image may still show everything, and
    /// fail if there was not enough memory to hide its areas.
    Q_INVOKABLE void copyProtectedImage();
    Q_INVOKABLE void exportProtectedImage();
    /// Ends the session. Style and intensity stay for the next image.
    Q_INVOKABLE void clear();

    /// Waits until every export under way is written and handed to the history. For the end of the
    /// application.
    void finishExports();

Q_SIGNALS:
    void stageChanged();
    void originalImageChanged();
    void protectedImageChanged();
    void regionsChanged();
    void removedDetectedRegionsChanged();
    void previewModeChanged();
    void blurRadiusChanged();
    void redactionStyleChanged();
    void highlightedRegionIDChanged();
    void isAddingCustomBlurChanged();
    void errorMessageChanged();
    void didCopyChanged();
    void scanMessageChanged();

private:
    struct Fields {
        Stage stage = Stage::Empty;
        DisplayImage originalImage;
        DisplayImage protectedImage;
        SensitiveRegions regions;
        SensitiveRegions removedDetectedRegions;
        PreviewMode previewMode = PreviewMode::Protected;
        double blurRadius = 18;
        RedactionStyle redactionStyle = RedactionStyle::smooth;
        QUuid highlightedRegionID;
        bool isAddingCustomBlur = false;
        QString errorMessage;
        bool didCopy = false;
        QString scanMessage;
        /// The areas could not be hidden: `protectedImage` shows them.
        bool isUnprotected = false;
    };
    struct Export;

    /// Takes the fields over and announces those that differ.
    void publish(Fields next);
    /// Brings `protectedImage` up to date with the other fields.
    void render(Fields& fields) const;
    void publishRendered(Fields next);

    void loadWhenDecoded(const QFuture<std::optional<QImage>>& decoding, const QString& failure);
    void beginSession(const DisplayImage& image, Request request);
    void startScan(const QImage& bitmap);
    void finishExport(Request request);

    Collaborators m_collaborators;
    QPointer<HistoryStore> m_history;
    Fields m_fields;
    /// Belongs to the current image, so that what is recorded late finds its own entry.
    std::shared_ptr<SessionRecorder> m_recorder;
    ScanTask::Handle m_analysisTask;
    /// Requests to show a picture are counted; one that is outrun by a later one is dropped.
    Request m_latestRequest = 0;
    Request m_shownRequest = 0;
    Request m_latestExport = 0;
    std::list<Export> m_exports;
    /// One after the other, so that of two exports to one file the later one stays.
    QThreadPool m_exporter;
};

} // namespace Veilshot
