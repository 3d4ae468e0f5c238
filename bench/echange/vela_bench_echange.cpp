#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <QTableView>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "codification/modelePoints.h"
#include "codification/tableCodification.h"
#include "echange/dessinEchange.h"
#include "echange/texteXYZ.h"
#include "exchange/ajoutPoints.h"
#include "exchange/exportPoints.h"
#include "exchange/lecteurPoints.h"
#include "mesures/mediane.h"
#include "mesures/memoire.h"
#include "mesures/tableauMesures.h"
#include "points/listePointsDuDessin.h"
#include "ui/application/VelaApplication.h"

/// Point files and the list of points.

namespace {

constexpr auto rien = [] {};

std::string texteColonnes(int nombre)
{
    std::string texte = "N°;X;Y;Z;Code\n";
    char ligne[128];
    for (int i = 0; i < nombre; ++i)
        texte.append(ligne, static_cast<std::size_t>(std::snprintf(
                                ligne, sizeof ligne, "%d;%.3f;%.3f;%.3f;%d\n", i + 1, 1650000.0 + i % 1000 * 1.237,
                                8180000.0 + i / 1000 * 1.111, 100.0 + i % 77 * 0.01, 1 + i % 20)));
    return texte;
}

/// The floor: every number of the text and nothing else.
double nombresSeuls(const std::string& texte)
{
    double somme = 0.0, valeur = 0.0;
    const char* p = texte.data();
    const char* const fin = p + texte.size();
    while (p != fin) {
        if (*p < '0' || *p > '9') {
            ++p;
            continue;
        }
        const auto lu = std::from_chars(p, fin, valeur);
        somme += valeur;
        p = lu.ptr;
    }
    return somme;
}

class banc {
public:
    banc(int passes, std::vector<int> tailles) : m_passes(passes), m_tableau(std::move(tailles), "point") {}

    bool mesurer()
    {
        m_tableau.enTete();
        mesurerLecture("read .xyz / from_chars of its numbers", texteXYZ, "leve.xyz", 3.0);
        mesurerLecture("read columns / from_chars of its numbers", texteColonnes, "leve.csv", 0.0);
        m_tableau.croissance("file to table", [this](int n) {
            const std::string texte = texteXYZ(n);
            return mediane(m_passes, rien, [&] { lireEnTable(texte, m_table.emplace()); });
        });
        mesurerListe();
        mesurerHtml();
        mesurerDessin(m_tableau, m_passes);
        return m_tableau.tenu();
    }

private:
    static void lireEnTable(const std::string& texte, listePointsDuDessin& table)
    {
        sourceMemoire source(texte);
        observationsEnAttente observations;
        ajouterPoints(table, lirePoints(source, "leve.xyz").points, nomsExistants::ajouter, observations);
    }

    void mesurerLecture(const char* nom, std::string (*ecrire)(int), const char* fichier, double admis)
    {
        const std::string texte = ecrire(m_tableau.tailles().back());
        const double plancher = mediane(m_passes, rien, [&] { m_temoin += nombresSeuls(texte); });
        const double lecture = mediane(m_passes, rien, [&] {
            sourceMemoire source(texte);
            m_temoin += static_cast<double>(lirePoints(source, fichier).points.size());
        });
        m_tableau.rapport(nom, lecture, plancher, admis);
    }

    /// What a user waits for at the largest size: a second to open the list, 0.3 s to see one code of it.
    void mesurerListe()
    {
        lireEnTable(texteXYZ(m_tableau.tailles().back()), m_table.emplace());
        const tableCodification codes;
        std::unique_ptr<modelePoints> modele;
        QTableView vue;
        const double ouverture = mediane(m_passes, rien, [&] {
            modele =
                std::make_unique<modelePoints>(*m_table, codes, QStringList{"N°", "X", "Y", "Z", "Code", "Libellé"});
            preparerVue(vue, *modele);
            vue.grab();
        });
        m_tableau.rapport("open the list / 1 s", ouverture, 1.0, 1.0);
        m_tableau.rapport("one code of it / 0.3 s",
                          mediane(m_passes, rien,
                                  [&] {
                                      modele->filtrer(7, {});
                                      vue.grab();
                                  }),
                          0.3, 1.0);
        modele->filtrer({}, {});
        m_tableau.rapport("sort by name / 1 s",
                          mediane(m_passes, rien, [&] { modele->sort(modelePoints::numero, Qt::DescendingOrder); }),
                          1.0, 0.0);
        vue.setModel(nullptr);
    }

    /// A page of any length takes the memory of one of its pieces.
    void mesurerHtml()
    {
        const auto fichier = std::filesystem::temp_directory_path() / ("vela_bench_" + std::to_string(getpid()));
        std::size_t avant = 0, sommet = 0;
        m_tableau.croissance("HTML list", [&](int n) {
            return mediane(1, rien, [&] {
                int i = 0;
                avant = memoireOccupee();
                sommet = avant;
                exporterPoints(fichier, formatExport::html, [&](pointExporte& p) {
                    p = {"P1", 1650000.0 + i, 8180000.0, 100.0, 1, {}};
                    if (i % 100000 == 0)
                        sommet = std::max(sommet, memoireOccupee());
                    return i++ < n;
                });
            });
        });
        std::filesystem::remove(fichier);
        m_tableau.rapport("memory of the largest page / 1 MB", static_cast<double>(sommet - avant), 1048576.0, 1.0);
    }

    int m_passes;
    tableauMesures m_tableau;
    std::optional<listePointsDuDessin> m_table;
    double m_temoin = 0.0;
};

} // namespace

int main(int argc, char** argv)
{
    CLI::App programme("Point files and the list of points");
    int passes = 3;
    std::vector<int> tailles{10000, 100000, 1000000};
    programme.add_option("--passes", passes, "runs of each measure");
    programme.add_option("--tailles", tailles, "numbers of points");
    CLI11_PARSE(programme, argc, argv);
    const bibliothequeSymboles symboles;
    const auto application = VelaApplication::make(VelaApplication::Screen::none);
    return banc(passes, tailles).mesurer() ? 0 : 1;
}
