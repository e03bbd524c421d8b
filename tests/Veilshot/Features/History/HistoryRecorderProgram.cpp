// Records small copies one after another, so that a test can stop it at any moment or fill its disk:
// HistoryRecorder FOLDER COUNT. Prints a line for each: its id, or "-" when it could not be kept.
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/UserDefaults.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <cstdio>

using namespace Veilshot;

namespace {

/// Pixels that hardly compress, so that a file is as large as it looks.
QImage noise() {
    QImage image(16, 16, QImage::Format_RGBA8888);
    QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(image.bits()), 16 * 16);
    return image;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    const QStringList words = application.arguments();
    UserDefaults defaults(words.at(1) + QStringLiteral("/settings.conf")); // never written
    const SystemClock clock;
    HistoryStore store(QUrl::fromLocalFile(words.at(1)), defaults, clock);
    for (int i = 0; i < words.at(2).toInt(); ++i) {
        const HistoryStore::Entries before = store.entries();
        const bool replaces = i % 3 == 2 && !before.empty();
        const auto listed = store.record(noise(), i, replaces ? std::optional(before[0].id) : std::nullopt);
        store.finishRecordings();
        const std::optional<QUuid> id = listed.result();
        if (id ? store.entries().at(0).id != *id : store.entries() != before)
            return 1;
        std::puts(id ? qPrintable(id->toString()) : "-");
        std::fflush(stdout);
    }
}
