#include "VeilshotCore/Analysis/DataDetection/MisreadLinkFinder.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The endings of most addresses. A sign that may be a part of ordinary text counts in front of these only.
const QString ending =
    uR"((?:com|net|org|edu|gov|dk|eu|de|uk|se|no|fi|nl|fr|es|it|pl|ch|at|be|ie|io|dev|ca|us|example))"
    uR"((?![\p{L}\p{N}(_]|\.\p{L}))"_s;
const QString label = uR"([\p{L}\p{N}](?:[\p{L}\p{N}-]{0,40}[\p{L}\p{N}])?)"_s;
const QString domain = u"(?:"_s + label + uR"(\.){1,3})"_s + ending;
const QString beforeLocal = uR"((?<![\p{L}\p{N}._%+@/\\-]))"_s;
const QString word = uR"([\p{L}\p{N}]{1,30}+)"_s;
/// "anna.berg", "per_74": with a sign inside, which few words have.
const QString compound = word + uR"((?:[._])"_s + word + u"){1,3}"_s;
const QString local = word + uR"((?:[._+-]{1,2})"_s + word + u"){0,3}"_s;

const QString cellStart = uR"((?<=^|\t|^\s|\t\s))"_s;
/// "write price@example.com"
const QString notVerb =
    uR"((?!(?:e-?mail|contact|kontakt|write|skriv|from|fra|til|bcc|reply|svar|send|support|via|and|for|user)"
    uR"(|login|the|ask|try|see|ping|hej|with|med|hos|eller|spørg|kan|git|ssh|sftp|scp|cat|add|set|get|log|tel|phone)"
    uR"(|fax|web|url|client|customer|admin|owner|author|name|username|navn|kunde|sender)"
    uR"(|afsender|modtager|recipient|account|konto)\s))"_s;

/// Of addresses that are worth having with a blank inside.
const QString scheme = uR"((?<![\p{L}\p{N}])(?:https?|wss?|ftps?|sftp|ssh|postgres(?:ql)?|mysql|mariadb)"
                       uR"(|mongodb(?:\+srv)?|rediss?|amqps?|kafka|ldaps?|smtps?|imaps?|jdbc|s3|git))"_s;
const QString group = uR"(([\doils|]{1,4}))"_s;
const QString dot = uR"((?:[.,]{1,2}_?|\._?\s?|_\.))"_s;

/// "notes.txt example.com" are two.
const QString notFile =
    uR"((?<!\.(?:pl|py|sh|md|js|ts|rs|go|rb|so|txt|htm|html|json|css|cpp|exe|zip|tar|xml|yml|yaml|pdf|png)))"
    uR"((?<!\.(?:jpg|svg|doc|docx|xls|xlsx|csv|log|conf|cfg|ini|com|org|net|dk|io|dev|co))(?<=\p{L}.{0,60}))"
    uR"((?<!\.(?:php|jsp|aspx?|java|vue|yaml|toml|tsx|jsx|scss|sql|swift|kt|lua|bat|lock|env|gif|mp[34]|gz)))"_s;
/// "v1.2 docs.example.com", "on my_own example.com"
const QString notVersionOrWord = uR"((?!v?\d|(?:my|our|your|is|has|get|set|self|this)_))"_s;
/// Nobody's post goes there.
const QString notCodeHost =
    uR"((?!(?:(?:www|gist|api)\.)?(?:github|gitlab|bitbucket|codeberg|stackoverflow|linkedin|twitter|youtube)\.))"_s;

struct Expressions {
    std::vector<RegularExpression> emails;
    /// With a blank beside the colon or the slashes; a password may be torn in two as well.
    RegularExpression webAddress{
        scheme +
        uR"((?:\s?[:;]\s?/\s?/\s?|\s?[:;]/\s?)(?:[\p{L}\p{N}_-]{0,40}:\s?\S{1,80}?(?:\s\S{1,80}?)?@)?)"
        uR"([\p{L}\p{N}_%-][^\s<>"“”«»|:]*[.@:][^\s<>"“”«»|]*(?:(?<=:)\s\d{2,5}[^\s<>"“”«»|]*)?(?<![.,;:!?'’)\]]))"_s};
    /// Four groups of digits, each in a group of its own.
    RegularExpression machine{uR"((?<![\w.,:$€£-]))"_s + QStringList(4, group).join(dot) +
                              uR"((?!\w|[.,]\w))"_s};

    /// In the sixth version, which no finder of well read addresses knows: at least three colons.
    RegularExpression longMachine{
        uR"((?<![\w:.])(?=[\da-f]{0,4}(?::[\da-f]{0,4}){0,6}::|(?:[\da-f]{1,4}:){7}[\da-f])(?=[^\s]*\d)[\da-f]{1,4}(?::{1,2}[\da-f]{1,4}){3,7}(?![\w:]))"};
    /// With a blank beside its double colon, or a letter for a digit.
    RegularExpression tornLongMachine{
        uR"((?<![\w:.])(?=[^\s]*[a-f])(?:20[\da-f]{2}|f[cde][\da-f]{2})(?::[\da-fil]{1,4}){1,5}(?::\s?:|\s::)[\da-fil]{1,4}(?::[\da-fil]{1,4}){0,5}(?![\w:]))"};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }

private:
    Expressions() {
        const QString emailPatterns[] = {
            // The underscore of the name is gone, and maybe the sign behind it: "mark price&parcelio.de"
            // fills a cell.
            cellStart + notVerb + uR"([a-z]{3,20}\s[a-z]{2,30}[&©®€£¢§¤@])"_s + domain +
                uR"((?=\s*(?:$|\t)))"_s,
            // A blank was read into the name.
            uR"((?<![\p{L}\p{N}._%+@/\\])[\p{L}\p{N}]{2,30}[_-]\s)"_s + local + u'@' + domain,
            uR"((?<![\p{L}\p{N}._%+@/\\])(?-i:\p{Ll})[\p{L}\p{N}]{2,30}\.\s)"_s + word + u'@' + domain,
            // Cut off.
            beforeLocal + local + uR"(@[\p{L}\p{N}-]{1,40}(?:\.[\p{L}\p{N}-]{0,40}){0,2}(?:…|\.{2,3}))"_s,
            beforeLocal + local + uR"(@[\p{L}\p{N}-]{3,40}\.\p{L}{0,2}(?=\s*$|[>)]))"_s,
            // Another sign at the place of the "@", or blanks around it.
            beforeLocal + local + uR"((?:[&©®€£¢§¤]|\s?[(\[](?:a|at|@)[)\]]\s?))"_s + domain,
            beforeLocal + uR"([a-z\d][a-z\d._-]{1,40}?[æœ][a-z\d-]{2,40}\.)"_s + ending,
            beforeLocal + compound + uR"(\s?[&©®€£¢§¤]\s?)"_s + domain,
            beforeLocal + local + uR"(@\s)"_s + domain,
            beforeLocal + compound + uR"(\s@\s?)"_s + domain,
            // None: a blank behind "jonas_ravn", or a letter in "aniya_erdmanebrightloom.com".
            beforeLocal + notVersionOrWord + compound + notFile + uR"(\s)"_s + notCodeHost + domain,
            // In front of the ending of a country it is the member of something in a program.
            beforeLocal + uR"((?=[\p{L}\p{N}.-]{1,60}_))"_s + local +
                uR"(_[\p{L}\p{N}-]{3,60}\.(?:com|net|org|dk|eu|example)(?![\p{L}\p{N}(_\[]|\.\p{L}|\s?=))"_s,
            // Or a letter that is read for the "@", in front of an ending that stands in no program.
            beforeLocal +
                uR"([a-z\d][a-z\d._-]{1,40}?ø[a-z\d-]{3,40}\.(?:example|test|invalid)(?![\p{L}\p{N}(_]|\.\p{L}))"_s,
            beforeLocal +
                uR"((?!config|settings|docker|app|env|database|makefile|readme|nginx)(?=[a-z\d]{12}))"
                uR"([a-z\d]{2,30}a[a-z\d]{4,30}\.example(?![\p{L}\p{N}(_/]|[.-]\p{L}))"_s,
            // In angle brackets behind a name there is nothing else, whatever the sign was read for.
            uR"((?<=\p{L}\s<)[\p{L}\d][\p{L}\d._+ -]{2,40}\.(?:com|net|org|dk|eu|example)(?=>))"_s,
            // The next word follows at once.
            beforeLocal + uR"((?=[\p{L}\d-]+[._]))"_s + local +
                uR"(@(?:\p{L}[\p{L}-]{2,40}\.){1,3}(?:example|com|net|org|dk)(?=\p{L}*\d))"_s,
            // The dot of the domain is gone or another sign, or what follows it is cut off.
            beforeLocal + local + uR"(@[\p{L}\p{N}-]{2,40}(?:[,;:·_]\s?|\s|\.\s))"_s + ending,
            beforeLocal + uR"((?=[\p{L}.]*[._\d]))"_s + local +
                uR"(@[\p{L}-]{2,40}(?:com|net|org|dk|eu|de)(?![\p{L}\p{N}./:]))"_s,
            beforeLocal + local + uR"(@[\p{L}\d-]{2,40}example(?![\p{L}\p{N}./:]))"_s,
            beforeLocal + uR"((?=[\p{L}-]+[._]))"_s + local +
                uR"(@(?!latest|next|beta|alpha|canary|rc)(?:\p{L}[\p{L}-]{0,40}){0,1}(?:\.\p{L}{0,3})?(?=\s|$|\.\.|[+…"'”,;)>|]))"_s,
        };
        for (const QString& pattern : emailPatterns)
            emails.emplace_back(pattern);
    }
};

/// Whether the four groups are the number of a machine rather than a version, a time or a sum: long enough,
/// with few misread digits and no more than one stray comma.
bool isMachine(QStringView line, const RegularExpression::Match& match) {
    constexpr int fewestDigits = 7;
    constexpr int fewestInPrivateNetwork = 5;
    constexpr int mostFaults = 2;
    static const QSet<QString> privateNetworks{u"10"_s, u"127"_s, u"172"_s, u"192"_s};
    const QStringView text = line.sliced(match.range.location, match.range.length);
    int faults = static_cast<int>(text.count(u','));
    qsizetype digits = 0;
    for (const TextRange range : match.groups) {
        const QStringView number = line.sliced(range.location, range.length);
        const auto count = std::ranges::count_if(number, [](QChar character) { return character.isDigit(); });
        if (count == 0)
            return false;
        digits += count;
        faults += static_cast<int>(number.size() - count);
        faults += number.size() > 3 || number.toInt() > 255;
        if (number.size() > 3 && number.first(2) == u"20") // a version that is a date
            return false;
    }
    const TextRange first = match.groups[0];
    const bool isPrivate = privateNetworks.contains(line.sliced(first.location, first.length).toString());
    if (text.contains(u' ') && !isPrivate)
        return false;
    const bool isWellRead = faults == 0 && digits + 3 == text.size();
    return digits >= (isPrivate ? fewestInPrivateNetwork : fewestDigits) && faults <= mostFaults &&
           !isWellRead;
}

} // namespace

std::vector<DataMatch> MisreadLinkFinder::find(QStringView line) const {
    // Nothing that is found here does without.
    if (std::ranges::none_of(line, [](QChar character) { return u".@/:"_s.contains(character); }))
        return {};
    const Expressions& expressions = Expressions::shared();
    std::vector<DataMatch> links;
    const auto add = [&](TextRange range, const QString& url) {
        if (std::ranges::none_of(links, [&](const DataMatch& link) { return link.range.intersects(range); }))
            links.push_back({DataMatch::Type::link, range, url});
    };
    for (const TextRange range : expressions.webAddress.ranges(line)) {
        const QStringView text = line.sliced(range.location, range.length);
        if (text.contains(u' '))
            add(range, text.toString().remove(u' '));
    }
    for (const RegularExpression& expression : expressions.emails) {
        for (const TextRange range : expression.ranges(line))
            add(range, u"mailto:"_s + line.sliced(range.location, range.length).toString().remove(u' '));
    }
    for (const auto& match : expressions.machine.matches(line)) {
        if (isMachine(line, match))
            add(match.range,
                u"http://"_s + line.sliced(match.range.location, match.range.length).toString().remove(u' '));
    }
    for (const RegularExpression* machine : {&expressions.longMachine, &expressions.tornLongMachine}) {
        for (const TextRange range : machine->ranges(line))
            add(range,
                u"http://["_s + line.sliced(range.location, range.length).toString().remove(u' ') + u']');
    }
    std::ranges::sort(links, {}, [](const DataMatch& link) { return link.range.location; });
    return links;
}

} // namespace Veilshot
