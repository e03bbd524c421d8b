#include "VeilshotCore/Analysis/DataDetection/CredentialFinder.h"

#include "VeilshotCore/Analysis/DataDetection/CredentialShape.h"
#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TellingLabel.h"

#include <QString>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using namespace CredentialShape;
using enum RegularExpression::CaseSensitivity;

/// What says that a secret follows. "Tokens: 512" counts something.
const QString secretLabel =
    uR"((?:pass(?:word|wd|code|phrase)|pwd|(?<!\p{L})(?:pw(?!\p{L})|pass(?=\s?[:=])|kode(?=\s?[:=]|\ser\s))|(?:temporary|one-time|guest)\s+pass|wi-?fi\s+(?:pass|voucher|key|code|kode)|(?<!\p{L})pin(?:[- ]?code)?(?!\p{L})|secret)"
    uR"(|token|(?:api|access|secret|private|signing|license|licence|recovery)[_ -]?key|credentials?|auth(?:[oe]\w{4,9})?[ -]?[ck]ode)"
    uR"(|kodeord|adgangskode|pinkode|engangskode|nøgle))"_s;

/// "8f3k-29dm"
const QString hyphenatedCode = uR"([a-z\d]{4,8}(?:-[a-z\d]{3,8}){1,5}(?![\w-]))"_s;

struct Expressions {
    /// In a cell beside their label: numbers that open something, codes in groups and words for which
    /// somebody thought of a digit, all of which may be torn by a blank.
    RegularExpression numberInCell{uR"(^[\d*#]{3,12}$|^\d{2,4}(?:[ -]\d{2,4}){1,3}$|^\d(?:[ -]\d){2,7}$)"};
    RegularExpression codesInCell{uR"(^(?:(?=\w*\d)[a-z\d]{3,10}[ ,-]{1,2}){1,9}(?=\w*\d)[a-z\d]{3,10}$)"};
    RegularExpression answer{u"(?:answer|memorable|svar|maiden|pigenavn|first )"};
    RegularExpression method{
        uR"(^(?:WPA[23]?|WEP|AES|RSA|SHA|(?:ssh-)?(?:ed25519|rsa|ecdsa))(?:[ -]?[A-Z\d]{1,5})?$)"};
    RegularExpression countable{u"token|passwords|secrets"};
    RegularExpression wordAndNumber{
        uR"(^\p{L}{3,}\s(?!(?:19|20)\d\d\b)\d{3,}$|^(?!.*\b(?:last|every|after|before|days?|weeks?|version|jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec|changed|updated|expires|minimum|least|sidst|efter)\b)\p{L}{3,12}(?:[ -]\p{L}{3,12}){1,7}[ -](?!(?:19|20)\d\d\b)\d{1,4}$)"};
    RegularExpression wordsInCell{
        uR"(^\p{L}{3,}(?:[-._+]\p{L}{3,}){2,}$|^(?!.*\b(?:must|with|your|last|this|that|click|reveal|show|hidden|copy|change|reset|enter|choose|from|have|used|will|skal|ikke|for|and|the|not|med|din|som)\b)\p{Ll}{2,10}(?: \p{Ll}{2,10}){3,23}$)",
        sensitive};
    RegularExpression tornInCell{
        uR"(^[^\s]{2,24}(?:(?<=[-_!&#+@%*.])\s|\s(?=[-_!&#+@%*]))\S{2,24}(?:\s?\S{2,24}){0,3}$)"};
    /// Group 1 is what the label names, behind it in the line.
    RegularExpression assignment{secretLabel + uR"([\w-]{0,40}+["'”“]?\s*(?::(?!:)|=>?)\s*["'”“]?)"_s +
                                 uR"(([^\s"'”“,;<>(){}\[\]$*•]{5,}+)(?![(\[{]))"_s};
    RegularExpression sentence{u"(?<![\\w])(?:login|bearer|basic|"_s + secretLabel +
                               uR"()\s+(?:(?:is|er)\s+)?["'”“]?([^\s"'”“,;<>()]{5,}[^\s"'”“,;<>().:]))"_s};

    /// "SMTP_PASS='one two-Buckle 9!'", "the code for the new card is Heron-6628", "curl -u
    /// ops:Gr4vel-Spoon".
    RegularExpression quoted{
        uR"((?:pass(?:word|wd|phrase)?|pwd|secret|adgangskode)["'”’]?\s?[:=]\s?["'“‘]([^"'”’“‘<>{}$]{5,60})["'”’])"};
    RegularExpression codeOfThing{
        uR"((?<!\p{L})(?:pass(?:word|code)|code|kode|adgangskode)\s(?:for|to|til)\s[^.,:;]{2,40}?\s(?:is|er)\s([^\s"'”“,;<>()]{5,}[^\s"'”“,;<>().]))"};
    RegularExpression passwordOfThing{
        uR"((?<!\p{L})(?:password|passcode|passphrase|adgangskode|kodeord)n?\s(?:for|to|til)\s[^.,:;]{2,24}:\s([^\s"'”“,;<>()]{5,}[^\s"'”“,;<>().]))"};
    RegularExpression user{uR"((?<!\S)(?:-u|--user)[ =]["'“]?[\w.@-]{1,40}:([^\s"'”]{4,}))"};
    /// Of words only: "password is heron-lake-otter", "password: “orange bicycle window”".
    RegularExpression words{
        uR"((?<!\p{L})(?:pass(?:word|phrase|code)|adgangskode|kodeord)(?:[:=]\s?|\s?=\s?|\s(?:is|er)[:\s]\s?)(?:["'“‘](\p{L}{3,12}(?:[ -]\p{L}{3,12}){2,11})["'”’]|(\p{L}{3,12}(?:-\p{L}{3,12}){2,6})(?![\w-])))"};
    /// Where nothing else stands: the codes of a list, of which only the first stands below the label.
    RegularExpression codeAlone{uR"(^\s*([a-z\dO]{4}-[a-z\dO]{4}|[a-z\dO]{5}-[a-z\dO]{5})\s*$)", sensitive};
    /// Words joined by signs, a blank beside one of them: "tundra! Copper -92-lilac".
    RegularExpression torn{
        u"(?<![\\w])"_s + secretLabel +
        uR"(\s*(?:[:=]\s|(?:is|er)\s)?\s?([\p{L}\d]{2,20}(?:(?:[-_!&#+@%*]\s?|\s[-_!&#+])[\p{L}\d]{2,20}){1,6}))"_s};
    /// What hardly anything but a password looks like: "Plover-Gate-90", "Kestrel!1349".
    RegularExpression wordsWithNumber{
        uR"((?<![\w./@-])(\p{Lu}\p{Ll}{3,12}(?:-(?!Room|Hall|Floor|Printer|Server|Network|Report|Template|Layer|Candidate|Phase|Sprint|Group|Team|Table|Week|Part|March|April)\p{Lu}\p{Ll}{3,12}-(?!(?:19|20)\d\d)|[!$%&*^])\d{2,4})(?![\w/@-]))",
        sensitive};

    /// And "Plover-9-Beacon_21", "kT7#heather!Delta", "4-0-9-2".
    RegularExpression signsInWord{
        uR"((?<![\w./@-])(\p{Lu}\p{Ll}{3,12}-\d{1,3}-\p{Lu}\p{Ll}{3,12}[-_]\d{1,4})(?![\w/@-]))"
        uR"(|(?<!\S)((?=\S*\d)(?=\S*\p{Lu})[\p{L}\d]{2,12}[#!$%*^£][\p{L}\d]{3,16}[#!$%*^£&][\p{L}\d]{2,12})(?!\S)|^(\d(?:-\d){3,5})$)",
        sensitive};
    /// Words in small letters are a key behind their label only, from which the blank may be lost, and groups
    /// of any length at the end of the line behind what they are for.
    RegularExpression wordsOfKey{
        uR"((?<!\p{L})(?:[Kk]ey|[Pp]ass(?:word|phrase|code)|[Kk]odeord|[Aa]dgangskode|[Kk]ode)\s?[:=]?\s?(\p{Ll}{3,12}(?:-\p{Ll}{3,12}){1,5}-\d{1,4})(?![\w-]))",
        sensitive};
    RegularExpression groupsForThing{
        uR"((?<!\p{L})(?:pass(?:word|code)|code|\p{L}{0,9}koden?)\s(?:for|to|til)\s[^\s.,:;]{2,20}(?:\s[^\s.,:;]{2,20}){0,2}:?\s((?=[\w-]*\d)[a-z\d]{2,8}(?:-[a-z\d]{2,8}){1,4})\s*$)"};

    /// "exportfix with Marigold!7726": the name of the user in front.
    RegularExpression withPassword{
        uR"((?<!\p{L})(?:with|med)\s+((?=\S{0,40}\d\d)\p{Lu}[\p{L}\d_]{2,20}[!$%&*^][\w!$%&*^-]{2,20})(?![\w/.]))",
        sensitive};

    /// Keys that say themselves whose they are. A blank that was read into a signed token is put up with.
    RegularExpression knownShape{
        uR"((?<![A-Za-z0-9])(?:(?:AKIA|ASIA|AROA|AGPA)[A-Z0-9]{12,}|AIza[\w-]{20,}|gh[oprsu]_\w{12,})"
        uR"(|github_pat_\w{12,}|glpat-[\w-]{12,}|xox[abeoprs]-[\w-]{10,}|npm_\w{16,}|hf_\w{16,}|ya29\.[\w-]{16,})"
        uR"(|SG\.[\w-]{12,}\.[\w-]{12,}|s%3A[\w%.-]{16,}|[a-z]{0,2}k_(?:live|test|prod|demo)(?:_|\s(?=\w*\d))\w{10,}|whsec_\w{12,})"
        uR"(|eyJ[\w-]{6,}\s?\.\s?[\w-]{4,}(?:\s?\.\s?[\w-]{4,}(?:\s[\w-]{12,})?)?))",
        sensitive};
    /// Behind the initials of whose it is, as far as it was read well.
    RegularExpression keyOfSomebody{uR"((?<![A-Za-z0-9])[a-z]{2,5}_(?:[A-Za-z]{2,7}_)?[A-Za-z0-9]{6,})",
                                    sensitive};
    /// Groups with a hyphen between, behind what says so or long enough.
    RegularExpression groups{
        uR"((?:recovery|backup|activation|licen[cs]e|product)\s?(?:codes?|keys?)\s*[:\t]?\s*)"_s + u'(' +
        hyphenatedCode + uR"((?:[\s,]{1,2})"_s + hyphenatedCode + uR"()*))"_s};
    /// "JBSW Y3DP EHPK 3PXP"
    RegularExpression authenticatorKey{
        uR"((?<!\w)((?=(?:[A-Z2-7]{4} ){0,12}[A-Z2-7]{0,3}(?:[2-7][A-Z]|[A-Z][2-7]))(?=(?:[A-Z2-7]{4} ){0,12}\d{0,3}[A-Z]{2})[A-Z2-7]{4}(?: [A-Z2-7]{4}){3,12})(?!\w))",
        sensitive};
    RegularExpression hyphenated{uR"((?<![\w-])[A-Z\d]{4}(?:-[A-Z\d]{4}){2,5}(?![\w-]))", sensitive};
    /// Group 1 is a number that opens something, which is a secret for what stands before it only.
    RegularExpression code{
        uR"((?<!\p{L})(?:(?:pin|puk)(?:[- ]?(?:code|kode))?|(?:security|access|pass|door|gate|alarm|verification|one-time|entry|log-?in|sign-?in)"
        uR"(|confirmation|lock ?box|key ?safe|key ?box|keypad|2fa|pick-?up|collection|locker)[ -]?code|passcode|otp|cv[cv]2?|(?:sikkerheds|engangs|adgangs|d[øo]r|port|alarm|afhentnings|udleverings|pakke|hente|nøgle|boks|bank|lås)koden?|kontrolcifre)"
        uR"(|(?:your[ -]?code|koden?)(?!\W{0,3}\d{3}(?![ -]?\d))))"
        uR"((?:\s(?:til|for|to)\s[^.,;\d]{2,20})?\s*(?:[:.=#]|is|er)?\s*[#*]?(\d{3,8}|\d{2,4}(?:[ -]\d{2,4}){1,2}|\d(?:[ -]\d){3,7}|\d{2}[*#]\d{2,4})(?![\d./]|[,-]\d| \d))"};
    RegularExpression codeToEnter{
        uR"((?<!\p{L})(?:enter|use|type|indtast|brug)\s(?:(?:the|this|your|one-time|code|koden?)\s){0,3}(\d{4,8}|\d{3}[ -]\d{3})\s(?:to|for at)\s(?:sign|log|verify|confirm|continue|unlock|open|bekræfte|åbne))"
        uR"(|(?<!\p{L})(?:enter|use|type|press|indtast|brug|tast)\s(?:(?:the|code|koden?)\s){0,2}[#*]?(\d{4,6})\s?[#*]?\s(?:at|on|by|for|in|ved|på|i)\s(?:the\s)?(?:\p{L}{3,9}\s)?(?:gate|door|entrance|keypad|garage|lift|elevator|barrier|port\w{0,2}|dør\w{0,2}|låge\w{0,2})(?!\p{L}))"};
    RegularExpression door{
        uR"((?<!\p{L})(?:(?:door|gate|dør|port|alarm)(?:\s(?:is|er)\s|:\s|\s)[#*]|(?:(?:door|gate|dør|alarm)(?:\s(?:is|er)|:)|port\ser)\s|(?:lock ?box|key ?(?:safe|box)|nøgleboks(?:en)?|keypad)(?:\s(?:is|er))?:?\s[#*]?)(\d{4,6})(?![\d.,:/-]))"};
    RegularExpression codeBefore{
        uR"((?<![\w.,/-])((?:[A-Z]{1,2}-)?(?:\d{4,8}|\d{3}[ -]\d{3}))\s(?:is|er)\s(?:your|din)\s[^.\d]{0,30}(?:code|kode|pin|otp|password)\b)"};
    /// The beginning of one, which says in letters that it is one.
    RegularExpression signedToken{uR"((?<![A-Za-z0-9])ey_?[JI]_?[\w-]{6,})", sensitive};
    RegularExpression run{uR"([\p{L}\p{N}][\p{L}\p{N}_+/~-]{14,}[\p{L}\p{N}-]={0,2})"};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }
};

/// What stands in a cell beside the label of a secret, unless it says something of it, such as "never used".
std::optional<TextRange> secretInCell(QStringView line) {
    constexpr qsizetype shortest = 4;
    constexpr qsizetype longestAnswer = 40;
    const auto labelled = LabelledValue::of(line);
    const Expressions& expressions = Expressions::shared();
    if (!labelled || labelled->topic != LabelTopic::secret || expressions.method.hasMatch(labelled->value))
        return std::nullopt;
    const QStringView cell = labelled->value;
    const bool isWord = std::ranges::none_of(cell, [](QChar character) { return character.isSpace(); });
    const bool isCount = expressions.countable.hasMatch(labelled->label);
    const bool isAnswer = expressions.answer.hasMatch(labelled->label);
    const auto torn = expressions.tornInCell.matchAt(cell, 0);
    if ((isAnswer && cell.size() <= longestAnswer && cell[0].isLetterOrNumber()) ||
        (isWord && cell.size() >= shortest && isChosen(cell)) ||
        (!isCount && (expressions.numberInCell.hasMatch(cell) || expressions.wordAndNumber.hasMatch(cell))) ||
        expressions.codesInCell.hasMatch(cell) || expressions.wordsInCell.hasMatch(cell) ||
        (torn && Composition(cell).digits > 0))
        return labelled->range;
    return std::nullopt;
}

/// Collects the credentials of one line. Of two that overlap the longer one stays.
class Search {
public:
    explicit Search(QStringView line) : m_line(line), m_hasDigit(Composition(line).digits > 0) {}

    std::vector<TextRange> credentials() {
        addKeys();
        if (const auto secret = secretInCell(m_line))
            add(*secret);
        addCodes();
        addSignedTokens();
        addNamedSecrets();
        for (const TextRange range : m_expressions.run.ranges(m_line)) {
            if (isRandom(textOf(range)))
                add(grown(m_line, range));
        }
        std::ranges::sort(m_found, {}, &TextRange::location);
        return std::move(m_found);
    }

private:
    static constexpr int fewestBreaksOfKey = 4;

    QStringView textOf(TextRange range) const { return m_line.sliced(range.location, range.length); }

    void add(TextRange range) {
        const auto overlapping =
            std::ranges::find_if(m_found, [&](TextRange other) { return other.intersects(range); });
        if (overlapping == m_found.end())
            m_found.push_back(range);
        else if (range.length > overlapping->length)
            *overlapping = range;
    }

    void addKeys() {
        constexpr qsizetype shortestKey = 18;
        for (const TextRange range : m_expressions.knownShape.ranges(m_line))
            add(grown(m_line, range));
        for (const TextRange range : m_expressions.keyOfSomebody.ranges(m_line)) {
            const TextRange key = grown(m_line, range);
            if (key.length >= shortestKey && breaks(textOf(key)) >= fewestBreaksOfKey)
                add(key);
        }
    }

    void addCodes() {
        for (const RegularExpression* expression :
             {&m_expressions.code, &m_expressions.codeBefore, &m_expressions.codeToEnter, &m_expressions.door,
              &m_expressions.wordsWithNumber, &m_expressions.authenticatorKey, &m_expressions.wordsOfKey}) {
            if (!m_hasDigit)
                break;
            for (const auto& match : expression->matches(m_line))
                add(*std::ranges::find_if(match.groups, [](TextRange group) { return group.location >= 0; }));
        }
        if (m_hasDigit) {
            for (const TextRange range : m_expressions.signsInWord.ranges(m_line))
                add(range);
        }
        for (const auto& match : m_expressions.groupsForThing.matches(m_line)) {
            if (Composition(textOf(match.groups[0])).changes >= 2)
                add(match.groups[0]);
        }
        for (const auto& match : m_expressions.groups.matches(m_line)) {
            if (Composition(textOf(match.groups[0])).digits > 0)
                add(match.groups[0]);
        }
        for (const auto& match : m_expressions.codeAlone.matches(m_line)) {
            const Composition parts(textOf(match.groups[0]));
            if (parts.changes >= 2 && parts.lower >= 2)
                add(match.groups[0]);
        }
        for (const TextRange range : m_expressions.hyphenated.ranges(m_line)) {
            if (breaks(textOf(range)) >= fewestBreaksOfKey)
                add(range);
        }
    }

    void addSignedTokens() {
        qsizetype end = 0;
        for (const TextRange range : m_expressions.signedToken.ranges(m_line)) {
            if (range.location < end)
                continue;
            const TextRange token = grownSignedToken(m_line, range);
            end = token.end();
            add(token);
        }
    }

    void addChosen(const RegularExpression& expression, int fewestDigits) {
        for (const auto& match : expression.matches(m_line)) {
            const QStringView text = textOf(match.groups[0]);
            if (isChosen(text) && Composition(text).digits >= fewestDigits)
                add(match.groups[0]);
        }
    }

    void addNamedSecrets() {
        for (const auto& match : m_expressions.words.matches(m_line))
            add(match.groups[0].location >= 0 ? match.groups[0] : match.groups[1]);
        for (const RegularExpression* expression :
             {&m_expressions.assignment, &m_expressions.sentence, &m_expressions.withPassword,
              &m_expressions.passwordOfThing, &m_expressions.user})
            addChosen(*expression, 0);
        if (!m_hasDigit)
            return;
        addChosen(m_expressions.torn, 1);
        addChosen(m_expressions.quoted, 1);
        addChosen(m_expressions.codeOfThing, 2); // one stands in names of files and versions too
    }

    const Expressions& m_expressions = Expressions::shared();
    QStringView m_line;
    bool m_hasDigit;
    std::vector<TextRange> m_found;
};

} // namespace

std::vector<TextRange> CredentialFinder::find(QStringView line) const {
    return Search(line).credentials();
}

} // namespace Veilshot
