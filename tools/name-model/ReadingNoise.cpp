#include "ReadingNoise.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Confusion {
    QStringView written;
    double probability = 0;            ///< on a line that was badly read
    std::array<QStringView, 3> readAs; ///< empty where there are fewer
};

constexpr double rare = 0.03;
constexpr double frequent = 0.15;
constexpr double usual = 0.6;

/// What text recognition makes of small letters and typographic marks.
constexpr std::array confusions{
    Confusion{u"rn", rare, {u"m"}},
    Confusion{u"cl", rare, {u"d"}},
    Confusion{u"m", rare, {u"rn", u"nn"}},
    Confusion{u"l", rare, {u"1", u"I", u"|"}},
    Confusion{u"I", frequent, {u"l", u"|", u"1"}},
    Confusion{u"i", rare, {u"l", u"1", u"í"}},
    Confusion{u"1", rare, {u"l", u"I", u"i"}},
    Confusion{u"O", rare, {u"0", u"Ø"}},
    Confusion{u"0", rare, {u"O", u"o"}},
    Confusion{u"o", rare, {u"0", u"a", u"e"}},
    Confusion{u"S", rare, {u"5", u"8"}},
    Confusion{u"s", rare, {u"5", u"z"}},
    Confusion{u"B", rare, {u"8", u"R"}},
    Confusion{u"e", rare, {u"c", u"é", u"o"}},
    Confusion{u"c", rare, {u"e", u"o"}},
    Confusion{u"a", rare, {u"å", u"ä", u"s"}},
    Confusion{u"g", rare, {u"q", u"9"}},
    Confusion{u"h", rare, {u"b", u"n"}},
    Confusion{u"n", rare, {u"h", u"r"}},
    Confusion{u"u", rare, {u"ú", u"v"}},
    Confusion{u"v", rare, {u"y", u"w"}},
    Confusion{u"t", rare, {u"f", u"l"}},
    Confusion{u"f", rare, {u"t"}},
    Confusion{u"å", frequent, {u"a", u"ä", u"à"}},
    Confusion{u"Å", frequent, {u"A", u"Ä"}},
    Confusion{u"ø", frequent, {u"o", u"a", u"ö"}},
    Confusion{u"Ø", frequent, {u"O", u"0", u"@"}},
    Confusion{u"æ", frequent, {u"e", u"ze", u"ee"}},
    Confusion{u"Æ", frequent, {u"AE", u"E"}},
    Confusion{u"á", usual, {u"a", u"å"}},
    Confusion{u"ü", frequent, {u"u", u"ii"}},
    Confusion{u"č", usual, {u"c", u"é"}},
    Confusion{u"ł", usual, {u"t", u"l"}},
    Confusion{u"Ł", usual, {u"L", u"t"}},
    Confusion{u"’", frequent, {u"'", u"`"}},
    Confusion{u",", rare, {u"."}},
    Confusion{u".", rare, {u","}},
    Confusion{u":", rare, {u".", u";"}},
    Confusion{u"–", usual, {u"-", u"—"}},
    Confusion{u"·", usual, {u"-", u"+", u"."}},
    Confusion{u"•", usual, {u"*", u"+", u"-"}},
    Confusion{u"…", usual, {u"..."}},
};

QString withoutDiacritics(QStringView text) {
    QString plain;
    for (const QChar c : text) {
        const QString parts = QString(c).normalized(QString::NormalizationForm_D);
        plain += c == u'ø'   ? QChar(u'o')
                 : c == u'Ø' ? QChar(u'O')
                 : c == u'ł' ? QChar(u'l')
                 : c == u'Ł' ? QChar(u'L')
                             : parts.front();
    }
    return plain;
}

} // namespace

/// What is read at the front of `rest`; `taken` becomes the number of code units it stands for.
QString ReadingNoise::misread(QStringView rest, qsizetype& taken) {
    for (const Confusion& confusion : confusions) {
        if (!rest.startsWith(confusion.written) || !happens(confusion.probability))
            continue;
        taken = confusion.written.size();
        const auto end = std::find(confusion.readAs.begin(), confusion.readAs.end(), QStringView());
        const auto last = static_cast<size_t>(end - confusion.readAs.begin()) - 1;
        return confusion.readAs[std::uniform_int_distribution<size_t>(0, last)(m_random)].toString();
    }
    taken = 1;
    return rest.first(1).toString();
}

LabelledLine ReadingNoise::applied(const LabelledLine& line) {
    const bool isMisread = happens(0.8);
    const double lostBlanks = happens(0.1) ? 0.15 : 0;
    const bool losesDiacritics = happens(0.3);
    enum class Capitals { kept, all, none };
    const Capitals capitals = happens(0.1) ? Capitals::all : happens(0.1) ? Capitals::none : Capitals::kept;

    const auto isNameEdge = [&](qsizetype at) {
        return std::any_of(line.names.begin(), line.names.end(),
                           [&](TextRange name) { return name.location == at + 1 || name.end() == at; });
    };
    LabelledLine noisy;
    std::vector<qsizetype> places(static_cast<size_t>(line.text.size()) + 1, 0); // of every code unit
    for (qsizetype at = 0; at < line.text.size();) {
        qsizetype taken = 1;
        const QStringView rest = QStringView(line.text).sliced(at);
        QString read = isMisread ? misread(rest, taken) : rest.first(1).toString();
        // A name that runs into its neighbour could not be told from it.
        if (line.text[at] == u' ' && !isNameEdge(at) && happens(lostBlanks))
            read.clear();
        if (losesDiacritics)
            read = withoutDiacritics(read);
        if (capitals != Capitals::kept)
            read = capitals == Capitals::all ? read.toUpper() : read.toLower();
        for (qsizetype unit = at; unit < at + taken; ++unit)
            places[static_cast<size_t>(unit)] = noisy.text.size();
        noisy.text += read;
        at += taken;
    }
    places.back() = noisy.text.size();
    for (const TextRange& name : line.names) {
        const qsizetype start = places[static_cast<size_t>(name.location)];
        noisy.names.push_back({start, places[static_cast<size_t>(name.end())] - start});
    }
    return noisy;
}

} // namespace Veilshot
