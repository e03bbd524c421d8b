#include "Veilshot/Features/Editor/EditorPresenter.h"

#include "Veilshot/Features/Editor/InspectorTexts.h"

#include <QMetaEnum>

namespace Veilshot {

namespace {

InspectorTexts::Context contextOf(const EditorStore* store) {
    if (!store)
        return {};
    return {.stage = store->stage(),
            .scanMessage = store->scanMessage(),
            .regionCount = qint64(store->regions().size()),
            .removedCount = qint64(store->removedDetectedRegions().size())};
}

} // namespace

void EditorPresenter::setStore(EditorStore* store) {
    m_store = store;
    for (const auto signal : {&EditorStore::stageChanged, &EditorStore::regionsChanged,
                              &EditorStore::removedDetectedRegionsChanged, &EditorStore::previewModeChanged,
                              &EditorStore::redactionStyleChanged, &EditorStore::scanMessageChanged,
                              &EditorStore::didCopyChanged, &EditorStore::isAddingCustomBlurChanged})
        connect(store, signal, this, &EditorPresenter::changed);
    Q_EMIT changed();
}

void EditorPresenter::setHistory(HistoryStore* history) {
    m_history = history;
    connect(history, &HistoryStore::isEnabledChanged, this, &EditorPresenter::changed);
    Q_EMIT changed();
}

QString EditorPresenter::summaryTitle() const {
    return InspectorTexts::summaryTitle(contextOf(m_store));
}

QString EditorPresenter::summarySubtitle() const {
    return InspectorTexts::summarySubtitle(contextOf(m_store));
}

QList<CategoryLine> EditorPresenter::categories() const {
    QList<CategoryLine> lines;
    if (m_store) {
        for (const auto& [kind, count] : m_store->categoryCounts())
            lines.push_back({rawValue(kind), label(kind), count});
    }
    return lines;
}

QString EditorPresenter::detectedStatus() const {
    return InspectorTexts::detectedStatus(contextOf(m_store));
}

int EditorPresenter::detectedCount() const {
    return m_store ? int(m_store->detectedRegions().size()) : 0;
}

QString EditorPresenter::reviewTitle() const {
    return InspectorTexts::reviewTitle(detectedCount());
}

int EditorPresenter::removedCount() const {
    return m_store ? int(m_store->removedDetectedRegions().size()) : 0;
}

int EditorPresenter::customCount() const {
    return m_store ? int(m_store->customRegions().size()) : 0;
}

QString EditorPresenter::customCountText() const {
    return InspectorTexts::customRegionCount(customCount());
}

QString EditorPresenter::privacyNote() const {
    return InspectorTexts::privacyNote(m_history && m_history->isEnabled());
}

QStringList EditorPresenter::styleTitles() {
    QStringList titles;
    for (const RedactionStyle style : allRedactionStyles)
        titles.push_back(label(style));
    return titles;
}

int EditorPresenter::styleIndex() const {
    return m_store ? int(m_store->redactionStyle()) : 0;
}

void EditorPresenter::setStyleIndex(int index) {
    m_store->setRedactionStyle(allRedactionStyles.at(size_t(index)));
}

bool EditorPresenter::usesIntensity() const {
    return m_store && Veilshot::usesIntensity(m_store->redactionStyle());
}

QString EditorPresenter::intensityLabel() const {
    return m_store ? Veilshot::intensityLabel(m_store->redactionStyle()) : QString();
}

QStringList EditorPresenter::previewModeTitles() {
    const auto modes = QMetaEnum::fromType<EditorStore::PreviewMode>();
    QStringList titles;
    for (int mode = 0; mode < modes.keyCount(); ++mode)
        titles.push_back(QString::fromLatin1(modes.key(mode)));
    return titles;
}

int EditorPresenter::previewModeIndex() const {
    return m_store ? int(m_store->previewMode()) : 0;
}

void EditorPresenter::setPreviewModeIndex(int index) {
    m_store->setPreviewMode(EditorStore::PreviewMode(index));
}

std::optional<CanvasStatus> EditorPresenter::status() const {
    if (!m_store)
        return std::nullopt;
    return CanvasStatus::choose({.isDropTargeted = m_isDropTargeted,
                                 .stage = m_store->stage(),
                                 .scanMessage = m_store->scanMessage(),
                                 .didCopy = m_store->didCopy(),
                                 .isAddingCustomBlur = m_store->isAddingCustomBlur()});
}

QString EditorPresenter::statusText() const {
    const auto shown = status();
    return shown ? shown->text : QString();
}

bool EditorPresenter::isStatusBusy() const {
    const auto shown = status();
    return shown && shown->isBusy;
}

void EditorPresenter::enterRegion(QUuid id) {
    m_enteredRegions.push_back(id);
    if (m_store)
        m_store->setHighlightedRegionID(id);
}

void EditorPresenter::leaveRegion(QUuid id) {
    m_enteredRegions.removeOne(id);
    if (m_store && m_store->highlightedRegionID() == id)
        m_store->setHighlightedRegionID(m_enteredRegions.value(m_enteredRegions.size() - 1));
}

void EditorPresenter::scanAgain() {
    if (m_store && !m_store->originalImage().isNull())
        m_store->load(m_store->originalImage());
}

} // namespace Veilshot
