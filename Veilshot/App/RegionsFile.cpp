#include "Veilshot/App/RegionsFile.h"

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

namespace Veilshot {

namespace {

std::optional<NormalizedRect> parseRect(const Json& value) {
    const Json& numbers = value.is_object() && value.contains("rect") ? value["rect"] : value;
    if (!numbers.is_array() || numbers.size() != 4 ||
        !std::ranges::all_of(numbers, [](const Json& number) { return number.is_number(); }))
        return std::nullopt;
    return NormalizedRect{numbers[0], numbers[1], numbers[2], numbers[3]};
}

} // namespace

std::variant<SensitiveRegions, QString> parseRegions(const QByteArray& json) {
    const Json document = Json::parse(json.begin(), json.end(), nullptr, false);
    if (document.is_discarded())
        return u"this is no valid JSON"_s;
    const Json& list = document.is_object() && document.contains("regions") ? document["regions"] : document;
    if (!list.is_array())
        return u"there is no list of areas"_s;
    SensitiveRegions regions;
    for (const Json& entry : list) {
        const QString number = QString::number(regions.size() + 1);
        const auto rect = parseRect(entry);
        if (!rect)
            return u"area %1 is no rectangle [x, y, width, height]"_s.arg(number);
        const NormalizedRect visible = rect->standardized().intersected(NormalizedRect::unit());
        if (visible.isEmpty())
            return u"area %1 lies outside the image (x, y, width and height go from 0 to 1)"_s.arg(number);
        regions.emplace_back(QUuid::createUuid(), visible, SensitiveKind::custom);
    }
    return regions;
}

} // namespace Veilshot
