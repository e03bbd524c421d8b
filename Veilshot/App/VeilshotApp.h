#pragma once

#include "Veilshot/App/CommandLine.h"

namespace Veilshot {

/// Opens the main window, with the image if one is named, and runs until it is closed. Returns the exit code.
/// Needs a QApplication.
int runWindow(const WindowRequest& request);

} // namespace Veilshot
