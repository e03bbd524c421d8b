#include "VeilshotCore/Analysis/DataDetection/EnglishAddresses.h"

#include "VeilshotCore/Analysis/DataDetection/AddressParts.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using namespace AddressParts;

const QString streetType =
    u"Street|St|Tce|Cres|Pde|Avenue|Ave|Boulevard|Blvd|Road|Rd|Lane|Ln|Drive|Dr|Court|Ct|Place|Pl|Square|Sq|"
    u"Terrace|Ter"
    u"|Parkway|Pkwy|Way|Circle|Cir|Highway|Hwy|Trail|Trl|Plaza|Plz|Alley|Loop|Row|Mews|Close|Crescent|Grove"
    u"|Gardens|Walk|Hill|Wharf|Quay|Green|Parade|Yard|Gate|Rise|View|Broadway|Esplanade|Turnpike|Pike|Path"
    u"|Run|Bend|Ridge|Commons|Embankment|Approach|Vale|Mount"_s;
/// Words that end the name of a street, and many another name too: only where nothing else stands.
const QString rareStreetType =
    u"Acre|Acres|Cottages|Bluff|Brae|Brook|Brow|Causeway|Chase|Cliff|Cove|Creek|Croft|Crossroads|Dale|Dell|"
    u"Dene"
    u"|Downs|Expressway|Forge|Garth|Glade|Glen|Grange|Haven|Heath|Hollow|Holme|Hts|Hurst|Knoll|Knolls"
    u"|Lawn|Lea|Leas|Manor|Marsh|Mead|Meadow|Meadows|Mill|Mills|Moor|Nook|Orchard|Overlook|Paddock|Pines"
    u"|Pointe|Prairie|Rapids|Reach|Ridings|Sands|Shoal|Spinney|Spur|Strand|Throughway|Trafficway|Viaduct"
    u"|Villas|Wells|Wood|Woods|Wynd"_s;
/// And those that are often counted: "3 National Park", "2 Shopping Mall".
const QString countedStreetType =
    u"Arcade|Bay|Beach|Bridge|Bypass|Canyon|Circus|Common|Cross|Crossing|Estates|Falls|Farm|Ferry|Ford"
    u"|Fork|Freeway|Harbor|Harbour|Heights|Hills|Island|Isle|Junction|Lake|Lakes|Landing|Lodge|Mall"
    u"|Motorway|Oval|Park|Passage|Pond|Promenade|Ranch|Shore|Shores|Springs|Summit|Trace|Tunnel|Valley"
    u"|Village|Vista"_s;
/// "Order ID 10293", "Status OK 20000": states that are words follow a comma.
const QString wordlikeState = uR"((?:HI|ID|IN|ME|OK|OR)\b)"_s;
const QString streetWord = uR"([A-Z][\w'’.\-]{0,40}+)"_s;
const QString smallWord = u"de|del|de la|de los|de las|of|on|the|la|las|los|el"_s;
/// Of a flat or an office, not of a building or a room: what no other list counts.
const QString certainUnit = uR"((?:Apt|Apartment|Flat|Suite|Ste|Unit|APT|UNIT|SUITE|STE)\.?\s?#?\s?)"_s;

/// Counted in titles: "Windows 10 Street View".
const QString notCounted =
    uR"((?<!\b(?i:top|day|week|level|chapter|season|episode|version|scene|step|page|part|phase|stage|round)"
    uR"(|track|volume|vol|windows|iphone|q[1-4])\s))"_s;

/// What is counted, behind the number: "24 Hour Fitness Park".
const QString notUnitOfMeasure =
    uR"((?!(?:Minutes?|Mins?|Hours?|Days?|Weeks?|Months?|Years?|Nights?|Percent|Meters?|Metres?|Miles?|GB|MB|TB)"
    uR"(|Bed(?:room)?s?|Best|Great|New|Free|Annual|Star|Items?|People|Unread|Things|Ways|Reasons|Top)\b))"_s;

/// "10 Downing Street", "45 W 25th St", but neither "5 Star Hotel View" nor "Level 3 Green Hill".
QString street() {
    const QString notRated = uR"((?!\d\s+Star\s))"_s;
    const QString word = uR"((?:The|of|le|[A-Z][\w'’.\-]{0,40}+|\d{1,3}(?:st|nd|rd|th|ST|ND|RD|TH)))"_s;
    const QString notDevice = uR"((?<!(?:Wheel|Hard|Test|Flash|Disk|USB|Tape)\sDrive|Card\sRow))"_s;
    const QString type = anyOf({streetType, streetType.toUpper()}); // twice in "Harbor View Dr"
    // A lower-case word behind the type makes it an ordinary noun, unless it goes on in time or space.
    const QString notNoun = uR"((?!\s+[a-zæøå]+\b(?<!\b(?:at|after|before|on|in|until|til|for|and|from))))"_s;
    return notRated + notCounted + houseNumber() + uR"(\s+)"_s + optional(compass() + uR"(\s+)"_s) +
           u"(?:"_s + word + uR"(\s+){1,4}?)"_s + type + uR"(\b)"_s +
           optional(uR"(\s+)"_s + type + uR"(\b)"_s) + notDevice + uR"(\.?(?:\s+)"_s + compass() + u")?"_s +
           notNoun;
}

QString broadway() {
    return houseNumber() + uR"(\s+)"_s + optional(compass() + uR"(\s+)"_s) +
           uR"((?:Broadway|Parkway|BROADWAY)\b)"_s;
}

/// "2755 County Road 12".
QString numberedRoad() {
    return notCounted + houseNumber() + uR"(\s+)"_s + optional(compass() + uR"(\s+)"_s) +
           uR"((?:(?:County|State|Old|Farm|Ranch|US|Township|Forest|Rural)\s+){1,2})"
           uR"((?:Road|Rd|Route|Rte|Highway|Hwy)\.?\s+\d{1,4}[A-Z]?(?!\w))"_s;
}

/// "5407 Vista del Sol", "12 Calle Mayor".
QString spanishStreet() {
    return notCounted + houseNumber() + uR"(\s+)"_s + optional(compass() + uR"(\s+)"_s) +
           uR"((?:(?:Calle|Camino|Paseo|Avenida|Vereda|Cerrada|Callejon|Carrera)(?=\s)|(?:Vista|Via|Rancho|Loma|Plaza|Rio|Mesa|Puerta|Valle)(?=\s+(?:de|del|la|las|los|el)\s)))"
           uR"((?:\s+(?:de|del|la|las|los|el)){0,2}\s+)"_s +
           streetWord;
}

/// Any capitalized words after a number: enough where a town with state or postcode follows.
QString wordsBeforePlace() {
    return houseNumber() + uR"(\s+)"_s + optional(compass() + uR"(\s+)"_s) +
           uR"((?:(?:(?:[A-Z]|\d{1,3}(?=[a-z]))[\w'’.\-]{0,40}+|)"_s + smallWord +
           uR"()\s+){0,3}[A-Z\d][\w'’.\-]{0,40}+\s?,?\s?)"_s + optional(unit() + uR"(\s?)"_s) + uR"(,\s*)"_s +
           optional(city() + uR"(,\s*)"_s) + city() + uR"(,?\s+)"_s +
           anyOf({state() + uR"(\s+)"_s + zip() + uR"((?!\w))"_s, britishPostcode(), irishPostcode()});
}

/// Or a flat on either side: "Flat 12, 114 Cathedral Row", "2755 Lower Marsh, Apt 11B".
QString wordsBesideUnit() {
    const QString words = houseNumber() + uR"(\s+)"_s + notUnitOfMeasure + optional(compass() + uR"(\s+)"_s) +
                          u"(?:(?:"_s + streetWord + u'|' + smallWord + uR"()\s+){0,4}?)"_s + streetWord +
                          uR"((?:\s+\d{1,4})?)"_s;
    return anyOf({uR"((?<!\w)(?:Flat|Apt|Apartment)\s?\w{1,4}[,.]\s*)"_s + words,
                  words + uR"((?:\s*[,.]\s*)"_s + certainUnit +
                      uR"(|\s+Apt\.?\s?#?)(?:\d{1,4}[A-Z]?|[A-Z])(?!\w))"_s});
}

/// "Sfreet", "Avnue": one letter another or gone.
QString misreadStreetType() {
    QStringList misread;
    for (const QString& type : {u"Street"_s, u"Avenue"_s, u"Boulevard"_s, u"Square"_s, u"Terrace"_s,
                                u"Parkway"_s, u"Highway"_s, u"Crescent"_s, u"Gardens"_s}) {
        for (qsizetype place = 1; place + 1 < type.size(); ++place)
            misread.append(type.first(place) + uR"(\w?)"_s + type.sliced(place + 1));
    }
    return anyOf(misread);
}

/// "210 Lower Marsh", where nothing else stands.
QString streetAlone() {
    const QString notYear = uR"((?!(?:19|20)\d\d\s))"_s;
    const QString start = uR"((?<=^|\t|\p{L}:\s|[–—]\s)\s{0,3})"_s + notYear;
    const auto name = [](const QString& number, const QString& count) {
        return number + uR"([A-Z]?\s+)"_s + notUnitOfMeasure + optional(compass() + uR"(\s+)"_s) + u"(?:"_s +
               streetWord + uR"(\s+))"_s + count;
    };
    const QString townFollows = uR"((?=\s*,\s*\p{Lu}\p{Ll}))"_s;
    const QString end = anyOf({uR"((?=\s*[,.]?\s*(?:$|\t)))"_s, townFollows});
    const QString counted = anyOf({countedStreetType});
    return start +
           anyOf({name(uR"(\d{1,5})"_s, u"{1,3}?"_s) + anyOf({rareStreetType, misreadStreetType()}) + end,
                  name(uR"(\d{3,5})"_s, u"{1,3}?"_s) + counted + end,
                  name(uR"(\d{1,2})"_s, u"{2,3}?"_s) + counted + end,
                  name(uR"(\d{1,2})"_s, QString()) + counted + townFollows});
}

/// "Rothschild Blvd 12, Tel Aviv", "Rural Route 2 Box 114", "APO AE 09499", "Villa 12, Street 4B, Al Barsha".
QString numberBehindStreet() {
    const QString types = uR"((?:Street|St\.?|Avenue|Ave\.?|Boulevard|Blvd\.?|Road|Rd\.?|Lane|Square)\s+)"_s;
    return anyOf(
        {beforeName() + u"(?:"_s + streetWord + uR"(\s+){1,3}?)"_s + types +
             uR"((?!(?:19|20)\d\d\b)\d{1,4}[A-Za-z]?(?:/\d{1,3})?(?=\s*(?:,\s*\p{Lu}|$|\t)))"_s,
         uR"((?<!\w)(?:Rural Route|R\.?R\.?|HC|PSC|CMR)\s?#?\s?\d{1,4},?\s(?:Box|Site)\s\d{1,5}(?!\w))"_s,
         uR"((?<!\w)(?:APO|FPO|DPO),?\s(?:AE|AP|AA)\s\d{5}(?!\d))"_s,
         uR"((?<!\w)(?:House|Villa|Office|Shop|Flat|Apartment|Apt|Plot|Block)\s(?:No\.?\s?)?\w{1,5},\s*(?:(?:Street|Road|Lane|Block|Tower|Phase|Sector)\s\w{1,4}|\d{1,2}/F),\s*)"_s +
             city()});
}

/// "Rowan Cottage, Shore Rd", "Elm House, 5 Sexton’s": houses with their street. And cottages, apartments
/// and, behind a label or above a country, flats where nothing else stands.
QString houseOrFlat() {
    const QString start = uR"((?<=^|\t)\s{0,3})"_s;
    const QString end = uR"((?=\s*[,.]?\s*(?:$|\t)))"_s;
    const QString words = u"(?:"_s + streetWord + uR"(\s+){1,3}?)"_s;
    const QString dwelling =
        u"(?:Cottage|Barn|Farm|Mill|Forge|Rectory|Vicarage|Manor|Grange|Farmhouse|Smithy|Stables|Granary|"
        u"Malthouse"
        u"|Bakery|Chapel|School(?:house|\\sHouse)|Dairy|Gatehouse|Maltings|Boathouse|Priory|Coach\\sHouse)"_s;
    // Those without the number of a street are "Music Hall, Live Drive" too.
    const QString house = anyOf({dwelling, u"House|Lodge|Villa|Hall"_s});
    const QString flat = uR"((?:Flat|Suite|Ste|Unit)\.?\s?#?\s?\d{1,4}[A-Z]?)"_s;
    const QString countryInColumn = uR"((?=(?:\t│\t[^\t]{1,40}){0,3}\t│\t)"_s + country() + u')';
    const QString notPraise =
        uR"((?!(?:Lovely|Beautiful|Charming|Cozy|Cosy|Perfect|Great|Nice|Amazing|Fantastic|Holiday)"
        uR"(|Guest|Summer|Family|Entire|Private|My|Our|Your|This|Small|Large|New|Luxury)\s))"_s;
    return start +
           anyOf(
               {words + house + uR"(\s*,\s*\d{1,4}[A-Za-c]?\s+)"_s + streetWord + uR"((?:\s+)"_s +
                    streetWord + u"){0,3}"_s,
                anyOf({words + dwelling, uR"(The\s+)"_s + words}) + uR"(\s*,\s*)"_s + words +
                    anyOf({streetType}) + uR"(\b)"_s,
                notPraise + uR"((?:The\s+)?)"_s + streetWord +
                    uR"(\s+(?:Cottage|Farmhouse|Rectory|Vicarage))"_s + end,
                uR"((?:Apt|Apartment)\.?\s?#?\s?\d{1,4}[A-Z]?)"_s + end,
                uR"((?:Room|Rm|Unit|Flat)\.?\s\d{1,4}[A-Z]?,\s(?:(?:Maison|Corpo|Villa|Residence|Casa|Haus)\s)"_s +
                    streetWord + u'|' + words +
                    uR"((?:Mansions?|Heights|Apartments|Residences?|Towers?|Mill))"_s + u')' + end,
                uR"((?=[FSU]))"_s +
                    anyOf({uR"((?<=(?i:addr|adr|street|unit|line)[^\t]{0,20}\t\s{0,3}))"_s + flat + end,
                           flat + countryInColumn})});
}

QString americanPlace() {
    return uR"((?<![\w@.]))"_s + city() + uR"((?:,\s+|\s+(?!)"_s + wordlikeState + u"))"_s + state() +
           uR"(\s+)"_s + anyOf({zip() + uR"((?!\w))"_s, uR"((?<=,\s?[A-Z]{2}\s)\d{2,5}(?=\s*$))"_s});
}

QString britishPlace() {
    return uR"((?<![\w@.])(?:(?!(?:From|To|At|In|Postcode|Zip|Code)\b))"_s + city() + uR"(,?\s+)?)"_s +
           anyOf({britishPostcode(), irishPostcode()});
}

QString australianOrCanadianPlace() {
    return uR"((?<![\w@.]))"_s + city() + uR"(,?\s+)"_s +
           anyOf({australianPostcode(),
                  uR"((?:AB|BC|MB|NB|NL|NS|NT|NU|ON|PE|QC|SK|YT)\s+)"_s + canadianPostcode()});
}

/// The end of it misread, where nothing else stands: "Ludlow SY8 90x".
QString misreadBritishPlace() {
    const QString area =
        u"(?:A[BL]|B[ABDHLNRST]|C[ABFHMORTVW]|D[ADEGHLNTY]|E[CHNX]|F[KY]|G[LU]|H[ADGPRSUX]|I[GPV]"
        u"|K[ATWY]|L[ADELNSU]|M[EKL]|N[EGNPRW]|O[LX]|P[AEHLOR]|R[GHM]|S[AEGKLMNOPRSTWY]"
        u"|T[ADFNQRSW]|UB|W[ACDFNRSV]|YO)"_s;
    return uR"((?<=^|\t)\s{0,3}\p{Lu}\p{Ll}{2,20}(?:[ -]\p{L}{2,20}){0,3},?\s+)"_s + area +
           uR"(\d{1,2}[A-Z]?\s?[\dOolISB](?=\w?[A-Za-z])[\dA-Za-z]{2}(?=\s*(?:$|\t)))"_s;
}

} // namespace

QStringList englishAddresses() {
    return {street(),
            broadway(),
            numberBehindStreet(),
            numberedRoad(),
            spanishStreet(),
            wordsBeforePlace(),
            wordsBesideUnit(),
            streetAlone(),
            houseOrFlat(),
            americanPlace(),
            britishPlace(),
            australianOrCanadianPlace(),
            misreadBritishPlace()};
}

} // namespace Veilshot
