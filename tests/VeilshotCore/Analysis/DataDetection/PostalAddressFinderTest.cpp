#include "VeilshotCore/Analysis/DataDetection/PostalAddressFinder.h"
#include "tests/VeilshotCore/Analysis/DataDetection/FoundTexts.h"

namespace Veilshot {
namespace {

TEST(PostalAddressFinder, FindsLinesThatAreOneAddress) {
    expectFoundWhole<PostalAddressFinder>(
        {"Nørrebrogade 12, 2. tv, 2200 København N", "Bygaden 7B, st. th.", "2200 København N",
         "4660 Store Heddinge", "DK-8900 Randers", "Lille Strandstræde 9, 1., 1254 København K",
         "Øster Allé 48, 2100 Kbh. Ø", "Kirkestien 5, Ugelbølle, 8410 Rønde",
         "NØRREGADE 10, 1165 KØBENHAVN K", "nørrebrogade 12, 2200 københavn n", "Postboks 14, 4000 Roskilde",
         "9400 Norresundby", "2200 Kbenhavn N", "Åfløjen 1588, 2. tv", "Ved Stranden 129",
         "Havneholmen 25, 9. sal", "c/o Havnekontoret, Langgade 2, 8305 Samsø", "C/O Mill Trust"});
    expectFoundWhole<PostalAddressFinder>(
        {"221 Elm St Apt 4B, Springfield, IL 62704", "West Lonniecester, OR 41230-7009",
         "45 W 25th St, Floor 3, New York NY 10010", "Flat 2, 14 Rose Lane, Leeds LS1 4AP",
         "The Old Mill, 3 High Street, Bath BA1 5AW", "266 Golden Rapid, Murazik-Kutchcester, MI 29524-8843",
         "London SW1A 2AA", "P.O. Box 77", "55 King St W, Toronto, ON M5K 1A2", "5407 Vista del Sol",
         "210 Lower Marsh", "2755 County Road 12, Apt 11B"});
    expectFoundWhole<PostalAddressFinder>(
        {"Flat 12, 114 Cathedral Row", "10 Downing Sfreet", "Springfield, IL 62",
         "4733 Stonegate Trail, Chattanooga, TN 3742(", "Flat 3, 22 High Street, Newcastle upon Tyne NE2 £",
         "Rowan Cottage, Shore Rd", "Rowan Cottage", "Dublin D03 X7R2", "Ludlow SY8 90x",
         "Apt. 14, 2nd Floor, 77 Elm Street", "RR 3, Guelph ON N1H 6H9", "12/4 Smith St, Richmond VIC 3121",
         "5 Wharf Rd, Ponsonby, Auckland 1011"});
    expectFoundWhole<PostalAddressFinder>(
        {"15 Rue de Rivoli, 75001 Paris", "HauptstraBe 12, 10115 Berlin", "Storgatan 4, 111 51 Stockholm",
         "Via dei Serragli 31", "Am Markt 4, 99423 Weimar", "Piłsudskiego 12/4, 90-051 Łódź",
         "ul. Hoża 51 m. 8", "00-681 Warszawa", "3531 CJ Utrecht", "Taito-ku 110-0001",
         "Rua das Flores 214, 3.º Esq.", "Rua das Flores 214, 3.” Esq.",
         "Donggyo-ro 12, Mapo-gu, Seoul 04016"});
}

TEST(PostalAddressFinder, FindsAddressesOfManyCountries) {
    expectFoundWhole<PostalAddressFinder>(
        {"12 Lé Loi, Phudng Bén Nghé, Quan 1, HCMC", "700000 HCMC", "Lagos 101241", "6346101 Tel Aviv",
         "44100 Guadalajara", "Dizengoff 141, Tel Aviv 6346101",
         "Plot 12, Block C, Admiralty Way, Lekki Phase 1, Lagos",
         "Flat 4B, Shanti Apartments, MG Road, Pune 411001", "Sector 62, Noida 201301",
         "14, 4th Cross, Indiranagar, Bengaluru 560038", "1-2-3 Jingumae, Shibuya-ku, Tokyo 150-0001",
         "Rua Augusta, 1508, Consolação, São Paulo - SP, 01305-100", "P.O. Box 12345-00100, Nairobi"});
    expectFoundWhole<PostalAddressFinder>({"Cinar Sok. No: 14 D: 7, 34730 Kadikéy/Istanbul",
                                           "Petőfi utca 12, 1052 Budapest",
                                           "Calle Lautaro 551, depto. 902, 4030000 Concepción",
                                           "Kerkpad 4 bus 2, 9000 Gent",
                                           "3 Quay Cottages, Kinsale, Co. Cork P17 XD72",
                                           "Whanganui 4500",
                                           "Hyldespjældet 42, kld., 2620 Albertslund",
                                           "Jalan Sudirman 12, Jakarta 12190",
                                           "Villa 12, Street 4B, Al Barsha, Dubai",
                                           "Cra. 7 #71-21, Bogotá",
                                           "Rothschild Blvd 12, Tel Aviv",
                                           "No. 12, Lane 88, Huaihai Rd, Xuhui District, Shanghai 200031",
                                           "Apt 4, The Oaks, Dublin 8",
                                           "Bik 302 Yishun Ring Rd #08‑117",
                                           "31 Donggyo-ro 4-gil",
                                           "Room 407, Maison Akane",
                                           "FO-100 Torshavn",
                                           "The Old Forge, Mill Lane",
                                           "12 Abbey Walk, Sligo F91 XY@5",
                                           "Calle Mayor 7, 3°B",
                                           "Unit 6. Calder Mill, Hebden Bridge HX7 8AD",
                                           "14 Rue des Lilas, 3e étage",
                                           "Schulstr. 3a, 1. OG links",
                                           "W4412 Bluemound Rd",
                                           "Block 7, #12-345",
                                           "10 Jalan Besar #05-12",
                                           "Keizersgracht 401 hs"});
}

TEST(PostalAddressFinder, FindsAddressesWithoutTheirBlanks) {
    expectFoundWhole<PostalAddressFinder>(
        {"Tingvej10,2.tv,4300Holbæk", "Astraede111,3600 Frederikssund", "155The Crescent,AberdeenAB246RP",
         "143 LowerMarsh, Belfast BT94UA", "3373SE HawthorneBlvd, Eugene,OR97455",
         "4733 StonegateTrail,St.Louis,MO 63145", "Flat 12,114 Cathedral Row", "209 KingsParade"});
}

TEST(PostalAddressFinder, FindsAddressesInsideALine) {
    expectFound<PostalAddressFinder>(
        {"Adr. [Fasanvænget 31, 5260 Odense S]", "[Kystvejen 55] – åbent til kl. 18",
         "hos Jytte i [Hyldespjældet 44]. Hun", "Bor på [Ahornvej 17] og arbejder på [Torvet 6].",
         "Meet at [233 S Wacker Dr] at noon", "Home – [31 Maple Court, Salem, OR 97301]",
         "😀 (251) 644-7030 [7900 Broadway,St. Louis,MO63145]",
         "+45 1 Pkwy [168 Commerce Pkwy,Suite236, Chattancog]: 125,00",
         "Site [Unit 4, Creekside Yard, Wivenhoe CO7 9ZD]", "Address line 2\t [Flat 2]",
         "[Unit 6C]\t│\tOregon\t│\tUnited States", "[3000 Helsingør]. Ring på hos Jensen",
         "Tirsdag 5. maj 2024, [8000 Aarhus C]", "Li,Bo,a@b.dk,[Egnatia 88,546 23,Xyz],card",
         "Li;a@b.dk;[77 Dogwood Ct;Durham;NC;27701];x",
         "Li,+44 1631 555 019,\"[Oak 6, 2.\",8000,\"El P, TX]\"", "1|a@b.dk|[3000|Rye|Oak Row 14]|x",
         "Liv,a@b.dk,[Skagavej 201],no post"});
    expectFound<PostalAddressFinder>({"Apartment, suite, etc. (optional)\t[Unit 7C]", "ZIP code\t[55803]",
                                      "Town / City\t[Duluth]", "street\t[Dizengoff 141]", "By\t[Svendborg]",
                                      "By\t[København NV]", "Tidl. adresse\t[Gerdisbakki 14, 2. heedd]",
                                      "Address\t[The Old Forge, Mill Lane]",
                                      "Bopæl\t[Fyrrestien 8, 1. th.]"});
    expectNothingFound<PostalAddressFinder>(
        {"a@b.dk,Room 12,2024,Budget,Room 12,x,1200", "2025-03-14,Room 12,1200,Lunch,ok"});
}

TEST(PostalAddressFinder, LeavesOtherNumberedThingsAlone) {
    expectNothingFound<PostalAddressFinder>(
        {"Main Street closed today", "3 Court cases", "5 Star Hotel View", "12 Flash Drive", "Genvej 5",
         "Brigade 4", "Plads 14", "3. sal", "Palle 12", "Motorvej E45", "Gågaden 100 kr.", "Route 66",
         "2024 Roskilde", "2024 Danmark", "5000 Points", "4000 kr. i Roskilde"});
    expectNothingFound<PostalAddressFinder>(
        {"1200 ringe", "User ID 12345", "Status OK 20000", "Apple M2 8GB", "Level 3 Green Hill",
         "On Tuesday March 5, 2024 Boston", "2019–2024", "line 34 TextView", "getElementById2Place",
         "3 Great Reasons", "24 Hour Fitness Park", "2025 Annual Summit", "Flat 10, 20 Percent", "Unit 5",
         "Lovely Cottage", "Fantastic Nova Scotia Cottage"});
    expectNothingFound<PostalAddressFinder>(
        {"12500 Followers", "2012 Oslo", "12-05-24 Monday", "Chapter 3, 2020 Edition", "Column 7, 1200 Rows",
         "Sunset 3, 2024 Budget", "5000 Madrid", "1200 Lund", "2 Shopping Mall", "3D Printing Village",
         "Suite 12", "Music Hall, Live Drive", "Via Email 2", "TV-kanalen 2", "Blockade 2",
         "Order 10293847"});
    expectNothingFound<PostalAddressFinder>(
        {"Address\tSame as shipping", "ADDRESS\tPARENT 1", "By\tBrandon Lee", "By: Brandon",
         "Town\tYears there", "Version 10, Build 22000", "Nelson 2024", "Main Road 2024",
         "Q3 2024, Revenue 12000", "zip\t2.4 MB", "Number: 42", "State: UP", "Unit\t12 months",
         "Via: 1.1 varnish", "Pris pr. 100 g", "Box 12", "Room 12, Main Building", "IS 200 Series",
         "The Killers, Human Drive"});
}

} // namespace
} // namespace Veilshot
