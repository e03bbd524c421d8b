#include "Veilshot/App/ActivationToken.h"
#include "Veilshot/App/CommandLine.h"
#include "Veilshot/App/ScanCommand.h"
#include "Veilshot/App/StandardStreams.h"
#include "Veilshot/App/VeilshotApp.h"

#include <QApplication>
#include <QFile>
#include <algorithm>
#include <clocale>
#include <memory>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace Veilshot;

namespace {

/// Qt would go on with another file name than the one given.
bool areArgumentsText(int argc, char** argv) {
    return std::all_of(argv, argv + argc, [](const char* argument) {
        return QFile::encodeName(QFile::decodeName(argument)) == QByteArrayView(argument);
    });
}

/// A command, or a question such as --help, is answered without a display.
bool isForWindow(int argc, char** argv) {
    const std::string_view first = argc > 1 ? argv[1] : "";
    // Dashes alone are names, or stand before one.
    if (first == "-" || first == "--" || first == "--quick-paste" || first == "--activated")
        return true;
    return first != "protect" && first != "detect" && !first.starts_with('-');
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    if (isForWindow(argc, argv))
        return std::make_unique<QApplication>(argc, argv);
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    const ActivationToken token = ActivationToken::fromEnvironment();
    const auto application = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(u"Veilshot"_s);
    QCoreApplication::setApplicationVersion(u"" VEILSHOT_VERSION ""_s);

    // Qt has just taken over the user's locale; numbers on the command line and in the libraries' files have
    // points.
    std::setlocale(LC_NUMERIC, "C");

    if (!areArgumentsText(argc, argv)) {
        StandardStreams::writeErrorLine(u"An argument is not valid text in this locale's encoding."_s);
        return exitWrongUsage;
    }
    const auto parsed = parseCommandLine(QCoreApplication::arguments());
    if (const auto* answer = std::get_if<CommandLineAnswer>(&parsed)) {
        if (answer->exitCode == exitDone)
            StandardStreams::writeOutput(answer->text.toUtf8() + '\n');
        else
            StandardStreams::writeErrorLine(answer->text);
        return answer->exitCode;
    }
    if (const auto* window = std::get_if<WindowRequest>(&parsed))
        return runWindow(*window, token);
    return runScan(std::get<ScanRequest>(parsed));
}
