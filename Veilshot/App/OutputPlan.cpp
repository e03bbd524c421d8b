#include "Veilshot/App/OutputPlan.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <optional>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

std::filesystem::path toPath(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

/// The same file under whatever name: link, hard link, relative path.
bool isSameFile(const QString& first, const QString& second) {
    std::error_code error;
    return std::filesystem::equivalent(toPath(first), toPath(second), error) ||
           QDir::cleanPath(QFileInfo(first).absoluteFilePath()) ==
               QDir::cleanPath(QFileInfo(second).absoluteFilePath());
}

QString resultName(const QString& image) {
    const QString name = image == standardStream ? u"standard-input"_s : QFileInfo(image).completeBaseName();
    return name + u".png"_s;
}

/// The first of `files` that is the file `path` too, or nothing.
std::optional<QString> findSame(const QString& path, const QStringList& files) {
    const auto found = std::ranges::find_if(files, [&](const QString& file) {
        return path != standardStream && file != standardStream && !file.isEmpty() && isSameFile(path, file);
    });
    return found == files.end() ? std::nullopt : std::optional(*found);
}

} // namespace

std::variant<QStringList, QString> planOutputs(const ScanRequest& request) {
    QStringList outputs;
    for (const QString& image : request.images) {
        const QString output = request.outputDirectory.isEmpty()
                                   ? request.output
                                   : QDir(request.outputDirectory).filePath(resultName(image));
        if (const auto taken = findSame(output, outputs))
            return u"two results would be the same file: %1, %2"_s.arg(*taken, output);
        if (findSame(output, request.images))
            return u"%1 is one of the images; choose another file for the result"_s.arg(output);
        if (findSame(output, {request.regionsFile}))
            return u"%1 is the file of areas; choose another file for the result"_s.arg(output);
        outputs.push_back(output);
    }
    return outputs;
}

} // namespace Veilshot
