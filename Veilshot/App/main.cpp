#include "Veilshot/App/CommandLine.h"
#include "Veilshot/App/ScanCommand.h"
#include "Veilshot/App/StandardStreams.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace Veilshot;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"Veilshot"_s);
    QCoreApplication::setApplicationVersion(u"" VEILSHOT_VERSION ""_s);

    const auto parsed = parseCommandLine(QCoreApplication::arguments());
    if (const auto* answer = std::get_if<CommandLineAnswer>(&parsed)) {
        if (answer->exitCode == exitDone)
            StandardStreams::writeOutput(answer->text.toUtf8() + '\n');
        else
            StandardStreams::writeErrorLine(answer->text);
        return answer->exitCode;
    }
    return runScan(std::get<ScanRequest>(parsed));
}
