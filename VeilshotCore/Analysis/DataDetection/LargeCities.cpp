#include "VeilshotCore/Analysis/DataDetection/LargeCities.h"

#include "VeilshotCore/Analysis/DataDetection/TownNames.h"

#include <QString>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The cities of countries whose postcodes look the same.
struct Cities {
    /// With nines for digits and A for letters.
    QStringView postcodes;
    TownNames names;
};

/// Names that are ordinary words (Nice, Essen, Split) are left out.
const std::array<Cities, 13>& cities() {
    static const std::array<Cities, 13> cities{{
        // Norway, Austria, Switzerland, Belgium, Luxembourg, Hungary, Bulgaria, Slovenia, North Macedonia,
        // Albania, Latvia
        {u"9999",
         TownNames(
             u"oslo, bergen, trondheim, stavanger, drammen, fredrikstad, kristiansand, sandnes, tromsø, "
             u"sarpsborg, skien, ålesund, sandefjord, haugesund, tønsberg, bodø, hamar, larvik, lillehammer, "
             u"molde, wien, graz, linz, salzburg, innsbruck, klagenfurt, zürich, genève, basel, bern, "
             u"lausanne, winterthur, luzern, lugano, bruxelles, brussel, antwerpen, gent, liège, brugge, "
             u"namur, leuven, charleroi, luxembourg, budapest, debrecen, szeged, sofia, plovdiv, varna, "
             u"ljubljana, maribor, skopje, tirana, riga")},
        // Sweden, the Czech Republic, Slovakia, Greece
        {u"999 99, 99999",
         TownNames(
             u"stockholm, göteborg, malmö, uppsala, västerås, örebro, linköping, helsingborg, jönköping, "
             u"norrköping, lund, umeå, gävle, borås, södertälje, eskilstuna, halmstad, växjö, karlstad, "
             u"sundsvall, östersund, trollhättan, luleå, kalmar, kristianstad, karlskrona, skövde, solna, "
             u"sundbyberg, lidingö, praha, brno, ostrava, plzeň, olomouc, liberec, bratislava, košice, "
             u"athina, "
             u"thessaloniki")},
        // Germany, France, Spain, Italy, Finland, Estonia, Lithuania, Serbia, Croatia, Bosnia
        {u"99999",
         TownNames(
             u"helsinki, espoo, tampere, vantaa, oulu, turku, jyväskylä, lahti, kuopio, pori, kouvola, "
             u"joensuu, lappeenranta, vaasa, rovaniemi, seinäjoki, helsingfors, esbo, åbo, berlin, hamburg, "
             u"münchen, köln, frankfurt, stuttgart, düsseldorf, leipzig, dortmund, bremen, dresden, "
             u"hannover, "
             u"nürnberg, duisburg, bochum, wuppertal, bielefeld, bonn, münster, mannheim, karlsruhe, "
             u"augsburg, "
             u"wiesbaden, mönchengladbach, gelsenkirchen, aachen, braunschweig, kiel, chemnitz, magdeburg, "
             u"freiburg, krefeld, halle, mainz, erfurt, lübeck, oberhausen, rostock, kassel, potsdam, "
             u"saarbrücken, oldenburg, osnabrück, heidelberg, darmstadt, regensburg, würzburg, göttingen, "
             u"flensburg, schwerin, ulm, jena, trier, paris, marseille, lyon, toulouse, nantes, montpellier, "
             u"strasbourg, bordeaux, lille, rennes, reims, toulon, saint-étienne, grenoble, dijon, angers, "
             u"nîmes, villeurbanne, clermont-ferrand, le mans, aix-en-provence, brest, tours, amiens, "
             u"limoges, "
             u"annecy, perpignan, besançon, metz, orléans, rouen, mulhouse, caen, nancy, avignon, madrid, "
             u"barcelona, valencia, sevilla, zaragoza, málaga, murcia, palma, bilbao, alicante, córdoba, "
             u"valladolid, vigo, gijón, granada, oviedo, san sebastián, pamplona, salamanca, santander, "
             u"roma, "
             u"milano, napoli, torino, palermo, genova, bologna, firenze, bari, catania, venezia, verona, "
             u"messina, padova, trieste, taranto, brescia, parma, prato, modena, reggio, perugia, livorno, "
             u"ravenna, cagliari, rimini, ferrara, salerno, pisa, bergamo, trento, bolzano, siena, lucca, "
             u"beograd, novi sad, zagreb, rijeka, sarajevo, tallinn, tartu, vilnius, kaunas, klaipėda")},
        // the Netherlands
        {u"9999 AA",
         TownNames(u"amsterdam, rotterdam, utrecht, eindhoven, groningen, tilburg, almere, breda, nijmegen, "
                   u"apeldoorn, haarlem, arnhem, amersfoort, enschede, zwolle, leiden, maastricht, "
                   u"dordrecht, delft, "
                   u"den haag, 's-hertogenbosch")},
        // Poland
        {u"99-999, 99999",
         TownNames(
             u"warszawa, kraków, łódź, wrocław, poznań, gdańsk, szczecin, bydgoszcz, lublin, białystok, "
             u"katowice, gdynia, częstochowa, radom, toruń, kielce, gliwice, rzeszów, olsztyn, sopot, "
             u"zakopane")},
        // Portugal
        {u"9999-999", TownNames(u"lisboa, porto, braga, coimbra, funchal, setúbal, faro")},
        // New Zealand, Australia, South Africa, Bangladesh, Tunisia, the Philippines
        {u"9999",
         TownNames(u"auckland, wellington, christchurch, dunedin, tauranga, napier, palmerston north, "
                   u"rotorua, whanganui, invercargill, nelson, queenstown, blenheim, timaru, gisborne, new "
                   u"plymouth, hamilton, whangarei, sydney, melbourne, brisbane, "
                   u"adelaide, hobart, canberra, cape town, johannesburg, durban, pretoria, stellenbosch, "
                   u"port elizabeth, gqeberha, bloemfontein, sandton, dhaka, chittagong, tunis, manila, "
                   u"quezon city, makati, cebu city")},
        // Turkey, Israel (old), Mexico, Peru, Malaysia, Thailand, Indonesia, South Korea, Pakistan, Kenya,
        // Ghana, Morocco, Egypt, Ukraine, Vietnam, Saudi Arabia, Taiwan, the United States without their
        // state
        {u"99999",
         TownNames(
             u"istanbul, i̇stanbul, ankara, izmir, i̇zmir, bursa, antalya, adana, konya, kadıköy, beşiktaş, "
             u"ciudad de méxico, cdmx, chicago, new york, brooklyn, los angeles, houston, philadelphia, "
             u"seattle, denver, boston, "
             u"portland, oakland, san francisco, san diego, miami, atlanta, austin, minneapolis, pittsburgh, "
             u"somerville, guadalajara, monterrey, puebla, lima, arequipa, kuala lumpur, penang, "
             u"johor bahru, petaling jaya, bangkok, chiang mai, jakarta, jakarta selatan, bandung, surabaya, "
             u"yogyakarta, denpasar, seoul, busan, incheon, daegu, lahore, karachi, islamabad, "
             u"rawalpindi, nairobi, mombasa, kisumu, accra, casablanca, rabat, marrakech, fes, cairo, giza, "
             u"alexandria, kyiv, lviv, odesa, kharkiv, hanoi, ha noi, hà nội, riyadh, jeddah, taipei")},
        // Vietnam, Nigeria, India, China, Singapore, Romania, Russia, Kazakhstan, Colombia
        {u"999999, 999 999",
         TownNames(
             u"hcmc, tp hcm, tp. hcm, ho chi minh, ho chi minh city, hồ chí minh, hanoi, ha noi, hà nội, da "
             u"nang, "
             u"đà nẵng, hue, can tho, hai phong, lagos, abuja, ibadan, kano, port harcourt, enugu, "
             u"benin city, lekki, ikeja, kaduna, mumbai, new delhi, delhi, bengaluru, bangalore, chennai, "
             u"kolkata, hyderabad, pune, ahmedabad, jaipur, kochi, gurgaon, gurugram, noida, lucknow, "
             u"indore, "
             u"chandigarh, goa, beijing, shanghai, shenzhen, guangzhou, chengdu, hangzhou, singapore, "
             u"bucurești, cluj-napoca, iași, timișoara, moskva, moscow, sankt-peterburg, almaty, bogotá, "
             u"medellín, cali")},
        // Israel, Chile
        {u"9999999",
         TownNames(
             u"tel aviv, tel aviv-yafo, tel-aviv, jerusalem, haifa, ramat gan, beer sheva, be'er sheva, "
             u"netanya, "
             u"herzliya, petah tikva, rishon lezion, holon, santiago, concepción, valparaíso, viña del mar")},
        // Japan
        {u"999-9999", TownNames(u"tokyo, kyoto, osaka, yokohama, nagoya, sapporo, fukuoka, kobe, sendai, "
                                u"hiroshima, kawasaki, nara")},
        // Brazil
        {u"99999-999", TownNames(u"são paulo, rio de janeiro, belo horizonte, brasília, salvador, fortaleza, "
                                 u"curitiba, recife, porto alegre, "
                                 u"manaus, belém, goiânia, florianópolis, campinas, santos, natal")},
        // Iceland
        {u"999", TownNames(u"reykjavík, kópavogur, hafnarfjörður, akureyri")},
    }};
    return cities;
}

QString shapeOf(QStringView postcode) {
    QString shape;
    for (const QChar character : postcode)
        shape += character.isDigit() ? u'9' : character.isLetter() ? u'A' : character;
    return shape;
}

} // namespace

bool isLargeCity(QStringView name, QStringView postcode) {
    const QString shape = shapeOf(postcode);
    return std::ranges::any_of(cities(), [&](const Cities& ofCountries) {
        return ofCountries.postcodes.split(u", "_s).contains(shape) && ofCountries.names.contains(name);
    });
}

} // namespace Veilshot
