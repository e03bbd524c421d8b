#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"
#include "VeilshotCore/Models/SensitiveRegion.h"

#include <QFuture>
#include <functional>

namespace Veilshot {

/// The regions found, or why the detection failed. A cancelled detection has no outcome: its future says so.
using DetectionOutcome = AnalysisOutcome<SensitiveRegions>;

/// Runs a detection on a background worker, never on the caller's thread. Cancelling the future is the only
/// thing that cancels the worker; dropping the future just lets it finish unheard.
QFuture<DetectionOutcome> startDetection(std::function<DetectionOutcome(const CancellationCheck&)> detection);

} // namespace Veilshot
