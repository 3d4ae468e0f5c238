#include "sol/parcoursTerrain.h"

#include <algorithm>
#include <cmath>

#include "sol/orientation.h"

namespace {

bool memeCellule(const maillageTerrain& sol, int t, const lieuSol& lieu)
{
    // The last triangle is a good place to begin at when it is as near as the grid's cells are large.
    const sommetSol& a = sol.coin(t, 0);
    const sommetSol& b = sol.coin(t, 1);
    const double pres = std::abs(b.x - a.x) + std::abs(b.y - a.y);
    return std::abs(lieu.x - a.x) + std::abs(lieu.y - a.y) <= 4.0 * pres;
}

} // namespace

int parcoursTerrain::triangleEn(const lieuSol& lieu)
{
    if (sol.vide() || !std::isfinite(lieu.x) || !std::isfinite(lieu.y))
        return -1;
    int t = dernier >= 0 && memeCellule(sol, dernier, lieu) ? dernier : sol.departPres(lieu);
    int venuPar = -1;
    for (;;) {
        hasard = hasard * 1664525U + 1013904223U;
        const int premier = static_cast<int>(hasard >> 16U) % 3;
        int sortie = -1;
        for (int n = 0; n < 3 && sortie < 0; ++n) {
            const int i = (premier + n) % 3;
            if (i != venuPar && orientation(sol.debut(t, i), sol.fin(t, i), lieu) < 0.0)
                sortie = i;
        }
        if (sortie < 0)
            return dernier = t;
        const int suivant = sol.voisin(t, sortie);
        if (suivant < 0) { // the hull is convex: beyond one of its sides is outside
            dernier = t;
            return -1;
        }
        venuPar = sol.coteEnFace(t, sortie);
        t = suivant;
    }
}

/// Fills `voisinage` with the triangles whose closed area holds a place that `t` holds.
void parcoursTerrain::autour(int t, const lieuSol& lieu)
{
    voisinage.assign(1, t);
    for (std::size_t n = 0; n < voisinage.size(); ++n)
        for (int i = 0; i < 3; ++i) {
            const int suivant = sol.voisin(voisinage[n], i);
            if (suivant >= 0 && orientation(sol.debut(voisinage[n], i), sol.fin(voisinage[n], i), lieu) == 0.0 &&
                std::find(voisinage.begin(), voisinage.end(), suivant) == voisinage.end())
                voisinage.push_back(suivant);
        }
}

int parcoursTerrain::triangleDedans(const lieuSol& lieu)
{
    const int t = triangleEn(lieu);
    if (t < 0 || sol.triangle(t).dedans)
        return t;
    autour(t, lieu);
    const auto trouve =
        std::find_if(voisinage.begin(), voisinage.end(), [this](int v) { return sol.triangle(v).dedans; });
    return trouve == voisinage.end() ? -1 : *trouve;
}

std::optional<double> parcoursTerrain::altitude(const lieuSol& lieu)
{
    const int t = triangleDedans(lieu);
    if (t < 0)
        return std::nullopt;
    return sol.altitudeDans(t, lieu);
}

// ---- what a segment passes over

/// The way of a segment over the triangles. A vertex exactly on the line counts as on its left (or right, when told):
/// so the way crosses sides of triangles only, never a vertex, and it is known which side comes next.
struct parcoursTerrain::traversee {
    const maillageTerrain& sol;
    lieuSol de, vers;
    bool zeroAGauche;
    polylignes& troncons;
    std::vector<sommetSol> enCours;

    double cote(const lieuSol& s) const { return orientation(de, vers, s); }
    bool gauche(double valeur) const { return valeur > 0.0 || (valeur == 0.0 && zeroAGauche); }
    bool gauche(const lieuSol& s) const { return gauche(cote(s)); }

    /// The side by which the way leaves a triangle, -1 when it only touches it: from right to left as seen along it.
    int sortie(int t) const
    {
        for (int i = 0; i < 3; ++i)
            if (!gauche(sol.debut(t, i)) && gauche(sol.fin(t, i)))
                return i;
        return -1;
    }

    /// Where the way crosses the side from u to w, which lie that far on either hand.
    static sommetSol croisement(const sommetSol& u, double enU, const sommetSol& w, double enW)
    {
        if (enU == 0.0)
            return u;
        if (enW == 0.0)
            return w;
        const double part = enU / (enU - enW);
        return {{u.x + part * (w.x - u.x), u.y + part * (w.y - u.y)}, u.z + part * (w.z - u.z)};
    }
    sommetSol croisement(const coteSol& c) const
    {
        const sommetSol &u = sol.debut(c.triangle, c.cote), &w = sol.fin(c.triangle, c.cote);
        return croisement(u, cote(u), w, cote(w));
    }

    /// Whether a stretch within a triangle is on the model: by itself, or along a side whose other triangle is.
    bool compte(int t) const
    {
        if (sol.triangle(t).dedans)
            return true;
        for (int i = 0; i < 3; ++i) {
            const int autre = sol.voisin(t, i);
            if (autre >= 0 && sol.triangle(autre).dedans && cote(sol.debut(t, i)) == 0.0 && cote(sol.fin(t, i)) == 0.0)
                return true;
        }
        return false;
    }

    void ajouter(int t, const sommetSol& p, const sommetSol& q)
    {
        const bool nul = p.x == q.x && p.y == q.y;
        if (nul) // through a vertex: no stretch, and no gap either
            return;
        if (!compte(t))
            return clore();
        if (enCours.empty())
            enCours.push_back(p);
        enCours.push_back(q);
    }
    void clore()
    {
        if (enCours.size() > 1)
            troncons.push_back(std::move(enCours));
        enCours.clear();
    }

    /// Whether the end of the way lies this side of where it crosses a triangle's side, at q. Near the end the exact
    /// test decides.
    bool finit(const sommetSol& u, const sommetSol& w, const sommetSol& q) const
    {
        const double dx = vers.x - de.x, dy = vers.y - de.y;
        const double reste = (vers.x - q.x) * dx + (vers.y - q.y) * dy;
        return reste < 1e-6 * (dx * dx + dy * dy) && orientation(u, w, vers) >= 0.0;
    }

    /// From a place in a triangle on.
    void suivre(int t, sommetSol p)
    {
        int i = sortie(t);
        double enU = cote(sol.debut(t, i)), enW = cote(sol.fin(t, i));
        for (;;) {
            const sommetSol &u = sol.debut(t, i), &w = sol.fin(t, i);
            const sommetSol q = croisement(u, enU, w, enW);
            if (finit(u, w, q)) {
                ajouter(t, p, {{vers.x, vers.y}, sol.altitudeDans(t, vers)});
                return clore();
            }
            ajouter(t, p, q);
            const int suivant = sol.voisin(t, i);
            if (suivant < 0)
                return clore();
            // The way comes in between w, on its left, and u; the third corner says by which side it goes on.
            const int venuPar = sol.coteEnFace(t, i);
            sol.annoncerVoisins(suivant);
            const double enFace = cote(sol.coin(suivant, venuPar));
            const bool aGauche = gauche(enFace);
            (aGauche ? enW : enU) = enFace;
            i = (venuPar + (aGauche ? 1 : 2)) % 3;
            t = suivant;
            p = q;
        }
    }

    /// Among the triangles that hold the beginning, the one that the way enters; -1 when it leaves the hull there.
    int depart(const std::vector<int>& candidats) const
    {
        for (const int t : candidats) {
            const int i = sortie(t);
            if (i >= 0 && orientation(sol.debut(t, i), sol.fin(t, i), de) > 0.0)
                return t;
        }
        return -1;
    }

    /// The side of the hull by which a segment that begins outside comes in.
    coteSol entreeEnveloppe() const
    {
        for (const coteSol& c : sol.enveloppe()) {
            const sommetSol &u = sol.debut(c.triangle, c.cote), &w = sol.fin(c.triangle, c.cote);
            if (gauche(u) && !gauche(w) && orientation(u, w, de) < 0.0 && orientation(u, w, vers) >= 0.0)
                return c;
        }
        return {};
    }
};

void parcoursTerrain::profil(const lieuSol& de, const lieuSol& vers, polylignes& troncons)
{
    troncons.clear();
    if (de == vers || !std::isfinite(vers.x) || !std::isfinite(vers.y))
        return;
    const int t = triangleEn(de);
    if (t >= 0)
        autour(t, de);
    // Along the hull the triangles lie on one hand only.
    for (const bool zeroAGauche : {true, false}) {
        traversee voie{sol, de, vers, zeroAGauche, troncons, {}};
        if (t >= 0) {
            const int depart = voie.depart(voisinage);
            if (depart >= 0)
                voie.suivre(depart, {{de.x, de.y}, sol.altitudeDans(depart, de)});
        } else if (const coteSol entree = voie.entreeEnveloppe(); entree.triangle >= 0) {
            voie.suivre(entree.triangle, voie.croisement(entree));
        }
        if (!troncons.empty())
            return;
    }
}

parcoursTerrain::polylignes parcoursTerrain::profil(const lieuSol& de, const lieuSol& vers)
{
    polylignes troncons;
    profil(de, vers, troncons);
    return troncons;
}

int parcoursTerrain::triangleSurSegment(const lieuSol& de, const lieuSol& vers)
{
    for (const lieuSol& bout : {de, vers})
        if (const int t = triangleEn(bout); t >= 0)
            return t;
    polylignes sans;
    return traversee{sol, de, vers, true, sans, {}}.entreeEnveloppe().triangle;
}
