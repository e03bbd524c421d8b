#pragma once

class QThreadPool;

namespace Veilshot {

/// The workers that share the work on an image among all cores, for QtConcurrent's blocking functions.
/// Separate from the pools that their callers run in, whose threads may all be waiting here at once; nothing
/// that runs here waits for more work of this pool.
QThreadPool& analysisPool();

} // namespace Veilshot
