#include "VeilshotCore/Analysis/DataDetection/CredentialShape.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QString>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot::CredentialShape {

Composition::Composition(QStringView text) {
    QChar previous;
    for (const QChar character : text) {
        upper += character.isUpper();
        lower += character.isLower();
        digits += character.isDigit();
        changes +=
            (character.isDigit() && previous.isLetter()) || (character.isLetter() && previous.isDigit());
        previous = character;
    }
}

bool isChosen(QStringView text) {
    const Composition parts(text);
    const bool hasLetters = parts.upper + parts.lower > 0;
    const bool hasRareSign = std::ranges::any_of(
        text.chopped(1), [](QChar character) { return u"!@#$%&*+?^="_s.contains(character); });
    // The name of a variable that holds it, an option, a path.
    if (text.contains(u".env.") || u":-~/."_s.contains(text.front()))
        return false;
    return hasLetters && (parts.digits > 0 || hasRareSign);
}

int breaks(QStringView text) {
    QChar previous;
    int breaks = Composition(text).changes;
    for (const QChar character : text) {
        breaks += previous.isLower() && character.isUpper();
        previous = character;
    }
    return breaks;
}

TextRange grown(QStringView line, TextRange credential) {
    constexpr int fewestBreaks = 2;
    constexpr qsizetype shortestPiece = 4;
    constexpr qsizetype pieceBeforeReach = 24;
    constexpr qsizetype shortestRow = 40;
    constexpr qsizetype shortestKey = 18;
    static const RegularExpression pieceBefore(uR"((?<![\p{L}\p{N}])[\p{L}\p{N}]{2,20}[#!$%&*^~@]$)");
    const qsizetype from = std::max<qsizetype>(0, credential.location - pieceBeforeReach);
    if (const auto before = pieceBefore.firstMatch(line.sliced(from, credential.location - from))) {
        const qsizetype start = from + before->range.location;
        credential = {start, credential.end() - start};
    }
    static const RegularExpression piece(
        uR"((?:[^\s\p{L}\p{N}"'”“<>]|\s?[.,]\s?|(?<=[_-])\s|\s)([\p{L}\p{N}_/+-]{2,}+))");
    for (;;) {
        const auto next = piece.matchAt(line, credential.end());
        if (!next || next->groups[0].length < shortestPiece ||
            breaks(line.sliced(next->groups[0].location, next->groups[0].length)) < fewestBreaks)
            break;
        credential.length = next->range.end() - credential.location;
    }
    // All of a long one up to the next blank: a row of a key in several rows.
    static const RegularExpression rest(uR"([^\s"'”“<>()\[\]{},;]{1,60})");
    // Of a shorter one past a sign that hardly stands behind a word.
    static const RegularExpression restPastSign(uR"([%~!$^*+£][\p{L}\p{N}%~!$^*+£_-]{1,60})");
    const auto end = credential.length >= shortestRow   ? rest.matchAt(line, credential.end())
                     : credential.length >= shortestKey ? restPastSign.matchAt(line, credential.end())
                                                        : std::nullopt;
    return end ? TextRange{credential.location, end->range.end() - credential.location} : credential;
}

TextRange grownSignedToken(QStringView line, TextRange token) {
    constexpr qsizetype shortPiece = 6;
    static const RegularExpression pieces[] = {RegularExpression(uR"((?:\s?(\S+)))"),
                                               RegularExpression(uR"((?:\s?\S{1,2}\s(?:\S\s)?(\S+)))")};
    const auto nextEnd = [&] {
        for (const RegularExpression& piece : pieces) {
            const auto next = piece.matchAt(line, token.end());
            if (!next)
                continue;
            const TextRange text = next->groups[0];
            if (breaks(line.sliced(text.location, text.length)) >= (text.length <= shortPiece ? 1 : 2))
                return next->range.end();
        }
        return token.end();
    };
    for (qsizetype end = nextEnd(); end > token.end(); end = nextEnd())
        token.length = end - token.location;
    return token;
}

bool isRandom(QStringView text) {
    constexpr int leastChanges = 3;
    constexpr qsizetype leastLengthWithSlash = 28;
    if (text.contains(u'/') && text.size() < leastLengthWithSlash)
        return false;
    const Composition parts(text);
    static const RegularExpression longWord(uR"(\p{Ll}{5}|\p{Lu}{6})",
                                            RegularExpression::CaseSensitivity::sensitive);
    constexpr int fewestBreaks = 6;
    constexpr int fewestCapitals = 4;
    if (parts.digits >= 3 && parts.upper >= fewestCapitals && parts.lower >= fewestCapitals &&
        breaks(text) >= fewestBreaks && !longWord.hasMatch(text) && !text.contains(u'/'))
        return true;
    const int leastOfPath = text.contains(u'/') ? 2 * leastChanges : leastChanges;
    const bool isUnbroken =
        std::ranges::all_of(text, [](QChar character) { return character.isLetterOrNumber(); });
    const int fewestDigits = isUnbroken && parts.changes > leastChanges ? 2 : 3;
    return parts.changes >= leastOfPath && parts.upper + parts.lower >= 4 && parts.digits >= fewestDigits;
}

} // namespace Veilshot::CredentialShape
