#pragma once

#include "Veilshot/App/ScanRequest.h"
#include "Veilshot/App/WindowRequest.h"

#include <QString>
#include <QStringList>
#include <variant>

namespace Veilshot {

/// Ends the program before any work: help and version (exit code 0, for standard output) or a mistake in the
/// arguments (exit code 2, for standard error).
struct CommandLineAnswer {
    QString text;
    int exitCode = 0;
};

/// Exit codes of the program.
enum ExitCode { exitDone = 0, exitSomeImageFailed = 1, exitWrongUsage = 2 };

/// Reads the arguments, program name first. Touches no file.
std::variant<WindowRequest, ScanRequest, CommandLineAnswer> parseCommandLine(const QStringList& arguments);

} // namespace Veilshot
