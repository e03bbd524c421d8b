#include "Veilshot/Platform/Portal.h"

namespace Veilshot {

QString Portal::objectPath(const QDBusConnection& bus, const QString& kind, const QString& token) {
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return path + u'/' + kind + u'/' + sender + u'/' + token;
}

} // namespace Veilshot
