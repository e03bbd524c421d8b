#include "Veilshot/Updates/Release.h"

namespace Veilshot {

QByteArray Release::statement() const {
    return "Veilshot release\n" + version.text().toUtf8() + '\n' + link.toUtf8() + '\n' + notes.toUtf8();
}

std::optional<QUrl> Release::page() const {
    const QUrl url(link, QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1StringView("https") || url.host().isEmpty())
        return std::nullopt;
    return url;
}

} // namespace Veilshot
