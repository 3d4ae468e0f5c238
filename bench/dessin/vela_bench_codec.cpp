#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <vector>

#include <CLI/CLI.hpp>
#include <malloc.h> // malloc_trim

#include "db/DatabaseImpl.h"
#include "mesures/mediane.h"
#include "mesures/memoire.h"
#include "planchers/planchers.h"
#include "platform/CodePage.h"

#include "acutmem.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "gemat3d.h"

/// The bars of the drawing codec, each against its floor on the same file in the same run.

namespace {

class banc {
public:
    banc(std::string fichier, int passes) : m_fichier(std::move(fichier)), m_carte(m_fichier), m_passes(passes) {}

    bool mesurer()
    {
        const std::size_t taille = m_carte.octets().size();
        std::printf("%s: %.1f MB, %d runs, medians\n", m_fichier.c_str(), static_cast<double>(taille) / 1e6, m_passes);
        mesurerPlanchers();
        mesurerOuverture(taille);
        mesurerDecodage();
        mesurerEnregistrement();
        mesurerLeve();
        return m_tenu;
    }

private:
    void mesurerPlanchers()
    {
        const auto rien = [] {};
        const auto octets = m_carte.octets();
        m_parcours = mediane(m_passes, rien, [&] { m_somme += parcourirEtiquettes(octets).somme; });
        m_nombres = mediane(m_passes, rien, [&] { m_somme += parcourirNombres(octets).somme; });
        m_ecriture = mediane(m_passes, rien, [&] { ecrireOctets(octets, copie()); });
        std::printf("floors: scan of every tag %.4f s, every number %.4f s, write of the map %.4f s\n", m_parcours,
                    m_nombres, m_ecriture);
    }

    void ouvrir()
    {
        m_dessin.reset();
        m_dessin = std::make_unique<AcDbDatabase>(false);
        if (m_dessin->readDwgFile(platform::wideFromUtf8(m_fichier).c_str()) != Acad::eOk)
            throw std::runtime_error(platform::utf8FromWide(m_dessin->lastError()));
    }

    void mesurerOuverture(std::size_t taille)
    {
        const auto [secondes, rapportAuPlancher] = medianeAuPlancher(
            m_passes, [&] { m_dessin.reset(); }, [&] { m_somme += parcourirEtiquettes(m_carte.octets()).somme; },
            [&] { ouvrir(); });
        rapport("open", secondes, secondes / rapportAuPlancher, 2.0);
        m_dessin.reset();
        malloc_trim(0);
        const std::size_t avant = memoireOccupee();
        ouvrir();
        const double part = static_cast<double>(memoireOccupee() - avant) / static_cast<double>(taille);
        constexpr double partAdmise = 0.5;
        std::printf("%-46s %9.3f of the file   at most %.2f  %s\n", "memory beside the map", part, partAdmise,
                    verdict(part <= partAdmise));
    }

    /// Opens and closes every object; returns how many.
    std::size_t toutDecoder()
    {
        std::size_t nombre = 0;
        for (DxfRecord& enregistrement : m_dessin->impl().file().records()) {
            AcDbObject* objet = nullptr;
            if (enregistrement.handle != 0 &&
                acdbOpenAcDbObject(objet, AcDbObjectId(stubOf(&enregistrement)), AcDb::kForRead) == Acad::eOk) {
                objet->close();
                ++nombre;
            }
        }
        return nombre;
    }

    void mesurerDecodage()
    {
        const auto [secondes, rapportAuPlancher] = medianeAuPlancher(
            m_passes, [&] { ouvrir(); }, [&] { m_somme += parcourirNombres(m_carte.octets()).somme; },
            [&] { m_objets = toutDecoder(); });
        rapport("every object opened once (" + std::to_string(m_objets) + ")", secondes, secondes / rapportAuPlancher,
                3.0);
    }

    void enregistrer(AcDbDatabase& dessin)
    {
        if (dessin.saveAs(platform::wideFromUtf8(copie()).c_str()) != Acad::eOk)
            throw std::runtime_error(platform::utf8FromWide(dessin.lastError()));
    }

    void mesurerEnregistrement()
    {
        ouvrir();
        const auto effacer = [&] { std::filesystem::remove(copie()); };
        const double intact = mediane(m_passes, effacer, [&] { enregistrer(*m_dessin); });
        rapport("save, nothing changed", intact, m_ecriture, 1.5);
        const FichierMappe relu(copie());
        const bool egal = std::ranges::equal(relu.octets(), m_carte.octets());
        std::printf("%-46s %s\n", "saved file byte-equal", verdict(egal));
        mesurerChangements(effacer);
    }

    void mesurerChangements(const std::function<void()>& effacer)
    {
        const std::unique_ptr<AcDbDatabase> intact = std::move(m_dessin);
        mesurerChangement(*intact, effacer, "coloured", [](AcDbEntity& entite) { entite.setColorIndex(5, false); });
        mesurerChangement(*intact, effacer, "moved", [](AcDbEntity& entite) {
            entite.transformBy(AcGeMatrix3d::translation(AcGeVector3d(0.125, -0.25, 0.0)));
        });
    }

    void mesurerChangement(AcDbDatabase& intact, const std::function<void()>& effacer, const char* nom,
                           const std::function<void(AcDbEntity&)>& changement)
    {
        constexpr std::size_t nombre = 10000;
        constexpr int paires = 25; // the page cache swings by more than what is measured
        ouvrir();
        const std::size_t changes = changer(nombre, changement);
        enregistrer(*m_dessin); // what the blocks hold is listed once a drawing, by whatever asks first
        const double ecart = medianeDesEcarts(
            std::max(m_passes, paires), effacer, [&] { enregistrer(intact); }, [&] { enregistrer(*m_dessin); });
        std::printf("%-46s %9.2f µs an object\n",
                    ("save, " + std::to_string(changes) + " objects " + nom + ": beyond none").c_str(),
                    ecart / static_cast<double>(changes) * 1e6);
        // The numbers of as many objects as were changed: 15 of them were 2 µs an object where the bar was set.
        const double plancher = m_nombres * static_cast<double>(changes) / static_cast<double>(m_objets);
        rapport("the same", ecart, plancher, 15.0);
    }

    /// Changes the first entities; returns how many.
    std::size_t changer(std::size_t nombre, const std::function<void(AcDbEntity&)>& changement)
    {
        std::size_t changes = 0;
        for (DxfRecord& enregistrement : m_dessin->impl().file().records()) {
            AcDbEntity* entite = nullptr;
            if (changes == nombre)
                break;
            if (enregistrement.handle == 0 ||
                acdbOpenAcDbEntity(entite, AcDbObjectId(stubOf(&enregistrement)), AcDb::kForWrite) != Acad::eOk)
                continue;
            changement(*entite);
            entite->close();
            ++changes;
        }
        return changes;
    }

    /// The survey's own record: decoded to a chain, and set again from it.
    void mesurerLeve()
    {
        ouvrir();
        AcDbObjectId id;
        {
            AcDbObjectPointer<AcDbLayerTableRecord> calque(m_dessin->layerZero());
            AcDbObjectPointer<AcDbDictionary> dictionnaire(calque.object() ? calque->extensionDictionary()
                                                                           : AcDbObjectId());
            if (!dictionnaire.object() || dictionnaire->getAt(L"QUARVEL4_VELA_DATA", id) != Acad::eOk)
                return;
        }
        AcDbObjectPointer<AcDbXrecord> leve(id, AcDb::kForWrite);
        resbuf* chaine = nullptr;
        const double lu = mediane(
            m_passes, [&] { acutRelRb(chaine); }, [&] { leve->rbChain(&chaine); });
        const double ecrit = mediane(
            m_passes, [] {}, [&] { leve->setFromRbChain(*chaine); });
        acutRelRb(chaine);
        std::printf("survey xrecord: to a chain %.4f s, from a chain %.4f s\n", lu, ecrit);
    }

    void rapport(const std::string& nom, double secondes, double plancher, double admis)
    {
        const double rapport = secondes / plancher;
        std::printf("%-46s %9.4f s  %6.2f x the floor   at most %.1f  %s\n", nom.c_str(), secondes, rapport, admis,
                    verdict(rapport <= admis));
    }

    const char* verdict(bool tenu)
    {
        m_tenu = m_tenu && tenu;
        return tenu ? "held" : "NOT HELD";
    }

    std::string copie() const { return m_fichier + ".copie.dxf"; }

    std::string m_fichier;
    FichierMappe m_carte;
    int m_passes;
    std::unique_ptr<AcDbDatabase> m_dessin;
    double m_parcours = 0.0, m_nombres = 0.0, m_ecriture = 0.0, m_somme = 0.0;
    std::size_t m_objets = 0;
    bool m_tenu = true;
};

} // namespace

/// vela_bench_codec FILE.dxf [--runs N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    CLI::App options{"The drawing codec against the floors of this machine."};
    std::string fichier;
    int passes = 5;
    options.add_option("fichier", fichier, "text DXF file")->required();
    options.add_option("--runs", passes, "runs, of which the median counts")->check(CLI::Range(1, 1000));
    CLI11_PARSE(options, argc, argv);
    try {
        const bool tenu = banc(fichier, passes).mesurer();
        for (const char* fin : {".copie.dxf", ".copie.bak"})
            std::filesystem::remove(fichier + fin);
        return tenu ? 0 : 1;
    } catch (const std::exception& erreur) {
        std::fprintf(stderr, "%s\n", erreur.what());
        return 2;
    }
}
