#include "VeilshotCore/Analysis/ListNameTagger.h"

#include "VeilshotCore/Analysis/NameEvidence.h"
#include "VeilshotCore/Analysis/NameTokenizer.h"

#include <algorithm>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

/// Points from which on a run counts as a name.
constexpr double aloneThreshold = 2.3;
constexpr double joinedThreshold = 2.6;
constexpr size_t longestName = 6; ///< words

/// What stands between two words.
enum class Separator {
    edge,  ///< begin or end of the line
    blank, ///< one blank; also the dot of an initial or a title
    wide,  ///< a column gap
    comma,
    ampersand,
    slash,
    colon,
    dash,
    possessive, ///< ’s
    at,         ///< an @ directly before the word
    glued,      ///< inside an address, path or identifier
    other,
};

struct Word {
    TextRange range;
    LetterCase letterCase = LetterCase::none;
    WordTraits traits;
    NameEvidence evidence;
    std::string folded;
    Separator before = Separator::edge;
    bool isNumber = false;
    bool canBeName = false;
    bool isInName = false;

    bool is(WordTrait trait) const { return bool(traits & trait); }
    bool isCapitalized() const { return letterCase == LetterCase::title || letterCase == LetterCase::upper; }
    bool isOrdinary() const { return !isNumber && !(traits & anyName) && letterCase != LetterCase::initial; }
};

struct Candidate {
    size_t first = 0;
    size_t last = 0; ///< inclusive
    double surplus = 0;
};

bool takesDot(const Word& word) {
    return word.letterCase == LetterCase::initial || word.is(WordTrait::title) ||
           word.is(WordTrait::suffix) || (word.is(WordTrait::greeting) && word.range.length <= 4);
}

Separator separatorOf(QStringView between, const Word& before, bool endsLine, bool beginsLine) {
    if (endsLine || beginsLine) {
        if (beginsLine && between.endsWith(u'@'))
            return Separator::at;
        return beginsLine && !between.trimmed().isEmpty() &&
                       QStringView(u"–—-").contains(between.trimmed().back())
                   ? Separator::dash
                   : Separator::edge;
    }
    const QStringView marks = between.trimmed();
    if (marks.isEmpty())
        return between.contains(u'\t') || between.size() > 1 ? Separator::wide : Separator::blank;
    const bool isGlued = std::none_of(between.begin(), between.end(), [](QChar c) { return c.isSpace(); });
    if (between.endsWith(u'@'))
        return isGlued ? Separator::glued : Separator::at;
    switch (marks.front().unicode()) {
    case u'.':
        if (marks.size() == 1 && takesDot(before))
            return Separator::blank;
        return isGlued ? Separator::glued : Separator::other;
    case u'_':
    case u'\\':
    case u'=':
        return isGlued ? Separator::glued : Separator::other;
    case u'/':
        return marks.size() > 1 && isGlued ? Separator::glued : Separator::slash;
    case u':':
        return isGlued ? Separator::glued : Separator::colon;
    case u',':
        return marks.size() == 1 && !isGlued ? Separator::comma : Separator::other;
    case u'&':
        return Separator::ampersand;
    case u'-':
    case u'–':
    case u'—':
        return isGlued ? Separator::other : Separator::dash;
    default:
        return Separator::other;
    }
}

/// The words and numbers of a line with what separates them, and how names may lie in them.
class Line {
public:
    Line(const NameLexicon& lexicon, QStringView text) : m_lexicon(lexicon), m_text(text) {
        readWords();
        markBrands();
    }

    std::vector<TextRange> names();

private:
    void readWords();
    void markBrands();
    void addSequences(std::vector<Candidate>& candidates) const;
    void addLastBeforeFirst(std::vector<Candidate>& candidates) const;
    void addCoordinated(std::vector<Candidate>& names);

    double joinedEvidence(size_t first, size_t last) const;
    double leftContext(size_t first, bool isAlone) const;
    double rightContext(size_t last, bool isAlone) const;
    double proseContext(size_t first, size_t last) const;
    double cellContext(size_t first, size_t last) const;
    bool joins(size_t left) const;
    bool opensCell(size_t at) const;
    bool closesCell(size_t at) const { return opensCell(at + 1); }
    bool isCompanyForm(size_t at) const;
    bool isFollowedBy(size_t at, QStringView mark) const;
    TextRange rangeOf(const Candidate& name) const;

    const NameLexicon& m_lexicon;
    QStringView m_text;
    bool m_isSmall = true;     ///< written without capitals, as in a chat
    std::vector<Word> m_words; ///< ends with an empty one, so that every word has a right neighbour
};

void Line::readWords() {
    qsizetype end = 0;
    bool possessive = false;
    for (NameToken& token : nameTokens(m_text)) {
        possessive = possessive || token.kind == NameToken::Kind::possessive;
        if (token.kind != NameToken::Kind::word && token.kind != NameToken::Kind::number)
            continue;
        Word word;
        word.range = token.range;
        word.letterCase = token.letterCase;
        word.isNumber = token.kind == NameToken::Kind::number;
        word.before = possessive
                          ? Separator::possessive
                          : separatorOf(m_text.sliced(end, token.range.location - end),
                                        m_words.empty() ? word : m_words.back(), false, m_words.empty());
        if (!word.isNumber) {
            word.traits = lineWordTraits(m_lexicon, token, m_text);
            word.evidence = nameEvidence(token, word.traits);
            const bool isNamed = bool(word.traits & anyName);
            word.canBeName = token.hasDigits || token.letterCase == LetterCase::mixed ||
                                     token.letterCase == LetterCase::lower
                                 ? isNamed
                                 : true;
            const bool isCompound =
                token.letterCase == LetterCase::mixed && token.folded.find('-') != std::string::npos;
            if (isCompound)
                word.canBeName = false;
            if (token.hasDigits && !isNamed)
                word.isNumber = true;
        }
        m_isSmall = m_isSmall && (word.letterCase == LetterCase::lower || word.isNumber);
        word.folded = std::move(token.folded);
        if (word.before == Separator::glued) {
            word.canBeName = false;
            m_words.back().canBeName = false;
        }
        end = token.range.end();
        possessive = false;
        m_words.push_back(std::move(word));
    }
    Word beyond;
    beyond.range = {m_text.size(), 0};
    beyond.before = possessive ? Separator::possessive : Separator::edge;
    m_words.push_back(beyond);
}

void Line::markBrands() {
    for (size_t at = 0; at + 2 < m_words.size(); ++at) {
        if (!m_lexicon.isBrand(m_words[at].folded, m_words[at + 1].folded))
            continue;
        m_words[at].canBeName = false;
        m_words[at + 1].canBeName = false;
    }
}

bool Line::opensCell(size_t at) const {
    const Word& word = m_words[at];
    if (word.before == Separator::blank)
        return at > 0 && m_words[at - 1].isNumber;
    return word.before != Separator::possessive && word.before != Separator::glued;
}

/// "A/S" and "I/S" behind a name.
bool Line::isCompanyForm(size_t at) const {
    return at + 1 < m_words.size() && m_words[at].letterCase == LetterCase::initial &&
           m_words[at + 1].before == Separator::slash && m_words[at + 1].folded == "s";
}

bool Line::isFollowedBy(size_t at, QStringView mark) const {
    return m_text.sliced(m_words[at].range.end()).trimmed().startsWith(mark);
}

/// Whether a name may go on from this word to the next.
bool Line::joins(size_t left) const {
    const Word& word = m_words[left];
    const Word& next = m_words[left + 1];
    if (next.before == Separator::wide) // a name torn apart by recognition, not two columns
        return next.range.location - word.range.end() == 2 && (word.traits & anyFirstName) &&
               (next.traits & anyLastName) && !next.is(WordTrait::role);
    return next.before == Separator::blank;
}

double Line::joinedEvidence(size_t first, size_t last) const {
    const Word& opening = m_words[first];
    const Word& closing = m_words[last];
    double inside = 0;
    for (size_t at = first + 1; at < last; ++at) {
        const Word& word = m_words[at];
        const Word& next = m_words[at + 1];
        if (word.letterCase == LetterCase::initial || word.is(WordTrait::particle))
            inside += 0.4;
        else if ((word.traits & anyLastName) && !(word.traits & anyFirstName) &&
                 (next.traits & anyFirstName) && !(next.traits & anyLastName))
            inside -= 3.0; // one name ends here, the next begins
        else
            inside += 0.5 * std::max(word.evidence.asFirstName, word.evidence.asLastName) - 0.1;
    }
    const double usual = opening.evidence.asFirstName + closing.evidence.asLastName;
    const double reversed = opening.evidence.asLastName + closing.evidence.asFirstName - 1.0;
    const bool isCommon = opening.is(WordTrait::strongFirstName) && closing.is(WordTrait::strongLastName);
    return std::max(usual, reversed) + inside + (isCommon ? 0.4 : 0);
}

double Line::leftContext(size_t first, bool isAlone) const {
    const Word& word = m_words[first];
    if (first == 0)
        return word.before == Separator::dash ? 0.8 : 0;
    const Word& left = m_words[first - 1];
    const bool touches = word.before == Separator::blank;
    const bool isLabelled = touches || word.before == Separator::colon || word.before == Separator::wide;
    if (left.is(WordTrait::title) && touches && left.letterCase != LetterCase::lower)
        return 3.0;
    if (left.is(WordTrait::greeting) && (touches || word.before == Separator::comma))
        return 2.0;
    if (left.is(WordTrait::label) && word.before == Separator::colon)
        return 2.0;
    if (left.is(WordTrait::nameBefore) && isLabelled)
        return 1.5;
    if ((left.is(WordTrait::label) && isLabelled) || (left.is(WordTrait::role) && touches))
        return 1.0;
    if (left.is(WordTrait::namePossible) && touches)
        return 0.8;
    if (left.is(WordTrait::beforePlace) && touches && left.letterCase != LetterCase::lower)
        return -4.0;
    if (word.before == Separator::ampersand)
        return isAlone && !word.is(WordTrait::strongFirstName) ? -3.0 : 0;
    if (word.before == Separator::dash && closesCell(first))
        return 1.5;
    if (left.is(WordTrait::locative) && touches && left.letterCase == LetterCase::lower)
        return isAlone ? -1.5 : -0.4;
    if (touches && left.isCapitalized() && !left.isInName)
        return isAlone ? -1.5 : left.isOrdinary() ? -0.5 : -0.2;
    return 0;
}

double Line::rightContext(size_t last, bool isAlone) const {
    const Word& right = m_words[last + 1];
    const bool touches = right.before == Separator::blank;
    if (right.before == Separator::ampersand) {
        const bool isFirm = right.is(WordTrait::organisation) || right.folded == "co" ||
                            right.folded == "son" || right.folded == "sons";
        return isFirm || (isAlone && !m_words[last].is(WordTrait::strongFirstName)) ? -4.0 : 0;
    }
    if (isFollowedBy(last, u"<"))
        return 1.5;
    if (right.before == Separator::possessive && isAlone)
        return last + 2 < m_words.size() ? 1.5 : opensCell(last) ? -1.0 : 0; // "Anna's phone", but "Wendy's"
    if (!touches && right.before != Separator::comma)
        return 0;
    if (isCompanyForm(last + 1))
        return -5.0;
    const bool isLabel = last + 2 < m_words.size() && m_words[last + 2].before == Separator::colon;
    if (right.is(WordTrait::organisation) && right.letterCase != LetterCase::lower && !isLabel)
        return -5.0;
    if (!touches)
        return 0;
    if (right.letterCase == LetterCase::lower) {
        if (right.is(WordTrait::organisation) && last + 2 < m_words.size() && m_words[last + 2].isNumber)
            return -5.0; // a street
        if (right.is(WordTrait::personVerb))
            return 1.5;
        if (right.is(WordTrait::auxiliary))
            return 0.5;
        return 0;
    }
    if (right.isNumber)
        return isAlone ? -0.3 : 0;
    if (right.isCapitalized() && isAlone)
        return right.letterCase == m_words[last].letterCase ? -1.5 : -0.3;
    if (right.isCapitalized() && right.isOrdinary() && !right.is(WordTrait::role) &&
        !right.is(WordTrait::label))
        return -0.3;
    return 0;
}

/// Nothing else in the cell: more likely a name than the same words in a sentence.
double Line::cellContext(size_t first, size_t last) const {
    if (!opensCell(first) || !closesCell(last))
        return 0;
    bool hasMeaning = false;
    bool hasName = false;
    for (size_t at = first; at <= last; ++at) {
        hasMeaning = hasMeaning || (m_words[at].traits & anyMeaning);
        hasName = hasName || (m_words[at].traits & anyName);
    }
    if (hasMeaning || !hasName || m_words[first].range.length < 3)
        return 0;
    return first == last ? 0.8 : 0.6;
}

/// A capital in the midst of small letters marks a proper noun.
double Line::proseContext(size_t first, size_t last) const {
    const Separator before = m_words[first].before;
    const bool runsOn = before == Separator::blank || (first != last && before == Separator::comma);
    if (first == 0 || !runsOn)
        return 0;
    const Word& left = m_words[first - 1];
    const Word& right = m_words[last + 1];
    const bool rightIsSmall = right.before != Separator::blank || right.letterCase == LetterCase::lower;
    return left.letterCase == LetterCase::lower && rightIsSmall ? 1.0 : 0;
}

void Line::addSequences(std::vector<Candidate>& candidates) const {
    for (size_t first = 0; first + 1 < m_words.size(); ++first) {
        const Word& opening = m_words[first];
        if (!opening.canBeName || opening.is(WordTrait::title))
            continue;
        if (opening.letterCase != LetterCase::initial && opening.before != Separator::at) {
            double points = opening.evidence.alone + leftContext(first, true) + rightContext(first, true);
            if (opening.letterCase != LetterCase::lower)
                points += proseContext(first, first) + cellContext(first, first);
            else if (m_isSmall)
                points += 1.5;
            if (points >= aloneThreshold)
                candidates.push_back({first, first, points - aloneThreshold});
        }
        for (size_t last = first + 1; last + 1 < m_words.size() && last < first + longestName; ++last) {
            const Word& closing = m_words[last];
            if (!joins(last - 1) || !(closing.canBeName || closing.is(WordTrait::particle)))
                break;
            if (!closing.canBeName || closing.letterCase == LetterCase::initial ||
                closing.is(WordTrait::suffix))
                continue;
            const bool isSmall = closing.letterCase == LetterCase::lower;
            if (isSmall != (opening.letterCase == LetterCase::lower))
                continue;
            if (opening.letterCase != LetterCase::initial && closing.letterCase != opening.letterCase &&
                closing.letterCase != LetterCase::mixed && opening.letterCase != LetterCase::mixed)
                continue;
            double points =
                joinedEvidence(first, last) + leftContext(first, false) + rightContext(last, false);
            if (!isSmall)
                points += 0.5 * proseContext(first, last) + cellContext(first, last);
            else if (!opensCell(first) || !closesCell(last))
                points -= 1.5;
            if (points >= joinedThreshold)
                candidates.push_back({first, last, points - joinedThreshold});
        }
    }
}

/// "Carter, Emily" and "Krogh, Viggo B.", not the enumeration "Liam, Grace".
void Line::addLastBeforeFirst(std::vector<Candidate>& candidates) const {
    for (size_t last = 0; last + 2 < m_words.size(); ++last) {
        const Word& lastName = m_words[last];
        const Word& firstName = m_words[last + 1];
        if (firstName.before != Separator::comma || !opensCell(last) || lastName.before == Separator::comma ||
            !lastName.canBeName || !firstName.canBeName || !lastName.isCapitalized())
            continue;
        const bool isInitial = firstName.letterCase == LetterCase::initial;
        if (!isInitial && firstName.letterCase != lastName.letterCase)
            continue;
        if ((lastName.traits & anyFirstName) && !(lastName.traits & anyLastName))
            continue;
        size_t end = last + 1;
        while (end + 2 < m_words.size() && m_words[end + 1].before == Separator::blank &&
               m_words[end + 1].letterCase == LetterCase::initial &&
               m_text.sliced(m_words[end + 1].range.end()).startsWith(u'.'))
            ++end;
        if (m_words[end + 1].before == Separator::comma)
            continue;
        if (isInitial && lastName.is(WordTrait::place))
            continue;
        const double points = lastName.evidence.asLastName + firstName.evidence.asFirstName +
                              (isInitial ? 0.5 : 0) + leftContext(last, false);
        if (points >= joinedThreshold)
            candidates.push_back({last, end, points});
    }
}

/// A capitalized word joined to a name by "and" or the like is one, too, if nothing speaks against it.
void Line::addCoordinated(std::vector<Candidate>& names) {
    const auto isLink = [](const Word& word) {
        return word.folded == "and" || word.folded == "og" || word.folded == "or" || word.folded == "eller";
    };
    const auto consider = [&](size_t at) {
        Word& word = m_words[at];
        const bool hasCapital = word.letterCase == LetterCase::title || word.letterCase == LetterCase::upper;
        const bool standsAlone =
            m_words[at + 1].before != Separator::blank || m_words[at + 1].letterCase == LetterCase::lower;
        if (!word.canBeName || word.isInName || !hasCapital || !standsAlone || word.before == Separator::at ||
            rightContext(at, true) < -1 ||
            word.evidence.alone < (word.is(WordTrait::strongFirstName) ? -1.0 : 0.3))
            return;
        word.isInName = true;
        names.push_back({at, at, 0});
    };
    for (size_t index = 0; index < names.size(); ++index) {
        const size_t next = names[index].last + 1;
        const auto linksBySign = [&](size_t at) {
            return m_words[at].before == Separator::comma || m_words[at].before == Separator::slash ||
                   m_words[at].before == Separator::ampersand;
        };
        if (next + 1 < m_words.size()) {
            if (linksBySign(next))
                consider(next);
            else if (m_words[next].before == Separator::blank && isLink(m_words[next]) &&
                     next + 2 < m_words.size() && m_words[next + 1].before == Separator::blank)
                consider(next + 1);
        }
        const size_t first = names[index].first;
        if (first >= 1 && linksBySign(first))
            consider(first - 1);
        else if (first >= 2 && m_words[first].before == Separator::blank && isLink(m_words[first - 1]) &&
                 m_words[first - 1].before == Separator::blank)
            consider(first - 2);
    }
}

TextRange Line::rangeOf(const Candidate& name) const {
    size_t last = name.last;
    const Word& next = m_words[last + 1];
    const bool hasSuffix = last + 2 < m_words.size() && next.is(WordTrait::suffix) && last > name.first &&
                           (next.before == Separator::blank || next.before == Separator::comma) &&
                           next.letterCase != LetterCase::lower;
    if (hasSuffix)
        ++last;
    const qsizetype start = m_words[name.first].range.location;
    qsizetype end = m_words[last].range.end();
    const bool isAbbreviated = m_words[last].letterCase == LetterCase::initial ||
                               (hasSuffix && (next.folded == "jr" || next.folded == "sr"));
    if (isAbbreviated && m_text.sliced(end).startsWith(u'.'))
        ++end;
    return {start, end - start};
}

std::vector<TextRange> Line::names() {
    std::vector<Candidate> candidates;
    addSequences(candidates);
    addLastBeforeFirst(candidates);

    // The best set without overlaps: bestUpTo[n] is what the first n words can yield.
    std::vector<double> bestUpTo(m_words.size() + 1, 0);
    std::vector<const Candidate*> chosenAt(m_words.size() + 1, nullptr);
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate& left, const Candidate& right) { return left.last < right.last; });
    auto candidate = candidates.begin();
    for (size_t count = 1; count <= m_words.size(); ++count) {
        bestUpTo[count] = bestUpTo[count - 1];
        for (; candidate != candidates.end() && candidate->last + 1 == count; ++candidate) {
            // The small addend lets a name that just reaches the threshold win over none.
            const double points = bestUpTo[candidate->first] + candidate->surplus + 0.01;
            if (points > bestUpTo[count]) {
                bestUpTo[count] = points;
                chosenAt[count] = &*candidate;
            }
        }
    }
    std::vector<Candidate> names;
    for (size_t count = m_words.size(); count > 0;) {
        const Candidate* chosen = chosenAt[count];
        if (!chosen) {
            --count;
            continue;
        }
        names.push_back(*chosen);
        for (size_t at = chosen->first; at <= chosen->last; ++at)
            m_words[at].isInName = true;
        count = chosen->first;
    }
    addCoordinated(names);

    std::vector<TextRange> ranges;
    for (const Candidate& name : names)
        ranges.push_back(rangeOf(name));
    std::sort(ranges.begin(), ranges.end(),
              [](TextRange left, TextRange right) { return left.location < right.location; });
    return ranges;
}

} // namespace

ListNameTagger::ListNameTagger(const NameLexicon& lexicon) : m_lexicon(lexicon) {}

std::vector<TextRange> ListNameTagger::personalNames(const QString& line) const {
    return Line(m_lexicon, line).names();
}

} // namespace Veilshot
