#include "Veilshot/Features/Settings/SettingsTexts.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

QString SettingsTexts::historyNote(int limit) {
    return u"When you copy or export an image, its protected version is saved on this Mac. Originals are "
           u"never "
           "saved. The last %1 are kept."_s.arg(limit);
}

QString SettingsTexts::clearMessage(int entryCount) {
    return u"This deletes the %1 protected images saved on this Mac."_s.arg(entryCount);
}

} // namespace Veilshot
