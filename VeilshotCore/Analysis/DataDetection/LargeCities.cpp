#include "VeilshotCore/Analysis/DataDetection/LargeCities.h"

#include "VeilshotCore/Analysis/DataDetection/TownNames.h"

namespace Veilshot {

namespace {

/// Those whose postcode stands in front of them. Names that are ordinary words (Nice, Essen, Split) are left
/// out.
constexpr QStringView cities =
    // Norway, Sweden, Finland, Iceland
    u"oslo, bergen, trondheim, stavanger, drammen, fredrikstad, kristiansand, sandnes, tromsø, sarpsborg, "
    u"skien, "
    u"ålesund, sandefjord, haugesund, tønsberg, bodø, hamar, larvik, lillehammer, molde, "
    u"stockholm, göteborg, malmö, uppsala, västerås, örebro, linköping, helsingborg, jönköping, norrköping, "
    u"lund, "
    u"umeå, gävle, borås, södertälje, eskilstuna, halmstad, växjö, karlstad, sundsvall, östersund, "
    u"trollhättan, "
    u"luleå, kalmar, kristianstad, karlskrona, skövde, solna, sundbyberg, lidingö, "
    u"helsinki, espoo, tampere, vantaa, oulu, turku, jyväskylä, lahti, kuopio, pori, kouvola, joensuu, "
    u"lappeenranta, vaasa, rovaniemi, seinäjoki, helsingfors, esbo, åbo, reykjavík, kópavogur, "
    u"hafnarfjörður, akureyri, "
    // Germany, Austria, Switzerland, Belgium, the Netherlands, Luxembourg
    u"berlin, hamburg, münchen, köln, frankfurt, stuttgart, düsseldorf, leipzig, dortmund, bremen, dresden, "
    u"hannover, nürnberg, duisburg, bochum, wuppertal, bielefeld, bonn, münster, mannheim, karlsruhe, "
    u"augsburg, "
    u"wiesbaden, mönchengladbach, gelsenkirchen, aachen, braunschweig, kiel, chemnitz, magdeburg, freiburg, "
    u"krefeld, "
    u"halle, mainz, erfurt, lübeck, oberhausen, rostock, kassel, potsdam, saarbrücken, oldenburg, osnabrück, "
    u"heidelberg, darmstadt, regensburg, würzburg, göttingen, flensburg, schwerin, ulm, jena, trier, "
    u"wien, graz, linz, salzburg, innsbruck, klagenfurt, zürich, genève, basel, bern, lausanne, winterthur, "
    u"luzern, "
    u"lugano, bruxelles, brussel, antwerpen, gent, liège, brugge, namur, leuven, charleroi, luxembourg, "
    u"amsterdam, rotterdam, utrecht, eindhoven, groningen, tilburg, almere, breda, nijmegen, apeldoorn, "
    u"haarlem, "
    u"arnhem, amersfoort, enschede, zwolle, leiden, maastricht, dordrecht, delft, den haag, "
    u"'s-hertogenbosch, "
    // France, Spain, Portugal, Italy
    u"paris, marseille, lyon, toulouse, nantes, montpellier, strasbourg, bordeaux, lille, rennes, reims, "
    u"toulon, "
    u"saint-étienne, grenoble, dijon, angers, nîmes, villeurbanne, clermont-ferrand, le mans, "
    u"aix-en-provence, brest, "
    u"tours, amiens, limoges, annecy, perpignan, besançon, metz, orléans, rouen, mulhouse, caen, nancy, "
    u"avignon, "
    u"madrid, barcelona, valencia, sevilla, zaragoza, málaga, murcia, palma, bilbao, alicante, córdoba, "
    u"valladolid, "
    u"vigo, gijón, granada, oviedo, san sebastián, pamplona, salamanca, santander, lisboa, porto, braga, "
    u"coimbra, "
    u"funchal, setúbal, faro, roma, milano, napoli, torino, palermo, genova, bologna, firenze, bari, "
    u"catania, venezia, "
    u"verona, messina, padova, trieste, taranto, brescia, parma, prato, modena, reggio, perugia, livorno, "
    u"ravenna, "
    u"cagliari, rimini, ferrara, salerno, pisa, bergamo, trento, bolzano, siena, lucca, "
    // The east and the south-east
    u"warszawa, kraków, łódź, wrocław, poznań, gdańsk, szczecin, bydgoszcz, lublin, białystok, katowice, "
    u"gdynia, "
    u"częstochowa, radom, toruń, kielce, gliwice, rzeszów, olsztyn, sopot, zakopane, praha, brno, ostrava, "
    u"plzeň, "
    u"olomouc, liberec, bratislava, košice, budapest, debrecen, szeged, bucurești, cluj-napoca, timișoara, "
    u"iași, "
    u"brașov, sofia, plovdiv, varna, beograd, novi sad, zagreb, rijeka, ljubljana, maribor, sarajevo, "
    u"skopje, tirana, "
    u"tallinn, tartu, riga, vilnius, kaunas, klaipėda, athina, thessaloniki";

} // namespace

bool isLargeCity(QStringView name) {
    static const TownNames names(cities);
    return names.contains(name);
}

} // namespace Veilshot
