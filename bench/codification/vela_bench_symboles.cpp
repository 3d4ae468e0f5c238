#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include <unistd.h>

#include "ap/DocumentList.h"
#include "codification/codificationDuModule.h"
#include "ed/Kernel.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "points/leveGenere.h"
#include "points/listePointsDuDessin.h"
#include "rx/Console.h"
#include "services/blocFichier.h"

#include "dbents.h"
#include "dbsymtb.h"

/// Symbols of points, beside what the kernel takes for the same references and attributes without a module.

namespace {

constexpr double admisParReference = 4.0; // times what a bare reference takes

void exiger(bool fait, const char* quoi)
{
    if (!fait)
        throw std::runtime_error(std::string(quoi) + " failed");
}

/// A drawing of its own for each measure: what one leaves must not weigh on the next.
class dessinNeuf {
public:
    dessinNeuf() : m_document(DocumentList::instance().create()) {}
    ~dessinNeuf() { DocumentList::instance().close(m_document); }
    dessinNeuf(const dessinNeuf&) = delete;
    dessinNeuf& operator=(const dessinNeuf&) = delete;

    AcDbDatabase& base() const { return *m_document.database(); }

private:
    Document& m_document;
};

/// A reference with four attributes, by the interface alone: the table of blocks and the space opened for each, as a
/// point does that knows nothing of the others.
void ajouterReferenceNue(AcDbDatabase& base, const AcDbObjectId& bloc, const pointDuDessin& point)
{
    AcDbBlockTable* blocs = nullptr;
    base.getBlockTable(blocs, AcDb::kForRead);
    AcDbBlockTableRecord* espace = nullptr;
    blocs->getAt(ACDB_MODEL_SPACE, espace, AcDb::kForWrite);
    blocs->close();
    auto* const reference = new AcDbBlockReference({point.getX(), point.getY(), 0.0}, bloc);
    espace->appendAcDbEntity(reference);
    espace->close();
    const CString nom(point.getNomPoint());
    for (const wchar_t* const etiquette : {L"CODE", L"NUMPT", L"Z", L"OBS"}) {
        auto* const attribut = new AcDbAttribute({point.getX(), point.getY(), 0.0}, nom, etiquette);
        attribut->setHeight(1.0);
        reference->appendAttribute(attribut);
        attribut->close();
    }
    reference->close();
}

class banc {
public:
    explicit banc(int passes) : m_passes(passes) {}

    bool mesurer()
    {
        m_tableau.enTete();
        const double nues = mesurerNues();
        const double creation = mesurerCreation();
        const double deplacement = mesurerDeplacement();
        const double lecture = mesurerLecture();
        m_tableau.rapport("drawing a symbol / a bare reference", creation, nues, admisParReference);
        m_tableau.rapport("moving a symbol / drawing a bare reference", deplacement, nues, admisParReference);
        m_tableau.rapport("reading a symbol / drawing a bare reference", lecture, nues, admisParReference);
        return m_tableau.tenu();
    }

private:
    /// One row; @return seconds at the largest size
    template <class Preparer, class Faire>
    double ligne(const char* nom, Preparer preparer, Faire faire)
    {
        double dernier = 0.0;
        m_tableau.croissance(nom, [&](int n) {
            const std::vector<pointDuDessin> leve = genererLeve(n, disposition::etalee);
            return dernier = mediane(
                       m_passes, [&] { preparer(leve); }, [&] { faire(leve); });
        });
        m_table.reset();
        m_dessin.reset();
        return dernier;
    }

    void dessinAvecTable(const std::vector<pointDuDessin>& leve)
    {
        m_table.reset();
        m_dessin.reset();
        m_dessin = std::make_unique<dessinNeuf>();
        m_table = std::make_unique<listePointsDuDessin>();
        for (const pointDuDessin& point : leve)
            m_table->Ajouter(point);
    }
    void dessinAvecSymboles(const std::vector<pointDuDessin>& leve)
    {
        dessinAvecTable(leve);
        m_table->updateDrawing();
        exiger(!m_table->getData(0)->getId().isNull(), "drawing a symbol");
    }

    double mesurerNues()
    {
        AcDbObjectId bloc;
        return ligne(
            "draw bare references",
            [&](const auto& leve) {
                dessinAvecTable(leve);
                bloc = blocDeFichier(m_dessin->base(), cheminBiblio(L"velablk1.dwg"));
                exiger(!bloc.isNull(), "reading a block");
            },
            [&](const auto& leve) {
                for (const pointDuDessin& point : leve)
                    ajouterReferenceNue(m_dessin->base(), bloc, point);
            });
    }
    double mesurerCreation()
    {
        return ligne(
            "draw symbols", [&](const auto& leve) { dessinAvecTable(leve); },
            [&](const auto&) { m_table->updateDrawing(); });
    }
    double mesurerDeplacement()
    {
        return ligne(
            "move symbols after their points",
            [&](const auto& leve) {
                dessinAvecSymboles(leve);
                for (int i = 0; i < m_table->nbPoint(); ++i) {
                    pointDuDessin& point = *m_table->getData(i);
                    point.setXY(point.getX() + 1.5, point.getY() - 2.25, point.getZ() + 0.5);
                }
            },
            [&](const auto&) { m_table->updateDrawing(); });
    }
    double mesurerLecture()
    {
        return ligne(
            "read the table back", [&](const auto& leve) { dessinAvecSymboles(leve); },
            [&](const auto& leve) {
                listePointsDuDessin lue;
                lue.updateFromDrawing();
                exiger(lue.nbPoint() == static_cast<int>(leve.size()), "reading back");
            });
    }

    int m_passes;
    tableauMesures m_tableau{{1000, 10000, 100000}, "symbol"};
    std::unique_ptr<dessinNeuf> m_dessin;
    std::unique_ptr<listePointsDuDessin> m_table;
};

/// Needs a folder of support with the symbols, of its own for the time of the measure.
bool mesurerSymboles(int passes)
{
    namespace fs = std::filesystem;
    const fs::path support = fs::temp_directory_path() / ("vela_bench_symboles_" + std::to_string(getpid()));
    fs::create_directories(support);
    fs::create_directory_symlink(fs::path(VELA_SOURCE_DIR) / "module/resources/biblio", support / "biblio");
    ::setenv("VELA_SUPPORT", support.c_str(), 1);
    bool tenu = false;
    {
        const Kernel noyau;
        Console::instance().setSink([](const std::wstring&) {});
        tenu = banc(passes).mesurer();
        DocumentList::instance().closeAll();
        Console::instance().setSink(nullptr);
    }
    fs::remove_all(support);
    return tenu;
}

} // namespace

/// vela_bench_symboles [--runs N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Symbols of 1000 to 100 000 points.", 3, mesurerSymboles);
}
