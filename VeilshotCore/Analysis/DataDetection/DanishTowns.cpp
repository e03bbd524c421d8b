#include "VeilshotCore/Analysis/DataDetection/DanishTowns.h"

#include "VeilshotCore/Analysis/DataDetection/TownNames.h"

namespace Veilshot {

namespace {

/// The names of post towns and what people write for them, in lower case. Regions and large islands are
/// left out: "2024 Bornholm" is an event more often than an address. So are towns that are ordinary words
/// (Gram, Sig): they count behind a street only.
constexpr QStringView towns =
    u"aabenraa, aabybro, aabyhøj, aakirkeby, aalborg, aalestrup, aarhus, aars, aarsballe, aarup, "
    u"agerbæk, agerskov, aggersund, albertslund, allerød, allinge, allingåbro, als odde, anholt, "
    u"ansager, arden, arnborg, arrild, askeby, asnæs, assens, assentoft, augustenborg, aulum, auning, "
    u"bagenkop, bagsværd, balle, ballerup, bandholm, barrit, beder, bedsted, bellinge, bevtoft, "
    u"biersted, billund, bindslev, birkelse, birkerød, bjerringbro, bjert, bjæverskov, blokhus, "
    u"blommenslyst, blovstrød, blåvand, bogense, bogø, bolderslev, bording, borre, borup, brabrand, "
    u"bramming, brande, branderup, bredebro, bredsted, brenderup, broager, broby, brovst, bryrup, "
    u"brædstrup, brøndby, brøndby strand, brønderslev, brøns, brønshøj, brørup, bylderup, bylderup-bov, "
    u"bælum, børkop, bøvlingbjerg, charlottenlund, christiansfeld, christianshavn, dalmose, dannemare, "
    u"daugård, dianalund, dragør, dronninglund, dronningmølle, dybvad, dyssegård, ebberup, ebeltoft, "
    u"egernsund, egtved, egå, ejby, ejstrupholm, endelave, engesvang, errindlev, erslev, "
    u"esbjerg, eskebjerg, eskilstrup, espergærde, faaborg, fakse, fanø, farsø, farum, faxe, "
    u"faxe ladeplads, fejø, femø, fensmark, ferritslev, filskov, fjellerup, fjerritslev, fredensborg, "
    u"fredericia, frederiksberg, frederikshavn, frederikssund, frederiksværk, frejlev, frørup, frøstrup, "
    u"fuglebjerg, fynshav, fåborg, fårevejle, fårup, fårvang, føllenslev, gadbjerg, gadstrup, galten, "
    u"gandrup, ganløse, gedser, gedsted, gedved, gelsted, gentofte, gilleleje, gislinge, gistrup, give, "
    u"gjellerup, gjerlev, gjern, gladsaxe, glamsbjerg, glejbjerg, glesborg, glostrup, glud, glumsø, "
    u"gredstedbro, grenaa, greve, greve strand, grevinge, grindsted, gråsten, græsted, gudhjem, "
    u"gudme, guldborg, gørding, gørlev, gørløse, haarby, hadbjerg, haderslev, hadsten, hadsund, hals, "
    u"hammel, hammerum, hampen, hanstholm, harboøre, hareskov, harlev, harndrup, harpelunde, hasle, "
    u"haslev, hasselager, havdrup, havndal, havnsø, hedehusene, hedensted, hejnsvig, hellebæk, hellerup, "
    u"helsinge, helsingør, hemmet, henne, herfølge, herlev, herlufmagle, herning, hesselager, hillerød, "
    u"hindsholm, hinnerup, hirtshals, hjallerup, hjerm, hjerting, hjortshøj, hjørring, hobro, holbæk, "
    u"holeby, holmegaard, holstebro, holsted, holte, hornbæk, hornslet, horsens, horslunde, hou, "
    u"hovedgård, humlebæk, hundested, hurup, husum, hvalsø, hvam, hvide sande, hviding, "
    u"hvidovre, hårby, hårlev, højbjerg, højby, højer, højslev, høng, hørning, hørsholm, hørve, "
    u"idestrup, ikast, ilulissat, ingstrup, ishøj, janderup, jelling, jels, jerslev, jerup, juelsminde, "
    u"jyderup, jyllinge, jystrup, jægersborg, jægerspris, kalundborg, karby, karise, karlslunde, "
    u"karrebæksminde, karup, kastrup, kbh, kbh., kerteminde, kgs. lyngby, kibæk, kirke hyllinge, "
    u"kirke såby, kirke værløse, kjellerup, klakring, klampenborg, klarup, klemensker, klippinge, "
    u"klitmøller, knebel, kokkedal, kolding, kolind, kongens lyngby, kongerslev, korinth, korsør, kruså, "
    u"kvissel, kvistgård, kværndrup, kås, københavn, køge, langeskov, langå, laurbjerg, lejre, lemvig, "
    u"lille skensved, lillerød, liseleje, lundby, lunderskov, lyngby, lynge, lystrup, låsby, læsø, "
    u"løgstrup, løgstør, løgten, løgumkloster, løjt, løkken, løsning, maarslet, malling, mariager, "
    u"maribo, marstal, melby, melsted, mern, mesinge, middelfart, millinge, morud, moseby, "
    u"munke bjergby, munkebo, måløv, mårslet, møldrup, mørke, mørkøv, nakskov, nexø, nibe, nivå, "
    u"nordborg, nordby, nordenskov, nuuk, nyborg, nykøbing, nykøbing falster, nykøbing mors, "
    u"nykøbing sjælland, nyrup, nysted, nærum, næstved, nødebo, nørager, nørhalne, nørre aaby, "
    u"nørre alslev, nørre nebel, nørre snede, nørre åby, nørre-snede, nørrebro, nørresundby, odder, "
    u"odense, oksbøl, ollerup, ordrup, otterup, outrup, overlade, padborg, pandrup, pedersker, præstø, "
    u"randbøl, randers, ranum, rask mølle, ravsted, regstrup, rejsby, ribe, ringe, ringkøbing, ringsted, "
    u"rislev, risskov, roskilde, roslev, rudkøbing, ruds vedby, rungsted, rungsted kyst, ry, rynkeby, "
    u"ryomgård, rødby, rødding, rødekro, rødkærsbro, rødovre, rødvig, rømø, rønde, rønne, rønnede, "
    u"rørvig, sabro, sakskøbing, saltum, samsø, sandved, sejerø, silkeborg, sindal, sisimiut, "
    u"skagen, skals, skamby, skanderborg, skarrild, skibby, skive, skjern, skodborg, skodsborg, "
    u"skovlunde, skovshoved, skælskør, skærbæk, skævinge, skødstrup, skørping, skørring, slagelse, "
    u"slangerup, smørum, snedsted, snejbjerg, snekkersten, snertinge, snoldelev, solbjerg, solrød, "
    u"solrød strand, sommersted, sorring, sorø, spandet, spentrup, spjald, spøttrup, starup, stege, "
    u"stenlille, stenløse, stenstrup, stensved, stilling, stjær, stoholm, store fuglede, store heddinge, "
    u"storvorde, stouby, strandby, struer, strøby, stubbekøbing, støvring, suldrup, sulsted, sunds, "
    u"svaneke, svendborg, svenstrup, svinninge, sydals, sæby, søborg, søby, søften, søllested, "
    u"sønder omme, sønderborg, sønderholm, søndersø, sørvad, taastrup, tandslet, tappernøje, tarm, "
    u"taulov, terndrup, them, thisted, thurø, thyborøn, tilst, tinglev, tistrup, tisvilde, "
    u"tisvildeleje, tjele, tjæreborg, toftlund, tommerup, torrig, tranbjerg, tranekær, tranum, trige, "
    u"trustrup, trørød, tunø, tversted, tylstrup, tårnby, tårs, tórshavn, tølløse, tønder, "
    u"tørring, tørsted, ugerløse, ulbølle, uldum, ulfborg, ullerslev, ulstrup, vadum, valby, vallensbæk, "
    u"vallensbæk strand, vamdrup, vanløse, varde, vedbæk, veflinge, vejby, vejen, vejle, veksø, vemb, "
    u"vesløs, vestbjerg, vester skerninge, vester sottrup, vesterborg, vesterbro, vestervig, viborg, "
    u"viby, viby sjælland, videbæk, vildbjerg, vinderup, vipperød, virum, vissenbjerg, vivild, "
    u"vodskov, vojens, vollerslev, vonsild, vorbasse, vordingborg, vrå, væggerløse, værløse, åbyhøj, "
    u"ålborg, ålbæk, ålestrup, ålsgårde, århus, årre, årslev, årup, ærø, ærøskøbing, ødsted, ølgod, "
    u"ølsted, ølstykke, ørnhøj, ørsted, ørum, østbirk, øster assels, østerbro, østermarie, østervrå";

} // namespace

bool isDanishTown(QStringView name) {
    static const TownNames names(towns);
    return names.contains(name);
}

} // namespace Veilshot
