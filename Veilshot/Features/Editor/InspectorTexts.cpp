#include "Veilshot/Features/Editor/InspectorTexts.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

bool isScanning(const InspectorTexts::Context& context) {
    return context.stage == EditorStore::Stage::Scanning;
}

} // namespace

QString InspectorTexts::summaryTitle(const Context& context) {
    if (isScanning(context))
        return u"Scanning"_s;
    if (context.regionCount == 0)
        return u"Nothing hidden yet"_s;
    return context.regionCount == 1 ? u"1 area hidden"_s : u"%1 areas hidden"_s.arg(context.regionCount);
}

QString InspectorTexts::summarySubtitle(const Context& context) {
    if (isScanning(context))
        return context.scanMessage.isEmpty() ? u"Looking for personal details"_s : context.scanMessage;
    return context.regionCount > 0 ? u"Review the image before you share it."_s
                                   : u"Check the original, then blur anything that was missed."_s;
}

QString InspectorTexts::detectedStatus(const Context& context) {
    if (isScanning(context))
        return u"Reading text and looking for faces…"_s;
    return context.removedCount > 0 ? u"You removed every detected area."_s : u"No personal details found."_s;
}

QString InspectorTexts::reviewTitle(qint64 count) {
    return u"Review %1 areas"_s.arg(count);
}

QString InspectorTexts::customRegionCount(qint64 count) {
    return count == 1 ? u"1 region"_s : u"%1 regions"_s.arg(count);
}

QString InspectorTexts::privacyNote(bool isHistoryEnabled) {
    return isHistoryEnabled
               ? u"Scanning runs on this Mac. When you copy or export, the protected copy is saved to "
                 "History. Originals are never saved."_s
               : u"Scanning runs on this Mac. Nothing is saved."_s;
}

} // namespace Veilshot
