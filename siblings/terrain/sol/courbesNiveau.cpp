#include "sol/courbesNiveau.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "sol/courbesDoublees.h"

namespace {

/// Where a line crosses a side of a triangle.
struct passage {
    lieuSol lieu;
    int triangle = -1; // the one that the line leaves there
    int cote = 0;
};

/// A line as traced: a corner on each side that it crosses.
struct trace {
    std::vector<passage> passages;
    bool fermee = false;
    bool crete = false; // along a crest, of which the way back is gone
};

class traceur {
public:
    explicit traceur(const maillageTerrain& leSol) : sol(leSol), vus(leSol.triangles().size(), -1) {}

    /// @param traverses triangles that have corners on both hands of the altitude
    std::vector<trace> tracer(double hauteur, int niveau, const std::vector<int>& traverses)
    {
        altitude = hauteur;
        rang = niveau;
        std::vector<trace> traces;
        // From the rim first: what is left over is closed.
        for (const bool duBord : {true, false})
            for (const int t : traverses)
                if (vus[static_cast<std::size_t>(t)] != rang && (!duBord || !dansLeModele(t, entree(t))))
                    traces.push_back(suivre(t, !duBord));
        return traces;
    }

private:
    bool dessus(const sommetSol& s) const { return s.z >= altitude; }
    /// The ground rises on the left: a line enters where a side goes from above to below, and leaves by the other one.
    int entree(int t) const { return coteOu(t, true); }
    int sortie(int t) const { return coteOu(t, false); }
    int coteOu(int t, bool depuisLeHaut) const
    {
        int i = 0;
        while (dessus(sol.debut(t, i)) != depuisLeHaut || dessus(sol.fin(t, i)) == depuisLeHaut)
            ++i;
        return i;
    }
    bool dansLeModele(int t, int i) const
    {
        const int autre = sol.voisin(t, i);
        return autre >= 0 && sol.triangle(autre).dedans;
    }
    passage en(int t, int i) const
    {
        // From the lower end, whichever triangle asks: both find the same place.
        const sommetSol *bas = &sol.debut(t, i), *haut = &sol.fin(t, i);
        if (bas->z > haut->z)
            std::swap(bas, haut);
        if (haut->z == altitude)
            return {*haut, t, i};
        const double part = (altitude - bas->z) / (haut->z - bas->z);
        return {{bas->x + part * (haut->x - bas->x), bas->y + part * (haut->y - bas->y)}, t, i};
    }

    trace suivre(int t, bool fermee)
    {
        trace ligne;
        ligne.fermee = fermee;
        if (!fermee)
            ligne.passages.push_back(en(t, entree(t)));
        for (;;) {
            vus[static_cast<std::size_t>(t)] = rang;
            const int i = sortie(t);
            ligne.passages.push_back(en(t, i));
            if (!dansLeModele(t, i))
                return ligne;
            t = sol.voisin(t, i);
            if (vus[static_cast<std::size_t>(t)] == rang)
                return ligne;
        }
    }

    const maillageTerrain& sol;
    std::vector<int> vus; // level of the last line through a triangle: one line of a level at most
    double altitude = 0.0;
    int rang = 0;
};

// ---- rounding of corners

lieuSol entre(const lieuSol& p, const lieuSol& q, double part)
{
    return {p.x + part * (q.x - p.x), p.y + part * (q.y - p.y)};
}

/// How far along its two sides a corner may be cut (at most the half of each): the cut meets the side of the triangles
/// that holds the corner short of the side's end, and where the ground is within 0.49 interval of the line.
double partCoupee(const maillageTerrain& sol, const passage& coin, const lieuSol& avant, const lieuSol& apres,
                  double intervalle)
{
    constexpr double bande = 0.49, avantLeBout = 0.9, moitie = 0.5;
    const sommetSol &u = sol.debut(coin.triangle, coin.cote), &w = sol.fin(coin.triangle, coin.cote);
    const double dx = w.x - u.x, dy = w.y - u.y;
    const lieuSol& p = coin.lieu;
    // The whole cut, from the corner before to the one after, meets the line of the side at `sur`.
    const double a = (avant.x - p.x) * dy - (avant.y - p.y) * dx;
    const double b = (apres.x - p.x) * dy - (apres.y - p.y) * dx;
    if (!(a * b < 0.0))
        return 0.0;
    const lieuSol sur = entre(avant, apres, a / (a - b));
    const auto surLeCote = [&](const lieuSol& q) {
        return ((q.x - p.x) * dx + (q.y - p.y) * dy) / (dx * dx + dy * dy);
    };
    const double deplace = surLeCote(sur); // in lengths of the side, towards w
    if (deplace == 0.0)
        return moitie;
    const double reste = avantLeBout * surLeCote(deplace > 0.0 ? lieuSol(w) : lieuSol(u));
    const double permis = std::min(bande * intervalle / std::abs(w.z - u.z), std::abs(reste));
    return std::min(moitie, permis / std::abs(deplace));
}

/// The corner rounded: a parabola from side to side, with a point for each ten degrees of turn.
void arrondir(std::vector<lieuSol>& points, const lieuSol& avant, const lieuSol& p, const lieuSol& apres, double part)
{
    const lieuSol debut = entre(p, avant, part), fin = entre(p, apres, part);
    const double virage = std::abs(std::remainder(
        std::atan2(apres.y - p.y, apres.x - p.x) - std::atan2(p.y - avant.y, p.x - avant.x), 2.0 * std::numbers::pi));
    const int pas = std::clamp(static_cast<int>(std::ceil(virage / 0.17)), 1, 18);
    for (int i = 0; i <= pas; ++i) {
        const double s = static_cast<double>(i) / pas;
        points.push_back(entre(entre(debut, p, s), entre(p, fin, s), s));
    }
}

std::vector<lieuSol> lissee(const maillageTerrain& sol, const trace& ligne, double intervalle)
{
    const std::size_t nombre = ligne.passages.size();
    std::vector<lieuSol> points;
    for (std::size_t i = 0; i < nombre; ++i) {
        const passage& coin = ligne.passages[i];
        const bool bout = !ligne.fermee && (i == 0 || i + 1 == nombre);
        if (bout || sol.triangle(coin.triangle).contrainte(coin.cote)) {
            points.push_back(coin.lieu);
            continue;
        }
        const lieuSol& avant = ligne.passages[(i + nombre - 1) % nombre].lieu;
        const lieuSol& apres = ligne.passages[(i + 1) % nombre].lieu;
        const double part = partCoupee(sol, coin, avant, apres, intervalle);
        if (part > 0.0)
            arrondir(points, avant, coin.lieu, apres, part);
        else
            points.push_back(coin.lieu);
    }
    return points;
}

std::vector<lieuSol> brute(const trace& ligne)
{
    std::vector<lieuSol> points;
    points.reserve(ligne.passages.size());
    for (const passage& p : ligne.passages)
        points.push_back(p.lieu);
    return points;
}

void sansRepetition(courbeNiveau& courbe)
{
    auto& points = courbe.points;
    points.erase(std::unique(points.begin(), points.end()), points.end());
    while (courbe.fermee && points.size() > 1 && points.front() == points.back())
        points.pop_back();
}

/// What a line draws that lines of its altitude before it have not drawn.
std::vector<trace> sansDoublons(const maillageTerrain& sol, const trace& ligne, double altitude, courbesDoublees& vus)
{
    const auto auSommet = [&](const passage& p) {
        return sol.debut(p.triangle, p.cote).z == altitude || sol.fin(p.triangle, p.cote).z == altitude;
    };
    std::vector<bool> sommets;
    for (const passage& p : ligne.passages)
        sommets.push_back(auSommet(p));
    const std::size_t nombre = ligne.passages.size();
    const auto gardes = vus.garder(brute(ligne), sommets, ligne.fermee);
    if (gardes.size() == 1 && gardes[0].fin - gardes[0].debut == (ligne.fermee ? nombre : nombre - 1))
        return {ligne};
    std::vector<trace> traces;
    for (const auto& [debut, fin] : gardes) {
        trace& t = traces.emplace_back();
        for (std::size_t i = debut; i <= fin; ++i)
            t.passages.push_back(ligne.passages[i % nombre]);
        t.crete = std::ranges::all_of(t.passages, auSommet); // its corners are those of the ground
    }
    return traces;
}

/// The triangles that each altitude passes, by its number from `premier`.
std::vector<std::vector<int>> traverses(const maillageTerrain& sol, double intervalle, double premier, int nombre)
{
    std::vector<std::vector<int>> parNiveau(static_cast<std::size_t>(nombre));
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        if (!sol.triangle(t).dedans)
            continue;
        const auto [bas, haut] = std::minmax({sol.coin(t, 0).z, sol.coin(t, 1).z, sol.coin(t, 2).z});
        // A line passes where some corner is below it and some is not.
        auto k = static_cast<int>(std::max(0.0, std::floor(bas / intervalle) - premier));
        for (; k < nombre && (premier + k) * intervalle <= haut; ++k)
            if ((premier + k) * intervalle > bas)
                parNiveau[static_cast<std::size_t>(k)].push_back(t);
    }
    return parNiveau;
}

} // namespace

double nombreAltitudes(const maillageTerrain& sol, double intervalle)
{
    return std::floor(sol.altitudeMax() / intervalle) - std::ceil(sol.altitudeMin() / intervalle) + 1.0;
}

std::vector<courbeNiveau> courbesDeNiveau(const maillageTerrain& sol, const demandeCourbes& demande)
{
    std::vector<courbeNiveau> courbes;
    const double premier = std::ceil(sol.altitudeMin() / demande.intervalle);
    const int nombre = static_cast<int>(std::max(0.0, nombreAltitudes(sol, demande.intervalle)));
    const auto parNiveau = traverses(sol, demande.intervalle, premier, nombre);
    traceur plume(sol);
    for (int k = 0; k < nombre; ++k) {
        const double altitude = (premier + k) * demande.intervalle;
        courbesDoublees cretes;
        for (const trace& entiere : plume.tracer(altitude, k, parNiveau[static_cast<std::size_t>(k)]))
            for (const trace& ligne : sansDoublons(sol, entiere, altitude, cretes)) {
                const bool lisser = demande.lisser && !ligne.crete;
                courbeNiveau courbe{altitude, ligne.fermee,
                                    lisser ? lissee(sol, ligne, demande.intervalle) : brute(ligne)};
                sansRepetition(courbe);
                if (courbe.points.size() > 1)
                    courbes.push_back(std::move(courbe));
            }
    }
    return courbes;
}
