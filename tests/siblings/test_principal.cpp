#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/Kernel.h"
#include "points/projetDansDessin.h"
#include "rx/ModuleTable.h"

#include "Drawing.h"
#include "supportEssai.h"
#include "TestFolder.h"

namespace {

std::wstring large(const std::string& texte)
{
    return {texte.begin(), texte.end()};
}

class PrincipalTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* const module : {MODULE_ARX, PRINCIPAL_ARX}) {
            const auto echec = ModuleTable::instance().load(large(module));
            ASSERT_FALSE(echec) << std::string(echec->begin(), echec->end());
        }
    }
    void TearDown() override
    {
        DocumentList::instance().closeAll();
        ModuleTable::instance().unloadAll();
        EXPECT_EQ(tablesPoints, nullptr);
    }

    static void ajouterPoint(const wchar_t* nom, AcDbObjectId id = {})
    {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(1, 2, 3), 1);
        p.setId(id);
        tablesPoints->currTable()->Ajouter(p);
    }

    Kernel noyau;
    TestFolder dossier;
    const std::string chemin = (dossier / "principal.dxf").string();
};

TEST_F(PrincipalTest, keepsOneProjectForEachDrawing)
{
    EXPECT_EQ(tablesPoints, nullptr);
    DocumentList& liste = DocumentList::instance();
    Document& premier = liste.create();
    projetsTopo* const projetPremier = tablesPoints;
    ASSERT_NE(projetPremier, nullptr);
    EXPECT_EQ(sauverInfosTopo, 1);
    ajouterPoint(L"P1");

    Document& second = liste.create();
    EXPECT_NE(tablesPoints, projetPremier);
    EXPECT_EQ(tablesPoints->currTable()->nbPoint(), 0);
    liste.setCurDocument(&premier, AcAp::kNone, true);
    EXPECT_EQ(tablesPoints, projetPremier);
    EXPECT_EQ(tablesPoints->currTable()->nbPoint(), 1) << "what was not saved yet is still there";

    EXPECT_FALSE(liste.close(premier));
    EXPECT_NE(tablesPoints, projetPremier);
    EXPECT_FALSE(liste.close(second));
    EXPECT_EQ(tablesPoints, nullptr);
}

TEST_F(PrincipalTest, findsTheProjectInTheFile)
{
    DocumentList& liste = DocumentList::instance();
    Document& ecrit = liste.create();
    const AcDbObjectId id = addEntity(*ecrit.database(), new AcDbPoint(AcGePoint3d(1, 2, 0)));
    ajouterPoint(L"P1", id);
    ajouterPoint(L"P2");
    const auto echec = liste.saveAs(ecrit, large(chemin));
    ASSERT_FALSE(echec) << std::string(echec->begin(), echec->end());
    liste.close(ecrit);

    const DocumentList::Opened lu = liste.open(large(chemin));
    ASSERT_NE(lu.document, nullptr) << std::string(lu.failure.begin(), lu.failure.end());
    ASSERT_NE(tablesPoints, nullptr);
    const listePointsDuDessin& table = *tablesPoints->currTable();
    ASSERT_EQ(table.nbPoint(), 2);
    const AcDbObjectPointer<AcDbPoint> point(table.getData(0)->getId());
    EXPECT_EQ(point.openStatus(), Acad::eOk);
    EXPECT_TRUE(table.getData(1)->getId().isNull());
}

TEST_F(PrincipalTest, letsPointsFollowTheirSymbols)
{
    Document& document = DocumentList::instance().create();
    AcDbDatabase& db = *document.database();
    const AcDbObjectId idBloc = addBlock(db, L"SYMBOLE", {});
    const AcDbObjectId symbole = addEntity(db, new AcDbBlockReference(AcGePoint3d(1, 2, 0), idBloc));
    const AcDbObjectId point = addEntity(db, new AcDbPoint(AcGePoint3d(1, 2, 0)));
    ajouterPoint(L"SYMBOLE", symbole);
    tablesPoints->creerTablePoints(L"AUTRE");
    tablesPoints->setCourante(1);
    ajouterPoint(L"POINT", point);
    {
        const AcDbObjectPointer<AcDbBlockReference> ouvert(symbole, AcDb::kForWrite);
        ouvert->setPosition(AcGePoint3d(10, 20, 30));
    }
    {
        const AcDbObjectPointer<AcDbPoint> ouvert(point, AcDb::kForWrite);
        ouvert->setPosition(AcGePoint3d(11, 21, 31));
    }
    for (const int i : {0, 1}) {
        const pointDuDessin& p = *tablesPoints->getTable(i)->getData(0);
        EXPECT_EQ(p.getX(), 10 + i);
        EXPECT_EQ(p.getY(), 20 + i);
        EXPECT_EQ(p.getZ(), 3) << "the altitude is not that of the symbol";
    }
}

TEST_F(PrincipalTest, takesPointsBackWithTheirSymbols)
{
    Document& document = DocumentList::instance().create();
    AcDbDatabase& db = *document.database();
    pointDuDessin p;
    p.setParams(L"P1", AcGePoint3d(1, 2, 3), 1);
    p.creer(true);
    const AcDbObjectId symbole = p.getId();
    ASSERT_FALSE(symbole.isNull());
    tablesPoints->currTable()->Ajouter(p);
    const listePointsDuDessin& table = *tablesPoints->currTable();

    UndoRecorder& histoire = db.impl().undo();
    histoire.startMark();
    {
        const AcDbObjectPointer<AcDbBlockReference> ouvert(symbole, AcDb::kForWrite);
        ouvert->transformBy(AcGeMatrix3d::translation({10, 20, 5}));
    }
    histoire.endMark();
    const auto place = [&] { return AcDbObjectPointer<AcDbBlockReference>(symbole)->position(); };
    const struct {
        const char* name;
        bool (UndoRecorder::*step)();
        AcGePoint3d symbol, point;
    } rows[] = {{"undone", &UndoRecorder::undo, {1, 2, 0}, {1, 2, 3}},
                {"done again", &UndoRecorder::redo, {11, 22, 5}, {11, 22, 3}}};
    EXPECT_EQ(table.getData(0)->getX(), 11);
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        ASSERT_TRUE((histoire.*r.step)());
        EXPECT_EQ(place(), r.symbol);
        EXPECT_EQ(table.getData(0)->getAs3dPnt(), r.point);
    }
}

/// What came or went with a symbol comes and goes with it; what was there before, or lost its symbol alone, stays.
TEST_F(PrincipalTest, takesPointsOutAndInWithTheirSymbols)
{
    AcDbDatabase& db = *DocumentList::instance().create().database();
    listePointsDuDessin& table = *tablesPoints->currTable();
    UndoRecorder& histoire = db.impl().undo();
    const auto dessiner = [&](const wchar_t* nom) {
        pointDuDessin p;
        p.setParams(nom, AcGePoint3d(1, 2, 3), 1);
        p.creer(true);
        table.Ajouter(p);
    };
    const auto effacer = [&](const wchar_t* nom) {
        AcDbObjectId id;
        ASSERT_TRUE(table.getObjId(nom, id));
        const AcDbObjectPointer<AcDbEntity> symbole(id, AcDb::kForWrite);
        ASSERT_EQ(symbole->erase(), Acad::eOk);
    };
    using Noms = std::vector<std::string>;
    const auto noms = [&] {
        Noms resultat;
        for (int i = 0; i < table.nbPoint(); ++i) {
            resultat.emplace_back(std::as_const(table).getData(i)->getNomPoint());
            int position = -1;
            EXPECT_TRUE(table.existPoint(CString(resultat.back().c_str()), position));
            EXPECT_EQ(position, i);
        }
        return resultat;
    };
    struct Row {
        const char* name;
        std::function<void()> change;
        Noms after;
    };
    const Row rows[] = {
        {"two points drawn", [&] { (dessiner(L"P1"), dessiner(L"P2")); }, {"AVANT", "P1", "P2"}},
        {"a point that was there before is drawn", [&] { table.updateDrawing(); }, {"AVANT", "P1", "P2"}},
        {"one removed, the last takes its place", [&] { table.supprimerPoint(L"P1"); }, {"AVANT", "P2"}},
        {"symbols erased alone", [&] { (effacer(L"AVANT"), effacer(L"P2")); }, {"AVANT", "P2"}},
    };
    ajouterPoint(L"AVANT");
    std::vector<Noms> etats{noms()};
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        histoire.startMark();
        r.change();
        histoire.endMark();
        EXPECT_EQ(noms(), r.after);
        etats.push_back(r.after);
    }
    for (const char* const tour : {"first", "second"}) {
        SCOPED_TRACE(tour);
        for (std::size_t i = std::size(rows); i-- > 0;) {
            ASSERT_TRUE(histoire.undo());
            EXPECT_EQ(noms(), etats[i]) << rows[i].name << ", undone";
        }
        for (const Row& r : rows) {
            ASSERT_TRUE(histoire.redo());
            EXPECT_EQ(noms(), r.after) << r.name << ", done again";
        }
    }

    // A symbol that came back with its point is then erased alone.
    for (int i = 0; i < 2; ++i)
        ASSERT_TRUE(histoire.undo());
    histoire.startMark();
    effacer(L"P1");
    histoire.endMark();
    for (const auto step : {&UndoRecorder::undo, &UndoRecorder::redo}) {
        ASSERT_TRUE((histoire.*step)());
        EXPECT_EQ(noms(), (Noms{"AVANT", "P1", "P2"}));
    }
}

TEST_F(PrincipalTest, takesTheDrawingsThatWereThereBefore)
{
    ASSERT_FALSE(ModuleTable::instance().unload(L"VelaPrincipal-ARX2015-64BITS.arx"));
    DocumentList::instance().create();
    EXPECT_EQ(tablesPoints, nullptr);
    ASSERT_FALSE(ModuleTable::instance().load(large(PRINCIPAL_ARX)));
    EXPECT_NE(tablesPoints, nullptr);
    ASSERT_FALSE(ModuleTable::instance().unload(L"VelaPrincipal-ARX2015-64BITS.arx"));
    EXPECT_EQ(tablesPoints, nullptr);
}

} // namespace
