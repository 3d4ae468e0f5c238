#include <limits>
#include <memory>
#include <sstream>
#include <vector>

#include "codification/apparenceSymbole.h"
#include "codification/attributsBloc.h"
#include "codification/miseAJourSymbole.h"
#include "services/espaceObjet.h"

#include "adscodes.h"
#include "dbapserv.h"
#include "Drawing.h"
#include "essaiSymboles.h"

namespace {

/// One line an attribute: tag, text, place, height, layer, colour, visibility.
std::string attributs(const AcDbBlockReference& reference)
{
    std::ostringstream flux;
    pourChaqueAttribut(reference, AcDb::kForRead, [&](const AcDbAttribute& a) {
        const AcGePoint3d p = a.position();
        flux << CStringA(a.tagConst()).GetString() << '=' << CStringA(a.textStringConst()).GetString() << " @" << p.x
             << ',' << p.y << ',' << p.z << " h" << a.height() << " [" << nomCalque(a) << "] " << a.colorIndex()
             << (a.isInvisible() ? " cache" : "") << '\n';
    });
    return flux.str();
}

std::string marque(const AcDbEntity& entite)
{
    resbuf* const chaine = entite.xData();
    std::ostringstream flux;
    for (const resbuf* item = chaine; item; item = item->rbnext) {
        flux << item->restype << '=';
        if (item->restype == AcDb::kDxfRegAppName)
            flux << CStringA(item->resval.rstring).GetString();
        else
            flux << item->resval.rint;
        flux << ' ';
    }
    acutRelRb(chaine);
    return flux.str();
}

class DessinSymbolesTest : public SymbolesTest {
protected:
    /// A reference of an empty block, with attributes that `etiquettes` alternates with their texts.
    AcDbObjectId bloc(const std::vector<const wchar_t*>& etiquettes, const AcGePoint3d& place = {1, 2, 3})
    {
        if (blocVide.isNull())
            blocVide = addBlock(db, L"AUTRE", {});
        const AcDbObjectId id = ajouterEspaceObjet(std::make_unique<AcDbBlockReference>(place, blocVide));
        const referenceLue reference(id, AcDb::kForWrite);
        for (std::size_t i = 0; i + 1 < etiquettes.size(); i += 2) {
            auto* const attribut = new AcDbAttribute(place, etiquettes[i + 1], etiquettes[i]);
            reference->appendAttribute(attribut);
            attribut->close();
        }
        return id;
    }

    AcDbObjectId blocVide; ///< the empty block
};

TEST_F(DessinSymbolesTest, drawsAPoint)
{
    pointDuDessin p = point(L"\t a1\u00e9 ", 100, 200, 12.3456);
    p.creer(true, L" \t sur mur \t");
    ASSERT_FALSE(p.getId().isNull());
    EXPECT_STREQ(p.getNomPoint(), "\t a1\xE9 ") << "the point keeps its own name";
    const referenceLue reference(p.getId());
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_EQ(reference->position(), AcGePoint3d(100, 200, 0)) << "the altitude is told by its attribute alone";
    EXPECT_EQ(reference->scaleFactors().sx, 1.0);
    EXPECT_EQ(reference->rotation(), 0.0);
    EXPECT_EQ(nomCalque(*reference.object()), "0");
    EXPECT_EQ(nomBloc(*reference.object()), "velablk1");
    EXPECT_EQ(attributs(*reference.object()), "CODE=1 @100.75,202,0 h1 [_ Codes Points] 256 cache\n"
                                              "NUMPT=A1\xC9 @100.75,200.5,0 h1 [_ Numero Points] 256\n"
                                              "Z=12.35 @100.75,199,0 h1 [_ Altitudes Points] 256\n"
                                              "OBS=sur mur @100.75,197.5,0 h1 [_ Obs Points] 256\n");
    EXPECT_EQ(marque(*reference.object()), "1001=VELAPLUS 1070=1 ");
    AcDbExtents boite;
    EXPECT_EQ(reference->getGeomExtents(boite), Acad::eOk) << "the block holds the library's drawing";
}

TEST_F(DessinSymbolesTest, scalesWithTheCodeAndTheFactor)
{
    codifPoint& code = codificationDuModule().getCodif(5);
    code.precisionAltitudes = 0;
    constexpr double infinie = std::numeric_limits<double>::infinity();
    const struct {
        double taille, facteur, s;
    } rows[] = {{2, 1.0, 2.0}, {2, -0.5, 1.0}, {2, 1e-7, 2.0},      {2, 1e-6, 2e-6},
                {0, 3.0, 3.0}, {-2, 3.0, 3.0}, {infinie, 3.0, 3.0}, {2, 1e308, 1e100}};
    for (const auto& r : rows) {
        SCOPED_TRACE(r.taille);
        code.tailleBlock = r.taille;
        reglerFacteurSymboles(r.facteur);
        pointDuDessin p = point(L"P", 0, 0, 1e38, 5);
        p.creer(true);
        const referenceLue reference(p.getId());
        EXPECT_EQ(reference->scaleFactors().sz, r.s);
        const double dy[] = {2, 0.5, -1, -2.5};
        int i = 0;
        pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](const AcDbAttribute& a) {
            EXPECT_EQ(a.height(), r.s);
            EXPECT_DOUBLE_EQ(a.position().x, 0.75 * r.s);
            EXPECT_DOUBLE_EQ(a.position().y, dy[i++] * r.s);
            if (memeEtiquette(a, L"Z")) {
                EXPECT_STREQ(a.textStringConst(), L"") << "unknown";
            }
        });
    }
}

TEST_F(DessinSymbolesTest, writesAnyNumberOfDecimals)
{
    codifPoint& code = codificationDuModule().getCodif(5);
    const struct {
        int decimales;
        const wchar_t* texte;
    } rows[] = {{0, L"12"}, {4, L"12.2500"}, {-3, L"12"}, {1000000, L"12.250000000000000000000000000000"}};
    for (const auto& r : rows) {
        code.precisionAltitudes = r.decimales;
        EXPECT_TRUE(texteAltitude(12.25, code) == r.texte);
        CString texte;
        point(L"", 0, 0, 12.25, 5).getZAsString(texte);
        EXPECT_TRUE(texte == r.texte);
    }
}

TEST_F(DessinSymbolesTest, addsTheCodeItLacks)
{
    pointDuDessin p = point(L"P", 1, 2, 3, 7);
    p.creer(true);
    EXPECT_FALSE(p.getId().isNull());
    EXPECT_EQ(codificationDuModule().nombre(), 3);
    EXPECT_TRUE(codificationDuModule().getCodif(7).libelle == L"Code 7");
}

TEST_F(DessinSymbolesTest, drawsNothingWithoutBlockOrPlace)
{
    codifPoint& code = codificationDuModule().getCodif(5);
    const struct {
        const char* name;
        const wchar_t* chemin;
        double x;
        bool dessine;
    } rows[] = {
        {"no such file", L"C:\\absent.dwg", 1, false},
        {"not the name of a block", L"C:\\a|b.dwg", 1, false},
        {"blank: the first symbol of the library", L" ;, ", 1, true},
        {"unknown place", L"", 1e38, false},
        {"no place", L"", std::numeric_limits<double>::quiet_NaN(), false},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        code.chemin = r.chemin;
        pointDuDessin p = point(L"P", r.x, 0, 0, 5);
        p.creer(true);
        EXPECT_EQ(!p.getId().isNull(), r.dessine);
    }
}

TEST_F(DessinSymbolesTest, usesABlockThatIsThere)
{
    bloc({});
    codifPoint& code = codificationDuModule().getCodif(5);
    code.chemin = L"C:\\nulle\\part\\autre.DWG";
    pointDuDessin p = point(L"P", 1, 2, 3, 5);
    p.creer(true);
    EXPECT_EQ(nomBloc(*referenceLue(p.getId()).object()), "AUTRE");
}

TEST_F(DessinSymbolesTest, drawsOnLayersThatAreThereUnlessAskedToMakeThem)
{
    pointDuDessin p = point(L"P", 1, 2, 3);
    p.creer(false);
    const referenceLue sans(p.getId());
    EXPECT_EQ(attributs(*sans.object()).find("_ Codes"), std::string::npos);
    p.creer(true);
    p.creer(false);
    EXPECT_NE(attributs(*referenceLue(p.getId()).object()).find("_ Codes"), std::string::npos);

    // Another drawing: ids of the first one's layers must not be used.
    AcDbDatabase autre;
    acdbHostApplicationServices()->setWorkingDatabase(&autre);
    p.creer(false);
    EXPECT_EQ(attributs(*referenceLue(p.getId()).object()).find("_ Codes"), std::string::npos);
    acdbHostApplicationServices()->setWorkingDatabase(&db);
}

TEST_F(DessinSymbolesTest, bringsTheSymbolInLine)
{
    pointDuDessin p = point(L"P1", 100, 200, 12.3456);
    p.creer(true, L"obs");
    const AcDbObjectId id = p.getId();
    {
        const referenceLue reference(id, AcDb::kForWrite);
        reference->setPosition({100, 200, 7});
    }
    const double x = 1234567.891, y = 0.1 + 0.2;
    p.setParams(L"p2", AcGePoint3d(x, y, 1e38), 100);
    p.updateDrawing();
    EXPECT_EQ(p.getId(), id);
    const referenceLue reference(id);
    EXPECT_EQ(reference->position(), AcGePoint3d(x, y, 7)) << "to the last digit; the elevation stays";
    EXPECT_EQ(nomBloc(*reference.object()), "velablk1") << "a change of code does not reach it";
    std::vector<std::string> lignes;
    pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](const AcDbAttribute& a) {
        lignes.push_back(CStringA(a.textStringConst()).GetString());
        EXPECT_NEAR(a.position().x, x + 0.75, 1e-6) << "attributes go along";
    });
    EXPECT_EQ(lignes, (std::vector<std::string>{"1", "p2", "", "obs"})) << "the name as it is; code and text stay";
}

TEST_F(DessinSymbolesTest, drawsAgainWhatIsGone)
{
    pointDuDessin p = point(L"P1", 1, 2, 3);
    p.updateDrawing();
    const AcDbObjectId premier = p.getId();
    ASSERT_FALSE(premier.isNull()) << "one without symbol gets one";
    {
        const referenceLue reference(premier, AcDb::kForWrite);
        reference->erase();
    }
    p.updateDrawing();
    EXPECT_NE(p.getId(), premier);
    EXPECT_FALSE(p.getId().isErased());

    AcDbDatabase autre;
    acdbHostApplicationServices()->setWorkingDatabase(&autre);
    p.updateDrawing();
    EXPECT_EQ(p.getId().database(), &autre);
    acdbHostApplicationServices()->setWorkingDatabase(&db);

    const AcDbObjectId ligne =
        ajouterEspaceObjet(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
    p.setId(ligne);
    p.updateDrawing();
    EXPECT_EQ(p.getId(), ligne) << "an entity of another kind stays";
}

TEST_F(DessinSymbolesTest, readsASymbol)
{
    struct Row {
        const char* name;
        std::vector<const wchar_t*> attributs;
        int resultat;
        const char* nom;
        int code;
        double z;
    };
    const Row rows[] = {
        {"whole", {L"CODE", L"12", L"numpt", L"P1", L"Z", L"3.50", L"OBS", L"x"}, 1, "P1", 12, 3.5},
        {"cut name", {L"NUMPT", L"ABCDEFGHIJKL"}, 1, "ABCDEFGHI", 1, 1e38},
        {"code above", {L"NUMPT", L"P", L"CODE", L"12000"}, 1, "P", 1, 1e38},
        {"code below", {L"NUMPT", L"P", L"CODE", L"-1"}, 1, "P", 1, 1e38},
        {"code 0 stays", {L"NUMPT", L"P", L"CODE", L"0"}, 1, "P", 0, 1e38},
        {"code without digits", {L"NUMPT", L"P", L"CODE", L"abc"}, 1, "P", 0, 1e38},
        {"altitude without a digit in front", {L"NUMPT", L"P", L"Z", L".50"}, 1, "P", 1, 1e38},
        {"altitude below zero", {L"NUMPT", L"P", L"Z", L"-2.5"}, 1, "P", 1, -2.5},
        {"the first of two", {L"NUMPT", L"P", L"NUMPT", L"Q", L"Z", L"1", L"Z", L"2"}, 1, "P", 1, 1},
        {"no name", {L"CODE", L"12", L"Z", L"3"}, 0, "avant", 9, 8},
        {"no attributes", {}, 0, "avant", 9, 8},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        const AcDbObjectId id = bloc(r.attributs, {10, 20, 30});
        pointDuDessin p = point(L"avant", 6, 7, 8, 9);
        EXPECT_EQ(p.updateFromDrawing(id), r.resultat);
        EXPECT_EQ(p.getId(), id);
        EXPECT_EQ(p.getX(), 10);
        EXPECT_EQ(p.getY(), 20);
        EXPECT_STREQ(p.getNomPoint(), r.nom);
        EXPECT_EQ(p.getCode(), r.code);
        EXPECT_EQ(p.getZ(), r.z) << "never the elevation";
    }
    for (const AcDbObjectId id :
         {AcDbObjectId(), ajouterEspaceObjet(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)))}) {
        pointDuDessin p = point(L"avant", 6, 7, 8, 9);
        p.setId(id);
        EXPECT_EQ(p.updateFromDrawing(id), 0);
        EXPECT_TRUE(p.getId().isNull());
        EXPECT_EQ(p.getX(), 6);
    }
}

TEST_F(DessinSymbolesTest, keepsATableAndTheDrawingInStep)
{
    listePointsDuDessin table;
    for (int i = 1; i <= 3; ++i) {
        CString nom;
        nom.Format(L"P%d", i);
        table.Ajouter(point(nom, i, 2 * i, i == 2 ? 1e38 : 3 * i, i == 3 ? 100 : 1));
    }
    table.updateDrawing();
    bloc({L"numpt", L"9", L"CODE", L"4"}, {50, 60, 70});
    bloc({L"CODE", L"4"});
    AcDbObjectId id;
    ASSERT_EQ(table.getObjId(L"p2", id), 1);

    listePointsDuDessin lue;
    lue.Ajouter(point(L"efface", 0, 0, 0));
    lue.updateFromDrawing();
    ASSERT_EQ(lue.nbPoint(), 4) << "any block with a name attribute";
    int position = -1;
    EXPECT_EQ(lue.existPoint(L"efface", position), 0);
    for (int i = 1; i <= 3; ++i) {
        CString nom;
        nom.Format(L"P%d", i);
        ASSERT_EQ(lue.existPoint(nom, position), 1);
        const pointDuDessin& p = *lue.getData(position);
        EXPECT_TRUE(p == *table.getData(i - 1));
        EXPECT_EQ(p.getId(), table.getData(i - 1)->getId());
    }
    lue.notifyPositionPoint(id, {-1, -2, -3}, 3);
    EXPECT_EQ(lue.existPoint(L"P2", position), 1);
    EXPECT_EQ(lue.getData(position)->getY(), -2);
    EXPECT_EQ(lue.getData(position)->getZ(), 1e38);
}

TEST_F(DessinSymbolesTest, givesASymbolAnotherCode)
{
    pointDuDessin p = point(L"P1", 100, 200, 3);
    p.creer(true, L"obs");
    codifPoint& code = codificationDuModule().getCodif(100);
    code.tailleBlock = 2;
    code.layers = {L"S", L"SZ", L"SN", L"SO", L"SC"};
    EXPECT_TRUE(conformerSymbole(p.getId(), 100, codificationDuModule()));
    const referenceLue reference(p.getId());
    EXPECT_EQ(nomBloc(*reference.object()), "velablk3");
    EXPECT_EQ(nomCalque(*reference.object()), "S");
    EXPECT_EQ(reference->scaleFactors().sx, 2.0);
    EXPECT_EQ(attributs(*reference.object()), "CODE=100 @101.5,204,0 h2 [SC] 256 cache\n"
                                              "NUMPT=P1 @101.5,201,0 h2 [SN] 256\n"
                                              "Z=3.00 @101.5,198,0 h2 [SZ] 256\n"
                                              "OBS=obs @101.5,195,0 h2 [SO] 256\n");
    code.chemin = L"C:\\absent.dwg";
    EXPECT_FALSE(conformerSymbole(p.getId(), 100, codificationDuModule()));
    EXPECT_FALSE(conformerSymbole({}, 100, codificationDuModule()));
}

} // namespace
