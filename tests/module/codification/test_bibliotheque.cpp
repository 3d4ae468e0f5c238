// The symbols of the library, and points of as many codes through a drawing.

#include <memory>
#include <string>

#include "codification/attributsBloc.h"

#include "essaiSymboles.h"

namespace {

using BibliothequeTest = SymbolesTest;

/// A point of every code, through a saved drawing whose symbols are edited.
TEST_F(BibliothequeTest, goesRoundThroughTheDrawing)
{
    tableCodification& codes = codificationDuModule();
    listePointsDuDessin table;
    for (const auto& e : std::filesystem::directory_iterator(supportEssai::fichier("biblio"))) {
        if (e.path().extension() != ".dxf")
            continue;
        const int numero = codes.plusPetitNumeroLibre();
        codifPoint& code = codes.getCodif(numero);
        code.chemin = cheminBiblio((e.path().stem().wstring() + L".dwg").c_str());
        code.tailleBlock = 0.1 * numero;
        code.precisionAltitudes = numero % 5;
        code.layers[calqueBlock] = L"Calque \u00e9" + std::to_wstring(numero);
        const std::wstring nom = L"\u00c9" + std::to_wstring(numero);
        table.Ajouter(
            point(nom.c_str(), 10.0 * numero + 0.123456789, -3.7 * numero, numero % 3 ? numero : 1e38, numero));
    }
    const int nombre = table.nbPoint();
    ASSERT_GE(nombre, 14);
    table.updateDrawing();

    DocumentList& liste = DocumentList::instance();
    const std::wstring fichier = supportEssai::fichier("tour.dxf").wstring();
    ASSERT_FALSE(liste.saveAs(*liste.current(), fichier));
    liste.closeAll();
    const DocumentList::Opened ouvert = liste.open(fichier);
    ASSERT_NE(ouvert.document, nullptr);

    listePointsDuDessin lue;
    lue.updateFromDrawing();
    ASSERT_EQ(lue.nbPoint(), nombre);
    for (int i = 0; i < nombre; ++i) {
        int place = -1;
        ASSERT_TRUE(lue.existPoint(CString(table.getData(i)->getNomPoint()), place));
        EXPECT_TRUE(*lue.getData(place) == *table.getData(i))
            << "altitudes are whole: every number of decimals keeps them";
    }

    const AcDbObjectId id = lue.getData(0)->getId();
    {
        const referenceLue symbole(id, AcDb::kForWrite);
        symbole->setPosition({1, 2, 99});
        pourChaqueAttribut(*symbole.object(), AcDb::kForRead, [](AcDbAttribute& attribut) {
            for (const auto& [etiquette, texte] :
                 {std::pair(L"NUMPT", L"EDITE"), {L"CODE", L"9999"}, {L"Z", L"-1.5"}, {L"OBS", L"vu"}})
                if (memeEtiquette(attribut, etiquette))
                    changerTexte(attribut, texte);
        });
    }
    lue.updateFromDrawing();
    int place = -1;
    ASSERT_TRUE(lue.existPoint(L"edite", place));
    EXPECT_EQ(lue.getData(place)->getAs3dPnt(), AcGePoint3d(1, 2, -1.5));
    EXPECT_EQ(lue.getData(place)->getCode(), 9999);
    EXPECT_EQ(lue.nbPoint(), nombre);
}

/// The library: every symbol is drawn around its insertion point, one unit wide at most, on the layer it is put on.
TEST_F(BibliothequeTest, hasALibraryOfSymbols)
{
    int nombre = 0;
    for (const auto& e : std::filesystem::directory_iterator(supportEssai::fichier("biblio"))) {
        if (e.path().extension() != ".dxf")
            continue;
        const std::string nom = e.path().stem().string();
        SCOPED_TRACE(nom);
        ++nombre;
        codifPoint& code = codificationDuModule().getCodif(5);
        code.chemin = cheminBiblio((std::wstring(nom.begin(), nom.end()) + L".dwg").c_str());
        code.layers[calqueBlock] = L"SYMBOLES";
        pointDuDessin p = point(L"", 0, 0, 1e38, 5);
        p.creer(true);
        const referenceLue reference(p.getId());
        ASSERT_EQ(reference.openStatus(), Acad::eOk);
        EXPECT_EQ(nomBloc(*reference.object()), nom);
        AcDbVoidPtrArray parties;
        ASSERT_EQ(reference->explode(parties), Acad::eOk);
        EXPECT_GT(parties.length(), 0);
        AcDbExtents boite;
        for (void* partie : parties) {
            const std::unique_ptr<AcDbEntity> entite(static_cast<AcDbEntity*>(partie));
            EXPECT_EQ(nomCalque(*entite), "0");
            EXPECT_EQ(entite->colorIndex(), 256);
            AcDbExtents sienne;
            EXPECT_EQ(entite->getGeomExtents(sienne), Acad::eOk);
            boite.addExt(sienne);
        }
        EXPECT_GE(boite.minPoint().x, -0.5001);
        EXPECT_LE(boite.maxPoint().x, 0.5001);
        EXPECT_GE(boite.minPoint().y, -0.5001);
        EXPECT_LE(boite.maxPoint().y, 0.5001);
    }
    EXPECT_GE(nombre, 14);
}

} // namespace
