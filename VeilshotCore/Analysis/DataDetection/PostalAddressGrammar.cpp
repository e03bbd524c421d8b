#include "VeilshotCore/Analysis/DataDetection/PostalAddressGrammar.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

// Words are possessive and bounded throughout: no text makes the matching of a name explode.
const QString upper = u"[A-ZÆØÅÄÖÜÉ]"_s;
const QString wordEnd = uR"([\w'’.\-]{0,40}+)"_s;
const QString name = upper + wordEnd;
/// Where a name or a house number may begin.
const QString beforeName = uR"((?<![\w@/.\-]))"_s;
const QString beforeNumber = uR"((?<![\w.,#/$€£:\-]))"_s;

QString anyOf(const QStringList& alternatives) {
    return u"(?:"_s + alternatives.join(u'|') + u')';
}

QString optional(const QString& part) {
    return u"(?:"_s + part + u")?"_s;
}

// United States, Canada, United Kingdom, Ireland

const QString compass = uR"((?:NE|NW|SE|SW|N|S|E|W|North|South|East|West)\b\.?)"_s;
const QString streetType =
    u"Street|St|Avenue|Ave|Boulevard|Blvd|Road|Rd|Lane|Ln|Drive|Dr|Court|Ct|Place|Pl|Square|Sq|Terrace|Ter"
    u"|Parkway|Pkwy|Way|Circle|Cir|Highway|Hwy|Trail|Trl|Plaza|Plz|Alley|Loop|Row|Mews|Close|Crescent|Grove"
    u"|Gardens|Walk|Hill|Wharf|Quay|Green|Parade|Yard|Gate|Rise|View|Broadway|Esplanade|Turnpike|Pike|Path"
    u"|Run|Bend|Ridge|Commons|Embankment|Approach|Vale|Mount"_s;
const QString state = u"(?:A[BKLRZ]|BC|C[AOT]|D[CE]|FL|GA|HI|I[ADLN]|K[SY]|LA|M[ABDEINOST]|N[BCDEHJMSVY]|O["
                      u"HKNR]|PA|QC|RI|S[CDK]"
                      u"|T[NX]|UT|V[AT]|W[AIVY])"_s;
/// "Order ID 10293", "Status OK 20000": states that are words follow a comma.
const QString wordlikeState = uR"((?:HI|ID|IN|ME|OK|OR)\b)"_s;
const QString zip = uR"(\d{5}(?:-\d{4})?)"_s;
/// The strict form with its blank. "M2 8GB" is a computer.
const QString britishPostcode =
    uR"((?![A-Z]\d{1,2}\s\d[GTP]B\b)(?:GIR\s0AA|(?:[A-PR-UWYZ](?:\d{1,2}|[A-HK-Y]\d{1,2}|\d[A-HJKPSTUW])"
    uR"(|[A-HK-Y]\d[ABEHMNPRV-Y]))\s\d[ABD-HJLNP-UW-Z]{2})\b)"_s;
const QString canadianPostcode = uR"([A-Z]\d[A-Z]\s?\d[A-Z]\d\b)"_s;
const QString city = name + uR"((?:\s(?:)"_s + name + u"|upon|on|of|am|an|der|le|la|sur|in)){0,3}"_s;
const QString houseNumber = beforeNumber + uR"(\d{1,6}(?:-\d{1,4})?[A-Z]?)"_s;
const QString unit =
    uR"((?:(?:Apt|Apartment|Unit|Suite|Ste|Floor|Fl|Bldg|Building|Flat|Room|Rm|APT|UNIT|SUITE|STE)\b)"
    uR"(\.?\s?#?\s?\w{1,5}|#\s?\w{1,5}|\d{1,3}(?:st|nd|rd|th)\s(?:Floor|Fl)\b))"_s;

/// "10 Downing Street", "45 W 25th St", but neither "5 Star Hotel View" nor "Level 3 Green Hill".
QString englishStreet() {
    const QString notRated = uR"((?!\d\s+Star\s))"_s;
    const QString notCounted =
        uR"((?<!\b(?i:top|day|week|level|chapter|season|episode|version|scene|step|page|part|phase|stage|round)"
        uR"(|track|volume|vol|windows|iphone|q[1-4])\s))"_s;
    const QString word = uR"((?:The|of|le|[A-Z][\w'’.\-]{0,40}+|\d{1,3}(?:st|nd|rd|th|ST|ND|RD|TH)))"_s;
    const QString notDevice = uR"((?<!(?:Wheel|Hard|Test|Flash|Disk|USB|Tape)\sDrive|Card\sRow))"_s;
    const QString type = anyOf({streetType, streetType.toUpper()}); // twice in "Harbor View Dr"
    // A lower-case word behind the type makes it an ordinary noun, unless it goes on in time or space.
    const QString notNoun = uR"((?!\s+[a-zæøå]+\b(?<!\b(?:at|after|before|on|in|until|til|for|and|from))))"_s;
    return notRated + notCounted + houseNumber + uR"(\s+)"_s + optional(compass + uR"(\s+)"_s) + u"(?:"_s +
           word + uR"(\s+){1,4}?)"_s + type + uR"(\b)"_s + optional(uR"(\s+)"_s + type + uR"(\b)"_s) +
           notDevice + uR"(\.?(?:\s+)"_s + compass + u")?"_s + notNoun;
}

QString broadway() {
    return houseNumber + uR"(\s+)"_s + optional(compass + uR"(\s+)"_s) +
           uR"((?:Broadway|Parkway|BROADWAY)\b)"_s;
}

/// Any capitalized words after a number: enough where a town with state or postcode follows.
QString englishAddress() {
    return houseNumber + uR"(\s+)"_s + optional(compass + uR"(\s+)"_s) +
           uR"((?:[A-Z\d][\w'’.\-]{0,40}+\s+){0,3}[A-Z][\w'’.\-]{0,40}+\s?,?\s?)"_s +
           optional(unit + uR"(\s?)"_s) + uR"(,\s*)"_s + city + uR"(,?\s+)"_s +
           anyOf({state + uR"(\s+)"_s + zip + uR"((?!\w))"_s, britishPostcode});
}

QString americanPlace() {
    return uR"((?<![\w@.]))"_s + city + uR"((?:,\s+|\s+(?!)"_s + wordlikeState + u"))"_s + state +
           uR"(\s+)"_s + zip + uR"((?!\w))"_s;
}

QString britishPlace() {
    return uR"((?<![\w@.])(?:(?!(?:From|To|At|In|Postcode|Zip|Code)\b))"_s + city + uR"(,?\s+)?)"_s +
           britishPostcode;
}

// France

QString frenchStreet() {
    return beforeNumber +
           uR"(\d{1,4}(?:\s?(?:bis|ter))?,?\s+(?:[Rr]ue|[Aa]venue|[Bb]oulevard|[Bb]d|[Pp]lace|[Cc]ours|[Qq]uai)"
           uR"(|[Cc]hemin|[Aa]llée|[Ii]mpasse|[Rr]oute)\s+(?:(?:de|du|des|la|le|les)\s+|[ld]')*)"
           uR"([A-ZÉ][\w'’\-]{0,40}+(?:\s+[A-ZÉ][\w'’\-]{0,40}+){0,2})"_s;
}

QString frenchAddress() {
    return houseNumber +
           uR"(\s+[A-ZÉ][\w'’\-]{0,40}+)"
           uR"((?:\s+(?:de|du|des|la|le|les|[ld]'[\w\-]{1,40}+|[A-ZÉ][\w'’\-]{0,40}+)){1,5},\s*\d{5}\s+)"_s +
           city;
}

// Denmark, Norway, Sweden, Germany: the number follows the street

const QString streetEnding =
    u"veje?n?|gade[nrs]?|gyden?|pladsen|plads|torv(?:et)?|strædet?|vænget?|bakken|toften?|stien"
    u"|(?<!hri)sti|kajen?|draget|svinget|krogen|skrænten|gården|marken|engen|lunden|dalen|leddet|(?:ster|"
    u"mose|kær|eng)led|haven"
    u"|parken|vangen|ringen|esplanaden|boulevard(?:en)?|buen|kæret|højen|skoven|strandpark|brinken|banken"
    u"|kanten|kilden|passagen|promenaden|volden|gatan|vägen|gränd(?:en)?|gärdet|torget|veien|gata|straße"
    u"|strasse|str\\.|weg|platz|gasse|damm|ufer"_s;
/// Not after one or two letters: Palle and Kalle are people.
const QString avenueEnding = uR"((?<=[\w'’.\-]{3})all[eé]e?n?)"_s;
const QString streetWord =
    u"(?:[Vv]ej|[Vv]äg|[Ss]tr\\.|[Gg]ade|[Aa]ll[eé]|[Pp]lads|[Tt]orv|[Bb]oulevard|[Ss]træde|[Vv]ænge|[Gg]ate"
    u"|[Kk]aj|[Ss]ti|VEJ|GADE|ALLÉ|PLADS|TORV|BOULEVARD|[Pp]lass)"_s;
const QString wholeStreet =
    u"(?:[Tt]orvet|[Hh]avnen|[Kk]ajen|[Ss]trandvejen|[Ss]trøget|[Kk]irkestien|[Rr]ådhuspladsen|Kystvejen|Byen"
    u"|Vesterled)"_s;
/// No count, time, share or sum.
const QString nordicNumber = uR"(\d{1,3}(?:\s?[A-Za-zÆØÅ](?![\w.]))?(?:\s?[-–]\s?\d{1,3}\s?[A-Z]?)?)"
                             uR"((?![\w%°]|[.,:]\d|\s?(?:kr\b|DKK|km\b|m\b|%|GB|MB|år\b|stk)))"_s;
const QString floor =
    uR"((?:(?:st|kl|\d{1,2})\s?\.?\s?(?:sal)?\s?,?\s?(?:tv|th|mf|dør\s?\d+|lejl\.?\s?\d+)\b\.?)"
    uR"(|(?:st|kl|\d{1,2})\.(?:\s?sal)?(?=\s*(?:,|$))|\d{1,2}\.?\s+sal\b))"_s;
const QString district = uR"((?:\s+(?:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M)\b))"_s;
const QString continentalPostcode = uR"((?:[A-Z]{1,2}-\s?)?\d{4,5})"_s;
const QString swedishPostcode = uR"(\d{3}\s\d{2})"_s;

/// Labels are no part of a street's name, and a month with its day is none.
const QString notOtherWords =
    uR"((?!(?:Adr|Addr|Adresse|Address|Bor|Til|To|At|Find|Kig|Leveres|Besøg)\b\.?:?\s))"
    uR"((?!(?i:(?:\w+,?\s+){0,3}(?:jan|feb|mar|apr|may|maj|jun|jul|aug|sep|okt|oct|nov|dec)[a-z]*\.?\s+\d{1,2},)))"_s;
/// Nouns that only end like a street.
const QString notNoun =
    uR"((?!(?i:genvej|omvej|udvej|motorvej|landevej|hovedvej|adgangsvej|spilleplads|siddeplads|brigade|renegade)"
    uR"(|parkeringsplads|arbejdsplads)\s))"_s;

QString nordicStreet() {
    const QString stem = uR"([A-ZÆØÅÄÖ][\w'’.\-]{0,40}?)"_s;
    return beforeName + notOtherWords + u"(?:"_s + name + uR"(\s+){0,3}?)"_s + notNoun +
           anyOf({stem + anyOf({streetEnding, avenueEnding}),
                  u"[A-ZÆØÅÄÖ]{2,40}?"_s + anyOf({streetEnding.toUpper(), u"ALL[EÉ]E?N?"_s}), wholeStreet}) +
           uR"(\s+)"_s + nordicNumber;
}

/// As people type in a chat: "nørrebrogade 12". Only with the endings that few other words share.
QString lowercaseStreet() {
    return beforeName + notNoun + uR"([a-zæøå]{3,40}?(?:gade|vej|stræde|vænget|all[eé]|torv)\s+)"_s +
           nordicNumber;
}

QString nordicStreetOfWords() {
    return beforeName + notOtherWords + u"(?:"_s + name + uR"(\s+){1,4}?)"_s + streetWord + uR"(\s+)"_s +
           nordicNumber;
}

QString continentalAddress() {
    return beforeName + notOtherWords + u"(?:"_s + name + uR"(\s+){0,3})"_s + name +
           uR"(\s+\d{1,3}\s?[A-Za-z]?)"_s + optional(uR"(,\s*)"_s + floor) + uR"(,\s*)"_s +
           anyOf({continentalPostcode, swedishPostcode}) + uR"(\s+)"_s + city;
}

const QString postBox =
    uR"((?<!\w)(?i:P\.?\s?O\.?\s?Box|Post(?:boks|box|fach|office box))\s+\d{1,6}(?!\w))"_s;
const QString country =
    uR"((?:USA|U\.S\.A\.|United States|UK|United Kingdom|England|Scotland|Wales|Ireland|Danmark|Denmark)"
    uR"(|Sverige|Sweden|Norge|Norway|Deutschland|Germany|Tyskland|France|Canada|Kalaallit Nunaat)\b)"_s;

std::vector<RegularExpression> compiled(const QStringList& patterns, const QString& prefix = {}) {
    std::vector<RegularExpression> expressions;
    for (const QString& pattern : patterns)
        expressions.emplace_back(prefix + pattern, RegularExpression::CaseSensitivity::sensitive);
    return expressions;
}

RegularExpression compiled(const QString& pattern) {
    return RegularExpression(pattern, RegularExpression::CaseSensitivity::sensitive);
}

const QString separator = uR"((?:\s*,\s*|\s+))"_s;
const QStringList placePatterns = {
    city + uR"(,?\s+)"_s + state + optional(uR"(\s+)"_s + zip) + uR"(\b(?![a-z]))"_s,
    city + uR"(,\s*)"_s + state + uR"(\s+)"_s + canadianPostcode,
    optional(city + uR"(,?\s+)"_s) + britishPostcode,
    continentalPostcode + uR"(\s+)"_s + city + district + u'?',
    swedishPostcode + uR"(\s+)"_s + city,
    zip + uR"(\b)"_s,
    country,
};

} // namespace

PostalAddressGrammar::PostalAddressGrammar()
    : anchors(compiled({englishStreet(), broadway(), englishAddress(), americanPlace(), britishPlace(),
                        frenchStreet(), frenchAddress(), nordicStreet(), nordicStreetOfWords(),
                        lowercaseStreet(), continentalAddress(), postBox})),
      danishPlace(compiled(uR"((?<![\w@.,#:\-])(DK\s?-\s?)?(\d{4})\s+([A-ZÆØÅa-zæøå][\w.]{1,40}+))"_s +
                           uR"((?:\s+([A-ZÆØÅ][a-zæøå]{1,40}+))?)"_s +
                           uR"((?:\s+(?i:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M)\b)?)"_s)),
      continuations(compiled({floor, unit}, separator)), places(compiled(placePatterns, separator)),
      area(compiled(uR"(\s*,\s*)"_s + city + uR"((?=\s*,))"_s)),
      lastArea(compiled(uR"(\s*,\s*)"_s + city + uR"((?:\s+\d{1,2})?(?=\s*$))"_s)),
      precedingUnit(compiled(u'(' + unit + uR"(\s*,?\s*)$)"_s)),
      precedingHouse(compiled(
          uR"((?:^|(?<=[:\-–—•>]\s))((?!(?:Mr|Mrs|Ms|Dr|Ship|Deliver|Visit|Send|Adr|Addr|Adresse|Address)\b))"_s +
          anyOf({unit, uR"((?:The\s+)?)"_s + name + uR"((?:\s+)"_s + name + u"){0,3}"_s}) +
          uR"(\s*,\s*)$)"_s)) {}

const PostalAddressGrammar& PostalAddressGrammar::shared() {
    static const PostalAddressGrammar grammar;
    return grammar;
}

} // namespace Veilshot
