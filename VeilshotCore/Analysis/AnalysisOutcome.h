#pragma once

#include <QString>
#include <functional>
#include <variant>

namespace Veilshot {

/// Why an analysis could not be done: one sentence for people, naming the thing and the reason.
/// Cancellation is never reported as an error.
struct AnalysisError {
    QString message;

    friend bool operator==(const AnalysisError&, const AnalysisError&) = default;
};

/// A result, or the reason why there is none.
template<typename Result>
using AnalysisOutcome = std::variant<Result, AnalysisError>;

/// Asked now and then by long work: true once nobody wants the result any more. The work then returns
/// early with whatever it has; the caller drops it. Called from any worker thread.
using CancellationCheck = std::function<bool()>;

} // namespace Veilshot
