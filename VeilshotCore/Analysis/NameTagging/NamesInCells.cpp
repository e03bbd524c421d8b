#include "VeilshotCore/Analysis/NameTagging/NamesInCells.h"

#include "VeilshotCore/Analysis/ColumnLine.h"
#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"
#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"
#include "VeilshotCore/Analysis/TellingLabel.h"

#include <QStringView>
#include <algorithm>

namespace Veilshot {

namespace {

struct Cell {
    TextRange range;
    std::vector<TextRange> names; ///< in the line
    bool isLabel = false;
    std::size_t words = 0;
    bool hasShapeOfName = false;
    bool hasKnownName = false;
    bool hasMeaning = false; ///< of at least one word, be it a name as well
    bool hasUsualMeaning = false;

    /// Whether the names fill the cell, but for a word or two.
    bool isName() const {
        qsizetype length = 0;
        for (const TextRange name : names)
            length += name.length;
        return !names.empty() && 5 * length >= 3 * range.length;
    }
    bool mayBeName() const { return hasShapeOfName && (hasKnownName || !hasMeaning); }
};

std::vector<TextRange> cellRanges(const QString& line) {
    const QStringView separator = line.contains(cellSeparator) ? cellSeparator : QStringView(u"\t");
    std::vector<TextRange> ranges;
    qsizetype start = 0;
    for (const QStringView cell : QStringView(line).split(separator)) {
        ranges.push_back({start, cell.size()});
        start += cell.size() + separator.size();
    }
    return ranges;
}

Cell examined(const QString& line, TextRange range, const NameTagger& tagger) {
    constexpr std::size_t mostWords = 5;
    const QString text = line.sliced(range.location, range.length);
    Cell cell;
    cell.range = range;
    cell.isLabel = isLabelOfPerson(text) || isLabelOfDetail(text);
    for (const TextRange name : tagger.personalNames(text))
        cell.names.push_back({range.location + name.location, name.length});

    const WordTraits noName =
        WordTrait::organisation | WordTrait::product | WordTrait::functionWord | WordTrait::title;
    bool isShaped = true;
    bool isBehindFirstName = false;
    for (const NameToken& token : nameTokens(text)) {
        if (token.kind != NameToken::Kind::word) {
            isShaped = isShaped && token.kind == NameToken::Kind::punctuation;
            continue;
        }
        ++cell.words;
        const WordTraits traits = NameLexicon::shared().traits(token.folded);
        const bool isCapital = token.letterCase != NameToken::LetterCase::lower &&
                               token.letterCase != NameToken::LetterCase::none;
        isShaped = isShaped && !token.hasDigits && !(traits & noName) &&
                   // A surname whose first letter was misread may begin with a small one: "Zbigniew topatka".
                   (isCapital || traits.testFlag(WordTrait::particle) || (isBehindFirstName && !traits));
        isBehindFirstName = (traits & anyFirstName) && !(traits & anyMeaning);
        cell.hasKnownName = cell.hasKnownName || (traits & anyName);
        cell.hasMeaning = cell.hasMeaning || (traits & anyMeaning);
        cell.hasUsualMeaning = cell.hasUsualMeaning || (traits & anyMeaning & ~unusualMeaning);
    }
    cell.hasShapeOfName = isShaped && cell.words > 0 && cell.words <= mostWords;
    return cell;
}

/// What the label or the company of a cell says of it.
enum class Company { names, people, mixed };

Company companyOf(const std::vector<Cell>& cells, const QString& label) {
    const auto begin = cells.begin() + 1;
    const auto values = cells.end() - begin;
    const auto names = std::count_if(begin, cells.end(), [](const Cell& cell) { return cell.isName(); });
    // Otherwise the labels of a form, one below the other.
    const bool hasValues = std::none_of(begin, cells.end(), [](const Cell& cell) { return cell.isLabel; });
    const auto likely = std::count_if(begin, cells.end(), [](const Cell& cell) { return cell.mayBeName(); });
    // Below the header of a column stand mostly names, below the label of a form other labels.
    if (hasValues && isLabelOfName(label) && values > 1)
        return 2 * likely >= values ? Company::names : Company::people;
    // A single value beside a label may be a button: "Owner", "Mark Complete".
    const bool isStranger =
        values == 1 && begin->hasShapeOfName &&
        (!begin->hasMeaning || (begin->words > 1 && begin->hasKnownName && !begin->hasUsualMeaning));
    if (hasValues && isLabelOfName(label) && isStranger)
        return Company::names;
    if (hasValues && isLabelOfPerson(label) && (names > 0 || isStranger))
        return Company::people;
    // "Villads", "Adaeze", "Storm", "Liv": every one may be a name, and at least one is.
    const bool areAllKnown = std::all_of(
        begin, cells.end(), [](const Cell& cell) { return cell.mayBeName() && cell.hasKnownName; });
    if (names >= 1 && values >= 3 && areAllKnown)
        return Company::people;
    return names >= 2 && 5 * names >= 3 * values ? Company::people : Company::mixed;
}

bool isNameIn(Company company, const Cell& cell) {
    switch (company) {
    case Company::names:
        return cell.hasShapeOfName;
    case Company::people:
        return cell.mayBeName() && (cell.words > 1 || cell.hasKnownName);
    case Company::mixed:
        break;
    }
    return false;
}

} // namespace

bool hasCells(const QString& line) {
    return line.contains(u'\t');
}

std::vector<TextRange> namesInCells(const QString& line, const NameTagger& tagger) {
    std::vector<Cell> cells;
    for (const TextRange range : cellRanges(line))
        cells.push_back(examined(line, range, tagger));
    const TextRange first = cells.front().range;
    const Company company = companyOf(cells, line.sliced(first.location, first.length));
    std::vector<TextRange> names = cells.front().names;
    for (auto cell = cells.begin() + 1; cell != cells.end(); ++cell) {
        if (isNameIn(company, *cell))
            names.push_back(cell->range);
        else
            std::ranges::copy(cell->names, std::back_inserter(names));
    }
    return names;
}

} // namespace Veilshot
