#include <algorithm>
#include <charconv>
#include <map>
#include <stdexcept>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "generateurs/boucleStations.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "reports/htmlDocument.h"

/// Closed and open traverses of growing length: what a leg costs must not depend on how many there are.

namespace {

constexpr auto rien = [] {};

/// A generated traverse, as its file and as read from it.
struct polygonaleGeneree {
    std::string contenu;
    donneesPolygonaleFermee donnees;
    std::vector<observationPolygonale> observations;
};

polygonaleGeneree generer(int cotes)
{
    polygonaleGeneree p;
    p.contenu = fichierObservations(genererBoucle(cotes));
    lirePolygonale(p.contenu, p.donnees);
    p.observations = observationsDe(p.donnees.lignes);
    if (p.observations.size() != static_cast<std::size_t>(cotes))
        throw std::runtime_error("the generated traverse was not read whole");
    return p;
}

/// The floor of reading: every number that stands outside double quotes.
double sommeDesNombres(std::string_view contenu)
{
    double somme = 0.0;
    const char* p = contenu.data();
    const char* const fin = p + contenu.size();
    while (p < fin) {
        if (*p == '"')
            p = std::find(p + 1, fin, '"');
        double nombre = 0.0;
        const auto [suite, erreur] = std::from_chars(p, fin, nombre);
        if (erreur == std::errc()) {
            somme += nombre;
            p = suite;
        } else if (p < fin) {
            ++p;
        }
    }
    return somme;
}

class banc {
public:
    explicit banc(int passes) : m_passes(passes)
    {
        for (const int taille : m_tableau.tailles())
            m_polygonales.emplace(taille, generer(taille));
    }

    bool mesurer()
    {
        m_tableau.enTete();
        const std::vector<std::pair<int, std::string>> modes{{nivellementAucun, "none"},
                                                             {nivellementSimple, "simple"},
                                                             {nivellementDistance, "by distance"},
                                                             {nivellementRacine, "by root"}};
        for (const auto& [mode, nom] : modes)
            m_tableau.croissance("computation, levelling " + nom, [&](int n) { return calculer(n, mode); });
        const double copie = m_tableau.plancher("copy of the report", [&](int n) { return copierRapport(n); });
        for (const auto& [mode, nom] : modes)
            m_tableau.croissance(
                "report, levelling " + nom, [&](int n) { return rapporter(resultat(n, mode)); }, copie);
        m_tableau.croissance("open traverse, levelling by distance", [&](int n) { return calculerOuverte(n); });
        m_tableau.croissance(
            "open traverse, report, levelling by distance", [&](int n) { return rapporter(ouverte(n)); }, copie);
        m_tableau.croissance("read the file", [&](int n) { return lire(n); });
        m_tableau.croissance("write the file", [&](int n) { return ecrire(n); });
        for (const int taille : m_tableau.tailles())
            comparerLecture(taille);
        return m_tableau.tenu();
    }

private:
    resultatPolygonaleFermee resultat(int n, int mode) const
    {
        const polygonaleGeneree& p = m_polygonales.at(n);
        return compenserPolygonaleFermee(p.donnees.depart, mode, p.donnees.unite, p.observations);
    }

    double calculer(int n, int mode)
    {
        return mediane(m_passes, rien, [&] { m_temoin += resultat(n, mode).fermeturePlanimetrique; });
    }

    /// The loop as an open traverse that ends where it began: as many legs, and bearings that keep growing.
    resultatPolygonaleOuverte ouverte(int n) const
    {
        const polygonaleGeneree& p = m_polygonales.at(n);
        const stationPolygonale& d = p.donnees.depart;
        return compenserPolygonaleOuverte(d, d, 200.0, nivellementDistance, p.donnees.unite, p.observations);
    }

    double calculerOuverte(int n)
    {
        return mediane(m_passes, rien, [&] { m_temoin += ouverte(n).fermeturePlanimetrique; });
    }

    template <class Resultat>
    double rapporter(const Resultat& r)
    {
        return mediane(m_passes, rien, [&] {
            htmlDocument document;
            rapporterPolygonale(r, document);
            m_temoin += static_cast<double>(document.text().size());
        });
    }

    double copierRapport(int n)
    {
        htmlDocument document;
        rapporterPolygonale(resultat(n, nivellementDistance), document);
        const std::string texte = document.text();
        return mediane(m_passes, rien, [&] {
            const std::string autre(texte);
            m_temoin += static_cast<double>(autre.size());
        });
    }

    double lire(int n)
    {
        return mediane(m_passes, rien, [&] {
            donneesPolygonaleFermee donnees;
            lirePolygonale(m_polygonales.at(n).contenu, donnees);
            for (const observationPolygonale& o : observationsDe(donnees.lignes))
                m_temoin += o.distance;
        });
    }

    double ecrire(int n)
    {
        return mediane(m_passes, rien,
                       [&] { m_temoin += static_cast<double>(contenuPolygonale(m_polygonales.at(n).donnees).size()); });
    }

    void comparerLecture(int n)
    {
        const double plancher =
            mediane(m_passes, rien, [&] { m_temoin += sommeDesNombres(m_polygonales.at(n).contenu); });
        m_tableau.rapport("read the file, " + std::to_string(n) + " legs", lire(n), plancher, 0.0);
    }

    int m_passes;
    tableauMesures m_tableau{{1000, 10000, 100000}, "leg"};
    std::map<int, polygonaleGeneree> m_polygonales;
    double m_temoin = 0.0; // what was computed, so that it is
};

} // namespace

/// vela_bench_polygonale [--runs N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Closed traverses of 1 000 to 100 000 legs.", 5,
                         [](int passes) { return banc(passes).mesurer(); });
}
