#include "VeilshotCore/Analysis/DataDetection/PersonalNumberFinder.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TellingLabel.h"

#include <QString>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString month =
    uR"((?:jan(?:uar[y]?)?|feb(?:ruar[y]?)?|mar(?:ch|ts)?|apr(?:il)?|ma[yj]|june?|juni|july?|juli)"
    uR"(|aug(?:ust)?|sept?(?:ember)?|o[ck]t(?:ober)?|nov(?:ember)?|dec(?:ember)?)\.?)"_s;
const QString year = uR"((?:19|20)\d{2})"_s;
const QString date = uR"((?:\d{1,2}(?:st|nd|rd|th)?\.?\s?(?:of\s|de\s)?)"_s + month + uR"(,?\s)"_s + year +
                     u'|' + month + uR"(\s\d{1,2}(?:st|nd|rd|th)?,?\s)"_s + year + uR"(|\d{1,2}-)"_s + month +
                     u'-' + year + uR"(|\d{1,2}\s?[./-]\s?\d{1,2}\s?[./-]\s?(?:)"_s + year +
                     uR"(|\d{2})|)"_s + year + uR"([./-]\d{1,2}[./-]\d{1,2}))"_s;
/// The years in which the owners of most documents were born, and few other things happened.
const QString pastYear = uR"((?:19[2-9]\d|200[0-4]))"_s;
/// And the children, whose list may say so in a heading far above: where nothing but the date stands.
const QString schoolYear = uR"((?:19[2-9]\d|200\d|201[0-7]))"_s;

/// Groups of digits and capitals. Group 1.
const QString number =
    uR"((\$?(?:(?:\p{Lu}{1,6}(?=[ /.-]?\d)|\p{Lu}{0,6}\d)[\p{L}\d]{0,18})(?:\s?[-/. ]\s?(?:\p{Lu}{0,4}\d[\p{Lu}\dlO]{0,14}|\p{Lu}{1,4}(?!\p{L}))){0,6}))"_s;

/// No years or round numbers along an axis or in the head of a table.
const QString noRowOfNumbers =
    uR"((?!(?:[A-Z]{4} )?(?:(?:19|20)\d\d[ -](?:19|20)\d\d|\d\d00[ -]\d\d00)\b))"_s;

struct Expressions {
    /// Group 1 of each is the date or the number.
    RegularExpression afterWord{
        uR"((?<![\p{L}])(?:born|birth(?:day|date)?|date of birth|d\.?o\.?b\.?|f[øo]dt|)"
        uR"(f[øo]dselsda(?:g|to)|fødd|född|födelsedatum|geboren|geburtsdatum|geboortedatum|date de naissance|née?|fecha de nacimiento|data di nascita)(?![\p{L}])[^\d\p{L}]{0,4}(?:(?:on|den|d\.)\s)?)"_s +
        u'(' + date + uR"()(?!\d))"_s};
    RegularExpression withAge{u"(?<!\\d)("_s + date +
                              uR"()\s?\((?:age[d]?\s)?\d{1,3}(?:\s?(?:years|yrs|y/o|år)\b|\)))"_s};
    RegularExpression alone{uR"(^\s*((?:\d{1,2}(?:st|nd|rd|th)?\.?\s)"_s + month + uR"(\s)"_s + schoolYear +
                            u'|' + month + uR"(\s\d{1,2}(?:st|nd|rd|th)?,?\s)"_s + schoolYear +
                            uR"(|\d{1,2}(\s?[./-]\s?)\d{1,2}\2)"_s + schoolYear + uR"())\s*$)"_s};
    /// "f. 12. maj 1971", "Age 54 (May 12, 1971)"
    RegularExpression abbreviated{uR"((?<!\S)[fb]\.\s?(\d{1,2}(?:st|nd|rd|th)?\.?\s)"_s + month + uR"(\s)"_s +
                                  schoolYear + uR"((?!\d)))"_s};
    RegularExpression inBrackets{uR"(\(((?:\d{1,2}(?:st|nd|rd|th)?\.?\s)"_s + month + u'|' + month +
                                 uR"(\s\d{1,2}(?:st|nd|rd|th)?,?)\s)"_s + pastYear + uR"()\))"_s};
    RegularExpression inDigits{uR"((?<![\d./-]|[./-]\s)([0-3]?\d(\s?[./-]\s?)[0-3]?\d\2)"_s + pastYear +
                               uR"()(?![\d/-]|[.,]\d))"_s};
    /// Behind its label, in whatever groups.
    RegularExpression labelled{uR"((?<![\p{L}\p{N}]))"_s + labelOfNumber() +
                                   uR"(\s?[.:#=–-]{0,2}\s?(?:(?:is|er|no|nr)\b\.?\s)?)"_s + number,
                               RegularExpression::CaseSensitivity::sensitive};
    /// Of a date of birth, however it is written.
    RegularExpression cellOfBirth{
        uR"(^(?=(?:.*?\d){2})(?=(?:.*?\d){6}|.*(?:jan|feb|mar|apr|ma[jy]|ju[nl]|aug|sep|o[kc]t|nov|de[cz]))[\p{L}\d .,/'’-]{5,22}(?:\s?\([^()]{1,14}\))?$)"};
    /// The lines at the foot of a passport.
    RegularExpression machineReadable{uR"((?<!\S)((?=[^\s]*[<«]{2})(?=[^\s]*[A-Z]{2})[A-Z\d<«]{18,})(?!\S))",
                                      RegularExpression::CaseSensitivity::sensitive};
    RegularExpression numberInCell{uR"(^(?:[^\p{L}\p{N}$]{0,3}))"_s + number + uR"((?![\p{L}\d%]|[.,]\d))"_s,
                                   RegularExpression::CaseSensitivity::sensitive};
    /// And so misread that it hardly looks like one.
    RegularExpression cellOfNumber{uR"(^(?!.*(?:\p{Ll}{3}|[@%€£:]|\d[.,]\d\d$))(?=(?:.*?\d){4}).{5,26}$)",
                                   RegularExpression::CaseSensitivity::sensitive};
    RegularExpression dateOrYear{uR"(^(?:\d{1,4}\s?[./-]\s?\d{1,2}\s?[./-]\s?\d{1,4}|(?:19|20)\d\d)$)"};
    RegularExpression bank{
        uR"((?<![\p{L}])(?:reg(?:istrerings)?[.\s-]{0,2}(?:nr|nummer|no)|reg(?!\W{0,4}(?:19|20)\d\d)|sort\s?code)[.:\s]{0,3}(\d{4}|\d\d[- ]\d\d[- ]\d\d)(?![\d.,/]))"};
    /// Of a bank too, in front of the account or of the end of the line.
    RegularExpression bankBeforeAccount{
        uR"((?<!\p{L})(?:konto|account)(?:[ .-]?(?:nr|nummer|no|number))?[.:\s]{1,3}(\d{4})(?!\d))"
        uR"((?=\s?(?:[|/-]\s?|[Il1]\s)\d{6,10}(?!\d)|(?<=\b(?:på|til|fra)\skonto\s\d{4})\s*$))"};
    RegularExpression britishInsurance{
        uR"((?<![A-Za-z\d])((?:QQ|[A-CEGHJ-PR-TW-Z][A-CEGHJ-NPR-TW-Z])\s?\d\d\s?\d\d\s?\d\d\s?[A-D]c?)(?![A-Za-z\d]))",
        RegularExpression::CaseSensitivity::sensitive};

    /// The number of a Dane, its hyphen misread.
    RegularExpression civil{
        uR"((?<![\d.,/-])((?:[0-2]\d|3[01])(?:0\d|1[0-2])\d\d(?:\s?[-–—_~]{1,3}\s?|[.:=])\d{4})(?![\d/-]|[.,]\d))"};

    /// A passport or a licence, or what is as long as one, but neither a ticket nor an order.
    RegularExpression lettered{
        uR"((?<![\w./-])(?!(?:INC|PO|SR|CHG|INV|REQ|SO|RMA|TKT|RITM|TASK|PRB|ORD|REF|WO|CR|BUG|FA|KB|CVE|ISO|RFC|PR|ID|NO|NR|SKU|DKK|EUR|USD|GBP)\d))"
        uR"(([A-Z]{1,3}\d{7,9}[A-Z]?|[A-Z]{2,3}\d{6}|[\dO]\d[A-Z]{2}\s?\d{5}|(?=[A-Z\d]*\d[A-Z]{1,3}\d)(?=(?:[A-Z]*\d){3})(?=(?:\d*[A-Z]){3})[A-Z\d]{9})"
        uR"(|[A-Z]{1,2}(?!20\d\d-)(?=(?:-?\d){8})\d{2,5}(?:-\d{2,6}){1,4})(?![\w-]))",
        RegularExpression::CaseSensitivity::sensitive};
    /// The numbers of several countries by their shape: Brazil, Chile, Switzerland, Belgium, Finland,
    /// Czechia, a Polish licence, Spain, Mexico, India, the United States (health), Ireland, Hong Kong,
    /// China.
    RegularExpression national{
        uR"((?<![\w./-])(\d{3}\.\d{3}\.\d{3}-\d\d|\d{1,2}\.\d{3}\.\d{3}-[\dkK]|756\.\d{4}\.\d{4}\.\d\d|\d\d\.\d\d\.\d\d-\d{3}\.\d\d|[0-3]\d[01]\d{3}[-+A]\d{3}[A-Y])"
        uR"(|\d\d[0156]\d[0-3]\d/\d{3,4}|\d{5}/\d\d/\d{4}|(?:\d|[XYZ]-?)\d{7}-?[A-Z]|[A-Z]{4}\d{6}(?:[A-Z\d]{3}|[HM][A-Z]{5}[A-Z\d]\d)|[A-Z]{5}\d{4}[A-Z])"
        uR"(|\d[A-Z][A-Z\d]\d-[A-Z][A-Z\d]\d-[A-Z]{2}\d\d|\d{7}[A-W][A-IW]?|[A-Z]{1,2}\d{6}\([\dA]\)|\d{6}(?:19|20)\d{9}[\dX])(?![\w/-]|\.\d))",
        RegularExpression::CaseSensitivity::sensitive};
    /// Where nothing else stands: no day is that late in the month.
    RegularExpression sortCode{uR"((?<=^|\t)\s{0,3}(\d\d-(?:3[2-9]|[4-9]\d)-\d\d)(?=\s*(?:$|\t)))"};

    /// Cards and accounts of which a digit may have been misread, so that no check of theirs holds.
    RegularExpression card{uR"((?<![\d./-]))"_s + noRowOfNumbers +
                           uR"(([2-6]\d{3}(?:[ -]\d{4}){3}|3[47]\d\d[ -]\d{6}[ -]\d{5})(?![\d/-]|\.\d))"_s};
    RegularExpression account{
        uR"((?<!\w))"_s + noRowOfNumbers +
            uR"(((?:A[DELT]|B[AEGHRY]|C[HYZ]|D[EKO]|E[ES]|F[IOR]|G[BEILR]|H[RU]|I[EST]|L[ITUV]|M[CDEKT]|N[LO]|P[LT])"
            uR"(|R[OS]|S[EIKM]|TR|UA)[\dOlISB]{2}[?'’]?(?:\s?[A-Z]{4})?(?:\s?(?=[A-Z\d@]{0,3}\d)[A-Z\d@]{4}){3,7}(?:\s?[A-Z\d]{1,3})?|[A-Z]{4}(?: \d{4}){3}(?: \d{1,4})?|[A-Z\dOlI]{4}(?: \d{4}){5,7}(?: \d{1,3})?|(?=\d{0,3}[A-Zl])[A-Z\dOlI]{4}(?: \d{4}){3} \d\d(?! ?\d))(?!\w))"_s,
        RegularExpression::CaseSensitivity::sensitive};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }
};

/// Of the number of a document.
constexpr std::ptrdiff_t fewestDigits = 5;

std::ptrdiff_t digitsIn(QStringView text) {
    return std::ranges::count_if(text, [](QChar character) { return character.isDigit(); });
}

bool isNumber(QStringView text) {
    return digitsIn(text) >= fewestDigits && !Expressions::shared().dateOrYear.hasMatch(text);
}

/// The number in a cell beside its label, which may say more behind it: "LM482917 (expires 03/2031)".
std::optional<TextRange> numberInCell(const LabelledValue& cell) {
    const Expressions& expressions = Expressions::shared();
    const QStringView text = cell.value;
    if (isNumber(text) && expressions.cellOfNumber.hasMatch(text))
        return cell.range;
    const auto match = expressions.numberInCell.firstMatch(text);
    if (!match || !isNumber(text.sliced(match->groups[0].location, match->groups[0].length)))
        return std::nullopt;
    return TextRange{cell.range.location + match->groups[0].location, match->groups[0].length};
}

/// What a label says to be a date of birth or the number of a document.
std::vector<TextRange> labelledIn(QStringView line) {
    const Expressions& expressions = Expressions::shared();
    std::vector<TextRange> found;
    if (const auto labelled = LabelledValue::of(line)) {
        if (labelled->topic == LabelTopic::birth && expressions.cellOfBirth.hasMatch(labelled->value))
            found.push_back(labelled->range);
        if (labelled->topic == LabelTopic::number) {
            if (const auto range = numberInCell(*labelled))
                found.push_back(*range);
        }
    }
    if (digitsIn(line) < fewestDigits)
        return found;
    for (const auto& match : expressions.labelled.matches(line)) {
        const TextRange range = match.groups[0];
        if (isNumber(line.sliced(range.location, range.length)))
            found.push_back(range);
    }
    return found;
}

} // namespace

std::vector<TextRange> PersonalNumberFinder::find(QStringView line) const {
    if (digitsIn(line) == 0 && !line.contains(u"<<"))
        return {};
    const Expressions& expressions = Expressions::shared();
    std::vector<TextRange> found;
    const auto add = [&](TextRange range) {
        if (std::ranges::none_of(found, [&](TextRange other) { return other.intersects(range); }))
            found.push_back(range);
    };
    std::ranges::for_each(labelledIn(line), add);
    for (const RegularExpression* expression :
         {&expressions.afterWord, &expressions.withAge, &expressions.alone, &expressions.abbreviated,
          &expressions.inBrackets, &expressions.inDigits, &expressions.bank, &expressions.bankBeforeAccount,
          &expressions.civil, &expressions.account, &expressions.card, &expressions.lettered,
          &expressions.national, &expressions.machineReadable, &expressions.sortCode,
          &expressions.britishInsurance}) {
        for (const auto& match : expression->matches(line))
            add(match.groups[0]);
    }
    std::ranges::sort(found, {}, &TextRange::location);
    return found;
}

} // namespace Veilshot
