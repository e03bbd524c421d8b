#include "VeilshotCore/Analysis/DataDetection/ContinentalAddresses.h"

#include "VeilshotCore/Analysis/DataDetection/AddressParts.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using namespace AddressParts;

// France

QString frenchStreet() {
    return beforeNumber() +
           uR"(\d{1,4}(?:\s?(?:bis|ter))?,?\s+(?:[Rr]ue|[Aa]venue|[Bb]oulevard|[Bb]d|[Pp]lace|[Cc]ours|[Qq]uai)"
           uR"(|[Cc]hemin|[Aa]llée|[Ii]mpasse|[Rr]oute)\s+(?:(?:de|du|des|la|le|les)\s+|[ld]')*)"
           uR"([A-ZÉ][\w'’\-]{0,40}+(?:\s+[A-ZÉ][\w'’\-]{0,40}+){0,2})"_s;
}

QString frenchAddress() {
    return houseNumber() +
           uR"(\s+[A-ZÉ][\w'’\-]{0,40}+)"
           uR"((?:\s+(?:de|du|des|la|le|les|[ld]'[\w\-]{1,40}+|[A-ZÉ][\w'’\-]{0,40}+)){1,5},\s*\d{5}\s+)"_s +
           city();
}

// Spain, Italy, Portugal, Poland: "Calle de Alcalá 12", "ul. Długa 5 m. 8"

QString streetBehindItsType() {
    return beforeName() +
           uR"((?:Calle|C/|Str\.|B-?dul\.?|Bd\.|[Vv]ul\.|Soi|Carrera|Cra\.|Cl\.|Jirón|Jr\.|Ronda|Corso|Largo|Vicolo|Strada|Bulevardul|Calea|Estrada|Rodovia|R\.|Trg|Ulica|Bulevar|Rruga|Odos|Jalan|Jl\.|Jln\.?|Lorong|Persiaran|Thanon|Đường|Phố|Rehov|Sderot|Náměstí|[Nn]ám\.|Rue|Quai|Chemin|Impasse|Steenweg|Chaussée|Avenue|Boulevard|Alameda|Plaza(?!\s+(?:Suite|Unit|Floor|Level|Room|Apt)\b)|Carrer|Travessa|Av\.|Avenida|Avda\.|Paseo|Camino|Via(?!\s+(?:e-?mail|Mail|SMS|App|API|Web|Phone|Zoom|Teams|Slack|Chat|Port|Link|USB|WiFi|Email|E-[Mm]ail)\b)|Viale|Piazza|Rua|Praça|[Uu]l\.|[Aa]l\.)\s+)"
           uR"((?:(?:du|des|\d{1,2} de|de|dei|del|dels|della|delle|degli|di|da|das|do|dos|la|las|los|el)\s+){0,2})"_s +
           name() + uR"((?:\s+)"_s + name() +
           uR"(){0,2},?\s+(?:(?:[Nn][º°.]|[Nn][or]\.?:?|[Nn]úm\.|#|d\.)\s?)?\d{1,5}(?:\s?(?!m\.)[A-Za-z]\b|[/-]\d{1,4})?(?:\s?m\.\s?\d{1,4})?(?![\w%]|[.,]\d))"_s;
}

// Japan: "2-14-7 Yanaka", "Taito-ku 110-0001"

QString japaneseBlock() {
    return anyOf(
        {beforeNumber() +
             uR"(\d{1,2}-\d{1,2}-\d{1,2}\s+(?!(?i:jan|feb|mar|apr|ma[iy]|ju[nl]|aug|sep|o[ck]t|nov|dec|mon|tue|wed|thu|fri|sat|sun))\p{Lu}\p{Ll}{3,20}(?=\s*(?:,|$|\t)))"_s,
         uR"(〒\s?\d{3}-\d{4}|(?<!\w)\d{1,2}-ch[oō]me\b(?:[\s-]\d{1,3}){0,2}|\p{Lu}\p{Ll}{2,20}\s\d{1,2}-\d{1,2}-\d{1,2}(?=,\s*\p{Lu}\p{Ll}{2,20}-(?:ku|shi)))"_s,
         uR"(\p{Lu}\p{Ll}{2,20}-(?:ku|shi|cho|machi)(?:,?\s+\p{Lu}\p{Ll}{2,20})?\s+\d{3}-\d{4}(?!\d))"_s});
}

// Turkey: "Çınar Sok. No: 14 D: 7", Hungary: "Petőfi utca 12", the Baltic states: "Brīvības iela 12"

QString streetBeforeItsType() {
    return beforeName() + u"(?:"_s + name() +
           uR"(\s+){1,3}(?:(?:Sok(?:ak|ağı)?|Sk|Cad(?:desi)?|Cd|Bulvarı|Blv|Mah(?:allesi)?)\b\.?,?\s*[Nn]o\s?[:.]?\s?\d{1,4}[A-Z]?(?:/\d{1,3})?)"
           uR"(|(?:utca|út|útja|körút|tér|tere|sétány|köz|iela|gatve|prospekts|tn|mnt|pst|puiestee|třída|ulica|ulice|(?:u|g|pr|al)\.(?=\s+\d[\w/.-]{0,8},\s*[\p{Lu}\d]))\s+\d{1,4}(?:[/-]\d{1,3})?\.?[A-Za-z]?(?![\w%]|[.,]\d)))"_s;
}

// Vietnam: "12 Lê Lợi, Phường Bến Nghé, Quận 1", whose accents may be misread

QString vietnameseStreet() {
    const QString district =
        uR"((?:P[hH]\p{L}{2,4}ng|Qu\p{L}{1,2}n|Huy\p{L}n|Th\p{L}{1,3}nh\sph\p{L}|P\.|Q\.|Ward|District|TP\.?)\s?(?:\d{1,2}\b|)"_s +
        name() + uR"((?:\s)"_s + name() + u"){0,3})"_s;
    return houseNumber() + uR"((?:/\d{1,4}){0,3}\s+(?:)"_s + name() + uR"(\s?){1,5},\s*)"_s + district +
           uR"((?:,\s*)"_s + district + u"){0,2}"_s;
}

// Nigeria, India, Kenya: "Plot 12, Block C, Admiralty Way", "Sector 62, Noida", "14, 4th Cross"

QString plot() {
    const QString words = name() + uR"((?:\s(?:)"_s + name() + uR"(|\d{1,3}[A-Z]?\b)){0,4})"_s;
    return anyOf(
        {uR"((?<![\w-])(?:Plot|Blk|Block|H(?:ouse|\.)?\s?No\.?|Flat\s?No\.?|Door\s?No\.?)\s?#?\s?(?:\d{1,4}[A-Z]?(?:[/-]\d{1,4}[A-Z]?){0,2}|[A-Z]\d{0,3}),?\s+(?:(?:Block|Road|Zone|Phase|Sector)\s\w{1,4},\s*)?)"_s +
             words + uR"(,\s*)"_s + words,
         uR"((?<![\w-])\d{1,3}(?:/\d{1,3})?\s(?:Moo|M\.)\s?\d{1,2}(?!\w))"_s,
         uR"((?<![\w-])(?:B[lIi1]k|Block)\s\d{1,4}[A-Z]?,?\s#\d{2}[-‑]\d{2,4}(?!\w)|(?<![\w-])\p{Lu}\p{Ll}{3,20}\sSoi\s\d{1,3}(?!\w))"_s,
         beforeNumber() + uR"((?:No\.?\s)?\d{1,4}[A-Z]?,?\s(?:Jalan|J[Ll]n?\.?|Lorong|Persiaran)\s)"_s +
             name() + uR"((?:\s\p{Lu}\p{Ll}{2,20}){0,2}(?:/\d{1,3})?)"_s,
         uR"((?<![\w-])(?:Cra|Cl|Calle|Carrera|Diag|Transv|Av|Avenida)\.?\s\d{1,3}[A-Z]?\s?(?:#|[Nn]o\.?)\s?\d{1,3}[A-Z]?\s?-\s?\d{1,3}(?!\w))"_s,
         uR"((?<![\w-])Sector[\s-]\d{1,3}[A-Z]?,\s*)"_s + words,
         houseNumber() +
             uR"((?:/\d{1,4})?,\s*\d{1,2}(?:st|nd|rd|th)\s(?:Cross|Main|Block|Avenue|Street)\b)"_s});
}

// Korea: "Mangwon-ro 84, Mapo-gu, Seoul 04016", "27 Mangwon-ro 4-gil"

QString koreanStreet() {
    const QString road = uR"(\p{Lu}\p{Ll}{2,20}-(?:daero|ro|gil)(?:\s\d{1,3}-gil)?)"_s;
    return beforeName() +
           anyOf({road + uR"(\s\d{1,4}(?:-\d{1,3})?(?![\w%-]|[.,]\d))"_s,
                  beforeNumber() + uR"(\d{1,4}(?:-\d{1,3})?,?\s)"_s + road + uR"((?![\w-]))"_s}) +
           optional(uR"(\s\d{1,3}-gil)"_s) + optional(uR"(,\s*\p{Lu}\p{Ll}{2,20}-(?:gu|si|gun|dong))"_s) +
           optional(uR"(,\s*\p{Lu}\p{Ll}{2,20}\s\d{5}(?!\d))"_s);
}

// Denmark, Norway, Sweden, Germany: the number follows the street

/// With what "æ" is taken for.
const QString streetEnding =
    u"veje?n?|gade[nrs]?|gyden?|pladsen|plads|torv(?:et)?|str(?:æ|ae|ee?)det?|v(?:æ|ae|ee?)nget?|bakken|"
    u"toften?|stien"
    u"|(?<!hri)sti|kajen?|draget|svinget|krogen|skrænten|gården|marken|engen|lunden|dalen|leddet|(?:ster|"
    u"mose|kær|eng)led|haven"
    u"|parken|vangen|ringen|esplanaden|boulevard(?:en)?|buen|kæret|højen|skoven|strandpark|brinken|banken"
    u"|kanten|kilden|passagen|promenaden|volden|gatan|vägen|gränd(?:en)?|gärdet|torget|veien|gata|stra[ßbB]e"
    u"|strasse|str\\.|weg|platz|gasse|damm|ufer|allee|straat|laan|gracht|plein|kade|katu|sgate|holmene?|bryggen?|kanalen|pynten|mosen|heden|lyngen|åsen|højene|agrene|bakkerne|haverne|engene|vegur|gøta|stígur|stigur|braut|singel|dijk|chaussee|stigen|backen|haugen|vegen|polku|kuja|(?<=[a-zäö]{3}n)tie"_s;
/// Not after one or two letters: Palle and Kalle are people.
const QString avenueEnding = uR"((?<=[\w'’.\-]{3})all[eé]e?n?)"_s;
const QString streetWord =
    u"(?:[Vv]ej|[Vv]äg|[Ss]tr\\.|[Gg]ade|[Aa]ll[eé]|[Pp]lads|[Tt]orv|[Bb]oulevard|[Ss]"
    u"tr(?:æ|ae|ee?)de|[Vv](?:æ|ae|ee?)nge|[Gg]ate"
    u"|[Kk]aj|[Bb]rygge|[Kk]anal|[Ss]ti|VEJ|GADE|ALLÉ|PLADS|TORV|BOULEVARD|[Pp]lass)"_s;
const QString wholeStreet =
    u"(?:[Tt]orvet|[Hh]avnen|[Kk]ajen|[Ss]trandvejen|[Ss]trøget|[Kk]irkestien|[Rr]ådhuspladsen|Kystvejen|Byen"
    u"|Vesterled|Nyhavn|Trianglen)"_s;
/// No count, time, share or sum.
const QString nordicNumber =
    uR"(\d{1,3}(?:(?:/\d{1,3}){1,2}|\s?[A-Za-zÆØÅ](?:\s\d{1,3})?(?![\w.]))?(?:\s?[-–]\s?\d{1,3}\s?[A-Z]?|-I{1,3}\b|\shs\b)?)"
    uR"((?![\w%°]|[.,:]\d|\s?(?:kr\b|DKK|km\b|m\b|%|GB|MB|år\b|stk)))"_s;
/// Labels are no part of a street's name, and a month with its day is none.
const QString notOtherWords =
    uR"((?!(?:Adr|Addr|Adresse|Address|Bor|Til|To|At|Find|Kig|Leveres|Besøg)\b\.?:?\s))"
    uR"((?!(?i:(?:\w+,?\s+){0,3}(?:jan(?:uary?)?|feb(?:ruary?)?|mar(?:ch|ts)?|apr(?:il)?|ma[yj]|june?|juni|july?|juli|aug(?:ust)?|sept?(?:ember)?|o[ck]t(?:ober)?|nov(?:ember)?|dec(?:ember)?)\.?\s+\d{1,2},)))"_s;
/// Nouns that only end like a street.
const QString notNoun =
    uR"((?!(?i:genvej|omvej|udvej|motorvej|adgangsvej|spilleplads|siddeplads|brigade|renegade)"
    uR"(|parkeringsplads|arbejdsplads|blo[ck]+ade|(?:national|data|spare|handels|folke|blod|andels|viden|idé)banken)"
    uR"(|[a-z]{2,12}-kanalen|(?:youtube|nyheds|salgs|musik|sports|kommunikations)kanalen)\s))"_s;

QString nordicStreet() {
    const QString stem = uR"([A-ZÆØÅÄÖ][\w'’.\-]{0,40}?)"_s;
    return beforeName() + notOtherWords + u"(?:"_s + name() + uR"(\s+){0,3}?)"_s + notNoun +
           anyOf({stem + anyOf({streetEnding, avenueEnding}),
                  u"[A-ZÆØÅÄÖ]{2,40}?"_s + anyOf({streetEnding.toUpper(), u"ALL[EÉ]E?N?"_s}), wholeStreet}) +
           uR"(\s+)"_s + nordicNumber;
}

/// As people type in a chat: "nørrebrogade 12". Only with the endings that few other words share.
QString lowercaseStreet() {
    return beforeName() + notNoun + uR"([a-zæøå]{3,40}?(?:gade|vej|stræde|vænget|all[eé]|torv)\s+)"_s +
           nordicNumber;
}

QString nordicStreetOfWords() {
    return beforeName() + notOtherWords + u"(?:"_s + name() + uR"(\s+){1,4}?)"_s + streetWord + uR"(\s+)"_s +
           nordicNumber;
}

/// Whatever its name is, a floor with a side follows: "Åfløjen 1588, 2. tv".
QString streetBeforeFloor() {
    return beforeName() + notOtherWords + u"(?:"_s + name() + uR"(\s+){0,3}?)"_s + name() +
           uR"(\s+\d{1,4}\s?[A-Z]?\s?[,.]\s*)"_s + floorWithSide();
}

/// "Ved Stranden 12", "bor i Hyldespjældet 44".
QString streetByItsPlace() {
    return beforeName() +
           uR"((?:(?:Ved|Bag|Under|Langs|Mellem)\s+\p{Lu}\p{Ll}{1,20}|(?<=\b(?:i|på|til|fra)\s)\p{Lu}\p{Ll}{4,20})(?:en|et|ne)\s+)"_s +
           nordicNumber;
}

/// "Chapter 3, 2020 Edition" is not in a town that has this postcode.
const QString notYear =
    uR"((?!(?:19|20)\d\d\s(?!(?:Frederiksberg|København|Kbh|Lillestrøm|Antwerpen|Neuchâtel|Sion|Martigny)\b)))"_s;
/// What is counted or has versions: "Column 7, 1200 Rows".
const QString notCounted =
    uR"((?!(?i:(?:\w+\s+){0,3}(?:chapter|column|row|line|page|figure|table|section|part|step|level|stage|phase)"
    uR"(|version|build|article|item|rule|model|invoice|order|ticket|windows|ios|android|macos|iphone|galaxy|season|episode|volume|issue)"
    uR"(|week|day|round|group|team|kapitel|kolonne|side|figur|tabel|afsnit|trin|faktura|ordre|uge|dag|hold)\s\d)))"_s;

QString continentalAddress() {
    return beforeName() + notOtherWords + notCounted + u"(?:"_s + name() + uR"(\s+){0,3})"_s + name() +
           uR"(\s+(?!(?:19|20)\d\d\b)\d{1,4}\s?[A-Za-z]?(?:[-/]\d{1,3}){0,2})"_s +
           optional(uR"(\s*,?\s*)"_s + anyOf({floor(), unit()})) + uR"(,\s*)"_s +
           anyOf(
               {notYear +
                    anyOf({uR"(\d{6,7})"_s, continentalPostcode(), swedishPostcode(), hyphenatedPostcode()}) +
                    uR"(\s+)"_s + city(),
                city() + uR"(,?\s+\d{5,7}(?![\w-]))"_s});
}

} // namespace

QStringList continentalAddresses() {
    return {frenchStreet(),
            frenchAddress(),
            streetBehindItsType(),
            japaneseBlock(),
            streetBeforeItsType(),
            vietnameseStreet(),
            plot(),
            koreanStreet(),
            nordicStreet(),
            nordicStreetOfWords(),
            lowercaseStreet(),
            continentalAddress(),
            streetBeforeFloor(),
            streetByItsPlace()};
}

} // namespace Veilshot
