#include "VeilshotCore/Analysis/AnalysisPool.h"

#include <QException>
#include <QThreadPool>

namespace Veilshot {

QThreadPool& analysisPool() {
    static QThreadPool pool;
    return pool;
}

std::exception_ptr withoutQtWrapper(std::exception_ptr thrown) {
    try {
        std::rethrow_exception(thrown);
    } catch (const QUnhandledException& wrapper) {
        return wrapper.exception() ? wrapper.exception() : thrown;
    } catch (...) {
        return thrown;
    }
}

} // namespace Veilshot
