#include "VeilshotCore/Analysis/DataDetection/MisreadSigns.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QHash>
#include <QString>
#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using enum RegularExpression::CaseSensitivity;

struct Expressions {
    RegularExpression number{
        uR"((?<![\p{L}\p{N}_])[\dOoQDIl|iSBZ]{1,16}(?:[ ().,:/-]{1,2}[\dOoQDIl|iSBZ]{1,16}){0,8}(?![\p{L}\p{N}_]))",
        sensitive};
    /// In a number to call from abroad: "+27 82 $55 0164".
    RegularExpression currency{uR"((?<=\+\d{1,3}[\d ()-]{1,14})[$@](?=\d))"};
    RegularExpression lettersOnly{uR"((?<![\dOoQDIl|iSBZ])[OoQDIl|iSBZ]+(?![\dOoQDIl|iSBZ]))", sensitive};
    /// In numbers, e-mail addresses and names of places; between the words of a program they belong.
    RegularExpression underscore{
        uR"((?<=[\s\d.,:/(+-])_+(?=[\d(])|(?<=\d)_+(?=[\s\d.,:/()-]|$)|(?<!_)_+(?=@)|(?<=@)_+|(?<=[.-])_+(?=[\p{L}\d.-]{1,40}@)|(?<=@[\p{L}\d.-]{1,40}[.-])_+(?=\p{L}))"
        uR"(|(?<=[\s,])_+(?=\p{Lu}\p{Ll}{1,40}(?:[\s,]|$))|(?<=\p{Ll})_+(?=[\s,]|$)|(?<=\p{L}-)_+(?=\p{L})|(?<=\p{L})_+(?=-_?\p{L}))",
        sensitive};
    /// Endings that are no words.
    QString ending = uR"((?:com|net|org|edu|gov|dk|eu|uk|io|dev|nl|pl|fr|co|example)(?![\p{L}\p{N}]))"_s;
    RegularExpression blankInDomain{
        uR"((?<=[\p{Ll}\d]\.)[\s_](?=)"_s + ending + uR"()|(?<=\bwww\.)[\s_](?=\p{Ll}))"_s, sensitive};
    RegularExpression commaInDomain{uR"((?<=[\p{Ll}\d]),(?=)"_s + ending + uR"()|(?<=\bwww),(?=\p{Ll}))"_s,
                                    sensitive};
    /// "linkedin.com/ in/jane-doe"
    RegularExpression blankInPath{
        u"(?<=\\.(?:com|net|org|dk|eu|io|dev|uk|example)/)\\s(?=[\\p{L}\\p{N}]{1,40}[/_.?=-][\\p{L}\\p{N}])"_s};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }
};

void appendDigits(std::vector<RewrittenLine::Edit>& edits, QStringView line, TextRange number) {
    constexpr int fewestDigits = 3;
    constexpr int mostLetters = 3;
    static const QHash<QChar, QString> digits{{u'O', u"0"_s}, {u'o', u"0"_s}, {u'Q', u"0"_s}, {u'D', u"0"_s},
                                              {u'I', u"1"_s}, {u'l', u"1"_s}, {u'|', u"1"_s}, {u'i', u"1"_s},
                                              {u'S', u"5"_s}, {u'B', u"8"_s}, {u'Z', u"2"_s}};
    const QStringView text = line.sliced(number.location, number.length);
    const auto digitCount = std::ranges::count_if(text, [](QChar character) { return character.isDigit(); });
    const auto letterCount =
        std::ranges::count_if(text, [&](QChar character) { return digits.contains(character); });
    if (digitCount < fewestDigits || letterCount == 0 || letterCount > mostLetters ||
        letterCount >= digitCount || Expressions::shared().lettersOnly.hasMatch(text))
        return;
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (const auto digit = digits.constFind(text[place]); digit != digits.cend())
            edits.push_back({{number.location + place, 1}, *digit});
    }
}

} // namespace

RewrittenLine withoutMisreadSigns(QStringView line) {
    const Expressions& expressions = Expressions::shared();
    std::vector<RewrittenLine::Edit> edits;
    for (const TextRange range : expressions.number.ranges(line))
        appendDigits(edits, line, range);
    for (const TextRange range : expressions.currency.ranges(line))
        edits.push_back({range, line[range.location] == u'$' ? u"5"_s : u"0"_s});
    for (const RegularExpression* noise :
         {&expressions.underscore, &expressions.blankInDomain, &expressions.blankInPath}) {
        for (const TextRange range : noise->ranges(line))
            edits.push_back({range, {}});
    }
    for (const TextRange range : expressions.commaInDomain.ranges(line))
        edits.push_back({range, u"."_s});
    return {line, std::move(edits)};
}

} // namespace Veilshot
