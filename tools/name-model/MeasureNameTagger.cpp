// Measures the name tagger on labelled lines: one row of figures for each file.

#include "LabelledLine.h"

#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include <CLI/CLI.hpp>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>
#include <exception>

namespace Veilshot {
namespace {

qsizetype charactersIn(const std::vector<TextRange>& ranges, TextRange within) {
    qsizetype characters = 0;
    for (const TextRange& range : ranges)
        characters += std::max<qsizetype>(0, std::min(range.end(), within.end()) -
                                                 std::max(range.location, within.location));
    return characters;
}

struct Figures {
    int names = 0, found = 0, exact = 0, covered = 0; ///< `covered`: at least half of the name is found
    int namelessLines = 0, flagged = 0;
    qsizetype nameCharacters = 0, openCharacters = 0;
    qsizetype otherCharacters = 0, hiddenCharacters = 0;

    void add(const LabelledLine& line, std::vector<TextRange> tagged) {
        std::erase_if(tagged, [&](const TextRange& range) { return charactersIn(line.others, range) > 0; });
        found += static_cast<int>(tagged.size());
        const TextRange whole{0, line.text.size()};
        qsizetype hidden = charactersIn(tagged, whole);
        for (const TextRange& name : line.names) {
            ++names;
            exact += static_cast<int>(std::ranges::count(tagged, name));
            const qsizetype characters = charactersIn(tagged, name);
            covered += 2 * characters >= name.length ? 1 : 0;
            nameCharacters += name.length;
            openCharacters += name.length - characters;
            hidden -= characters;
        }
        otherCharacters += whole.length - charactersIn(line.names, whole) - charactersIn(line.others, whole);
        hiddenCharacters += hidden;
        namelessLines += line.names.empty() ? 1 : 0;
        flagged += line.names.empty() && !tagged.empty() ? 1 : 0;
    }
};

double percent(qsizetype part, qsizetype whole) {
    return whole > 0 ? 100.0 * static_cast<double>(part) / static_cast<double>(whole) : 0;
}

void measure(const TrainedNameTagger& tagger, const QString& path, bool listsFaults) {
    const std::vector<LabelledLine> lines = readLabelledLines(path);
    Figures figures;
    QElapsedTimer timer;
    timer.start();
    for (const LabelledLine& line : lines) {
        const std::vector<TextRange> tagged = tagger.personalNames(line.text);
        figures.add(line, tagged);
        if (listsFaults && tagged != line.names) {
            std::printf("%s\n   ", line.text.toUtf8().constData());
            for (const TextRange& name : line.names)
                std::printf(" [%s]", line.text.sliced(name.location, name.length).toUtf8().constData());
            std::printf("\n   ");
            for (const TextRange& name : tagged)
                std::printf(" <%s>", line.text.sliced(name.location, name.length).toUtf8().constData());
            std::printf("\n");
        }
    }
    const auto perLine = static_cast<double>(timer.nsecsElapsed()) / 1e3 / std::max<double>(1, lines.size());
    std::printf("%-16s F1 %5.1f   covered %5.1f   flagged %5.1f   open %5.2f   hidden %5.2f   "
                "(%d names, %d nameless lines, %.0f µs per line)\n",
                QFileInfo(path).baseName().toUtf8().constData(),
                percent(2 * figures.exact, figures.names + figures.found),
                percent(figures.covered, figures.names), percent(figures.flagged, figures.namelessLines),
                percent(figures.openCharacters, figures.nameCharacters),
                percent(figures.hiddenCharacters, figures.otherCharacters), figures.names,
                figures.namelessLines, perLine);
}

TrainedNameTagger taggerOf(const std::string& model) {
    if (model.empty())
        return TrainedNameTagger();
    QFile file(QString::fromStdString(model));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("Cannot read " + model);
    return TrainedNameTagger(file.readAll());
}

} // namespace
} // namespace Veilshot

int main(int argc, char** argv) {
    std::vector<std::string> paths;
    std::string model;
    bool listsFaults = false;
    CLI::App app("Measures the name tagger on labelled lines");
    app.add_option("paths", paths, "Files of labelled lines")->required();
    app.add_option("--model", model, "A model file in place of the one built in");
    app.add_flag("--faults", listsFaults, "Also print each line whose names are not exactly found");
    CLI11_PARSE(app, argc, argv);
    try {
        const Veilshot::TrainedNameTagger tagger = Veilshot::taggerOf(model);
        for (const std::string& path : paths)
            Veilshot::measure(tagger, QString::fromStdString(path), listsFaults);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
