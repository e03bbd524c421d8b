#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QString>

/// What the inspector says of a session.
namespace Veilshot::InspectorTexts {

struct Context {
    EditorStore::Stage stage = EditorStore::Stage::Empty;
    QString scanMessage = {};
    qint64 regionCount = 0; ///< detected and drawn ones
    qint64 removedCount = 0;
};

QString summaryTitle(const Context& context);
QString summarySubtitle(const Context& context);
/// In place of the counts, when there is nothing to count.
QString detectedStatus(const Context& context);
/// Of the list of detected areas while it is collapsed. One form for every count.
QString reviewTitle(qint64 count);
/// "1 region", "2 regions".
QString customRegionCount(qint64 count);
QString privacyNote(bool isHistoryEnabled);

} // namespace Veilshot::InspectorTexts
