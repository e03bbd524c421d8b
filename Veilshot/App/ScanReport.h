#pragma once

#include "VeilshotCore/Models/SensitiveRegion.h"

#include <QByteArray>
#include <QSize>
#include <QString>

namespace Veilshot {

/// What was found in one image.
struct ScanReport {
    QString image;            ///< as it was named on the command line
    QSize size;               ///< in pixels, upright
    double seconds = 0;       ///< from the file to the regions
    SensitiveRegions regions; ///< as the detectors returned them: text, people, then areas given by hand
};

/// One line of JSON without the line break: {"image", "width", "height", "seconds", "regions": [{"kind",
/// "rect"}]}.
QByteArray toJson(const ScanReport& report);

/// One line for people: "shot.png: 3 areas (1 email address, 2 names)".
QString summary(const ScanReport& report);

} // namespace Veilshot
