// Measures the name tagger on labelled lines: one row of figures for each file.

#include "LabelledLine.h"

#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>
#include <exception>

namespace Veilshot {
namespace {

struct Figures {
    int names = 0, found = 0, exact = 0, covered = 0; ///< `covered`: at least half of the name is found
    int namelessLines = 0, flagged = 0;

    void add(const LabelledLine& line, const std::vector<TextRange>& tagged) {
        found += static_cast<int>(tagged.size());
        for (const TextRange& name : line.names) {
            ++names;
            exact += static_cast<int>(std::ranges::count(tagged, name));
            qsizetype characters = 0;
            for (const TextRange& range : tagged)
                characters += std::max<qsizetype>(0, std::min(range.end(), name.end()) -
                                                         std::max(range.location, name.location));
            covered += 2 * characters >= name.length ? 1 : 0;
        }
        namelessLines += line.names.empty() ? 1 : 0;
        flagged += line.names.empty() && !tagged.empty() ? 1 : 0;
    }
};

double percent(int part, int whole) {
    return whole > 0 ? 100.0 * part / whole : 0;
}

void measure(const QString& path) {
    const TrainedNameTagger tagger;
    const std::vector<LabelledLine> lines = readLabelledLines(path);
    Figures figures;
    QElapsedTimer timer;
    timer.start();
    for (const LabelledLine& line : lines)
        figures.add(line, tagger.personalNames(line.text));
    const auto perLine = static_cast<double>(timer.nsecsElapsed()) / 1e3 / std::max<double>(1, lines.size());
    std::printf(
        "%-16s F1 %5.1f   covered %5.1f   flagged %5.1f   (%d names, %d nameless lines, %.0f µs per line)\n",
        QFileInfo(path).baseName().toUtf8().constData(),
        percent(2 * figures.exact, figures.names + figures.found), percent(figures.covered, figures.names),
        percent(figures.flagged, figures.namelessLines), figures.names, figures.namelessLines, perLine);
}

} // namespace
} // namespace Veilshot

int main(int argc, char** argv) {
    try {
        for (int at = 1; at < argc; ++at)
            Veilshot::measure(QString::fromLocal8Bit(argv[at]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return argc > 1 ? 0 : 2;
}
