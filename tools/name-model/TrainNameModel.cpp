// Learns the model of the name tagger from labelled lines; README.md beside this file tells how to call it.

#include "LabelledLine.h"
#include "NameLearner.h"
#include "ReadingNoise.h"

#include "VeilshotCore/Analysis/NameTagging/FrontCoding.h"
#include "VeilshotCore/Analysis/NameTagging/ListNameTagger.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <iostream>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

struct Options {
    std::vector<std::string> paths;
    std::vector<std::string> countedTwice;
    std::string output;
    std::string lists;
    double noiseShare = 0.25;
    double thinnedShare = 0.3;
    double droppedNames = 0.5;
    double droppedWords = 0.25;
    /// One for each run: what is drawn with it. A model's few doubtful names hang on it.
    std::vector<unsigned> seeds{1, 3, 4};
    LearningOptions learning;
};

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("Cannot read " + path.toStdString());
    return file.readAll();
}

NameLexicon lexiconOf(const QByteArray& names) {
    return NameLexicon(names, contentOf(u":/Veilshot/Analysis/NameContext.txt"_s));
}

/// The lists without a share of their words. Nearly every name of the corpora stands in the lists, on a
/// screen every tenth does not: so the spelling and the neighbours of such names are learnt, too.
NameLexicon thinnedLexicon(const QByteArray& names, const Options& options, unsigned seed) {
    std::mt19937 random(seed);
    std::bernoulli_distribution isNameDropped(options.droppedNames);
    std::bernoulli_distribution isWordDropped(options.droppedWords);
    QByteArray kept;
    for (const QByteArray& line : names.split('\n')) {
        const QByteArray flags = line.mid(line.indexOf(' ') + 1);
        const bool isName =
            std::ranges::any_of(flags, [](char flag) { return QByteArrayView("FfLl").contains(flag); });
        if (!(isName ? isNameDropped(random) : isWordDropped(random)))
            kept += line + '\n';
    }
    return lexiconOf(kept);
}

LabelledFeatures featuresOf(const LabelledLine& line, const NameLexicon& lexicon) {
    constexpr uint8_t begin = 0;
    constexpr uint8_t inside = 1;
    constexpr uint8_t outside = 2;
    const std::vector<NameToken> tokens = nameTokens(line.text);
    LabelledFeatures features;
    features.tokens =
        nameFeatures(lexicon, line.text, tokens, ListNameTagger(lexicon).personalNames(line.text));
    features.labels.assign(tokens.size(), outside);
    for (const TextRange& name : line.names) {
        uint8_t label = begin;
        for (size_t at = 0; at < tokens.size(); ++at) {
            if (tokens[at].range.intersects(name) && features.labels[at] == outside)
                features.labels[at] = std::exchange(label, inside);
        }
    }
    return features;
}

/// The lines with what is drawn anew for each run: which are repeated with reading errors, and which are seen
/// with thinned lists.
std::vector<LabelledFeatures> drawnLines(const std::vector<LabelledLine>& all, const QByteArray& names,
                                         const Options& options, unsigned seed) {
    std::vector<LabelledFeatures> lines;
    ReadingNoise noise(seed);
    std::mt19937 random(seed + 1);
    std::bernoulli_distribution isRepeated(options.noiseShare);
    std::bernoulli_distribution isThinned(options.thinnedShare);
    const NameLexicon whole = lexiconOf(names);
    std::vector<NameLexicon> thinned;
    for (const unsigned list : {1u, 2u, 3u, 4u})
        thinned.push_back(thinnedLexicon(names, options, list));
    const auto lexicon = [&]() -> const NameLexicon& {
        return isThinned(random) ? thinned[random() % thinned.size()] : whole;
    };
    for (const LabelledLine& line : all) {
        lines.push_back(featuresOf(line, lexicon()));
        if (isRepeated(random))
            lines.push_back(featuresOf(noise.applied(line), lexicon()));
    }
    std::erase_if(lines, [](const LabelledFeatures& line) { return line.tokens.empty(); });
    return lines;
}

void train(const Options& options) {
    std::vector<LabelledLine> lines;
    for (const std::string& path : options.paths) {
        const bool countsTwice = std::ranges::find(options.countedTwice, path) != options.countedTwice.end();
        for (const LabelledLine& line : readLabelledLines(QString::fromStdString(path)))
            lines.insert(lines.end(), countsTwice ? 2 : 1, line);
    }
    const QByteArray names = frontDecoded(contentOf(QString::fromStdString(options.lists)));
    const auto draw = [&](size_t run) { return drawnLines(lines, names, options, options.seeds[run]); };
    const NameModel model = learntModel(draw, options.seeds.size(), options.learning);
    const QByteArray bytes = model.toBytes();
    QSaveFile file(QString::fromStdString(options.output));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw std::runtime_error("Cannot write " + options.output);
    std::cout << model.weights.size() << " features, " << bytes.size() << " bytes\n";
}

} // namespace
} // namespace Veilshot

int main(int argc, char** argv) {
    Veilshot::Options options;
    Veilshot::LearningOptions& learning = options.learning;
    CLI::App app("Learns the name tagger's model from labelled lines");
    app.option_defaults()->always_capture_default();
    app.add_option("paths", options.paths, "Files of labelled lines")->required();
    app.add_option("--output", options.output, "The model file to write")->required();
    app.add_option("--lists", options.lists, "The narrow lists, as build-name-lexicon.py writes them")
        ->required();
    app.add_option("--twice", options.countedTwice, "Those of them that count twice");
    app.add_option("--noise", options.noiseShare, "Share of the lines repeated with reading errors");
    app.add_option("--thinned", options.thinnedShare, "Share of the lines seen with thinned lists");
    app.add_option("--dropped-names", options.droppedNames, "Share of the names the thinned lists lack");
    app.add_option("--dropped-words", options.droppedWords, "Share of the other words they lack");
    app.add_option("--seeds", options.seeds, "One for each of the models that the one is the mean of");
    app.add_option("--rounds", learning.rounds);
    app.add_option("--rounds-for-all", learning.roundsForAll, "After these the features are weeded out");
    app.add_option("--features", learning.keptFeatures, "Number of features kept");
    app.add_option("--forgotten", learning.forgotten, "Share of the features hidden in each step");
    app.add_option("--bias", learning.bias, "Added in favour of names");
    CLI11_PARSE(app, argc, argv);
    try {
        Veilshot::train(options);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
