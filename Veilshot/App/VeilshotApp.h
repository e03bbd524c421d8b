#pragma once

#include "Veilshot/App/ActivationToken.h"
#include "Veilshot/App/WindowRequest.h"

namespace Veilshot {

/// Carries out the request in the application that runs already, or becomes the application and runs until it
/// is quit. Returns the exit code. Needs a QApplication.
int runWindow(const WindowRequest& request, const ActivationToken& token);

} // namespace Veilshot
