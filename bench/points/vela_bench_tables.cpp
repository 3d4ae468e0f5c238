#include <algorithm>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <tuple>

#include <unistd.h>

#include "generateurs/dessinReleve.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "planchers/planchers.h"
#include "platform/CodePage.h"
#include "points/FileSerializer.h"
#include "points/leveGenere.h"
#include "points/projetDansDessin.h"
#include "points/ResbufSerializer.h"
#include "rx/Console.h"

#include "acutmem.h"
#include "dbapserv.h"
#include "dbmain.h"

/// Point tables of growing size, and the project of a drawing of 100 000 points.

namespace {

constexpr auto rien = [] {};

void exiger(bool fait, const char* quoi)
{
    if (!fait)
        throw std::runtime_error(std::string(quoi) + " failed");
}

void remplir(listePointsDuDessin& table, const std::vector<pointDuDessin>& points)
{
    for (const pointDuDessin& point : points)
        table.Ajouter(point);
}

/// A folder of this run's own, gone with it.
class dossierProvisoire {
public:
    dossierProvisoire() { std::filesystem::create_directories(m_chemin); }
    ~dossierProvisoire()
    {
        std::error_code sansSuite;
        std::filesystem::remove_all(m_chemin, sansSuite);
    }
    dossierProvisoire(const dossierProvisoire&) = delete;
    dossierProvisoire& operator=(const dossierProvisoire&) = delete;

    std::filesystem::path fichier(const char* nom) const { return m_chemin / nom; }

private:
    std::filesystem::path m_chemin =
        std::filesystem::temp_directory_path() / ("vela_bench_tables_" + std::to_string(getpid()));
};

class banc {
public:
    explicit banc(int passes) : m_passes(passes) {}

    bool mesurer()
    {
        m_tableau.enTete();
        mesurerPlanchers();
        mesurerNoms();
        mesurerEcriture();
        mesurerDoublons("anywhere", disposition::etalee);
        mesurerDoublons("on a grid", disposition::grille);
        mesurerDoublons("one at the origin", disposition::avecOrigine);
        mesurerProjetDuDessin();
        return m_tableau.tenu();
    }

private:
    /// What the caches of the machine make of growing tables, whoever fills or searches them.
    void mesurerPlanchers()
    {
        m_ecritureMemoire = m_tableau.plancher("copy of the points", [&](int n) {
            const std::vector<pointDuDessin> points = genererLeve(n, disposition::etalee);
            return mediane(m_passes, rien, [&] {
                const std::vector<pointDuDessin> copie(points);
                m_temoin += copie.back().getCode();
            });
        });
        // Each read says where the next one is, as a look-up ends before another begins.
        m_lectureMemoire = m_tableau.plancher("from point to point, in no order", [&](int n) {
            std::vector<pointDuDessin> points(static_cast<std::size_t>(n));
            int dernier = 0;
            for (const nomLarge& nom : nomsMeles(n, nommage::simple)) {
                const int i = std::stoi(nom.data()) - 1;
                points[static_cast<std::size_t>(dernier)].setCode(i);
                dernier = i;
            }
            return mediane(m_passes, rien, [&] {
                int i = 0;
                for (int pas = 0; pas < n; ++pas)
                    i = points[static_cast<std::size_t>(i)].getCode();
                m_temoin += i;
            });
        });
    }

    void mesurerNoms()
    {
        std::optional<listePointsDuDessin> table;
        std::vector<pointDuDessin> points;
        const auto plein = [&] { remplir(table.emplace(), points); };

        m_tableau.croissance(
            "add",
            [&](int n) {
                points = genererLeve(n, disposition::etalee);
                return mediane(
                    m_passes, [&] { table.emplace(); }, [&] { remplir(*table, points); });
            },
            m_ecritureMemoire);
        mesurerAnnulable();
        mesurerRecherche("find each by name, from new", nommage::simple, false);
        mesurerRecherche("find each by name, indexed", nommage::simple, true);
        mesurerRecherche("find each by name of 8, from new", nommage::complet, false);
        mesurerRecherche("find each by name of 8, indexed", nommage::complet, true);
        m_tableau.croissance(
            "number the nameless (one in ten)",
            [&](int n) {
                points = genererLeve(n, disposition::etalee, true);
                return mediane(m_passes, plein, [&] { table->renumeroter(false); });
            },
            m_lectureMemoire);
    }

    /// The table of a drawing whose undo covers it.
    void mesurerAnnulable()
    {
        AcDbDatabase dessin;
        dessin.disableUndoRecording(false);
        projetsTopo projet;
        setSrcInfosTopo(&dessin, &projet, 1, 0);
        std::vector<pointDuDessin> points;
        m_tableau.croissance(
            "add, where undo takes back",
            [&](int n) {
                points = genererLeve(n, disposition::etalee);
                return mediane(
                    m_passes, [&] { projet.reset(); }, [&] { remplir(*projet.currTable(), points); });
            },
            m_ecritureMemoire);
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
    }

    /// @param indexe false: the first look-up indexes the names, which adding left for later
    void mesurerRecherche(const std::string& ligne, nommage nommes, bool indexe)
    {
        m_tableau.croissance(
            ligne,
            [&](int n) {
                std::vector<pointDuDessin> points = genererLeve(n, disposition::etalee);
                for (int i = 0; i < n; ++i)
                    points[static_cast<std::size_t>(i)].setNomPoint(nomDuPoint(i + 1, nommes).c_str());
                const std::vector<nomLarge> noms = nomsMeles(n, nommes);
                std::optional<listePointsDuDessin> table;
                const auto plein = [&] { remplir(table.emplace(), points); };
                const auto chercherTout = [&] {
                    for (const nomLarge& nom : noms) {
                        int position = -1;
                        exiger(table->existPoint(nom.data(), position) != 0, "finding a point");
                        m_temoin += position;
                    }
                };
                plein();
                chercherTout();
                return indexe ? mediane(m_passes, rien, chercherTout) : mediane(m_passes, plein, chercherTout);
            },
            m_lectureMemoire);
    }

    void mesurerEcriture()
    {
        projetsTopo projet, relu;
        const auto preparer = [&](int n) {
            projet.reset();
            remplir(*projet.currTable(), genererLeve(n, disposition::etalee));
        };
        const auto ecrire = [&](QuarvelSerializer& s) { exiger(projet.SaveToXRecord(&s) != 0, "writing"); };
        const auto lire = [&](QuarvelSerializer& s) { exiger(relu.GetFromXRecord(&s) != 0, "reading"); };
        const auto vider = [&] { relu.removeAll(); };
        const std::wstring chemin = platform::wideFromUtf8(m_dossier.fichier("projet.bin").string());

        const auto ecrireFichier = [&] {
            FileSerializer s(chemin.c_str(), true);
            ecrire(s);
            exiger(s.fermer() != 0, "closing the file");
        };
        m_tableau.croissance("project to a file", [&](int n) {
            preparer(n);
            return mediane(m_passes, rien, ecrireFichier);
        });
        m_tableau.croissance("project from a file", [&](int n) {
            preparer(n);
            ecrireFichier();
            return mediane(m_passes, vider, [&] {
                FileSerializer s(chemin.c_str(), false);
                lire(s);
            });
        });
        m_tableau.croissance(
            "project to a chain, released",
            [&](int n) {
                preparer(n);
                return mediane(m_passes, rien, [&] {
                    ResbufSerializer s;
                    ecrire(s);
                });
            },
            m_ecritureMemoire);
        m_tableau.croissance(
            "project from a chain",
            [&](int n) {
                preparer(n);
                ResbufSerializer s;
                ecrire(s);
                return mediane(m_passes, vider, [&] { lire(s); });
            },
            m_ecritureMemoire);
    }

    void mesurerDoublons(const std::string& nom, disposition lieux)
    {
        struct cle {
            double x, y;
            int code;
        };
        std::vector<pointDuDessin> points;
        std::optional<listePointsDuDessin> table;
        const auto enlever = [&](int n) {
            points = genererLeve(n, lieux);
            const double secondes = mediane(
                m_passes, [&] { remplir(table.emplace(), points); }, [&] { table->delDups(); });
            exiger(table->nbPoint() == n - n / 10, "removing duplicates");
            return secondes;
        };
        const auto trier = [&] {
            std::vector<cle> cles;
            return mediane(
                m_passes,
                [&] {
                    cles.clear();
                    for (const pointDuDessin& p : points)
                        cles.push_back({p.getX(), p.getY(), p.getCode()});
                },
                [&] { std::ranges::sort(cles, std::less(), [](const cle& c) { return std::tie(c.x, c.y, c.code); }); });
        };
        std::vector<std::tuple<int, double, double>> rapports;
        m_tableau.croissance(
            "remove duplicates, " + nom,
            [&](int n) {
                const double secondes = enlever(n);
                rapports.emplace_back(n, secondes, trier());
                return secondes;
            },
            m_ecritureMemoire);
        for (const auto& [n, secondes, plancher] : rapports)
            m_tableau.rapport("  against std::sort, " + std::to_string(n), secondes, plancher, 2.0);
    }

    /// The project of a drawing, by the calls that a session makes.
    void mesurerProjetDuDessin()
    {
        constexpr int nombre = 100000;
        const std::filesystem::path fichier = m_dossier.fichier("leve.dxf");
        ecrireDessinReleve(fichier, {.points = nombre});
        std::unique_ptr<AcDbDatabase> dessin;
        projetsTopo projet;
        const auto ouvrir = [&] {
            projet.reset();
            dessin = std::make_unique<AcDbDatabase>(false);
            exiger(dessin->readDwgFile(platform::wideFromUtf8(fichier.string()).c_str()) == Acad::eOk, "opening");
            acdbHostApplicationServices()->setWorkingDatabase(dessin.get());
        };
        const FichierMappe carte(fichier);
        double somme = 0.0;
        const double nombres = mediane(
            m_passes, [] {}, [&] { somme += parcourirNombres(carte.octets()).somme; });
        std::printf("floor: every number of the drawing %.4f s (sum %g)\n", nombres, somme);
        const auto lire = [&] { setSrcInfosTopo(dessin.get(), &projet, 1, 1); };
        m_tableau.rapport("survey xrecord into the tables, 100 000", mediane(m_passes, ouvrir, lire), nombres, 0.68);
        exiger(projet.nbTables() == 4 && projet.getTable(2)->nbPoint() == nombre - nombre / 3, "reading the project");
        const auto ouvrirEtLire = [&] {
            ouvrir();
            lire();
        };
        m_tableau.rapport("written, 100 000", mediane(m_passes, ouvrirEtLire, enregistrerInfosTopo), nombres, 0.91);
        setSrcInfosTopo(nullptr, nullptr, 0, 0);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    int m_passes;
    tableauMesures m_tableau{{10000, 100000, 1000000}, "point"};
    dossierProvisoire m_dossier;
    double m_ecritureMemoire = 1.0, m_lectureMemoire = 1.0; // nanoseconds a point
    long long m_temoin = 0;                                 // what was found, so that it is looked for
};

} // namespace

/// vela_bench_tables [--runs N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    Console::instance().setSink([](const std::wstring&) {});
    return lancerMesures(argc, argv, "Point tables of 10 000 to 1 000 000 points.", 5,
                         [](int passes) { return banc(passes).mesurer(); });
}
