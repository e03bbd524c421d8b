#include "VeilshotCore/Analysis/TellingLabel.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

constexpr qsizetype longestLabel = 32;
constexpr qsizetype longestLabelOfDetail = 48;

const QString birth =
    uR"((?:date of )?birth(?: ?da(?:y|te))?|born|d\.?o\.?b\.?|f[øo]dt|f[øo]dselsda(?:g|to))"
    uR"(|fødd|född|födelsedatum|geboren|geburtsdatum|geboortedatum|date de naissance|née?|fecha de nacimiento|data di nascita)"_s;

/// Papers and numbers of which the word alone says whose they are. Not a bare "ID", which everything has.
const QString document =
    uR"((?:number of (?:the )?)?(?:passport|identity card|travel document)|pas|reisepass|(?:identity |travel )?document|driv\w{1,6}['’]?s?[- ]licen[cs]e|licen[cs]e|k[øo]rekort|(?:national |personal )?id(?:entity)?[- ]?(?:card|kort))"
    uR"(|(?:national|personal) (?:id(?:entity)?|insurance|registration)|residen(?:ce|t) (?:permit|card)|opholds(?:kort|tilladelse)|work permit)"
    uR"(|green card|social (?:security|insurance)|health card|sundhedskort|sygesikring\w{0,6}|medicare|s\.?s\.?n|itin|nino|a-number|uscis|tfn|crn|ucas)"
    uR"(|ppsn?|nhs|nric|hkid|aadhaar|cpf|curp|dni|nie|pesel|bsn|ahv|hetu|bvn|codice fiscale|personalausweis|steuer-?id|cpr)"
    uR"(|person(?:nummer|nr)|f[øo]dselsnummer|kennitala|henkilötunnus|mrn|kra pin|known travell?er|redress)"
    uR"(|(?:reisepass|ausweis|sozialversicherungs|versicherten|steuer|matrikel)-?(?:nummer|nr)|passeport|pasaporte|passaporto|carte d['’]identité)"
    uR"(|sécurité sociale|numéro fiscal|seguro social|cédula|körkort|førerkort|(?:vehicle )?registration(?: mark)?|nummerplade)"_s;
/// What may have one.
const QString owner =
    uR"(id(?:entity|entification)?|national|citizen|document|dokument|tax(?:payer)?|tin|ni|sin|pan|skatte?|visa|permit|health|hospital|medical)"
    uR"(|medical record|insur(?:ance|ed)|forsikrings?|polic(?:y|e)|member(?:ship)?|medlems?|subscriber|beneficiary|patient|claimant|student)"
    uR"(|studie|studerende|elev|pupil|learner|candidate|applicant|employee|emp\.?|badge|medarbejder|staff|personnel|driver|voter|donor|inmate)"
    uR"(|matriculation|enrol?ment|club|loyalty|bonus|rewards?|frequent (?:flyer|guest)|clinical|examination|exam|service|certificate|(?:licence|license|number) plate|chassis)"_s;
const QString numberWord =
    uR"((?:[- ]?(?:card|kort|certificate|nos?|nr|num(?:ber|mer)?s?|numre|ids?|#|№)(?!\p{L})\.?){1,3})"_s;

const QString branch = uR"(reg(?:istrerings)?[. -]{0,2}(?:nr|nummer|no)?\.?|sort ?code)"_s;

const QString secret =
    uR"(pass(?:word|code|phrase|wd)?s?|pwd|secrets?|secret (?:key|word)s?|(?:security|secret|memorable) (?:answer|word|place|date)|sikkerhedssvar|(?:\w{2,10} )?tokens?|(?:pin|puk|otp|cvv2?|cvc2?)(?:[- ]?(?:codes?|koder?))?|psk)"
    uR"(|(?:api|access|licen[cs]e|product|activation|recovery|private|signing|encryption|pre[- ]?shared|network|security|wi-?fi|wlan|wpa[23]?|master|setup|manual|authenticator)[ -](?:key|phrase|voucher|code)s?)"
    uR"(|(?:security|access|door|gate|entry|alarm|lock ?box|key ?safe|verification|log-?in|sign-?in|one-time|backup|recovery|reset|authentication)"
    uR"(|confirmation|unlock|2fa|mfa|safe|key ?box|pick-?up|collection|locker)[ -](?:pin[ -])?(?:code|password|passcode)s?|(?:seed|recovery|backup|secret) (?:phrase|words))"
    uR"(|(?:midlertidig )?(?:kodeord|adgangskoder?)|pinkoder?|(?:engangs|sikkerheds|d[øo]r|port|alarm|gendannelses|backup|nød|bekræftelses|låge|afhentnings|udleverings|hente|boks|bank|lås|start|gæste|mitid-?|wifi[- ])(?:koder?|nøgler?))"
    uR"(|kontrolcifre|\p{L}{0,12}n[øo]gler?|(?:\w{2,10} )?combination|(?:bike|suitcase|gym) lock|padlock|key ?(?:safe|box)|lock ?box|nøgleboks(?:[ -]?koden?)?)"
    uR"(|join code|security question answer|mother['’]?s maiden name|(?:your )?first (?:pet|school)|mors pigenavn)"_s;

const QString address =
    uR"((?:(?:street|home|postal|mailing|delivery|shipping|billing|residential|permanent|current|visiting|residence|previous|former|old|new) ?)?address(?:es)?(?:[ -]?line)?(?: ?[1-4])?)"
    uR"(|street(?: ?(?:name|number|no|line))?(?: ?[1-4])?|(?:house|building) name|p\.?o\.? ?box|(?:(?:leverings|faktura|hjemme|privat|post|folkeregister|bopæls|fragt)?adresser?(?:linje)?)(?: ?[1-4])?|bop(?:æ|ae?|e)l)"
    uR"(|(?:gade|vej)(?:navn)?|stra(?:ß|ss)e|rue|calle|via)"_s;
const QString town =
    uR"((?:post ?|postal )?town|(?:home )?city|suburb|village|locality|by|bynavn|postby|postdistrikt|stadt?|ort|ville|ciudad)"_s;
const QString state = uR"(state|province|region|delstat|bundesland)"_s;
const QString houseNumber = uR"((?:house )?(?:n[or]|number|nummer|num|nº|n°)\.?)"_s;
const QString postcode =
    uR"((?:post|postal|zip)[ -]?codes?|zip|eircode|plz|cep|post ?(?:nr|nummer|no)|apt|apartment|unit|flat|etage|husn(?:umme)?r|lejlighed)"_s;

/// A label says whose the detail is in front and remarks on it behind: "Guest’s passport no. (optional)". In
/// front of the parts of an address only what addresses are for: "Posted by" is no town. One group for each
/// LabelTopic, in their order.
RegularExpression makeLabelOfDetail() {
    const QString ofWhom = uR"((?:[\p{L}’'.-]{1,20} ){0,2}?)"_s;
    const QString ofWhat =
        uR"((?:(?:billing|shipping|delivery|home|leverings|faktura|tidl(?:igere|\.)|nuværende|ny)[ -]?)?)"_s;
    return RegularExpression(
        u"^(?:("_s + birth + u")|"_s + ofWhom + u"("_s + document + u"|(?:"_s + owner + u")['’]?s?(?="_s +
        numberWord + u"))(?:"_s + numberWord + u")?|("_s + branch + u")|"_s + ofWhom + u"("_s + secret +
        u")|"_s + ofWhat + u"(?:("_s + address + u")|("_s + town + u")|("_s + postcode + u")|("_s + state +
        u")|("_s + houseNumber +
        uR"()))(?: of (?:the )?(?:spouse|host|child|applicant|holder|parent|guardian|partner|tenant|insured))?[.:* ]{0,3}(?:\(?(?:optional|required|valgfri\w?t?)\)?|\([^()]{1,20}\))?[*: ]{0,2}$)"_s);
}

/// Of the name of a variable or a path, which is one word: "db-password", "apiKey".
QString withBlanks(QStringView word) {
    QString text;
    for (const QChar sign : word) {
        if (sign.isUpper() && !text.isEmpty() && text.back().isLower())
            text += u' ';
        text += u".-"_s.contains(sign) ? u' ' : sign;
    }
    return text;
}

const RegularExpression& labelOfDetail() {
    static const RegularExpression expression = makeLabelOfDetail();
    return expression;
}

} // namespace

std::optional<LabelTopic> topicOfLabel(QStringView text) {
    if (text.size() > longestLabelOfDetail || text.contains(u'\t'))
        return std::nullopt;
    static const RegularExpression separator(uR"(\s?[/&]\s?|,\s(?=\p{Ll})|\s(?:or|and|eller|og)\s)");
    QString spaced = text.toString().replace(u'_', u' ');
    static const RegularExpression numberInForm(uR"(^\d{1,2}[a-z]?[.)]?\s(?=\p{Lu}\p{Ll}))",
                                                RegularExpression::CaseSensitivity::sensitive);
    const auto number = numberInForm.firstMatch(spaced);
    if (number)
        spaced.remove(0, number->range.length);
    qsizetype start = 0;
    const auto topic = [&](qsizetype end) -> std::optional<LabelTopic> {
        const QStringView part = QStringView(spaced).sliced(start, end - start);
        auto match = labelOfDetail().firstMatch(part);
        if (!match && !part.contains(u' '))
            match = labelOfDetail().firstMatch(withBlanks(part));
        for (std::size_t group = 0; match && group < match->groups.size(); ++group) {
            const auto found = static_cast<LabelTopic>(group);
            // The next label of the form looks like a street and its number.
            if (match->groups[group].location >= 0 && (!number || found <= LabelTopic::secret))
                return found;
        }
        return std::nullopt;
    };
    for (const TextRange between : separator.ranges(spaced)) {
        if (const auto found = topic(between.location))
            return found;
        start = between.end();
    }
    return topic(spaced.size());
}

QString labelOfNumber() {
    return u"(?i:(?:"_s + document + u")(?:"_s + numberWord + u")?|(?:"_s + owner + u")['’]?s?"_s +
           numberWord + u')';
}

std::optional<LabelledValue> LabelledValue::of(QStringView line) {
    const qsizetype tab = line.indexOf(u'\t');
    const bool hasColumns = tab >= 0;
    if (hasColumns && line.sliced(tab + 1).contains(u'\t'))
        return std::nullopt;
    const qsizetype end =
        hasColumns ? tab : line.first(std::min(line.size(), longestLabelOfDetail)).indexOf(u": ");
    if (end < 0)
        return std::nullopt;
    const QStringView label = line.first(end).trimmed();
    const QStringView value = line.sliced(end + 1).trimmed();
    const auto topic = value.isEmpty() ? std::nullopt : topicOfLabel(label);
    const bool needsForm = topic == LabelTopic::houseNumber || topic == LabelTopic::state;
    if (!topic || (needsForm && !hasColumns))
        return std::nullopt;
    return LabelledValue{*topic, label, value, {value.data() - line.data(), value.size()}};
}

bool isLabelOfName(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:(?:first|last|given|family|full|maiden|middle|birth|former)(?: and middle)?[ _]?names?|given|surnames?)"
        uR"(|(?:for|efter|mellem|pige|fulde )navne?)(?: ?\((?:e|s|family name|last name|first name)\)| at birth)?[*:]?$)");
    return text.size() <= longestLabel && expression.hasMatch(text);
}

bool isLabelOfPerson(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:patient(?: name)?|assignee|assigned to|reporter|reported by|requester|author|forfatter|owner|ejer)"
        uR"(|employee|medarbejder|student|elev|attendees?|deltagere?|participants?|passengers?|passagerer?|guests?)"
        uR"(|contact(?: person)?|kontakt(?:person)?|account manager|manager|leder|doctor|gp|læge|nurse|sygeplejerske)"
        uR"(|cardholder|name on card|kortholder|account holder|kontohaver|insured|policyholder|claimant|driver|fører)"
        uR"(|next of kin|pårørende|spouse|ægtefælle|mother|father|parents?|forældre|guardian|værge|tenant|lejer)"
        uR"(|(?:created|reviewed|approved|signed|prepared|requested|written|submitted|opened|closed|ordered) by)"
        uR"(|oprettet af|godkendt af|underskrevet af|recipient|modtager|organi[sz]er|arrangør|host|vært)[*:]?$)");
    return isLabelOfName(text) || (text.size() <= longestLabel && expression.hasMatch(text));
}

} // namespace Veilshot
