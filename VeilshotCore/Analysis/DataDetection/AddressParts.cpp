#include "VeilshotCore/Analysis/DataDetection/AddressParts.h"

using namespace Qt::StringLiterals;

namespace Veilshot::AddressParts {

QString anyOf(const QStringList& alternatives) {
    return u"(?:"_s + alternatives.join(u'|') + u')';
}

QString optional(const QString& part) {
    return u"(?:"_s + part + u")?"_s;
}

QString name() {
    return uR"(\p{Lu}[\w'’.\-]{0,40}+)"_s;
}

QString city() {
    // A full stop only behind what is short for something ("St. Louis"): it ends the sentence elsewhere.
    const QString word = uR"(\p{Lu}(?:[\w'’\-]{0,3}\.|[\w'’\-]{0,40}+))"_s;
    return word + uR"((?:\s(?:)"_s + word + u"|upon|on|of|am|an|der|le|la|sur|in)){0,3}"_s;
}

QString beforeName() {
    return uR"((?<![\w@/.\-]|\w['’]))"_s;
}

QString beforeNumber() {
    return uR"((?<![\w.,#/$€£:\-]))"_s;
}

QString houseNumber() {
    return beforeNumber() +
           uR"((?:B[lIi1]k\.?\s(?=\d)|(?:[NSEW]\d{1,2})?[NSEW](?=\d{4,5}\s))?(?!\d{3}-\d{4}\b)(?:(?:(?:Unit|Flat|Apt|Shop|Lot)\s)?\d{1,3}/(?=\d{1,4}\s))?\d{1,6}(?:-\d{1,4})?[A-Za-c]?(?:\s1/[234])?)"_s;
}

QString compass() {
    return uR"((?:NE|NW|SE|SW|N|S|E|W|North|South|East|West)\b\.?)"_s;
}

QString unit() {
    return uR"((?:(?:Apt|Apartment|Unit|Suite|Ste|Floor|Fl|Bldg|Building|Flat|Room|Rm|Lot|RR|Boks|Box|APT|UNIT|SUITE|STE)\b)"
           uR"(\.?\s?#?\s?\w{1,5}|(?<!\w)(?i:depto|dpto|apto|piso|planta|puerta|interior|bus|bte|bo[iî]te|lok|kv|daire|kat|D|lgh|wohnung|whg|top|em|ajtó)\.?:?\s?\d{1,4}[A-Z]?(?!\w)|(?<!\w)(?:bl|sc|app?|int|et|kv|korp|of|esc|pta|[Ii]nt)\.\s?\w{1,4}\b|\d{1,2}/F\b|#\d{2}[-‑]\d{2,4}\b|#\s?\w{1,5}|\d{1,3}(?:st|nd|rd|th)\s(?:Floor|Fl)\b))"_s;
}

QString floor() {
    return uR"((?:(?:st|kld?|\d{1,2})\s?\.?\s?(?:sal)?\s?,?\s?(?:tv|th|mf|dør\s?\d+|lejl\.?\s?\d+)\b\.?)"
           uR"(|(?:st|kl|kld|\d{1,2})\.(?:\s?sal)?(?=\s*(?:,|$))|kælder(?:en)?\b|\d{1,2}\.?\s+sal\b|(?:lejl|lgh|dør)\.?\s?\d{1,4}\b|(?:bag|for|side|mellem)hus(?:et)?\b)"
           uR"(|\d{1,2}\.?\s?[ºª°](?!\s?[CF]\b)(?:\s?(?:Esq|Dto|Dir|Izq|Dcha|[A-D])\b\.?)?)"
           uR"(|\d{1,2}(?:er|e|[eè]me)\s[ée]t(?:age|\.)|\d{1,2}\.\s?(?:OG|Stock|Etage)\b(?:\s(?:links|rechts|mitte))?|(?:Hinter|Vorder)haus\b)"
           uR"(|(?:scala|interno)\s\w{1,3}\b)"
           uR"(|\d{1,2}\.?["”'’*]\s?(?:Esq|Dto|Dir|Izq|Dcha)\b\.?)"_s +
           u')';
}

QString floorWithSide() {
    return uR"((?:st|kl|\d{1,2})\s?\.?\s?(?:sal\b|(?:sal)?\s?,?\s?(?:tv|th|mf)\b)\.?)"_s;
}

QString country() {
    return uR"((?:USA|U\.S\.A\.|United States|UK|United Kingdom|England|Scotland|Wales|Ireland|Danmark|Denmark)"
           uR"(|Sverige|Sweden|Norge|Norway|Deutschland|Germany|Tyskland|France|Canada|Kalaallit Nunaat)\b)"_s;
}

QString state() {
    return u"(?:A[BKLRZ]|BC|C[AOT]|D[CE]|FL|GA|HI|I[ADLN]|K[SY]|LA|M[ABDEINOST]|N[BCDEHJMSVY]|O[HKNR]|PA|QC"
           u"|RI|S[CDK]|T[NX]|UT|V[AT]|W[AIVY])"_s;
}

QString zip() {
    return uR"(\d{5}(?:-\d{4})?)"_s;
}

// "M2 8GB" is a computer.
QString britishPostcode() {
    return uR"((?![A-Z]\d{1,2}\s\d[GTP]B\b)(?:GIR\s0AA|(?:[A-PR-UWYZ](?:\d{1,2}|[A-HK-Y]\d{1,2}|\d[A-HJKPSTUW])"
           uR"(|[A-HK-Y]\d[ABEHMNPRV-Y]))\s\d[ABD-HJLNP-UW-Z]{2})\b)"_s;
}

QString irishPostcode() {
    return uR"([AC-FHKNPRTV-Y]\d[\dW]\s(?=[A-Z\d]{0,3}[\d@])[AC-FHKNPRTV-Y\d@]{4}(?!\w))"_s;
}

QString australianPostcode() {
    return uR"((?:NSW|VIC|QLD|WA|SA|TAS|ACT|NT)\s+\d{4}(?!\w))"_s;
}

QString canadianPostcode() {
    return uR"([A-Z]\d[A-Z]\s?\d[A-Z]\d\b)"_s;
}

QString continentalPostcode() {
    return uR"((?:[A-Z]{1,2}-\s?)?\d{4,5})"_s;
}

QString swedishPostcode() {
    return uR"(\d{3}\s\d{2})"_s;
}

QString hyphenatedPostcode() {
    return uR"((?:\d\d-\d{3}|\d{4}-\d{3}))"_s;
}

} // namespace Veilshot::AddressParts
