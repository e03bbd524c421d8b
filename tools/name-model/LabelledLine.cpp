#include "LabelledLine.h"

#include <QFile>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace Veilshot {

std::vector<LabelledLine> readLabelledLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("Cannot read " + path.toStdString());
    std::vector<LabelledLine> lines;
    while (!file.atEnd()) {
        const auto json = nlohmann::json::parse(file.readLine().toStdString());
        LabelledLine line;
        line.text = QString::fromStdString(json.at("text").get<std::string>());
        for (const auto& span : json.at("spans")) {
            const TextRange range{span.at("start").get<qsizetype>(), span.at("length").get<qsizetype>()};
            if (span.at("kind") == "name")
                line.names.push_back(range);
            else if (span.at("kind") == "other")
                line.others.push_back(range);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace Veilshot
