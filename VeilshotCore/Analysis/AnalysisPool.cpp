#include "VeilshotCore/Analysis/AnalysisPool.h"

#include <QThreadPool>

namespace Veilshot {

QThreadPool& analysisPool() {
    static QThreadPool pool;
    return pool;
}

} // namespace Veilshot
