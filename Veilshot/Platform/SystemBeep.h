#pragma once

namespace Veilshot {

/// The desktop's alert sound, as far as it has one: Wayland has none. Needs a QApplication.
void systemBeep();

} // namespace Veilshot
