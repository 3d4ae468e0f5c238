#include <cstring>
#include <cwchar>
#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "points/listePointsDuDessin.h"
#include "points/nomsDoubles.h"
#include "points/projetDansDessin.h"
#include "rx/Console.h"

#include "acutads.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbxrecrd.h"
#include "Drawing.h"
#include "supportEssai.h"

namespace {

void effacer(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    ASSERT_EQ(entite.openStatus(), Acad::eOk);
    entite->erase();
}

AcGePoint3d place(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbPoint> point(id);
    return point.openStatus() == Acad::eOk ? point->position() : AcGePoint3d(-1, -1, -1);
}

/// The stored record of a drawing; null when there is none.
AcDbObjectId enregistrement(AcDbDatabase& db)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> calque(db.layerZero());
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(calque->extensionDictionary());
    AcDbObjectId id;
    if (dictionnaire.openStatus() == Acad::eOk)
        dictionnaire->getAt(L"QUARVEL4_VELA_DATA", id);
    return id;
}

/// Number of items stored, -1 without a record.
int nombreStocke(AcDbDatabase& db)
{
    const AcDbObjectPointer<AcDbXrecord> record(enregistrement(db));
    if (record.openStatus() != Acad::eOk)
        return -1;
    EXPECT_TRUE(record->isXlateReferences());
    resbuf* chaine = nullptr;
    record->rbChain(&chaine);
    int nombre = 0;
    for (const resbuf* item = chaine; item; item = item->rbnext)
        ++nombre;
    if (chaine)
        acutRelRb(chaine);
    return nombre;
}

class DessinTest : public testing::Test {
protected:
    void SetUp() override
    {
        Console::instance().setSink([this](const std::wstring& texte) { imprime += texte; });
        travailler(db);
    }
    void TearDown() override
    {
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        Console::instance().setSink(nullptr);
    }
    static void travailler(AcDbDatabase& dessin) { acdbHostApplicationServices()->setWorkingDatabase(&dessin); }

    pointDuDessin dessine(const wchar_t* nom, double x, double y, double z)
    {
        pointDuDessin point;
        point.setParams(nom, AcGePoint3d(x, y, z), 1);
        point.setId(addEntity(db, new AcDbPoint(AcGePoint3d(x, y, 0))));
        return point;
    }

    AcDbDatabase db;
    projetsTopo projet;
    std::wstring imprime;
    const TestFolder dossier;
    const std::wstring cheminLarge = (dossier / "plan.dxf").wstring();
};

TEST_F(DessinTest, tellsNamesThatSeveralPointsBear)
{
    listePointsDuDessin table;
    const auto ajouter = [&table](const wchar_t* nom) {
        pointDuDessin point;
        point.setParams(nom, AcGePoint3d(0, 0, 0), 1);
        table.Ajouter(point);
    };
    for (const wchar_t* const nom : {L"A", L"B", L"C", L"C"})
        ajouter(nom);
    EXPECT_EQ(phraseNomsDoubles(table, 4), L"") << "nothing was added";
    ajouter(L"D");
    EXPECT_EQ(phraseNomsDoubles(table, 4), L"") << "C was there twice before";
    ajouter(L"b");
    EXPECT_EQ(phraseNomsDoubles(table, 4), L"Plusieurs points de la table portent le nom « b ».");
    for (const wchar_t* const nom : {L"E", L"E", L"F", L"F", L"G", L"G", L"H", L"H", L"I", L"I"})
        ajouter(nom);
    EXPECT_EQ(phraseNomsDoubles(table, 4), L"Chacun de ces 6 noms est porté par plusieurs points de la table : « b », "
                                           L"« E », « F », « G », « H », etc.");
}

TEST_F(DessinTest, storesTheProjectAndFindsItAgain)
{
    setSrcInfosTopo(&db, &projet, 1, 0);
    EXPECT_EQ(imprime, L"");
    projet.currTable()->setNomTable(L"LEV\u00c9 1");
    projet.currTable()->Ajouter(dessine(L"P1", 1.25, 1e-300, 1e38));
    pointDuDessin libre;
    libre.setParams(L"\u00c9t\u00e9", AcGePoint3d(0.1 + 0.2, -1234567.0625, 7), -3);
    projet.currTable()->Ajouter(libre);
    projet.creerTablePoints(L"LEVE");
    projet.setCourante(1);
    enregistrerInfosTopo();
    EXPECT_EQ(nombreStocke(db), 2 + 2 + 2 * 7 + 2);
    ASSERT_EQ(db.saveAs(cheminLarge.c_str()), Acad::eOk) << CStringA(db.lastError()).GetString();

    AcDbDatabase relu(false);
    ASSERT_EQ(relu.readDwgFile(cheminLarge.c_str()), Acad::eOk) << CStringA(relu.lastError()).GetString();
    projetsTopo lu;
    setSrcInfosTopo(&relu, &lu, 1, 1);
    EXPECT_EQ(imprime, L"\nLecture des donn\u00e9es Topo");
    ASSERT_EQ(lu.nbTables(), 2);
    EXPECT_EQ(lu.getCourante(), 1);
    const listePointsDuDessin& table = *lu.getTable(0);
    EXPECT_TRUE(table.getNomTable() == L"LEV\u00c9 1");
    ASSERT_EQ(table.nbPoint(), 2);
    for (int i = 0; i < 2; ++i) {
        const pointDuDessin& attendu = *projet.getTable(0)->getData(i);
        EXPECT_STREQ(table.getData(i)->getNomPoint(), attendu.getNomPoint());
        EXPECT_EQ(table.getData(i)->getX(), attendu.getX()) << "to the last digit";
        EXPECT_EQ(table.getData(i)->getY(), attendu.getY());
        EXPECT_EQ(table.getData(i)->getZ(), attendu.getZ());
        EXPECT_EQ(table.getData(i)->getCode(), attendu.getCode());
    }
    EXPECT_EQ(place(table.getData(0)->getId()).x, 1.25) << "the point still knows its entity";
    EXPECT_EQ(table.getData(0)->getId().database(), &relu);
    EXPECT_TRUE(table.getData(1)->getId().isNull());
    setSrcInfosTopo(nullptr, nullptr, 0, 0);
}

TEST_F(DessinTest, forgetsAnErasedEntity)
{
    setSrcInfosTopo(&db, &projet, 1, 0);
    projet.currTable()->Ajouter(dessine(L"P1", 1, 2, 3));
    effacer(projet.currTable()->getData(0)->getId());
    enregistrerInfosTopo();
    projetsTopo lu;
    setSrcInfosTopo(&db, &lu, 1, 1);
    ASSERT_EQ(lu.currTable()->nbPoint(), 1);
    EXPECT_TRUE(lu.currTable()->getData(0)->getId().isNull());
}

TEST_F(DessinTest, replacesWhatWasStored)
{
    enregistrerInfosTopo();
    EXPECT_EQ(nombreStocke(db), -1) << "without a project the drawing stays as it is";

    setSrcInfosTopo(&db, &projet, 1, 0);
    enregistrerInfosTopo();
    const AcDbObjectId premier = enregistrement(db);
    EXPECT_EQ(nombreStocke(db), 4);
    projet.creerTablePoints(L"T");
    enregistrerInfosTopo();
    EXPECT_EQ(nombreStocke(db), 6);
    EXPECT_NE(enregistrement(db), premier) << "a new record each time";

    setSrcInfosTopo(&db, &projet, 0, 0);
    enregistrerInfosTopo();
    EXPECT_EQ(nombreStocke(db), 0) << "not to be saved: an empty record, deliberately";

    setSrcInfosTopo(&db, &projet, 1, 0);
    enregistrerInfosTopo();
    purgeInfosTopo();
    EXPECT_EQ(nombreStocke(db), 0);
    EXPECT_EQ(imprime, L"");
}

/// A sibling built earlier sets any number: what can be stored is, and the user is told.
TEST_F(DessinTest, storesWhatCanBeStored)
{
    setSrcInfosTopo(&db, &projet, 1, 0);
    const double infini = std::numeric_limits<double>::infinity();
    listePointsDuDessin& table = *projet.currTable();
    table.Ajouter(dessine(L"P1", 1, 2, 3));
    table.getData(0)->setZ(infini);
    EXPECT_FALSE(table.getData(0)->altitudeConnue());
    table.getData(0)->setZ(3);
    table.decalZ(infini);
    EXPECT_EQ(table.getData(0)->getZ(), 3);
    std::memcpy(static_cast<void*>(table.getData(0)), &infini, sizeof infini); // X comes first
    table.setNomTable(L"\\U+0041");
    enregistrerInfosTopo();
    EXPECT_TRUE(infosTopoEnregistrees());
    EXPECT_NE(imprime.find(L"1 point(s)"), std::wstring::npos);
    ASSERT_EQ(db.saveAs(cheminLarge.c_str()), Acad::eOk) << CStringA(db.lastError()).GetString();

    AcDbDatabase relu(false);
    ASSERT_EQ(relu.readDwgFile(cheminLarge.c_str()), Acad::eOk) << CStringA(relu.lastError()).GetString();
    projetsTopo lu;
    setSrcInfosTopo(&relu, &lu, 1, 1);
    EXPECT_TRUE(lu.currTable()->getNomTable() == L"\\U+0041") << CStringA(lu.currTable()->getNomTable()).GetString();
    ASSERT_EQ(lu.currTable()->nbPoint(), 1);
    EXPECT_EQ(lu.currTable()->getData(0)->getAs3dPnt(), AcGePoint3d(1e38, 2, 3));
    setSrcInfosTopo(nullptr, nullptr, 0, 0);
}

/// A damaged drawing names something else as the dictionary of layer "0": it stays, the layer gets a dictionary.
TEST_F(DessinTest, storesBesideWhatIsNoDictionary)
{
    const AcDbObjectId ligne = addEntity(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(9, 9, 0)));
    ASSERT_EQ(db.saveAs(cheminLarge.c_str()), Acad::eOk);
    ACHAR poignee[17] = L"";
    ligne.handle().getIntoAsciiBuffer(poignee, 17);
    std::string sain = dossier.read("plan.dxf");
    const auto calque = sain.find("330\r\n2\r\n100\r\nAcDbSymbolTableRecord\r\n100\r\nAcDbLayerTableRecord\r\n");
    ASSERT_NE(calque, std::string::npos);
    sain.insert(sain.rfind("  0\r\nENDSEC"), "  0\r\nACDBPLACEHOLDER\r\n  5\r\nFFF\r\n330\r\n10\r\n");

    struct {
        std::string poignee, contenu;
    } const autres[] = {{std::string(poignee, poignee + std::wcslen(poignee)), "AcDbLine"}, {"FFF", "ACDBPLACEHOLDER"}};
    for (const auto& [hexa, contenu] : autres) {
        dossier.write("plan.dxf", std::string(sain).insert(calque, "102\r\n{ACAD_XDICTIONARY\r\n360\r\n" + hexa +
                                                                       "\r\n102\r\n}\r\n"));
        AcDbDatabase abime(false);
        ASSERT_EQ(abime.readDwgFile(cheminLarge.c_str()), Acad::eOk) << CStringA(abime.lastError()).GetString();
        travailler(abime);
        setSrcInfosTopo(&abime, &projet, 1, 0);
        enregistrerInfosTopo();
        EXPECT_TRUE(infosTopoEnregistrees()) << contenu;
        ASSERT_EQ(abime.saveAs(cheminLarge.c_str()), Acad::eOk);
        AcDbDatabase relu(false);
        ASSERT_EQ(relu.readDwgFile(cheminLarge.c_str()), Acad::eOk);
        EXPECT_EQ(nombreStocke(relu), 4) << contenu;
        EXPECT_NE(dossier.read("plan.dxf").find(contenu), std::string::npos);
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
    }
}

TEST_F(DessinTest, resetsWhenNothingOrNonsenseIsStored)
{
    projet.creerTablePoints(L"T");
    setSrcInfosTopo(nullptr, &projet, 1, 1); // null: the working drawing
    EXPECT_EQ(projet.nbTables(), 1);
    EXPECT_TRUE(projet.currTable()->getNomTable() == L"LEVE");

    enregistrerInfosTopo();
    {
        const AcDbObjectPointer<AcDbXrecord> record(enregistrement(db), AcDb::kForWrite);
        resbuf* const chaine = acutBuildList(90, 0L, 90, 3L, 300, L"T", 40, 1.0, 0);
        record->setFromRbChain(*chaine);
        acutRelRb(chaine);
    }
    projet.creerTablePoints(L"T");
    setSrcInfosTopo(&db, &projet, 1, 1);
    EXPECT_EQ(projet.nbTables(), 1);
}

TEST_F(DessinTest, keepsEntitiesInStep)
{
    listePointsDuDessin& table = *projet.currTable();
    table.Ajouter(dessine(L"B", 1, 2, 3));
    table.Ajouter(dessine(L"A", 4, 5, 1e38));
    pointDuDessin ligne;
    ligne.setParams(L"L", AcGePoint3d(1, 1, 1), 1);
    ligne.setId(addEntity(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(9, 9, 0))));
    table.Ajouter(ligne);
    table.getData(0)->setXY(10, 20, 30);
    table.renumeroter(true);
    EXPECT_EQ(place(table.getData(0)->getId()).x, 1) << "what is no symbol stays as it is";

    AcGePoint3d position;
    int code = 0;
    EXPECT_EQ(table.getBlockPosition(L"1", position, code), 1);
    EXPECT_EQ(position.x, 10) << "not a block: the point's own coordinates";
    EXPECT_EQ(table.getBlockPosition(L"9", position, code), 0);

    AcDbObjectId id;
    EXPECT_EQ(table.getObjId(L"3", id), 1);
    EXPECT_EQ(id, ligne.getId());
    table.supprimerPoint(L"3");
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(table.getObjId(L"3", id), 0);
    effacer(table.getData(0)->getId());
    table.supprimerPoint(L"1");
    EXPECT_EQ(table.nbPoint(), 1) << "a point goes even when its entity has gone before";
}

TEST_F(DessinTest, readsTheInsertionPointOfABlock)
{
    const AcDbObjectId idBloc = addBlock(db, L"SYMBOLE", {});
    pointDuDessin point;
    point.setParams(L"P", AcGePoint3d(1, 2, 3), 6);
    point.setId(addEntity(db, new AcDbBlockReference(AcGePoint3d(7, 8, 0.5), idBloc)));
    projet.currTable()->Ajouter(point);
    AcGePoint3d position;
    int code = 0;
    ASSERT_EQ(projet.currTable()->getBlockPosition(L"p", position, code), 1);
    EXPECT_EQ(position.y, 8);
    EXPECT_EQ(position.z, 0.5);
    EXPECT_EQ(code, 6);
}

} // namespace
