#include "VeilshotCore/Analysis/DataDetection/PostalAddressGrammar.h"

#include "VeilshotCore/Analysis/DataDetection/AddressParts.h"
#include "VeilshotCore/Analysis/DataDetection/ContinentalAddresses.h"
#include "VeilshotCore/Analysis/DataDetection/EnglishAddresses.h"

#include <QString>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using namespace AddressParts;

const QString postBox =
    uR"((?<!\w)(?i:P\.?\s?[O0]\.?\s?Box|Post(?:boks|box|fach|bus|office box)|(?:private|locked) bag|pósthólf|apartado(?: postal)?)"
    uR"(|caixa postal|casilla|skrytka pocztowa|bo[iî]te postale|(?<=[,\t]\s?)(?:Box|C\.P\.|PMB)|^(?:Box|C\.P\.|PMB)(?=\s\d{1,6},\s*\p{Lu}?[\p{Lu}\d]))\s+(?:[A-Z]-?)?\d{1,6}(?:\s?[-–]\s?\d{5})?(?!\w))"_s;
const QString careOf = uR"((?<![\w/])[Cc]\s?/\s?[Oo]\.?\s\p{Lu}[^,;:\t]{1,40})"_s;
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
/// The comma is easily taken for a full stop, which ends the sentence in front of a town only.
const QString separatorOfUnit = uR"((?:\s*[,.]\s*|\s+))"_s;
const QString district = uR"((?:\s+(?:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M)\b))"_s;
/// Where a cell of a table ends, or what the neighbour of a cut one begins with.
const QString cellEnd = uR"((?=\s?[^\w\s,]{0,2}\s*(?:$|\t|\s{2,}|[|+]|\s\d)))"_s;

/// Some of them cut off at the edge of a cell or misread, which proves enough behind a street.
QStringList placePatterns() {
    const QString misreadDigit = uR"((?:\s?[(£€\[{§&@©])?)"_s;
    const QString digits = uR"((?=\w{0,4}\d)[\dOoIlSBZ]{1,5})"_s;
    return {
        city() + uR"(,?\s+)"_s + state() + optional(uR"(\s+)"_s + zip()) + uR"(\b(?![a-z]))"_s,
        city() + uR"(,\s*)"_s + state() + uR"(\s+)"_s + canadianPostcode(),
        optional(city() + uR"(,?\s+)"_s) + anyOf({britishPostcode(), irishPostcode()}),
        continentalPostcode() + uR"(\s+)"_s + city() + district + u'?',
        city() + uR"(,?\s+)"_s + australianPostcode(),
        swedishPostcode() + uR"(\s+)"_s + city(),
        zip() + uR"(\b)"_s,
        uR"((?=\w{0,3}\d)[\dOoIlSB]{4}\s+)"_s + city() + district + u'?',
        uR"((?<=,\s?)\d{4}(?=\s*$))"_s,
        uR"((?<=,\s?)\d{3}\s+)"_s + city() + district + u'?',
        city() + uR"(,?\s+[A-Z]{1,2}\s+)"_s + digits + misreadDigit + cellEnd,
        city() + uR"(,\s*[A-Z]{1,2})"_s + cellEnd,
        city() + uR"(,?\s+[A-Z]{1,2}\d[\dA-Z]?(?:\s?[\dOIlSBZ][A-Z\d]{0,2})?)"_s + misreadDigit + cellEnd,
        uR"(\d{5,7}\s+)"_s + city() + uR"((?:\s?/\s?\p{Lu}\p{L}{2,20})?)"_s,
        city() + uR"(\s?[-–/]\s?[A-Z]{2})"_s + optional(uR"(,?\s+(?:CEP:?\s?)?\d{5}-?\d{3})"_s) +
            uR"((?!\w))"_s,
        city() + uR"(,?\s+(?:\d{3} \d{3}|\d{3}-\d{4}|\d{5}-\d{3}|\d{5,7})(?![\w-]))"_s,
        city() + uR"(\s\((?:Qu[ée]bec|Ontario|QC|ON|BC)\)\s+)"_s + canadianPostcode(),
        uR"((?:Singapore\s|S)\(?\d{6}\)?(?!\w))"_s,
        uR"([A-Z]\d{4}[A-Z]{3}\s+)"_s + city(),
        uR"((?:\d{3} \d{2}|\d{5})\s+)"_s + city() + uR"(\s\d{1,2}(?![\w.,]))"_s,
        country(),
    };
}

} // namespace

PostalAddressGrammar::PostalAddressGrammar()
    : anchors(compiled(
          englishAddresses() + continentalAddresses() +
          QStringList{
              postBox,
              uR"((?<!\w)(?=[A-Z]{0,2}\d)(?<=(?i:\bzip code|\bpost ?code|\bpostal code|\bpostnr|\bpostnummer|\bplz)[:.]{0,2}\s)(?:\d{4,6}(?:-\d{3,4})?|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2})(?![\w.,]\w))"_s,
              // Postcodes that are told by the letters of their small countries.
              uR"((?<![\w-])(?:(?:FO[-‑ ]?|IS[-‑])\d{3}|(?:L|SI|LV)[-‑]\d{4}|(?:LT|HR|EE)[-‑]\d{5})\s+(?=\p{Lu}\p{Ll}{2}))"_s +
                  city(),
              uR"((?<=,\s)Dublin\s\d{1,2}W?(?!\w))"_s,
              uR"((?<=^|\t)\s{0,3})"_s + careOf + uR"((?=,?\s*$))"_s})),
      danishPlace(compiled(
          uR"((?<![\w@.,#:\-])(?<!\b(?:Rema|REMA)\s)(DK\s?-\s?)?(\d{4})\s+([A-ZÆØÅa-zæøå](?:\w{1,3}\.|\w{1,40}+)))"_s +
          uR"((?:\s+([A-ZÆØÅ][a-zæøå]{1,40}+))?)"_s + uR"((?:\s+(?i:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M)\b)?)"_s)),
      europeanPlace(
          compiled(uR"((?<![\w@.,#:\-])(?:[A-Z]{1,3}-\s?)?()"_s +
                   anyOf({uR"(\d{5,7}(?!-\d))"_s, uR"((?:\d{5}-\d{3}|\d{3}-\d{4}))"_s, swedishPostcode(),
                          hyphenatedPostcode(), uR"(\d{4}(?:\s[A-Z]{2})?)"_s, uR"(101(?=\s+R))"_s}) +
                   uR"()\s+(\p{Lu}[\p{L}'’\-]{1,30}+)(?:\s(\p{Lu}[\p{L}'’\-]{1,30}+))?)"_s)),
      placeBeforePostcode(compiled(
          uR"((?<![\w@.\-])(?:(\p{Lu}[\p{L}'’.\-]{1,20}) )?(?:(\p{Lu}[\p{L}'’.\-]{1,20}) )?(?:(\p{Lu}[\p{L}'’.\-]{1,20}) )?(\p{Lu}[\p{L}'’.\-]{1,20}),?\s(?:[-–]\s)?)"
          uR"((\d{3} \d{3}|\d{3}-\d{4}|\d{5}-\d{3}|\d{4,7})(?![\w\-]|[.,]\d| (?:\p{Ll}{4}|(?:m|km|kr|mi|ft|kg|stk|pts?|DKK|EUR|USD|GBP)\b)))"_s)),
      continuations(compiled({floor(), unit()}, separatorOfUnit)),
      places(compiled(placePatterns(), separator)),
      area(compiled(uR"(\s*,\s*)"_s + city() + uR"((?=\s*,))"_s)),
      lastArea(compiled(uR"(\s*,\s*)"_s + city() + uR"((?:\s+\d{1,4})?)"_s + cellEnd)),
      precedingUnit(compiled(uR"(((?:)"_s + unit() + u'|' + careOf + uR"(,)\s*,?\s*)$)"_s)),
      precedingHouse(compiled(
          uR"((?:^|(?<=[:\-–—•>]\s)|(?<=\b(?:to|til|from|fra|at|hos|på|ved)\s)|(?<=(?:Unit|Suite|Flat|Apt|Floor|Room)\s\w{1,4},\s))((?!(?:Mr|Mrs|Ms|Dr|Ship|Deliver|Visit|Send|Adr|Addr|Adresse|Address)\b))"_s +
          anyOf({unit(), unit() + uR"((?:[,.]\s*)"_s + name() + uR"((?:\s+)"_s + name() + u"){0,3}){1,3}"_s,
                 uR"((?:The\s+)?)"_s + name() + uR"((?:\s+)"_s + name() + u"){0,3}"_s}) +
          uR"(\s*,\s*)$)"_s)),
      precedingParts(compiled(
          uR"((?:^|(?<=[:;–—•>\t]\s?))\s{0,2}(?=\D{0,80}\d)((?:(?:[A-Z]{1,2}\.|[\p{Lu}\d#][\p{L}\d.'’/#º°\-]{0,24})(?:\s(?:de|del|da|do|na|of|[a-z]{1,3}\.|[\p{Lu}\d#(][\p{L}\d.'’/#º°()\-]{0,24})){0,5},\s*){1,5})$)"_s)) {
}

const PostalAddressGrammar& PostalAddressGrammar::shared() {
    static const PostalAddressGrammar grammar;
    return grammar;
}

} // namespace Veilshot
