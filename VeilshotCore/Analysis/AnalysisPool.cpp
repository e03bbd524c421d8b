#include "VeilshotCore/Analysis/AnalysisPool.h"

#include <QThread>
#include <QThreadPool>
#include <algorithm>

namespace Veilshot {

QThreadPool& analysisPool() {
    struct Pool : QThreadPool {
        Pool() { setMaxThreadCount(std::max(1, QThread::idealThreadCount() - 1)); }
    };
    static Pool pool;
    return pool;
}

} // namespace Veilshot
