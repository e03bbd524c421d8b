#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"

#include <QString>
#include <algorithm>

namespace Veilshot {

namespace {

bool isApostrophe(char32_t c) {
    return c == U'\'' || c == U'’' || c == U'`' || c == U'´';
}
bool isHyphen(char32_t c) {
    return c == U'-' || c == U'‐' || c == U'‑';
}
bool isLetter(char32_t c) {
    return QChar::isLetter(c) || QChar::isMark(c);
}
bool isLetterOrDigit(char32_t c) {
    return isLetter(c) || QChar::isDigit(c);
}

/// A code point and the number of code units it takes.
struct CodePoint {
    char32_t value = 0;
    qsizetype length = 1;
};

CodePoint codePointAt(QStringView text, qsizetype at) {
    if (at >= text.size())
        return {0, 0};
    if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(text[at], text[at + 1]), 2};
    return {text[at].unicode(), 1};
}

bool isPossessiveAt(QStringView line, qsizetype at) {
    return isApostrophe(codePointAt(line, at).value) && at + 1 < line.size() &&
           line[at + 1].toLower() == u's' && !isLetterOrDigit(codePointAt(line, at + 2).value);
}

qsizetype endOfWord(QStringView line, qsizetype from) {
    qsizetype at = from;
    char32_t previous = 0;
    while (at < line.size()) {
        const auto [value, length] = codePointAt(line, at);
        const char32_t next = codePointAt(line, at + length).value;
        const bool joins =
            isLetter(previous) && isLetter(next) &&
            (isHyphen(value) || value == U'|' || (isApostrophe(value) && !isPossessiveAt(line, at)));
        if (!isLetterOrDigit(value) && !joins)
            break;
        previous = value;
        at += length;
    }
    return at;
}

/// "Hyun-woo", the way Korean names are written: two short halves, the second without a capital.
bool isShortPair(QStringView word) {
    constexpr qsizetype longest = 5;
    const auto hyphen = std::find_if(word.begin(), word.end(), [](QChar c) { return isHyphen(c.unicode()); });
    const qsizetype first = hyphen - word.begin();
    const qsizetype second = word.end() - hyphen - 1;
    return first >= 2 && first <= longest && second >= 2 && second <= longest &&
           std::all_of(hyphen + 1, word.end(), [](QChar c) { return c.isLower(); });
}

/// Whether the capitals of a word that has both cases stand only where a name has them.
bool isTitleCase(QStringView word) {
    const bool isArabicArticle = word.size() > 3 && isHyphen(word[2].unicode()) &&
                                 (word.startsWith(u"al") || word.startsWith(u"el")) && word[3].isUpper();
    if (isArabicArticle)
        return true;
    // A leading zero is a misread O.
    if (!word[0].isUpper() && word[0] != u'0')
        return false;
    for (qsizetype at = 1; at < word.size(); ++at) {
        const QChar previous = word[at - 1];
        const bool mayBeCapital = isHyphen(previous.unicode()) || isApostrophe(previous.unicode()) ||
                                  (at == 2 && word.startsWith(u"Mc")) || (at == 3 && word.startsWith(u"Mac"));
        if (word[at].isUpper() && !mayBeCapital)
            return false;
        if (isHyphen(previous.unicode()) && word[at].isLower() && !isShortPair(word))
            return false;
    }
    return true;
}

NameToken::LetterCase letterCaseOf(QStringView word) {
    using enum NameToken::LetterCase;
    qsizetype letters = 0;
    qsizetype capitals = 0;
    for (const QChar c : word) {
        letters += c.isLetter() ? 1 : 0;
        capitals += c.isUpper() ? 1 : 0;
    }
    if (letters == 0)
        return none;
    if (capitals == letters)
        return word.size() == 1 ? initial : upper;
    if (capitals == 0 && word[0] != u'0')
        return lower;
    return isTitleCase(word) ? title : mixed;
}

QChar letterReadAs(QChar digit) {
    switch (digit.unicode()) {
    case u'0':
        return u'o';
    case u'4':
        return u'a';
    case u'1':
        return u'l';
    case u'|':
        return u'l';
    case u'5':
        return u's';
    case u'8':
        return u'b';
    default:
        return digit;
    }
}

void appendFolded(std::string& folded, QChar lower) {
    switch (lower.unicode()) {
    case u'æ':
        folded += "ae";
        return;
    case u'ø':
        folded += 'o';
        return;
    case u'å':
        folded += "aa";
        return;
    case u'ß':
        folded += "ss";
        return;
    case u'œ':
        folded += "oe";
        return;
    case u'þ':
        folded += "th";
        return;
    case u'ð':
    case u'đ':
        folded += 'd';
        return;
    case u'ł':
        folded += 'l';
        return;
    case u'ı':
        folded += 'i';
        return;
    default:
        break;
    }
    const QString decomposed = QString(lower).normalized(QString::NormalizationForm_D);
    for (const QChar c : decomposed) {
        if (!c.isMark())
            folded += QString(c).toStdString();
    }
}

} // namespace

std::string foldedName(QStringView word) {
    const auto digits = std::count_if(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
    const auto letters = std::count_if(word.begin(), word.end(), [](QChar c) { return c.isLetter(); });
    std::string folded;
    folded.reserve(static_cast<size_t>(word.size()) + 2);
    for (const QChar original : word) {
        QChar c = original.toLower();
        if (letters >= digits)
            c = letterReadAs(c);
        if (isApostrophe(c.unicode()))
            continue;
        if (isHyphen(c.unicode()))
            folded += '-';
        else if (c.unicode() < 128)
            folded += c.toLatin1();
        else
            appendFolded(folded, c);
    }
    return folded;
}

std::vector<NameToken> nameTokens(QStringView line) {
    std::vector<NameToken> tokens;
    qsizetype at = 0;
    while (at < line.size()) {
        const auto [value, length] = codePointAt(line, at);
        if (QChar::isSpace(value) || value == 0xFEFF) {
            at += length;
            continue;
        }
        NameToken token;
        qsizetype end = at + length;
        if (isLetterOrDigit(value)) {
            end = endOfWord(line, at);
            const QStringView word = line.sliced(at, end - at);
            token.letterCase = letterCaseOf(word);
            const bool hasLetters = token.letterCase != NameToken::LetterCase::none;
            token.kind = hasLetters ? NameToken::Kind::word : NameToken::Kind::number;
            if (hasLetters) {
                token.hasDigits =
                    std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit() || c == u'|'; });
                token.folded = foldedName(word);
            }
        } else if (at > 0 && isLetterOrDigit(line[at - 1].unicode()) && isPossessiveAt(line, at)) {
            token.kind = NameToken::Kind::possessive;
            end = at + 2;
        } else {
            while (end < line.size() && codePointAt(line, end).value == value)
                end += length;
        }
        token.range = {at, end - at};
        tokens.push_back(std::move(token));
        at = end;
    }
    return tokens;
}

} // namespace Veilshot
