// Files of a job, byte for byte.

#include <gtest/gtest.h>

#include "implantation/fichiersAppareil.h"
#include "implantation/rapportImplantation.h"
#include "implantation/svgDessin.h"
#include "implantation/traceImplantation.h"

namespace {

resultatImplantation travail()
{
    resultatImplantation r;
    r.hauteurMin = 1.0;
    blocStation bloc;
    bloc.station.station = {L"S;1", 1000.0, -2000.5, 100.0};
    pointImplante p;
    static_cast<lieuNomme&>(p) = {L"A12", 1003.0, -1996.5, 112.0};
    p.verifie = true;
    p.hauteurVisible = 1.25;
    p.pire = obstruction{1.25, 1.3, 2.0, {}, leSol};
    p.cause = L"le terrain";
    bloc.points.push_back(p);
    r.blocs.push_back(bloc);
    pointImplante seul;
    static_cast<lieuNomme&>(seul) = {L"\u00e9\"", 12345.0004, inconnu, inconnu};
    r.sansStation.push_back(seul);
    return r;
}

} // namespace

TEST(FichiersImplantation, WriteColumns)
{
    EXPECT_EQ(colonnesImplantation(travail()),
              "Type;Nom;X;Y;Z;Station;Reference;Angle (gr);Distance;Distance pente;Denivelee\n"
              "S;\"S;1\";1000.0000;-2000.5000;100.0000;;NORD;;;;\n"
              "P;A12;1003.0000;-1996.5000;112.0000;\"S;1\";NORD;40.9666;5.0000;13.0000;12.0000\n"
              "P;\"\xE9\"\"\";12345.0004;;;;;;;;\n");
}

TEST(FichiersImplantation, WriteWordsOfInstruments)
{
    std::vector<std::wstring> ecartes;
    EXPECT_EQ(motsImplantation(travail(), false, ecartes),
              "110001+00000S;1 84..00+01000000 85..00-02000500 86..00+00100000 \n"
              "110001+00000A12 81..00+01003000 82..00-01996500 83..00+00112000 \n");
    EXPECT_EQ(ecartes, (std::vector<std::wstring>{L"\u00e9\""})) << "no Y";
    ecartes.clear();
    EXPECT_EQ(motsImplantation(travail(), true, ecartes).substr(0, 93),
              "*110001+0000000000000S;1 84..06+0000000010000000 85..06-0000000020005000 86..06+0000000001000");
    resultatImplantation grand = travail();
    grand.blocs[0].points[0].y = 6600000.0; // Lambert: in mm beyond 8 digits
    ecartes.clear();
    EXPECT_EQ(motsImplantation(grand, false, ecartes),
              "110001+00000S;1 84..00+01000000 85..00-02000500 86..00+00100000 \n");
    EXPECT_EQ(ecartes.size(), 2U);
}

TEST(FichiersImplantation, WriteJsonAndTheReport)
{
    EXPECT_EQ(jsonImplantation(travail()),
              "{\"points\":[{\"nom\":\"A12\",\"station\":\"S;1\",\"angle\":40.966553,\"distance\":5.000000,"
              "\"reference\":\"NORD\",\"visible\":false,\"hauteurVisible\":1.250000,\"distancePente\":13.000000,"
              "\"denivelee\":12.000000,\"x\":1003.000000,\"y\":-1996.500000,\"z\":112.000000},\n"
              "{\"nom\":\"\xC3\xA9\\\"\",\"station\":null,\"angle\":null,\"distance\":null,\"reference\":null,"
              "\"visible\":null,\"hauteurVisible\":null,\"distancePente\":null,\"denivelee\":null,"
              "\"x\":12345.000400,\"y\":null,\"z\":null}]}\n");
    htmlDocument rapport;
    resultatImplantation ancien = travail();
    ancien.terrainPerime = true;
    EXPECT_TRUE(jsonImplantation(ancien).ends_with("],\"terrainPerime\":true}\n"));
    rapporterImplantation(ancien, {}, rapport);
    const std::string texte = rapport.text();
    for (const char* const partie :
         {"<title>Implantations</title>", "Station: <b>S;1</b>  (X=1000.0000Y=-2000.5000)", ">Angle (gr)<",
          ">Distance<", ">40.9666<", ">13.0000<", "cach\xE9 par le terrain : 1.30 au-dessus de la vis\351e, \xE0 2.00",
          "<svg ", "Points sans mise en station", "n'est plus \xE0 jour"})
        EXPECT_NE(texte.find(partie), std::string::npos) << partie;
}

namespace {

void attendreTextesLibres(const dessinPlan& plan)
{
    for (std::size_t i = 0; i < plan.textes.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(plan.textes[i].emprise().touche(plan.textes[j].emprise())) << i << " and " << j;
}

} // namespace

// Names of the sketch stood on one another and on lines, and those at its border were cut off.
TEST(FichiersImplantation, SketchNamesWhatCanBeRead)
{
    resultatImplantation r = travail();
    const pointImplante modele = r.blocs[0].points[0];
    for (const double ecart : {0.1, 0.2, -4.0, 8.0}) {
        pointImplante p = modele;
        p.nom = L"POINT" + std::to_wstring(r.blocs[0].points.size());
        p.x += ecart;
        p.y += 0.5 * ecart;
        r.blocs[0].points.push_back(p);
    }
    const dessinPlan plan = planReduit(r.blocs[0], 100.0, true, {});
    ASSERT_EQ(plan.textes.size(), 7U) << "five points, the station, the zero";
    attendreTextesLibres(plan);
    const boite tout = plan.etendue();
    for (const dessinPlan::texte& texte : plan.textes) {
        EXPECT_GE(texte.emprise().xMin, tout.xMin);
        EXPECT_LE(texte.emprise().xMax, tout.xMax);
    }
    // A crowd in one place: names that nobody could read are left to the table.
    blocStation foule = r.blocs[0];
    foule.points.assign(50, modele);
    attendreTextesLibres(planReduit(foule, 100.0, true, {}));
    // All points in one direction: the picture is narrow, and no page long.
    for (pointImplante& p : r.blocs[0].points)
        p.x = r.blocs[0].station.station.x;
    const std::string svg = svgDe(planReduit(r.blocs[0], 100.0, true, {}), 640);
    const std::string avant = "height=\"";
    EXPECT_LE(std::stod(svg.substr(svg.find(avant) + avant.size())), 640.0);
}

// Whose station stands on it has an angle in the list, which must not be taken for one to read.
TEST(FichiersImplantation, TellWhoseStationStandsOnIt)
{
    const resultatImplantation r = travail();
    const pointImplante modele = r.blocs[0].points[0];
    pointImplante dessus = modele;
    dessus.x = r.blocs[0].station.station.x;
    dessus.y = r.blocs[0].station.station.y + 5e-5;
    EXPECT_EQ(phraseDuPoint(dessus, &r.blocs[0].station, 1.0),
              L"\u00e0 la place de sa station : aucun angle ne l'implante");
    EXPECT_EQ(phraseDuPoint(modele, &r.blocs[0].station, 1.0), phraseVisibilite(modele, 1.0));
}
