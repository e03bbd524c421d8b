#include "Veilshot/App/ScanReport.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;

namespace Veilshot {

QByteArray toJson(const ScanReport& report) {
    using Json = nlohmann::ordered_json;
    Json regions = Json::array();
    for (const SensitiveRegion& region : report.regions) {
        const NormalizedRect& rect = region.normalizedRect();
        regions.push_back({{"kind", rawValue(region.kind()).toStdString()},
                           {"rect", {rect.x, rect.y, rect.width, rect.height}}});
    }
    const Json object{{"image", report.image.toStdString()},
                      {"width", report.size.width()},
                      {"height", report.size.height()},
                      {"seconds", std::round(report.seconds * 1000) / 1000},
                      {"regions", regions}};
    return QByteArray::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace));
}

QString summary(const ScanReport& report) {
    QStringList counts;
    for (const SensitiveKind kind : allSensitiveKinds) {
        const auto count = std::ranges::count(report.regions, kind, &SensitiveRegion::kind);
        if (count > 0)
            counts.push_back(
                u"%1 %2"_s.arg(count).arg((count == 1 ? singularLabel(kind) : label(kind)).toLower()));
    }
    if (counts.isEmpty())
        return u"%1: nothing found"_s.arg(report.image);
    const auto total = report.regions.size();
    // In one call, so that a "%" in the file's name stays what it is.
    return u"%1: %2 %3 (%4)"_s.arg(report.image, QString::number(total), total == 1 ? u"area"_s : u"areas"_s,
                                   counts.join(u", "_s));
}

} // namespace Veilshot
