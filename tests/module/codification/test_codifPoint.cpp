#include <sstream>

#include <gtest/gtest.h>

#include "codification/codifPoint.h"
#include "services/codages.h"

#include "dbapserv.h"
#include "dbsymtb.h"
#include "supportEssai.h"

namespace {

/// The text of every field, so that one comparison covers a record.
std::string champs(const codifPoint& c)
{
    std::ostringstream flux;
    flux << c.code << '|' << versAnsi(c.libelle) << '|' << versAnsi(c.chemin) << '|' << c.tailleBlock << '|'
         << c.precisionAltitudes;
    for (int e = 0; e < nombreCalques; ++e)
        flux << '|' << versAnsi(c.getLayer(e));
    for (const int couleur : c.couleurs)
        flux << '|' << couleur;
    return flux.str();
}

TEST(CodifPoint, startsWithTheDefaults)
{
    const codifPoint code;
    EXPECT_TRUE(code.chemin.ends_with(L"\\biblio\\velablk1.dwg"));
    codifPoint sansChemin = code;
    sansChemin.chemin.clear();
    EXPECT_EQ(champs(sansChemin), "1|Point Topo||1|2|0|_ Altitudes Points|_ Numero Points|_ Obs Points|_ Codes Points|"
                                  "7|7|7|7|7");
}

TEST(CodifPoint, neverCarriesItsLayersOver)
{
    AcDbDatabase db;
    codifPoint code;
    code.libelle = L"A";
    code.idCalques[calqueObs] = db.layerZero();
    const codifPoint copie = code;
    EXPECT_TRUE(copie.idCalques[calqueObs].isNull());
    EXPECT_TRUE(copie.libelle == L"A");
    codifPoint cible;
    cible.idCalques[calqueCode] = db.layerZero();
    cible = code;
    EXPECT_FALSE(cible.idCalques[calqueCode].isNull()) << "the target's own stay";
    EXPECT_TRUE(cible.idCalques[calqueObs].isNull());
    EXPECT_TRUE(cible.libelle == L"A");
}

TEST(CodifPoint, writesItsTextToTheByte)
{
    codifPoint code;
    code.code = 12;
    code.libelle = L"Arête";
    code.chemin = L"C:\\a b.dwg";
    code.tailleBlock = 0.5;
    code.precisionAltitudes = 3;
    code.layers = {L"L0", L"L1", L"L2", L"L3", L"L4"};
    code.couleurs = {1, 2, 3, 4, 256};
    std::ostringstream flux;
    EXPECT_EQ(code.ecrireTexte(flux), 1);
    EXPECT_EQ(flux.str(), "\nCode {\n\tCODE: 12\n\tLIBELLE: Ar\xEAte\n\tCHEMIN: C:\\a b.dwg\n\tBLKTAILLE: 0.500000"
                          "\n\tPRECISIONALTITUDES: 3\n\tLAYBLOCK: L0\n\tLAYALTITUDES: L1\n\tLAYNUMERO: L2"
                          "\n\tLAYOBSERVATIONS: L3\n\tLAYCODE: L4\n\tCOULLAYBLOCK: 1\n\tCOULLAYALTI: 2"
                          "\n\tCOULLAYNUM: 3\n\tCOULLAYOBS: 4\n\tCOULLAYCODE: 256\n}");

    std::istringstream relu(flux.str());
    codifPoint lu;
    EXPECT_EQ(lu.lireTexte(relu), 1);
    EXPECT_EQ(champs(lu), champs(code));
    flux.setstate(std::ios::failbit);
    EXPECT_EQ(code.ecrireTexte(flux), 0);
}

TEST(CodifPoint, readsALineOfText)
{
    struct Row {
        const char* name;
        const char* ligne;
        const char* champs; // of a record whose fields were 5|l|c|2|1 and so on
    };
    const Row rows[] = {
        {"code", "CODE: 120", "120|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"code held below", "\tcode:0", "1|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"code held above", "CODE: 12000", "9999|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"code beyond 32 bits", "CODE: 99999999999999999999", "9999|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"code without digits", "CODE: abc", "1|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"another word", "CODEX: 7", "5|l|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"label loses its ends", "LIBELLE: ., Puits; .", "5|Puits|c|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"path", "chemin: C:\\x.dwg", "5|l|C:\\x.dwg|2|1|a|b|c|d|e|1|2|3|4|5"},
        {"size", "BLKTAILLE: 0.25", "5|l|c|0.25|1|a|b|c|d|e|1|2|3|4|5"},
        {"size, its full stop trimmed away", "BLKTAILLE: .5", "5|l|c|5|1|a|b|c|d|e|1|2|3|4|5"},
        {"size below zero", "BLKTAILLE: -2", "5|l|c|1|1|a|b|c|d|e|1|2|3|4|5"},
        {"size of no number", "BLKTAILLE: nan", "5|l|c|1|1|a|b|c|d|e|1|2|3|4|5"},
        {"decimals held", "PRECISIONALTITUDES: 12", "5|l|c|2|8|a|b|c|d|e|1|2|3|4|5"},
        {"decimals held below", "PRECISIONALTITUDES: -1", "5|l|c|2|0|a|b|c|d|e|1|2|3|4|5"},
        {"block layer", "LAYBLOCK: Z", "5|l|c|2|1|Z|b|c|d|e|1|2|3|4|5"},
        {"altitude layer", "LAYALTITUDES: Z", "5|l|c|2|1|a|Z|c|d|e|1|2|3|4|5"},
        {"number layer", "LAYNUMERO: Z", "5|l|c|2|1|a|b|Z|d|e|1|2|3|4|5"},
        {"observation layer", "LAYOBSERVATIONS: Z", "5|l|c|2|1|a|b|c|Z|e|1|2|3|4|5"},
        {"code layer", "LAYCODE:", "5|l|c|2|1|a|b|c|d||1|2|3|4|5"},
        {"colour", "COULLAYBLOCK: 256", "5|l|c|2|1|a|b|c|d|e|256|2|3|4|5"},
        {"colour too high", "COULLAYALTI: 257", "5|l|c|2|1|a|b|c|d|e|1|7|3|4|5"},
        {"colour below zero", "COULLAYNUM: -1", "5|l|c|2|1|a|b|c|d|e|1|2|7|4|5"},
        {"colour of observations", "COULLAYOBS: 0", "5|l|c|2|1|a|b|c|d|e|1|2|3|0|5"},
        {"colour of codes", "COULLAYCODE: 300", "5|l|c|2|1|a|b|c|d|e|1|2|3|4|7"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        codifPoint code;
        code.code = 5;
        code.libelle = L"l";
        code.chemin = L"c";
        code.tailleBlock = 2;
        code.precisionAltitudes = 1;
        code.layers = {L"a", L"b", L"c", L"d", L"e"};
        code.couleurs = {1, 2, 3, 4, 5};
        std::istringstream flux("; \tcode {.\r\n" + std::string(r.ligne) + "\r\n}\r\n");
        EXPECT_EQ(code.lireTexte(flux), 1);
        EXPECT_EQ(champs(code), r.champs);
    }
}

TEST(CodifPoint, readsWholeBlocksOnly)
{
    struct Row {
        const char* name;
        const char* texte;
        int resultat;
        int code;
    };
    const Row rows[] = {
        {"nothing", "", 0, 1},
        {"no block", "CODE: 2\n}\n", 0, 1},
        {"a start must stand alone", "Code { CODE: 2\n}", 0, 1},
        {"cut", "Code {\nCODE: 2\n", 0, 2},
        {"two starts", "Code {\nCODE: 2\nCode { again\nCODE: 3\n}", 0, 2},
        {"text before", "x\n\nCODE {\nCODE: 2\n}", 1, 2},
        {"an end may go on", "Code {\nCODE: 2\n}CODE: 3\n", 1, 2},
        {"last line without line feed", "Code {\nCODE: 2\n}", 1, 2},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        std::istringstream flux(r.texte);
        codifPoint code;
        EXPECT_EQ(code.lireTexte(flux), r.resultat);
        EXPECT_EQ(code.code, r.code) << "fields read before a failure stay";
    }
}

struct calqueLu {
    std::wstring nom;
    int couleur;
};

calqueLu calque(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> ouvert(id);
    if (ouvert.openStatus() != Acad::eOk)
        return {L"", 0};
    const ACHAR* nom = nullptr;
    ouvert->getName(nom);
    return {nom, ouvert->color().colorIndex()};
}

TEST(CodifPoint, makesItsLayers)
{
    AcDbDatabase db;
    acdbHostApplicationServices()->setWorkingDatabase(&db);
    codifPoint premier;
    premier.layers = {L" ;,. ", L" ALTI. ", L"NUM", L"a/b", L"num"};
    premier.couleurs = {3, 4, 5, 1, 2};
    premier.creerCalques();
    EXPECT_TRUE(premier.layers[0] == L"0") << "a blank name becomes 0 in the record itself";
    EXPECT_TRUE(premier.layers[1] == L" ALTI. ") << "other names stay as typed";
    EXPECT_EQ(premier.idCalques[0], db.layerZero());
    EXPECT_EQ(calque(premier.idCalques[0]).couleur, 7) << "a layer that exists keeps its colour";
    EXPECT_EQ(calque(premier.idCalques[1]).nom, L"ALTI");
    EXPECT_EQ(calque(premier.idCalques[1]).couleur, 4);
    EXPECT_EQ(calque(premier.idCalques[2]).couleur, 5);
    EXPECT_TRUE(premier.idCalques[3].isNull()) << "no name of a layer";
    EXPECT_EQ(premier.idCalques[4], premier.idCalques[2]) << "letter case does not count";

    codifPoint second;
    second.layers = {L"0", L"alti", L"X", L"Y", L"absent"};
    second.couleurs = {1, 1, 256, -5, 1};
    AcDbLayerTable* calques = nullptr;
    ASSERT_EQ(db.getLayerTable(calques, AcDb::kForRead), Acad::eOk);
    second.retrouverCalques(*calques);
    EXPECT_EQ(second.idCalques[1], premier.idCalques[1]);
    EXPECT_TRUE(second.idCalques[2].isNull());
    ASSERT_EQ(calques->upgradeOpen(), Acad::eOk);
    second.creerCalques(calques);
    EXPECT_TRUE(calques->isWriteEnabled()) << "left open as it was";
    calques->close();
    EXPECT_EQ(calque(second.idCalques[2]).couleur, 7) << "no colour of a layer";
    EXPECT_EQ(calque(second.idCalques[3]).couleur, 7);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    second.creerCalques(); // without a drawing: nothing
}

} // namespace
