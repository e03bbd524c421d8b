#include "Veilshot/App/OutputPlan.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>
#include <map>

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

} // namespace

std::variant<QStringList, QString> planOutputs(const ScanRequest& request) {
    QStringList outputs;
    std::map<QString, QString> imageOfOutput;
    for (const QString& image : request.images) {
        const QString output = request.outputDirectory.isEmpty()
                                   ? request.output
                                   : QDir(request.outputDirectory).filePath(resultName(image));
        const auto [taken, isNew] = imageOfOutput.emplace(output, image);
        if (!isNew)
            return u"%1 and %2 would both be written to %3"_s.arg(taken->second, image, output);
        outputs.push_back(output);
    }
    for (const QString& output : outputs) {
        for (const QString& image : request.images) {
            if (output != standardStream && image != standardStream && isSameFile(output, image))
                return u"%1 is the image itself; choose another file for the result"_s.arg(output);
        }
    }
    return outputs;
}

} // namespace Veilshot
