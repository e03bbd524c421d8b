#include "Veilshot/Features/Editor/AreaDrawing.h"

#include "Veilshot/Features/Editor/PreviewGeometry.h"

namespace Veilshot {

void AreaDrawing::drag(QPointF start, QPointF current) {
    if (m_store && m_store->isAddingCustomBlur())
        setDraftRect(PreviewGeometry::draggedRect(start, current, m_frameSize));
}

void AreaDrawing::finish() {
    const auto drawn = m_draftRect;
    setDraftRect({});
    if (drawn && PreviewGeometry::isArea(*drawn) && m_store && m_store->isAddingCustomBlur())
        m_store->addCustomBlur(PreviewGeometry::normalized(*drawn, m_frameSize));
}

void AreaDrawing::setDraftRect(std::optional<QRectF> rect) {
    if (rect == m_draftRect)
        return;
    m_draftRect = rect;
    Q_EMIT draftRectChanged();
}

} // namespace Veilshot
