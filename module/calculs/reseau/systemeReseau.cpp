#include "calculs/reseau/systemeReseau.h"

#include <algorithm>
#include <cmath>

#include "calculs/reseau/resultatReseau.h"
#include "calculs/reseau/symetriquePetite.h"

namespace {

bool cherchee(tenue t)
{
    return t == tenue::libre || t == tenue::appui;
}

} // namespace

systemeReseau::systemeReseau(const reseau& r, std::vector<int> retenues, const std::vector<double>& ecarts) :
    m_reseau(r),
    m_retenues(std::move(retenues)),
    m_equations(m_retenues.size()),
    m_facteurs(m_retenues.size(), 1.0)
{
    coordonneesReseau nulles;
    nulles.x.resize(r.points.size());
    nulles.y = nulles.z = nulles.x;
    nulles.orientations.resize(static_cast<std::size_t>(r.series));
    for (std::size_t p = 0; p < r.points.size(); ++p) { // no two points at one place: every derivative is there
        nulles.x[p] = static_cast<double>(p);
        nulles.y[p] = static_cast<double>(p) * 0.5;
    }
    evaluer(nulles);
    numeroter();
    peser(ecarts);
    preparerMatrice();
}

void systemeReseau::numeroter()
{
    const std::size_t rangs = 3 * m_reseau.points.size() + static_cast<std::size_t>(m_reseau.series);
    m_colonnes.assign(rangs, -1);
    for (const equationObservation& e : m_equations)
        for (int i = 0; i < e.nombre; ++i) {
            const auto rang = static_cast<std::size_t>(e.rang[i]);
            const bool orientation = rang >= 3 * m_reseau.points.size();
            if (m_colonnes[rang] >= 0)
                continue;
            if (!orientation) {
                const pointReseau& p = m_reseau.points[rang / 3];
                if (!cherchee(rang % 3 == 2 ? p.altitude : p.plan))
                    continue;
            }
            m_colonnes[rang] = 0;
        }
    for (std::size_t rang = 0; rang < rangs; ++rang)
        if (m_colonnes[rang] == 0) {
            m_colonnes[rang] = static_cast<int>(m_rangs.size());
            m_rangs.push_back(static_cast<int>(rang));
        }
}

void systemeReseau::peser(const std::vector<double>& ecarts)
{
    const double variance = m_reseau.sigma * m_reseau.sigma;
    m_poids.resize(m_retenues.size());
    m_bloc.assign(m_retenues.size(), -1);
    m_dansBloc.assign(m_retenues.size(), 0);
    std::vector<int> placeDe(m_reseau.observations.size(), -1);
    for (std::size_t k = 0; k < m_retenues.size(); ++k) {
        const auto o = static_cast<std::size_t>(m_retenues[k]);
        placeDe[o] = static_cast<int>(k);
        m_poids[k] = variance / (ecarts[o] * ecarts[o]);
    }
    for (const blocCovariance& donnee : m_reseau.covariances) {
        bloc b;
        std::vector<std::size_t> lignes;
        for (std::size_t i = 0; i < donnee.observations.size(); ++i)
            if (const int place = placeDe[static_cast<std::size_t>(donnee.observations[i])]; place >= 0) {
                b.places.push_back(place);
                lignes.push_back(i);
            }
        for (const std::size_t i : lignes)
            for (const std::size_t j : lignes)
                b.poids.push_back(donnee.matrice[i * donnee.observations.size() + j] / variance);
        if (!inverserSymetrique(b.poids, lignes.size()))
            throw erreurReseau(
                L"une matrice de covariances n'est pas définie positive (observation de la ligne " +
                std::to_wstring(m_reseau.observations[static_cast<std::size_t>(donnee.observations.front())].ligne) +
                L").");
        for (std::size_t i = 0; i < b.places.size(); ++i) {
            m_bloc[static_cast<std::size_t>(b.places[i])] = static_cast<int>(m_blocs.size());
            m_dansBloc[static_cast<std::size_t>(b.places[i])] = static_cast<int>(i);
            m_poids[static_cast<std::size_t>(b.places[i])] = b.poids[i * b.places.size() + i];
        }
        m_blocs.push_back(std::move(b));
    }
}

void systemeReseau::preparerMatrice()
{
    std::vector<std::vector<int>> voisins(m_rangs.size());
    std::vector<int> ensemble;
    const auto prendre = [&](int place) {
        const equationObservation& e = equation(place);
        for (int i = 0; i < e.nombre; ++i)
            if (const int inconnue = inconnueDe(e.rang[i]); inconnue >= 0)
                ensemble.push_back(inconnue);
    };
    const auto joindre = [&] {
        std::ranges::sort(ensemble);
        ensemble.erase(std::unique(ensemble.begin(), ensemble.end()), ensemble.end());
        for (std::size_t i = 0; i < ensemble.size(); ++i) {
            auto& liste = voisins[static_cast<std::size_t>(ensemble[i])];
            for (std::size_t j = i + 1; j < ensemble.size(); ++j) {
                const auto place = std::ranges::lower_bound(liste, ensemble[j]);
                if (place == liste.end() || *place != ensemble[j])
                    liste.insert(place, ensemble[j]);
            }
        }
        ensemble.clear();
    };
    for (std::size_t k = 0; k < m_retenues.size(); ++k)
        if (m_bloc[k] < 0) {
            prendre(static_cast<int>(k));
            joindre();
        }
    for (const bloc& b : m_blocs) {
        for (const int place : b.places)
            prendre(place);
        joindre();
    }
    m_matrice = std::make_unique<matriceNormale>(voisins);
}

double systemeReseau::evaluer(const coordonneesReseau& c)
{
    for (std::size_t k = 0; k < m_retenues.size(); ++k)
        m_equations[k] = equationDe(m_reseau.observations[static_cast<std::size_t>(m_retenues[k])], c);
    return sommePvv();
}

double systemeReseau::sommePvv() const
{
    double somme = 0.0;
    for (std::size_t k = 0; k < m_poids.size(); ++k)
        somme += m_equations[k].ecart * residuPese(static_cast<int>(k));
    return somme;
}

void systemeReseau::expliquer(const std::vector<double>& pas)
{
    for (equationObservation& e : m_equations)
        for (int i = 0; i < e.nombre; ++i)
            if (const int inconnue = inconnueDe(e.rang[i]); inconnue >= 0)
                e.ecart -= e.derivee[i] * pas[static_cast<std::size_t>(inconnue)];
}

/// The factors of robust estimation weigh both sides alike.
double systemeReseau::facteurCroise(int a, int b) const
{
    return a == b ? m_facteurs[static_cast<std::size_t>(a)]
                  : std::sqrt(m_facteurs[static_cast<std::size_t>(a)] * m_facteurs[static_cast<std::size_t>(b)]);
}

double systemeReseau::poidsCroise(int place, int autre) const
{
    const int b = m_bloc[static_cast<std::size_t>(place)];
    if (place == autre)
        return m_poids[static_cast<std::size_t>(place)] * m_facteurs[static_cast<std::size_t>(place)];
    if (b < 0 || b != m_bloc[static_cast<std::size_t>(autre)])
        return 0.0;
    const bloc& bl = m_blocs[static_cast<std::size_t>(b)];
    return facteurCroise(place, autre) *
           bl.poids[static_cast<std::size_t>(m_dansBloc[static_cast<std::size_t>(place)]) * bl.places.size() +
                    static_cast<std::size_t>(m_dansBloc[static_cast<std::size_t>(autre)])];
}

double systemeReseau::poids(int place) const
{
    return poidsCroise(place, place);
}

std::vector<int> systemeReseau::correlees(int place) const
{
    const int b = m_bloc[static_cast<std::size_t>(place)];
    return b < 0 ? std::vector<int>{place} : m_blocs[static_cast<std::size_t>(b)].places;
}

double systemeReseau::residuPese(int place) const
{
    const int b = m_bloc[static_cast<std::size_t>(place)];
    if (b < 0)
        return poids(place) * equation(place).ecart;
    double somme = 0.0;
    for (const int autre : m_blocs[static_cast<std::size_t>(b)].places)
        somme += poidsCroise(place, autre) * equation(autre).ecart;
    return somme;
}

void systemeReseau::colonneNormale(int place, std::vector<std::pair<int, double>>& b) const
{
    b.clear();
    const auto ajouter = [&](int autre, double poids) {
        const equationObservation& e = equation(autre);
        for (int i = 0; i < e.nombre; ++i)
            if (const int inconnue = inconnueDe(e.rang[i]); inconnue >= 0)
                b.emplace_back(inconnue, poids * e.derivee[i]);
    };
    if (m_bloc[static_cast<std::size_t>(place)] < 0)
        return ajouter(place, poids(place));
    for (const int autre : correlees(place))
        if (const double p = poidsCroise(place, autre); p != 0.0)
            ajouter(autre, p);
}

/// aᵀ·poids·b for two observations: into the matrix once a pair of unknowns, and into the right-hand side.
void systemeReseau::ajouterProduit(int a, int b, double poids, std::vector<double>& second)
{
    const equationObservation &ea = equation(a), &eb = equation(b);
    for (int i = 0; i < ea.nombre; ++i) {
        const int colonneA = inconnueDe(ea.rang[i]);
        if (colonneA < 0)
            continue;
        const double pese = poids * ea.derivee[i];
        second[static_cast<std::size_t>(colonneA)] += pese * eb.ecart;
        for (int j = 0; j < eb.nombre; ++j)
            if (const int colonneB = inconnueDe(eb.rang[j]); colonneB >= colonneA)
                m_matrice->ajouter(colonneA, colonneB, pese * eb.derivee[j]);
    }
}

std::vector<double> systemeReseau::assembler()
{
    m_matrice->vider();
    std::vector<double> second(m_rangs.size(), 0.0);
    for (std::size_t k = 0; k < m_retenues.size(); ++k)
        if (m_bloc[k] < 0)
            ajouterProduit(static_cast<int>(k), static_cast<int>(k), poids(static_cast<int>(k)), second);
    for (const bloc& b : m_blocs)
        for (const int a : b.places)
            for (const int autre : b.places)
                if (const double p = poidsCroise(a, autre); p != 0.0)
                    ajouterProduit(a, autre, p, second);
    m_matrice->factoriser();
    return second;
}

void systemeReseau::avancer(coordonneesReseau& c, const std::vector<double>& pas, double facteur) const
{
    const std::size_t points = m_reseau.points.size();
    for (std::size_t i = 0; i < pas.size(); ++i) {
        const auto rang = static_cast<std::size_t>(m_rangs[i]);
        if (rang >= 3 * points)
            c.orientations[rang - 3 * points] += facteur * pas[i];
        else
            (rang % 3 == 0 ? c.x : rang % 3 == 1 ? c.y : c.z)[rang / 3] += facteur * pas[i];
    }
}
