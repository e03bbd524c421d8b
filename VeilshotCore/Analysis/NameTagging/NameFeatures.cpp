#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"

#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"

#include <QString>
#include <algorithm>
#include <string>

namespace Veilshot {

namespace {

/// The order of the kinds is part of every feature's number: append only, and train anew after any change.
enum class Kind : uint64_t {
    constant,
    word,
    foldedWithCase,
    wordBefore,
    wordBehind,
    secondBefore,
    secondBehind,
    wordsToHere,
    wordsFromHere,
    twoBefore,
    twoBehind,
    beforeWithCase,
    behindWithCase,
    wordsAround,
    shape,
    shapesToHere,
    shapesFromHere,
    shapesAround,
    threeShapesToHere,
    threeShapesFromHere,
    caseAndLength,
    prefix,
    suffix,
    longSuffix,
    endingBehind,
    endingBefore,
    letters,
    lists,
    listsWithCase,
    listsToHere,
    listsFromHere,
    listsAround,
    listsWithShapeBefore,
    listsWithShapeBehind,
    listsAndShapesFromHere,
    listsAndShapesToHere,
    listsWithWordBefore,
    listsWithWordBehind,
    threeListsToHere,
    threeListsFromHere,
    listsWithTwoBefore,
    cuesBefore,
    cuesBehind,
    cuesBeforeWithLists,
    cuesBehindWithLists,
    cuesAround,
    cuesHere,
    markBefore,
    markBehind,
    marksAround,
    markBeforeWithLists,
    markBehindWithLists,
    twoMarksBefore,
    twoMarksBehind,
    listed,
    listedWithCase,
    listedToHere,
    listedFromHere,
    listedAround,
    listedWithLists,
    listedWithCuesBefore,
};

class FeatureHash {
public:
    explicit FeatureHash(Kind kind)
        : m_state(1469598103934665603ULL ^ mixed(static_cast<uint64_t>(kind) + 1)) {}

    FeatureHash& operator<<(uint64_t value) {
        m_state = mixed(m_state ^ value);
        return *this;
    }
    FeatureHash& operator<<(QStringView text) {
        uint64_t hash = 1469598103934665603ULL;
        for (const QChar c : text)
            hash = (hash ^ c.unicode()) * 1099511628211ULL;
        return *this << hash;
    }
    uint32_t value() const {
        return static_cast<uint32_t>((m_state * 0xc4ceb9fe1a85ec53ULL) >> (64 - nameFeatureBits));
    }

private:
    static uint64_t mixed(uint64_t value) {
        value *= 0xff51afd7ed558ccdULL;
        return value ^ (value >> 32);
    }

    uint64_t m_state;
};

/// A token with what its features and those of its neighbours need.
struct Described {
    QString word;   ///< in small letters, every digit of a number a zero
    QString folded; ///< as the lists spell it
    QString shape;  ///< runs of capitals, letters and digits as one character each
    uint64_t letterCase = 0;
    uint64_t lists = 0;  ///< what it is in itself: name, word, place
    uint64_t cues = 0;   ///< what it says of its neighbours
    uint64_t listed = 0; ///< its part in a name found by the lists
    bool isWord = false;
};

constexpr WordTraits listTraits = anyName | WordTrait::frequentWord | WordTrait::word | WordTrait::rareWord |
                                  WordTrait::danishWord | WordTrait::rareDanishWord | WordTrait::place |
                                  WordTrait::title | WordTrait::role | WordTrait::organisation;
constexpr WordTraits cueTraits =
    anyMeaning & ~(WordTraits(WordTrait::frequentWord) | WordTrait::word | WordTrait::rareWord |
                   WordTrait::danishWord | WordTrait::rareDanishWord);

/// The mark as a typewriter has it: recognition often confuses the forms.
QChar plain(QChar c) {
    switch (c.unicode()) {
    case u'’':
    case u'‘':
    case u'`':
    case u'´':
        return u'\'';
    case u'“':
    case u'”':
    case u'„':
    case u'«':
    case u'»':
        return u'"';
    case u'–':
    case u'—':
    case u'‐':
    case u'‑':
    case u'·':
        return u'-';
    case u'•':
        return u'*';
    default:
        return c;
    }
}

QString plainSmall(QStringView text) {
    QString result = text.toString().toLower();
    std::transform(result.begin(), result.end(), result.begin(), plain);
    return result;
}

QString shapeOf(QStringView text) {
    constexpr qsizetype longest = 8;
    QString shape;
    for (const QChar original : text) {
        const QChar c = plain(original);
        const QChar sign = c.isUpper()                  ? u'X'
                           : c.isLetter() || c.isMark() ? u'x'
                           : c.isDigit()                ? u'd'
                           : c.unicode() < 128          ? c
                                                        : u'~';
        if (shape.isEmpty() || shape.back() != sign)
            shape += sign;
        if (shape.size() > longest)
            break;
    }
    return shape;
}

Described described(const NameLexicon& lexicon, QStringView line, const NameToken& token) {
    const QStringView text = line.sliced(token.range.location, token.range.length);
    Described result;
    result.word = plainSmall(text);
    result.shape = shapeOf(text);
    result.isWord = token.kind == NameToken::Kind::word;
    result.letterCase = 1 + 16 * static_cast<uint64_t>(token.kind) +
                        2 * static_cast<uint64_t>(token.letterCase) + (token.hasDigits ? 1 : 0);
    if (token.kind == NameToken::Kind::number)
        std::fill(result.word.begin(), result.word.end(), u'0');
    if (!result.isWord)
        return result;
    result.folded = QString::fromStdString(token.folded);
    const WordTraits traits = lineWordTraits(lexicon, token, line);
    result.lists = (traits & listTraits).toInt() + 1u;
    result.cues = (traits & cueTraits).toInt() + 1u;
    return result;
}

Described lineEdge(QStringView name) {
    Described edge;
    edge.word = edge.shape = name.toString();
    edge.lists = edge.cues = edge.listed = ~uint64_t(0);
    return edge;
}

/// Whether the token stands outside of the names, begins one or goes on with it.
uint64_t partIn(const std::vector<TextRange>& names, TextRange token) {
    const auto name = std::find_if(names.begin(), names.end(),
                                   [&](const TextRange& candidate) { return candidate.intersects(token); });
    return name == names.end() ? 1 : token.location <= name->location ? 2 : 3;
}

/// A character as its neighbour sees it: blanks, letters and digits are not told apart.
uint64_t markAt(QStringView line, qsizetype at) {
    const QChar c = at >= 0 && at < line.size() ? plain(line[at]) : QChar(u' ');
    return c.isSpace()                                     ? 1
           : c.isLetter() || c.isMark() || c.isSurrogate() ? 2
           : c.isDigit()                                   ? 3
                                                           : c.unicode();
}

class FeatureList {
public:
    FeatureList(QStringView line, const std::vector<Described>& all, size_t at)
        : m_line(line), m_before2(all[at]), m_before(all[at + 1]), m_here(all[at + 2]), m_behind(all[at + 3]),
          m_behind2(all[at + 4]) {}

    NameFeatures of(const NameToken& token) {
        m_features.reserve(96);
        add(FeatureHash(Kind::constant));
        addWords();
        addShapes();
        if (m_here.isWord)
            addSpelling();
        addLists();
        addCues();
        addMarks(token.range);
        addListed();
        std::sort(m_features.begin(), m_features.end());
        m_features.erase(std::unique(m_features.begin(), m_features.end()), m_features.end());
        return std::move(m_features);
    }

private:
    void add(const FeatureHash& hash) { m_features.push_back(hash.value()); }

    template<typename... Parts>
    void add(Kind kind, const Parts&... parts) {
        FeatureHash hash(kind);
        (hash << ... << parts);
        add(hash);
    }

    void addWords() {
        const QString& word = m_here.word;
        const uint64_t letterCase = m_here.letterCase;
        add(Kind::word, word);
        add(Kind::foldedWithCase, m_here.isWord ? m_here.folded : word, letterCase);
        add(Kind::wordBefore, m_before.word);
        add(Kind::wordBehind, m_behind.word);
        add(Kind::secondBefore, m_before2.word);
        add(Kind::secondBehind, m_behind2.word);
        add(Kind::wordsToHere, m_before.word, word);
        add(Kind::wordsFromHere, word, m_behind.word);
        add(Kind::twoBefore, m_before2.word, m_before.word);
        add(Kind::twoBehind, m_behind.word, m_behind2.word);
        add(Kind::beforeWithCase, m_before.word, letterCase);
        add(Kind::behindWithCase, m_behind.word, letterCase);
        add(Kind::wordsAround, m_before.word, m_behind.word, letterCase);
    }

    void addShapes() {
        const QString& shape = m_here.shape;
        add(Kind::shape, shape);
        add(Kind::shapesToHere, m_before.shape, shape);
        add(Kind::shapesFromHere, shape, m_behind.shape);
        add(Kind::shapesAround, m_before.shape, shape, m_behind.shape);
        add(Kind::threeShapesToHere, m_before2.shape, m_before.shape, shape);
        add(Kind::threeShapesFromHere, shape, m_behind.shape, m_behind2.shape);
        add(Kind::caseAndLength, m_here.letterCase, std::min<uint64_t>(m_here.word.size(), 8));
    }

    void addSpelling() {
        const QStringView word = m_here.word;
        for (qsizetype length = 1; length <= std::min<qsizetype>(4, word.size()); ++length) {
            add(Kind::prefix, word.first(length), m_here.letterCase);
            add(Kind::suffix, word.last(length), m_here.letterCase);
        }
        if (word.size() > 5)
            add(Kind::longSuffix, word.last(5));
        if (m_behind.isWord && m_behind.word.size() >= 3)
            add(Kind::endingBehind, QStringView(m_behind.word).last(3), m_behind.shape, m_here.letterCase);
        if (m_before.isWord && m_before.word.size() >= 3)
            add(Kind::endingBefore, QStringView(m_before.word).last(3), m_before.shape, m_here.letterCase);
        if (word.size() <= 2)
            return;
        const QString bounded = u'^' + m_here.folded + u'$';
        for (qsizetype length = 3; length <= 4; ++length) {
            for (qsizetype at = 0; at + length <= bounded.size(); ++at)
                add(Kind::letters, QStringView(bounded).sliced(at, length));
        }
    }

    void addLists() {
        const uint64_t before = m_before.lists;
        const uint64_t lists = m_here.lists;
        const uint64_t behind = m_behind.lists;
        const uint64_t letterCase = m_here.letterCase;
        add(Kind::lists, lists);
        add(Kind::listsWithCase, lists, letterCase);
        add(Kind::listsToHere, before, lists);
        add(Kind::listsFromHere, lists, behind);
        add(Kind::listsAround, before, lists, behind, letterCase);
        add(Kind::listsWithShapeBefore, m_before.shape, lists, letterCase);
        add(Kind::listsWithShapeBehind, lists, letterCase, m_behind.shape);
        add(Kind::listsAndShapesFromHere, lists, m_here.shape, behind, m_behind.shape);
        add(Kind::listsAndShapesToHere, before, m_before.shape, lists, m_here.shape);
        add(Kind::listsWithWordBefore, m_before.word, lists);
        add(Kind::listsWithWordBehind, m_behind.word, lists);
        add(Kind::threeListsToHere, m_before2.lists, before, lists);
        add(Kind::threeListsFromHere, lists, behind, m_behind2.lists);
        add(Kind::listsWithTwoBefore, m_before2.word, m_before.word, lists);
    }

    void addCues() {
        const uint64_t letterCase = m_here.letterCase;
        add(Kind::cuesHere, m_here.cues, letterCase);
        add(Kind::cuesBefore, m_before.cues, m_before.letterCase, letterCase);
        add(Kind::cuesBehind, m_behind.cues, m_behind.letterCase, letterCase);
        add(Kind::cuesBeforeWithLists, m_before.cues, m_here.lists);
        add(Kind::cuesBehindWithLists, m_behind.cues, m_here.lists);
        // Mostly a mark in between: "Author: Anna", "Til: Anna".
        add(Kind::cuesAround, m_before2.cues, m_before.word, letterCase);
    }

    void addMarks(TextRange range) {
        const uint64_t letterCase = m_here.letterCase;
        const uint64_t before = markAt(m_line, range.location - 1);
        const uint64_t behind = markAt(m_line, range.end());
        add(Kind::markBefore, before, letterCase);
        add(Kind::markBehind, behind, letterCase);
        add(Kind::marksAround, before, behind, letterCase);
        add(Kind::markBeforeWithLists, before, m_here.lists);
        add(Kind::markBehindWithLists, behind, m_here.lists);
        add(Kind::twoMarksBefore, markAt(m_line, range.location - 2), before, letterCase);
        add(Kind::twoMarksBehind, behind, markAt(m_line, range.end() + 1), letterCase);
    }

    void addListed() {
        const uint64_t listed = m_here.listed;
        add(Kind::listed, listed);
        add(Kind::listedWithCase, listed, m_here.letterCase);
        add(Kind::listedToHere, m_before.listed, listed);
        add(Kind::listedFromHere, listed, m_behind.listed);
        add(Kind::listedAround, m_before.listed, listed, m_behind.listed);
        add(Kind::listedWithLists, listed, m_here.lists);
        add(Kind::listedWithCuesBefore, listed, m_before.cues, m_here.letterCase);
    }

    QStringView m_line;
    const Described& m_before2;
    const Described& m_before;
    const Described& m_here;
    const Described& m_behind;
    const Described& m_behind2;
    NameFeatures m_features;
};

} // namespace

std::vector<NameFeatures> nameFeatures(const NameLexicon& lexicon, QStringView line,
                                       const std::vector<NameToken>& tokens,
                                       const std::vector<TextRange>& listed) {
    // Two edges on either side, so that every token has neighbours.
    std::vector<Described> all(2, lineEdge(u"<s>"));
    all.reserve(tokens.size() + 4);
    for (const NameToken& token : tokens) {
        all.push_back(described(lexicon, line, token));
        all.back().listed = partIn(listed, token.range);
    }
    all.resize(all.size() + 2, lineEdge(u"</s>"));

    std::vector<NameFeatures> features;
    features.reserve(tokens.size());
    for (size_t at = 0; at < tokens.size(); ++at)
        features.push_back(FeatureList(line, all, at).of(tokens[at]));
    return features;
}

} // namespace Veilshot
