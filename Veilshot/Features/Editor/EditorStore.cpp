#include "Veilshot/Features/Editor/EditorStore.h"

#include "Veilshot/Features/Editor/PngExport.h"
#include "Veilshot/Features/Editor/SessionRecorder.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/ImageTransfer.h"
#include "VeilshotCore/Detection/PeopleDetector.h"
#include "VeilshotCore/Detection/SensitiveTextDetector.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

bool isCustom(const SensitiveRegion& region) {
    return region.kind() == SensitiveKind::custom;
}

template<typename Condition>
SensitiveRegions regionsThat(const SensitiveRegions& regions, Condition condition) {
    SensitiveRegions result;
    std::ranges::copy_if(regions, std::back_inserter(result), condition);
    return result;
}

} // namespace

struct EditorStore::Export {
    Request request;
    QFuture<std::optional<QString>> writing;
    QImage bitmap;
    qint64 regionCount;
    std::shared_ptr<SessionRecorder> recorder;
    SessionRecorder::Turn turn;
};

EditorStore::Collaborators EditorStore::Collaborators::real(Clipboard& clipboard, FilePanel& filePanel,
                                                            const Clock& clock) {
    return {.detectText = [detector = SensitiveTextDetector()](
                              const QImage& bitmap) { return detector.detect(bitmap); },
            .detectPeople = [detector =
                                 PeopleDetector()](const QImage& bitmap) { return detector.detect(bitmap); },
            .render = [redactor = ScreenshotRedactor()](
                          const QImage& bitmap, const SensitiveRegions& regions, RedactionStyle style,
                          double intensity) { return redactor.render(bitmap, regions, style, intensity); },
            .clipboard = clipboard,
            .filePanel = filePanel,
            .clock = clock};
}

EditorStore::EditorStore(HistoryStore* history, Collaborators collaborators, QObject* parent)
    : QObject(parent), m_collaborators(std::move(collaborators)), m_history(history),
      m_recorder(std::make_shared<SessionRecorder>(history)) {
    m_exporter.setMaxThreadCount(1);
}

EditorStore::~EditorStore() = default;

EditorStore& EditorStore::shared() {
    static SystemClipboard clipboard;
    static const SystemClock clock;
    static EditorStore& instance = []() -> EditorStore& {
        auto& store = *new EditorStore(&HistoryStore::shared(),
                                       Collaborators::real(clipboard, SystemFilePanel::shared(), clock));
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &store, [&store] {
            store.finishExports();
            HistoryStore::shared().finishRecordings();
        });
        return store;
    }();
    return instance;
}

SensitiveRegions EditorStore::detectedRegions() const {
    return regionsThat(m_fields.regions, std::not_fn(isCustom));
}

SensitiveRegions EditorStore::customRegions() const {
    return regionsThat(m_fields.regions, isCustom);
}

std::vector<EditorStore::CategoryCount> EditorStore::categoryCounts() const {
    std::map<QString, CategoryCount> byLabel;
    for (const SensitiveRegion& region : m_fields.regions)
        ++byLabel.try_emplace(label(region.kind()), CategoryCount{region.kind(), 0}).first->second.count;
    std::vector<CategoryCount> counts;
    std::ranges::transform(byLabel, std::back_inserter(counts),
                           &std::map<QString, CategoryCount>::value_type::second);
    return counts;
}

void EditorStore::setBlurRadius(double radius) {
    Fields next = m_fields;
    next.blurRadius = radius;
    publishRendered(std::move(next));
}

void EditorStore::setRedactionStyle(RedactionStyle style) {
    Fields next = m_fields;
    next.redactionStyle = style;
    publishRendered(std::move(next));
}

void EditorStore::setPreviewMode(PreviewMode mode) {
    Fields next = m_fields;
    next.previewMode = mode;
    publish(std::move(next));
}

void EditorStore::setHighlightedRegionID(QUuid id) {
    Fields next = m_fields;
    next.highlightedRegionID = id;
    publish(std::move(next));
}

void EditorStore::setAddingCustomBlur(bool isAdding) {
    Fields next = m_fields;
    next.isAddingCustomBlur = isAdding;
    publish(std::move(next));
}

void EditorStore::setErrorMessage(const QString& message) {
    Fields next = m_fields;
    next.errorMessage = message;
    publish(std::move(next));
}

void EditorStore::load(const QImage& image) {
    load(DisplayImage(image, image.deviceIndependentSize()));
}

void EditorStore::load(const DisplayImage& image) {
    const QImage bitmap = ImageDecoder::toBitmap(image.bitmap());
    if (bitmap.isNull())
        setErrorMessage(u"The image could not be decoded."_s);
    else
        beginSession(DisplayImage(bitmap, image.size()), ++m_latestRequest);
}

void EditorStore::load(const QUrl& url) {
    loadWhenDecoded(ImageTransfer::imageFromFile(url),
                    u"That file isn’t a readable image. Try a PNG, JPEG, HEIC, or TIFF."_s);
}

bool EditorStore::load(const ItemProviders& providers, std::function<void()> onLoad) {
    const auto show = [self = QPointer(this), request = m_latestRequest + 1,
                       onLoad = std::move(onLoad)](const ImageTransfer::LoadedItem& item) {
        if (!self || request < self->m_shownRequest)
            return;
        if (const auto* error = std::get_if<QString>(&item)) {
            self->setErrorMessage(*error);
            return;
        }
        self->load(std::get<QImage>(item), request);
        if (onLoad)
            onLoad();
    };
    const bool isAccepted = ImageTransfer::load(providers, show);
    if (isAccepted)
        ++m_latestRequest;
    return isAccepted;
}

void EditorStore::pasteFromClipboard() {
    loadWhenDecoded(ImageTransfer::imageFromPasteboard(m_collaborators.clipboard),
                    u"The clipboard doesn’t contain an image. Copy a screenshot first, then try again."_s);
}

bool EditorStore::load(const QImage& bitmap, Request request) {
    if (request < m_shownRequest)
        return false;
    beginSession(DisplayImage(bitmap, bitmap.deviceIndependentSize()), request);
    return true;
}

void EditorStore::loadWhenDecoded(const QFuture<std::optional<QImage>>& decoding, const QString& failure) {
    whenDone(decoding, this, [this, failure, request = makeRequest()](const std::optional<QImage>& image) {
        if (image)
            load(*image, request);
        else if (request >= m_shownRequest)
            setErrorMessage(failure);
    });
}

void EditorStore::beginSession(const DisplayImage& image, Request request) {
    m_shownRequest = request;
    m_recorder = std::make_shared<SessionRecorder>(m_history);
    startScan(image.bitmap());
    Fields next = m_fields;
    next.originalImage = image;
    next.protectedImage = image;
    next.regions.clear();
    next.removedDetectedRegions.clear();
    next.highlightedRegionID = {};
    next.previewMode = PreviewMode::Protected;
    next.isAddingCustomBlur = false;
    next.scanMessage = u"Finding personal details…"_s;
    next.stage = Stage::Scanning;
    publish(std::move(next));
}

void EditorStore::startScan(const QImage& bitmap) {
    m_analysisTask.reset(
        new ScanTask(bitmap, m_collaborators.detectText, m_collaborators.detectPeople, this));
    connect(m_analysisTask.get(), &ScanTask::textFound, this, [this](const SensitiveRegions& found) {
        Fields next = m_fields;
        next.regions = found;
        next.scanMessage = u"Finding people…"_s;
        publishRendered(std::move(next));
    });
    connect(m_analysisTask.get(), &ScanTask::peopleFound, this, [this](const SensitiveRegions& found) {
        Fields next = m_fields;
        std::ranges::copy(found, std::back_inserter(next.regions));
        next.scanMessage.clear();
        next.stage = Stage::Ready;
        publishRendered(std::move(next));
    });
    connect(m_analysisTask.get(), &ScanTask::failed, this, [this](const QString& message) {
        Fields next = m_fields;
        next.scanMessage.clear();
        next.stage = Stage::Ready;
        next.errorMessage = u"Scanning failed: "_s + message;
        publish(std::move(next));
    });
    m_analysisTask->start();
}

void EditorStore::removeDetectedRegion(QUuid id) {
    Fields next = m_fields;
    const auto removed = std::ranges::find_if(
        next.regions, [&](const SensitiveRegion& region) { return region.id() == id && !isCustom(region); });
    if (removed == next.regions.end())
        return;
    next.removedDetectedRegions.push_back(*removed);
    next.regions.erase(removed);
    publishRendered(std::move(next));
}

void EditorStore::restoreLastRemovedRegion() {
    if (m_fields.removedDetectedRegions.empty())
        return;
    Fields next = m_fields;
    next.regions.push_back(next.removedDetectedRegions.back());
    next.removedDetectedRegions.pop_back();
    publishRendered(std::move(next));
}

void EditorStore::addCustomBlur(const NormalizedRect& normalizedRect) {
    constexpr double thinnest = 0.005;
    const NormalizedRect clipped = normalizedRect.standardized().intersected(NormalizedRect::unit());
    if (!(clipped.width >= thinnest && clipped.height >= thinnest))
        return;
    Fields next = m_fields;
    next.regions.emplace_back(QUuid::createUuid(), clipped, SensitiveKind::custom);
    next.previewMode = PreviewMode::Protected;
    publishRendered(std::move(next));
}

void EditorStore::undoCustomBlur() {
    Fields next = m_fields;
    const auto last = std::find_if(next.regions.rbegin(), next.regions.rend(), isCustom);
    if (last == next.regions.rend())
        return;
    next.regions.erase(std::next(last).base());
    publishRendered(std::move(next));
}

void EditorStore::clearCustomBlurs() {
    Fields next = m_fields;
    std::erase_if(next.regions, isCustom);
    publishRendered(std::move(next));
}

void EditorStore::renderPreview() {
    publishRendered(m_fields);
}

void EditorStore::render(Fields& fields) const {
    const DisplayImage& original = fields.originalImage;
    if (original.isNull())
        return;
    const QImage rendered =
        m_collaborators.render(original.bitmap(), fields.regions, fields.redactionStyle, fields.blurRadius);
    fields.isUnprotected = rendered.isNull() && !fields.regions.empty();
    fields.protectedImage = DisplayImage(rendered.isNull() ? original.bitmap() : rendered, original.size());
}

void EditorStore::copyProtectedImage() {
    if (m_fields.stage != Stage::Ready)
        return;
    const QImage& bitmap = m_fields.protectedImage.bitmap();
    if (m_fields.isUnprotected || !m_collaborators.clipboard.write(bitmap)) {
        setErrorMessage(u"The protected image couldn’t be copied to the clipboard."_s);
        return;
    }
    m_recorder->record(m_recorder->takeTurn(), bitmap, qint64(m_fields.regions.size()));
    Fields next = m_fields;
    next.didCopy = true;
    publish(std::move(next));
    m_collaborators.clock.callAfter(std::chrono::milliseconds(1500), this, [this] {
        Fields later = m_fields;
        later.didCopy = false;
        publish(std::move(later));
    });
}

void EditorStore::exportProtectedImage() {
    if (m_fields.stage != Stage::Ready)
        return;
    if (m_fields.isUnprotected) {
        setErrorMessage(u"The protected image couldn’t be encoded as PNG."_s);
        return;
    }
    // What is on screen now. The panel lets the application go on: by the time it closes there may be another
    // image.
    const QImage bitmap = m_fields.protectedImage.bitmap();
    const auto regionCount = qint64(m_fields.regions.size());
    const auto recorder = m_recorder;
    const auto turn = recorder->takeTurn();
    const auto url = ImageTransfer::chooseExportURL(m_collaborators.filePanel);
    if (!url)
        return;
    const Request request = ++m_latestExport;
    const auto writing = startPngExport(m_exporter, bitmap, *url);
    m_exports.push_back({request, writing, bitmap, regionCount, recorder, turn});
    whenDone(writing, this, [this, request](const auto&) { finishExport(request); });
}

void EditorStore::finishExports() {
    while (!m_exports.empty()) {
        m_exports.front().writing.waitForFinished();
        finishExport(m_exports.front().request);
    }
}

void EditorStore::finishExport(Request request) {
    const auto position = std::ranges::find(m_exports, request, &Export::request);
    if (position == m_exports.end())
        return; // finished already, by finishExports
    const Export done = std::move(*position);
    m_exports.erase(position);
    if (const auto failure = done.writing.result())
        setErrorMessage(*failure);
    else
        done.recorder->record(done.turn, done.bitmap, done.regionCount);
}

void EditorStore::clear() {
    m_shownRequest = ++m_latestRequest;
    m_recorder = std::make_shared<SessionRecorder>(m_history);
    m_analysisTask.reset();
    Fields next;
    next.errorMessage = m_fields.errorMessage;
    next.previewMode = m_fields.previewMode;
    next.blurRadius = m_fields.blurRadius;
    next.redactionStyle = m_fields.redactionStyle;
    publish(std::move(next));
    ScreenshotRedactor::releaseMemory();
}

void EditorStore::publishRendered(Fields next) {
    render(next);
    publish(std::move(next));
}

void EditorStore::publish(Fields next) {
    const Fields before = std::exchange(m_fields, std::move(next));
    const auto announce = [&](auto field, auto changed) {
        if (!(before.*field == m_fields.*field))
            Q_EMIT(this->*changed)();
    };
    announce(&Fields::stage, &EditorStore::stageChanged);
    announce(&Fields::originalImage, &EditorStore::originalImageChanged);
    announce(&Fields::protectedImage, &EditorStore::protectedImageChanged);
    announce(&Fields::regions, &EditorStore::regionsChanged);
    announce(&Fields::removedDetectedRegions, &EditorStore::removedDetectedRegionsChanged);
    announce(&Fields::previewMode, &EditorStore::previewModeChanged);
    announce(&Fields::blurRadius, &EditorStore::blurRadiusChanged);
    announce(&Fields::redactionStyle, &EditorStore::redactionStyleChanged);
    announce(&Fields::highlightedRegionID, &EditorStore::highlightedRegionIDChanged);
    announce(&Fields::isAddingCustomBlur, &EditorStore::isAddingCustomBlurChanged);
    announce(&Fields::errorMessage, &EditorStore::errorMessageChanged);
    announce(&Fields::didCopy, &EditorStore::didCopyChanged);
    announce(&Fields::scanMessage, &EditorStore::scanMessageChanged);
}

} // namespace Veilshot
