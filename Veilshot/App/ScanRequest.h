#pragma once

#include "VeilshotCore/Models/SensitiveKind.h"
#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <QString>
#include <QStringList>
#include <set>

namespace Veilshot {

/// The name that stands for standard input or standard output on the command line.
inline constexpr QStringView standardStream = u"-";

/// What `veilshot protect` or `veilshot detect` was asked to do.
struct ScanRequest {
    enum class Action { protect, detect };

    Action action = Action::detect;
    QStringList images;      ///< file paths; `standardStream` once at most
    QString output;          ///< for one image: a file path or `standardStream`; empty with a directory
    QString outputDirectory; ///< for any number of images
    RedactionStyle style = RedactionStyle::smooth;
    double intensity = 18; ///< in pixels of the image
    /// The kinds to hide or report. Areas given by hand are of the kind `custom`.
    std::set<SensitiveKind> kinds;
    QString regionsFile; ///< further areas; empty without
    bool isJsonReportWanted = false;
};

} // namespace Veilshot
