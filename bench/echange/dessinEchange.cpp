#include "echange/dessinEchange.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>

#include <unistd.h>

#include "ap/DocumentList.h"
#include "codification/codificationDuModule.h"
#include "echange/texteXYZ.h"
#include "ed/input/EditorInput.h"
#include "ed/Kernel.h"
#include "exchange/ajoutPoints.h"
#include "exchange/importDessin.h"
#include "exchange/lecteurPoints.h"
#include "exchange/placerPoints.h"
#include "mesures/mediane.h"
#include "mesures/memoire.h"
#include "mesures/tableauMesures.h"
#include "points/projetDansDessin.h"
#include "points/projetsTopo.h"
#include "rx/Console.h"
#include "services/espaceObjet.h"

#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace fs = std::filesystem;

namespace {

constexpr auto rien = [] {};

/// "Everything", then Enter, whenever a selection is asked for.
class toutSelectionner final : public InputSource {
public:
    InputAnswer answer(const InputRequest&) override
    {
        InputAnswer reponse;
        reponse.kind = InputAnswer::Kind::text;
        reponse.text = m_dit ? L"" : L"_ALL";
        m_dit = !m_dit;
        return reponse;
    }
    void refused(const InputRequest&, const std::wstring& raison) override
    {
        throw std::runtime_error("selecting: " + std::string(raison.begin(), raison.end()));
    }
    bool isEchoed() const override { return false; }

private:
    bool m_dit = false;
    EditorInput::Source m_source{*this};
};

/// A drawing with a project, as a command has it.
class dessinAvecProjet {
public:
    dessinAvecProjet() : dessinAvecProjet(DocumentList::instance().create()) {}
    explicit dessinAvecProjet(const fs::path& fichier) : dessinAvecProjet(ouvert(fichier)) {}
    ~dessinAvecProjet()
    {
        setSrcInfosTopo(m_document.database(), nullptr, 0, 0);
        DocumentList::instance().close(m_document);
    }
    dessinAvecProjet(const dessinAvecProjet&) = delete;
    dessinAvecProjet& operator=(const dessinAvecProjet&) = delete;

    listePointsDuDessin& table() { return *m_projet.currTable(); }
    void enregistrer(const fs::path& fichier)
    {
        enregistrerInfosTopo();
        if (m_document.database()->saveAs(fichier.wstring().c_str()) != Acad::eOk)
            throw std::runtime_error("saving");
    }

private:
    explicit dessinAvecProjet(Document& document) : m_document(document)
    {
        setSrcInfosTopo(m_document.database(), &m_projet, 0, 0);
    }
    static Document& ouvert(const fs::path& fichier)
    {
        Document* const document = DocumentList::instance().open(fichier.wstring()).document;
        return document ? *document : throw std::runtime_error("opening");
    }

    projetsTopo m_projet;
    Document& m_document;
};

/// The name of a drawing that is gone at the end.
class dessinPassager {
public:
    ~dessinPassager()
    {
        std::error_code sansSuite;
        fs::remove(m_fichier, sansSuite);
        fs::remove(fs::path(m_fichier).replace_extension(".bak"), sansSuite);
    }
    operator const fs::path&() const { return m_fichier; }

private:
    fs::path m_fichier = fs::temp_directory_path() / ("vela_bench_echange_" + std::to_string(getpid()) + ".dxf");
};

/// Entities as drawings have them: lines, points, faces, polylines of five vertices, texts of both kinds, in turn.
void dessinerEntites(int nombre)
{
    for (int i = 0; i < nombre; ++i) {
        const AcGePoint3d p(1650000.0 + i % 1000 * 1.237, 8180000.0 + i / 1000 * 1.111, 100.0 + i % 77 * 0.01);
        const AcGePoint3d q = p + AcGeVector3d(0.5, 0.25, 0.125);
        std::unique_ptr<AcDbEntity> entite;
        if (i % 6 == 0)
            entite = std::make_unique<AcDbLine>(p, q);
        else if (i % 6 == 1)
            entite = std::make_unique<AcDbPoint>(p);
        else if (i % 6 == 2)
            entite = std::make_unique<AcDbFace>(p, q, p + AcGeVector3d(0.0, 0.5, 0.0), q);
        else if (i % 6 == 3)
            entite = std::make_unique<AcDbText>(p, L"123.45", AcDbObjectId::kNull, 1.0);
        else if (i % 6 == 4) {
            auto ligne = std::make_unique<AcDbPolyline>(5);
            for (unsigned int s = 0; s < 5; ++s)
                ligne->addVertexAt(s, {p.x + 0.1 * s, p.y});
            ligne->setElevation(p.z);
            entite = std::move(ligne);
        } else {
            auto texte = std::make_unique<AcDbMText>();
            texte->setLocation(p);
            texte->setTextHeight(1.0);
            texte->setContents(L"123.45");
            entite = std::move(texte);
        }
        ajouterEspaceObjet(std::move(entite));
    }
}

/// What any reader of a drawing does: every entity opened and closed.
int parcourir()
{
    int ouvertes = 0;
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(espaceObjetDuDessin());
    AcDbBlockTableRecordIterator* cree = nullptr;
    espace->newIterator(cree);
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(cree);
    for (AcDbObjectId id; !it->done(); it->step()) {
        it->getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entite(id);
        ouvertes += entite.openStatus() == Acad::eOk;
    }
    return ouvertes;
}

/// Twice: as a user harvests, once, what was opened and never read; then again, when nothing is left to decode.
void mesurerReleve(tableauMesures& tableau, int passes)
{
    constexpr int entites = 100000;
    const dessinPassager fichier;
    std::optional<dessinAvecProjet> dessin;
    const auto relever = [&dessin] {
        dessin->table().importFromDrawing(tousLesGenres, L"NUM", L"ALT", L"CODE", AcGeVector2d());
        if (dessin->table().nbPoint() < entites / 2)
            throw std::runtime_error("harvesting");
    };
    const auto parcourirTout = [] {
        if (parcourir() < entites)
            throw std::runtime_error("walking");
    };
    toutSelectionner tout;
    dessin.emplace();
    dessinerEntites(entites);
    dessin->enregistrer(fichier);
    const auto rouvrir = [&] {
        dessin.reset();
        dessin.emplace(fichier);
    };
    const double premierParcours = mediane(passes, rouvrir, parcourirTout);
    tableau.rapport("harvest of 100 000 entities / a walk, opened", mediane(passes, rouvrir, relever), premierParcours,
                    3.0);
    const double parcours = mediane(passes, rien, parcourirTout);
    const double releve = mediane(
        passes, [&] { dessin->table().remplacerTout({}); }, relever);
    tableau.rapport("the same again / a walk, all in memory", releve, parcours, 0.0);
}

void mesurerEnregistrement(tableauMesures& tableau, const char* nom, bool placer)
{
    const dessinPassager fichier;
    tableau.croissance(nom, [&](int n) {
        const std::string texte = texteXYZ(n);
        oublierSommetMemoire();
        const std::size_t avant = sommetMemoire();
        const double secondes = mediane(1, rien, [&] {
            dessinAvecProjet dessin;
            observationsEnAttente observations;
            {
                sourceMemoire source(texte);
                pointsLus lus = lirePoints(source, "leve.xyz");
                for (pointXYZ& point : lus.points)
                    point.code = 1; // the only one that the module defines by itself, and so draws
                ajouterPoints(dessin.table(), std::move(lus.points), nomsExistants::ajouter, observations);
            }
            if (placer) {
                std::vector<int> places(static_cast<std::size_t>(n));
                for (int i = 0; i < n; ++i)
                    places[static_cast<std::size_t>(i)] = i;
                if (placerPoints(dessin.table(), places, observations).dessines != n)
                    throw std::runtime_error("drawing symbols");
            }
            dessin.enregistrer(fichier);
        });
        std::cout << "  " << n << ": at most "
                  << (std::max(sommetMemoire(), avant) - avant) / static_cast<std::size_t>(n) << " bytes a point\n";
        return secondes;
    });
}

} // namespace

bibliothequeSymboles::bibliothequeSymboles() :
    m_dossier(fs::temp_directory_path() / ("vela_bench_echange_" + std::to_string(getpid())))
{
    fs::create_directories(m_dossier);
    fs::create_directory_symlink(fs::path(VELA_SOURCE_DIR) / "module/resources/biblio", m_dossier / "biblio");
    ::setenv("VELA_SUPPORT", m_dossier.c_str(), 1);
}

bibliothequeSymboles::~bibliothequeSymboles()
{
    std::error_code sansSuite;
    fs::remove_all(m_dossier, sansSuite);
}

void mesurerDessin(tableauMesures& tableau, int passes)
{
    const Kernel noyau;
    Console::instance().setSink([](const std::wstring&) {});
    mesurerReleve(tableau, passes);
    mesurerEnregistrement(tableau, "file to table to saved drawing", false);
    mesurerEnregistrement(tableau, "the same with symbols and attributes", true);
    DocumentList::instance().closeAll();
    Console::instance().setSink(nullptr);
}
