#pragma once

class QThreadPool;

namespace Veilshot {

/// The workers that help a thread with one image, for QtConcurrent's blocking functions: these let the
/// calling thread work too, so that together they occupy every core. Separate from the pool that the callers
/// run in, whose threads may all be waiting here at once.
QThreadPool& analysisPool();

} // namespace Veilshot
