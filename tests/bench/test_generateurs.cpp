// The generated inputs are judged by their own rules, without the kernel that is timed on them.
#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <numbers>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "generateurs/boucleStations.h"
#include "generateurs/dessinChantier.h"
#include "generateurs/dessinReleve.h"
#include "generateurs/dessinVallon.h"

#include "TestFolder.h"

namespace {

struct etiquette {
    int code;
    std::string valeur;
};

struct fichierTemporaire : TestFolder {
    std::filesystem::path chemin = path() / "essai";
};

std::vector<etiquette> etiquettes(const std::string& texte)
{
    std::vector<etiquette> liste;
    std::istringstream lignes(texte);
    for (std::string code, valeur; std::getline(lignes, code) && std::getline(lignes, valeur);) {
        valeur.pop_back(); // CR
        liste.push_back({std::stoi(code), valeur});
    }
    return liste;
}

/// Every handle once, below the next free one; every reference to a handle that is there.
void verifierPoignees(const std::vector<etiquette>& liste)
{
    std::set<std::string> poignees;
    std::map<int, std::vector<std::string>> references;
    std::string type, graine;
    for (std::size_t i = 0; i < liste.size(); ++i) {
        const auto& [code, valeur] = liste[i];
        if (code == 0)
            type = valeur;
        if (code == 5 && liste[i - 1].valeur == "$HANDSEED")
            graine = valeur;
        else if (code == 105 || (code == 5 && type != "DIMSTYLE"))
            EXPECT_TRUE(poignees.insert(valeur).second) << "handle twice: " << valeur;
        else if (code == 330 || code == 340 || code == 350 || code == 360 || code == 390 || code == 1005)
            references[code].push_back(valeur);
    }
    for (const auto& [code, valeurs] : references) {
        for (const std::string& valeur : valeurs)
            EXPECT_TRUE(valeur == "0" || poignees.contains(valeur)) << "group " << code << " leads nowhere: " << valeur;
    }
    for (const std::string& poignee : poignees)
        EXPECT_LT(std::stoull(poignee, nullptr, 16), std::stoull(graine, nullptr, 16));
}

std::map<std::string, int> comptes(const std::vector<etiquette>& liste)
{
    std::map<std::string, int> nombres;
    bool entites = false;
    for (const auto& [code, valeur] : liste) {
        if (code == 2 && (valeur == "ENTITIES" || valeur == "OBJECTS"))
            entites = valeur == "ENTITIES";
        if (code == 0 && entites)
            ++nombres[valeur];
    }
    return nombres;
}

TEST(DessinReleve, holds_what_it_promises)
{
    const fichierTemporaire fichier;
    ecrireDessinReleve(fichier.chemin, {.points = 1000});
    const auto liste = etiquettes(contents(fichier.chemin));
    verifierPoignees(liste);

    auto nombres = comptes(liste);
    struct {
        const char* type;
        int nombre;
    } constexpr attendus[] = {
        {"INSERT", 1000},   {"ATTRIB", 4000},        {"3DFACE", 500},      {"TEXT", 100},
        {"LWPOLYLINE", 20}, {"POLYLINE", 2 + 1 + 1}, {"SEQEND", 1000 + 4}, {"VERTEX", 2 * 20 + 16 + 9 + 12},
        {"VELAX_FOSSE", 3}};
    for (const auto& [type, nombre] : attendus)
        EXPECT_EQ(nombres[type], nombre) << type;

    // 1000 points and 5 stations: a name of ten bytes each, then code, coordinates, reference.
    int noms = 0, sansSymbole = 0;
    for (std::size_t i = 0; i + 1 < liste.size(); ++i) {
        if (liste[i].code == 92 && liste[i].valeur == "10" && liste[i + 1].code == 310) {
            EXPECT_EQ(liste[i + 1].valeur.size(), 20u);
            sansSymbole += liste[i + 6].code == 90 && liste[i + 6].valeur == "-9999999";
            ++noms;
        }
    }
    EXPECT_EQ(noms, 1005);
    EXPECT_EQ(sansSymbole, 5);
}

TEST(DessinReleve, depends_on_its_arguments_alone)
{
    const fichierTemporaire fichier;
    ecrireDessinReleve(fichier.chemin, {.points = 60});
    const std::string texte = contents(fichier.chemin);
    ecrireDessinReleve(fichier.chemin, {.points = 60});
    EXPECT_EQ(contents(fichier.chemin), texte);

    ecrireDessinReleve(fichier.chemin, {.points = 60, .version = "AC1015"});
    const std::string ancien = contents(fichier.chemin);
    EXPECT_NE(ancien.find("B\xC2TI"), std::string::npos) << "Windows-1252 before 2007";
    EXPECT_NE(texte.find("BÂTI"), std::string::npos) << "UTF-8 from 2007";
    verifierPoignees(etiquettes(ancien));
    EXPECT_THROW(ecrireDessinReleve(fichier.chemin, {.points = 0}), std::invalid_argument);
    EXPECT_THROW(ecrireDessinReleve("/nonexistent/x.dxf", {.points = 1}), std::runtime_error);
}

TEST(DessinReleve, binary_form_is_as_documented)
{
    const fichierTemporaire fichier;
    SortieDxf sortie(fichier.chemin, FormeDxf::binaire, true);
    const unsigned char octets[] = {0xAB, 0xCD};
    sortie.tags(0, "EOF", 40, 1.0, 70, -2, 90, 0x01020304, 290, 1, 160, 5, 1071, 6, 5, Poignee{0x2F});
    sortie.tags(310, std::span<const unsigned char>(octets), 1060, 7);
    sortie.fermer();
    using namespace std::string_literals;
    EXPECT_EQ(contents(fichier.chemin), "AutoCAD Binary DXF\r\n\x1a\0"s
                                        "\0\0EOF\0"s
                                        "\x28\0\0\0\0\0\0\0\xF0\x3F"s
                                        "\x46\0\xFE\xFF"s
                                        "\x5A\0\x04\x03\x02\x01"s
                                        "\x22\x01\x01"s
                                        "\xA0\0\x05\0\0\0\0\0\0\0"s
                                        "\x2F\x04\x06\0\0\0"s
                                        "\x05\0002F\0"s
                                        "\x36\x01\x02\xAB\xCD"s
                                        "\x24\x04\x07\0"s);
}

TEST(BoucleStations, closes_within_its_reading_errors)
{
    for (const int n : {3, 10, 2000}) {
        const boucleStations boucle = genererBoucle(n);
        ASSERT_EQ(boucle.cotes.size(), static_cast<std::size_t>(n));
        EXPECT_EQ(boucle.cotes.back().station, "S0");
        double angles = 0.0, denivelees = 0.0, gisement = boucle.gisement, x = 0.0, y = 0.0;
        for (std::size_t i = 0; i < boucle.cotes.size(); ++i) {
            const coteBoucle& cote = boucle.cotes[i];
            angles += cote.angle;
            denivelees += cote.denivelee;
            if (i > 0)
                gisement += cote.angle - 200.0;
            x += cote.distance * std::sin(gisement * std::numbers::pi / 200.0);
            y += cote.distance * std::cos(gisement * std::numbers::pi / 200.0);
        }
        // Exterior angles of a polygon of n corners sum to (n + 2) half turns.
        EXPECT_NEAR(angles, (n + 2) * 200.0, 0.0011 * n) << n;
        EXPECT_NEAR(denivelees, 0.0, 0.0041 * n) << n;
        const double anglesCumules = 0.0011 * std::numbers::pi / 200.0 * n * 100.0 * n;
        EXPECT_NEAR(std::hypot(x, y), 0.0, 0.006 * n + anglesCumules) << n;
        EXPECT_GT(std::hypot(x, y), 0.0) << "there is something to correct";
    }
    EXPECT_THROW(genererBoucle(2), std::invalid_argument);
}

TEST(DessinChantier, is_the_one_among_the_examples)
{
    const fichierTemporaire fichier;
    ecrireDessinChantier(fichier.chemin);
    const std::string octets = contents(fichier.chemin);
    EXPECT_TRUE(octets == contents(VELA_SOURCE_DIR "/examples/chantier.dxf"))
        << "rewrite it: vela_exemple_chantier examples/chantier.dxf";
    verifierPoignees(etiquettes(octets));
}

TEST(DessinVallon, is_the_one_among_the_examples)
{
    const fichierTemporaire fichier;
    ecrireDessinVallon(fichier.chemin);
    const std::string octets = contents(fichier.chemin);
    EXPECT_TRUE(octets == contents(VELA_SOURCE_DIR "/examples/vallon.dxf"))
        << "rewrite it: vela_exemple_vallon examples/vallon.dxf";
    verifierPoignees(etiquettes(octets));
}

} // namespace
