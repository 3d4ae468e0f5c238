// Traverse files: the exact bytes, what reading makes of odd lines, names of saved files.

#include <functional>

#include <gtest/gtest.h>

#include "calculs/fichierPolygonale.h"

#include "TestFolder.h"

namespace {

const std::string sectionAngles = "* Unit\xE9s angulaires\n"
                                  "* Syntaxe: \n"
                                  "* Angles : <unit\xE9 de mesure des angles>\n"
                                  "* Avec <unit\xE9 de mesure des angles> qui \xEAtre :\n"
                                  "* Grades Degres ou Radians\n"
                                  "\n\nAngles: ";
const std::string sectionNivellement =
    "* Mode de calcul du nivellement\n"
    "* Syntaxe: \n"
    "* Nivellement: <Mode de nivellement>\n"
    "* Avec <Mode de nivellement> qui peut \xEAtre\n"
    "* \taucun\tPour aucune compensation sur les alitutudes\n"
    "* \tsimple\tPour une compensation simple\n"
    "* \tdistance\tPour une compensation proportionnelle aux distances entre stations\n"
    "* \tracine\tPour une compensation proportionnelle aux racines des distances\n"
    "\n\nNivellement: ";
const std::string enTeteDonnees = "* Donn\xE9"
                                  "es de la polygonale\n"
                                  "* Nom Station\t\tAngle\t\tDistance\t\tDz\n";

const std::vector<ligneObservation> deuxLignes = {{L"S 2", L"100.00000", L"50.5", L"-0.25"},
                                                  {L"S1", L"abc", L"0", L"1,5"}};
const std::string octetsDeuxLignes = "\n\"S 2\"\t\t\t100.00000\t50.5\t\t-0.25\n"
                                     "\n\"S1\"\t\t\tabc\t0\t\t1,5\n";

const donneesPolygonaleFermee fermee{{L"Été 1", 1.0, -2.5, 1e38, 100.123456}, 0, 2, deuxLignes};
const donneesPolygonaleOuverte ouverte{{L"D", 1, 2, 3, 4}, {L"Arrivée", 10, 20, 30, 40}, 399.99995, 1, 3, deuxLignes};

TEST(FichierPolygonale, ClosedBytes)
{
    EXPECT_EQ(contenuPolygonale(fermee),
              "* Fichier de donn\xE9"
              "es pour calcul de polygonale Ferm\xE9"
              "e\n\n"
              "* Station de depart\n"
              "\nNom=\"\xC9t\xE9 1\" X= 1.00000 Y= -2.50000 Z= 99999999999999997748809823456034029568.00000 "
              "Gis= 100.12346\n" +
                  sectionAngles + "grades\n" + sectionNivellement + "distance\n" + enTeteDonnees + octetsDeuxLignes);
}

TEST(FichierPolygonale, OpenBytesHaveTheLevellingTwice)
{
    EXPECT_EQ(contenuPolygonale(ouverte),
              "* Fichier de donn\xE9"
              "es pour calcul de polygonale Ouverte\n"
              "* Station de depart\n"
              "\nDepart=\"D\" X= 1.00000 Y= 2.00000 Z= 3.00000 Gis= 4.00000\n"
              "\nArrivee=\"Arriv\xE9"
              "e\" X= 10.00000 Y= 20.00000 Z= 30.00000 Gis= 40.00000\n"
              "\nFermeture: 400.0000\n" + // 399.99995 is a little more in binary
                  sectionAngles +
                  "degres\n" + sectionNivellement + "racine\n" + "\n" + enTeteDonnees + "\n" + sectionNivellement +
                  "racine\n" + "\n" + enTeteDonnees + octetsDeuxLignes);
}

TEST(FichierPolygonale, CellsAreCutAndUnitsNamed)
{
    donneesPolygonaleFermee d;
    d.unite = 2;
    d.nivellement = 1;
    d.lignes = {{std::wstring(30, L'n'), std::wstring(600, L'1'), std::wstring(510, L'2'), std::wstring(511, L'3')}};
    const std::string contenu = contenuPolygonale(d);
    EXPECT_NE(contenu.find("Angles: radians\n"), std::string::npos);
    EXPECT_NE(contenu.find("Nivellement: simple\n"), std::string::npos);
    EXPECT_NE(contenu.find("\n\"" + std::string(18, 'n') + "\"\t\t\t" + std::string(510, '1') + "\t" +
                           std::string(510, '2') + "\t\t" + std::string(510, '3') + "\n"),
              std::string::npos);
}

TEST(FichierPolygonale, WrittenThenReadIsTheSame)
{
    donneesPolygonaleFermee f;
    EXPECT_TRUE(lirePolygonale(contenuPolygonale(fermee), f).remarques.empty());
    donneesPolygonaleFermee attendu = fermee;
    attendu.depart.gisement = 100.12346; // five decimals in the file
    EXPECT_EQ(f, attendu);

    donneesPolygonaleOuverte o;
    EXPECT_TRUE(lirePolygonale(contenuPolygonale(ouverte), o).remarques.empty());
    donneesPolygonaleOuverte attenduOuverte = ouverte;
    attenduOuverte.fermeture = 400.0; // four decimals in the file
    EXPECT_EQ(o, attenduOuverte);
}

TEST(FichierPolygonale, CrossLoading)
{
    donneesPolygonaleOuverte o;
    o.fermeture = 7.0;
    lirePolygonale(contenuPolygonale(fermee), o);
    EXPECT_EQ(o.depart, (stationPolygonale{L"", 1.0, -2.5, 1e38, 100.12346})) << "no D key: the name stays empty";
    EXPECT_EQ(o.arrivee, stationPolygonale{});
    EXPECT_EQ(o.fermeture, 7.0);
    EXPECT_EQ(o.lignes, deuxLignes);

    donneesPolygonaleFermee f;
    lirePolygonale(contenuPolygonale(ouverte), f);
    EXPECT_EQ(f.depart, (stationPolygonale{L"", 10, 20, 30, 40})) << "the arrival line comes last and wins";
    EXPECT_EQ(f.unite, 1);
    EXPECT_EQ(f.nivellement, 3);
}

donneesPolygonaleFermee lireFermee(const std::string& contenu)
{
    donneesPolygonaleFermee d;
    d.depart = {L"old", 9, 9, 9, 9};
    d.unite = 2;
    d.nivellement = 3;
    d.lignes = {{L"old", L"1", L"2", L"3"}};
    lirePolygonale(contenu, d);
    return d;
}

TEST(FichierPolygonale, OddLinesOfAClosedFile)
{
    const donneesPolygonaleFermee vide{{}, 2, 3, {}}; // stations and list emptied, unit and mode kept
    const auto avec = [&vide](std::function<void(donneesPolygonaleFermee&)> changer) {
        donneesPolygonaleFermee d = vide;
        changer(d);
        return d;
    };
    struct ligne {
        const char* nom;
        std::string contenu;
        donneesPolygonaleFermee attendu;
    };
    const ligne lignes[] = {
        {"nothing", "", vide},
        {"only the first four letters of a keyword count", "anGLaise degré\n", avec([](auto& d) { d.unite = 1; })},
        {"three letters are too few", "ANG d\n", vide},
        {"any other letter is grades", "Angles: tours\n", avec([](auto& d) { d.unite = 0; })},
        {"any other letter is aucun, over an earlier value", "Nivellement: simple\nNIVE=?\n",
         avec([](auto& d) { d.nivellement = 0; })},
        {"other keywords are ignored", "Fermeture: 12\n", vide},
        {"keys with a colon or nothing, and carriage returns", "Nom:A X:1 Y 2 Z=x Gis= 4\r\n", avec([](auto& d) {
             d.depart = {L"A", 1, 2, 0, 4};
         })},
        {"keys by first letter, others ignored", "numero=B xx=1 W=2 yoyo=3 g=4\n", avec([](auto& d) {
             d.depart = {L"B", 1, 3, 0, 4};
         })},
        {"a later line keeps the numbers it does not give", "Nom=A X=1 Y=2 Z=3 Gis=4\nW=0 W=0 W=0 W=0 Y=7\n",
         avec([](auto& d) {
             d.depart = {L"A", 1, 7, 3, 4};
         })},
        {"an empty name loses the whole line", "Nom=\"\" X=1 Y=2 Z=3 Gis=4\n", vide},
        {"four pairs are too few", "Nom=A X=1 Y=2 Z=3\n", vide},
        {"a row keeps its texts", "\"S 1\" 1,5 = abc : 0007\n", avec([](auto& d) {
             d.lignes = {{L"S 1", L"1,5", L"abc", L"0007"}};
         })},
        {"a row with a comment is dropped", "S1 1 2 3 * essai\n", vide},
        {"a row with an empty cell is dropped", "\"S1\"\t\t\t1\t\t\t3\n", vide},
        {"a star after a blank is no comment", " * a b c\n", avec([](auto& d) {
             d.lignes = {{L"*", L"a", L"b", L"c"}};
         })},
        {"no end of line at the end", "S1 1 2 3", avec([](auto& d) {
             d.lignes = {{L"S1", L"1", L"2", L"3"}};
         })},
        {"a file in UTF-8 says so by its mark", "\xEF\xBB\xBFNom=Été X=1 Y=2 Z=3 Gis=4\n€ 1 2 3\n", avec([](auto& d) {
             d.depart = {L"Été", 1, 2, 3, 4};
             d.lignes = {{L"€", L"1", L"2", L"3"}};
         })},
        {"a file in UTF-8 without its mark", "Nom=Réf X=1 Y=2 Z=3 Gis=4\n€ 1 2 3\n", avec([](auto& d) {
             d.depart = {L"Réf", 1, 2, 3, 4};
             d.lignes = {{L"€", L"1", L"2", L"3"}};
         })},
        {"a file in Windows-1252", "Nom=R\xE9\x66 X=1 Y=2 Z=3 Gis=4\n\x80 1 2 3\n", avec([](auto& d) {
             d.depart = {L"Réf", 1, 2, 3, 4};
             d.lignes = {{L"€", L"1", L"2", L"3"}};
         })},
        {"sequences of UTF-8 cut short, loose or beyond", "\xEF\xBB\xBF\xC3 \xA9 \xE2\x82 \xF0\x9F\x98\x80\n",
         avec([](auto& d) {
             d.lignes = {{L"?", L"?", L"?", L"?"}};
         })},
        {"a zero byte ends the line", std::string("S1 1 2 3\0 4 5\nS2 1 2 3\n", 23), avec([](auto& d) {
             d.lignes = {{L"S1", L"1", L"2", L"3"}, {L"S2", L"1", L"2", L"3"}};
         })},
        {"a long line is read in pieces of 1023", "A 1 2 3" + std::string(1016, ' ') + "B 4 5 6\n", avec([](auto& d) {
             d.lignes = {{L"A", L"1", L"2", L"3"}, {L"B", L"4", L"5", L"6"}};
         })},
    };
    for (const ligne& l : lignes)
        EXPECT_EQ(lireFermee(l.contenu), l.attendu) << l.nom;
}

TEST(FichierPolygonale, StationLinesOfAnOpenFile)
{
    const stationPolygonale vide;
    struct ligne {
        const char* nom;
        const char* contenu;
        stationPolygonale depart, arrivee;
    };
    const ligne lignes[] = {
        {"letter case does not count", "depart=D x=1 y=2 z=3 gis=4\n", {L"D", 1, 2, 3, 4}, vide},
        {"numbers left out become 0",
         "Depart=D X=1 Y=2 Z=3 Gis=4\nDepart=E X=5 W=0 W=0 W=0\n",
         {L"E", 5, 0, 0, 0},
         vide},
        {"both keys: an arrival line that names both",
         "Depart=D Arrivee=A X=1 Y=2 Z=3\n",
         {L"D", 0, 0, 0, 0},
         {L"A", 1, 2, 3, 0}},
        {"neither key: the departure's numbers", "W=0 X=1 Y=2 Z=3 Gis=4\n", {L"", 1, 2, 3, 4}, vide},
        {"the key may follow its numbers", "X=1 Y=2 Z=3 Gis=4 A=fin\n", vide, {L"fin", 1, 2, 3, 4}},
    };
    for (const ligne& l : lignes) {
        donneesPolygonaleOuverte d;
        d.depart = d.arrivee = {L"old", 9, 9, 9, 9};
        d.fermeture = 5.0;
        lirePolygonale(l.contenu, d);
        EXPECT_EQ(d.depart, l.depart) << l.nom;
        EXPECT_EQ(d.arrivee, l.arrivee) << l.nom;
        EXPECT_EQ(d.fermeture, 5.0) << l.nom;
    }
    donneesPolygonaleOuverte d;
    lirePolygonale("ferm 12.5\n", d);
    EXPECT_EQ(d.fermeture, 12.5);
}

TEST(FichierPolygonale, CutAnywhereReadsWhatIsThere)
{
    const std::string contenu = contenuPolygonale(ouverte);
    for (std::size_t longueur = 0; longueur <= contenu.size(); ++longueur) {
        donneesPolygonaleOuverte d;
        EXPECT_TRUE(lirePolygonale(contenu.substr(0, longueur), d).lisible);
        EXPECT_LE(d.lignes.size(), 2u);
    }
}

TEST(FichierPolygonale, WhatLooksWrongIsSaidWithItsLine)
{
    const std::string depart = "Depart=D X=1 Y=2 Z=3 Gis=4\n", arrivee = "Arrivee=A X=1 Y=2 Z=3 Gis=4\n";
    const std::wstring pasUnNombre = L" n'est pas un nombre ; seul ce qui précède la faute est lu, ou 0.";
    const std::wstring point = L" Le séparateur décimal est le point.";
    struct ligne {
        const char* nom;
        std::string contenu;
        std::vector<std::wstring> attendues;
    };
    const ligne lignes[] = {
        {"all there", depart + arrivee + "Fermeture: 5\n", {}},
        {"a line of five",
         depart + arrivee + "Fermeture: 5\n* commentaire\nS1 1 2 3 4\n",
         {L"a.obs, ligne 5 : ligne ignorée, 5 élément(s) au lieu de 2 (mot-clé), 4 (observation) ou 10 (station)."}},
        {"decimal commas, which cut a coordinate",
         "Depart=D X=1020,678 Y=2 Z=3 Gis=4\r\n" + arrivee + "Fermeture: 257,128\n",
         {L"a.obs, ligne 1 : X « 1020,678 »" + pasUnNombre + point,
          L"a.obs, ligne 3 : Fermeture « 257,128 »" + pasUnNombre + point}},
        {"other keys are not numbers", "Depart=D X=1 Y=2 Z=3 W=abc\n" + arrivee + "Fermeture: 5\n", {}},
        {"words that are no unit, no mode, no keyword",
         depart + arrivee + "Fermeture: 5\nAngles: tours\nNivellement: tout\nUnite: degres\nangles: d\nNIVE R\n",
         {L"a.obs, ligne 4 : Angles « tours » inconnu, « grades » est pris.",
          L"a.obs, ligne 5 : Nivellement « tout » inconnu, « aucun » est pris.",
          L"a.obs, ligne 6 : mot-clé « Unite » sans effet."}},
        {"a closed traverse",
         "Nom=D X=1 Y=2 Z=3 Gis=4\n",
         {L"a.obs : la station de départ n'a pas de nom ; ce fichier est-il celui d'une polygonale fermée ?",
          L"a.obs : aucune ligne « Arrivee » : l'arrivée est en 0, 0, de gisement 0.",
          L"a.obs : aucune ligne « Fermeture » : le dernier angle reste 7.0000."}},
        {"no departure",
         arrivee + "Fermeture: 5\n",
         {L"a.obs : aucune ligne « Depart » : le départ est en 0, 0, de gisement 0."}},
    };
    for (const ligne& l : lignes) {
        donneesPolygonaleOuverte d;
        d.fermeture = 7.0;
        EXPECT_EQ(avertissementsLecture(L"a.obs", lirePolygonale(l.contenu, d)), l.attendues) << l.nom;
    }
    donneesPolygonaleFermee d;
    EXPECT_EQ(avertissementsLecture(L"a.obs", lirePolygonale("S1 1 2 3\n", d)),
              std::vector<std::wstring>{L"a.obs : aucune ligne de station : le départ est en 0, 0, de gisement 0."});
    EXPECT_EQ(avertissementsLecture(L"a.obs", lirePolygonale(depart + arrivee, d)),
              std::vector<std::wstring>{L"a.obs : la station de départ n'a pas de nom ; ce fichier est-il celui d'une "
                                        L"polygonale ouverte ?"});
    std::string mots;
    for (int i = 0; i < 5000; ++i)
        mots += "a\n";
    const bilanLecture bilan = lirePolygonale(mots, d);
    EXPECT_EQ(bilan.ignorees, 5000u);
    EXPECT_EQ(bilan.remarques.size(), 1000u) << "a file of such lines does not fill the memory";
}

TEST(FichierPolygonale, WhatIsLostOnWritingIsSaid)
{
    const std::wstring perdue = L" ; ses coordonnées et son gisement ne pourront pas être relus.";
    donneesPolygonaleOuverte d = ouverte;
    EXPECT_TRUE(avertissementsEcriture(d).empty());
    d.depart.nom.clear();
    d.arrivee.nom = L"A\"1";
    d.lignes = {
        {L"Ω", L"1", L"2", L"3"}, {L"une station au nom trop long", L"1", L"2", L"3"}, {L"S", L"1 2", L"2", L"3"}};
    EXPECT_EQ(avertissementsEcriture(d),
              (std::vector<std::wstring>{
                  L"Station de départ : son nom est vide" + perdue,
                  L"Station d'arrivée : son nom contient un guillemet" + perdue,
                  L"Ligne 3 : une cellule est vide ou contient un séparateur ; la ligne ne pourra pas être relue.",
                  L"Le nom « Ω » devient « ? » dans le fichier : un de ses caractères n'est pas dans la page de codes "
                  L"Windows-1252.",
                  L"Le nom « une station au nom trop long » est coupé à 18 caractères dans le fichier."}));
}

TEST(FichierPolygonale, Files)
{
    const TestFolder dossier;
    donneesPolygonaleFermee d = fermee;
    const auto absent = chargerPolygonale(dossier / "absent.obs", d);
    EXPECT_FALSE(absent.lisible);
    EXPECT_EQ(d, fermee) << "a missing file changes nothing";
    EXPECT_EQ(avertissementsLecture(L"absent.obs", absent),
              std::vector<std::wstring>{L"absent.obs : lecture impossible du fichier."});
    EXPECT_FALSE(chargerPolygonale(dossier.path(), d).lisible) << "a folder is no file";
    EXPECT_EQ(d, fermee);

    dossier.write("boucle.obs", contenuPolygonale(fermee));
    donneesPolygonaleFermee lue;
    EXPECT_TRUE(chargerPolygonale(dossier / "boucle.obs", lue).lisible);
    EXPECT_EQ(contenuPolygonale(lue), contenuPolygonale(fermee));
}

TEST(FichierPolygonale, SavedNames)
{
    struct ligne {
        const wchar_t* choisi;
        int filtre;
        const wchar_t* attendu;
    };
    const ligne lignes[] = {
        {L"C:\\LEVE\\Boucle", filtreObservations, L"C:\\LEVE\\boucle.obs"},
        {L"/Chantier/Boucle.OBS", filtreObservations, L"/Chantier/boucle.obs"},
        {L"BOUCLE.OBS", filtreObservations, L"boucle.obs"},
        {L"boucle.txt", filtreObservations, L"boucle.txt.obs"},
        {L"boucle", filtreSansExtension, L"boucle."},
        {L"boucle.", filtreSansExtension, L"boucle."},
        {L"b.dat", filtreTous, L"b.dat."},
        {L"boucle.TXT", filtreTexte, L"boucle.txt"},
        {L"boucle.obs", filtreTexte, L"boucle.obs.txt"},
        {L"boucle", 0, L"boucle.obs"},
        {L"dossier.v2/boucle", 9, L"dossier.v2/boucle"},
        {L"ÉTÉ", filtreObservations, L"été.obs"},
    };
    for (const ligne& l : lignes)
        EXPECT_EQ(nomEnregistrement(l.choisi, l.filtre), l.attendu);
}

} // namespace
