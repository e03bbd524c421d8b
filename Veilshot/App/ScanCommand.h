#pragma once

#include "Veilshot/App/ScanRequest.h"

namespace Veilshot {

/// Carries out `veilshot protect` or `veilshot detect` on the process's standard streams and returns the exit
/// code. Images are worked on side by side; reports come in their order. One image's failure is one line on
/// standard error and does not stop the others. Blocks until all is done.
int runScan(const ScanRequest& request);

} // namespace Veilshot
