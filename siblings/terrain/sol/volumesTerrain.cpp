#include "sol/volumesTerrain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "sol/parcoursTerrain.h"

namespace {

/// A corner of a piece of ground: place, and difference of altitude.
struct coinEcart {
    double x = 0.0, y = 0.0, ecart = 0.0;
};

double aireDe(const coinEcart& a, const coinEcart& b, const coinEcart& c)
{
    return ((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / 2;
}

/// Where the difference is zero between two corners that lie on either hand.
coinEcart passageNul(const coinEcart& p, const coinEcart& q)
{
    const double part = p.ecart / (p.ecart - q.ecart);
    return {p.x + part * (q.x - p.x), p.y + part * (q.y - p.y), 0.0};
}

/// Adds a triangle whose difference has one sign.
void ajouterUni(volumesTerrain& v, const coinEcart& a, const coinEcart& b, const coinEcart& c)
{
    const double aire = std::abs(aireDe(a, b, c));
    const double somme = a.ecart + b.ecart + c.ecart;
    if (somme > 0.0) {
        v.deblai += aire * somme / 3;
        v.aireDeblai += aire;
    } else if (somme < 0.0) {
        v.remblai -= aire * somme / 3;
        v.aireRemblai += aire;
    } else {
        v.aireNulle += aire;
    }
}

/// Adds a triangle, cut where the difference changes its sign.
void ajouterTriangle(volumesTerrain& v, std::array<coinEcart, 3> coins)
{
    std::sort(coins.begin(), coins.end(), [](const coinEcart& p, const coinEcart& q) { return p.ecart < q.ecart; });
    const auto& [bas, milieu, haut] = coins;
    if (bas.ecart >= 0.0 || haut.ecart <= 0.0)
        return ajouterUni(v, bas, milieu, haut);
    const coinEcart grand = passageNul(bas, haut);
    if (milieu.ecart >= 0.0) {
        const coinEcart petit = passageNul(bas, milieu);
        ajouterUni(v, bas, petit, grand);
        ajouterUni(v, petit, milieu, grand);
        ajouterUni(v, milieu, haut, grand);
    } else {
        const coinEcart petit = passageNul(milieu, haut);
        ajouterUni(v, haut, petit, grand);
        ajouterUni(v, petit, milieu, grand);
        ajouterUni(v, milieu, bas, grand);
    }
}

// ---- two grounds

/// A plane above a place taken as origin.
struct planLocal {
    double z = 0.0, enX = 0.0, enY = 0.0;
    double en(double x, double y) const { return z + enX * x + enY * y; }
};

struct pointLocal {
    double x = 0.0, y = 0.0;
};

using polygone = std::vector<pointLocal>;
using triangleLocal = std::array<pointLocal, 3>;

triangleLocal localise(const maillageTerrain& sol, int t, const lieuSol& origine)
{
    triangleLocal coins;
    for (int i = 0; i < 3; ++i) {
        const sommetSol& s = sol.coin(t, i);
        coins[static_cast<std::size_t>(i)] = {s.x - origine.x, s.y - origine.y};
    }
    return coins;
}

double produit(const pointLocal& a, const pointLocal& b, const pointLocal& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

planLocal planDe(const maillageTerrain& sol, int t, const triangleLocal& coins)
{
    const auto& [a, b, c] = coins;
    const double za = sol.coin(t, 0).z, zb = sol.coin(t, 1).z - za, zc = sol.coin(t, 2).z - za;
    const double aire = produit(a, b, c);
    if (aire <= 0.0)
        return {za, 0.0, 0.0};
    planLocal plan;
    plan.enX = (zb * (c.y - a.y) - zc * (b.y - a.y)) / aire;
    plan.enY = (zc * (b.x - a.x) - zb * (c.x - a.x)) / aire;
    plan.z = za - plan.enX * a.x - plan.enY * a.y;
    return plan;
}

/// Whether a side of the first triangle has the whole second one on its other hand.
bool separe(const triangleLocal& t, const triangleLocal& autre)
{
    for (std::size_t i = 0; i < 3; ++i)
        if (std::all_of(autre.begin(), autre.end(),
                        [&](const pointLocal& p) { return produit(t[i], t[(i + 1) % 3], p) < 0.0; }))
            return true;
    return false;
}

/// What of a polygon lies on the left of a side (J. E. Sutherland and G. W. Hodgman, "Reentrant Polygon Clipping").
void couper(polygone& p, const pointLocal& a, const pointLocal& b, polygone& gardes)
{
    gardes.clear();
    for (std::size_t i = 0; i < p.size(); ++i) {
        const pointLocal &ici = p[i], &suivant = p[(i + 1) % p.size()];
        const double coteIci = produit(a, b, ici), coteSuivant = produit(a, b, suivant);
        if (coteIci >= 0.0)
            gardes.push_back(ici);
        if ((coteIci < 0.0) != (coteSuivant < 0.0)) {
            const double part = coteIci / (coteIci - coteSuivant);
            gardes.push_back({ici.x + part * (suivant.x - ici.x), ici.y + part * (suivant.y - ici.y)});
        }
    }
    p.swap(gardes);
}

/// Goes over the pairs of triangles of two grounds that overlap.
class superposition {
public:
    superposition(const maillageTerrain& leSol, const maillageTerrain& lAutre) :
        sol(leSol),
        autre(lAutre),
        parcours(lAutre),
        vus(lAutre.triangles().size(), -1)
    {
    }

    volumesTerrain volumes()
    {
        for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t)
            if (sol.triangle(t).dedans)
                ajouter(t);
        return somme;
    }

private:
    /// Everything is seen from a corner of the triangle: no precision is lost far from the origin.
    void ajouter(int t)
    {
        const int premier = premierVoisin(t);
        if (premier < 0)
            return;
        origine = sol.coin(t, 0);
        ici = localise(sol, t, origine);
        plan = planDe(sol, t, ici);
        file.assign(1, premier);
        vus[static_cast<std::size_t>(premier)] = t;
        while (!file.empty()) {
            const int b = file.back();
            file.pop_back();
            const triangleLocal la = localise(autre, b, origine);
            if (separe(ici, la) || separe(la, ici))
                continue;
            if (autre.triangle(b).dedans)
                ajouterPaire(b, la);
            for (int i = 0; i < 3; ++i)
                if (const int v = autre.voisin(b, i); v >= 0 && vus[static_cast<std::size_t>(v)] != t) {
                    vus[static_cast<std::size_t>(v)] = t;
                    file.push_back(v);
                }
        }
    }

    void ajouterPaire(int b, const triangleLocal& la)
    {
        commun.assign(ici.begin(), ici.end());
        for (std::size_t i = 0; i < 3 && !commun.empty(); ++i)
            couper(commun, la[i], la[(i + 1) % 3], reste);
        if (commun.size() < 3)
            return;
        const planLocal planLa = planDe(autre, b, la);
        const auto coin = [&](const pointLocal& p) {
            return coinEcart{p.x, p.y, plan.en(p.x, p.y) - planLa.en(p.x, p.y)};
        };
        for (std::size_t i = 1; i + 1 < commun.size(); ++i)
            ajouterTriangle(somme, {coin(commun[0]), coin(commun[i]), coin(commun[i + 1])});
    }

    /// A triangle of the other ground that overlaps this one, to begin at; -1 when there is none.
    int premierVoisin(int t)
    {
        const sommetSol &a = sol.coin(t, 0), &b = sol.coin(t, 1), &c = sol.coin(t, 2);
        if (std::max({a.x, b.x, c.x}) < autre.minimum().x || std::min({a.x, b.x, c.x}) > autre.maximum().x ||
            std::max({a.y, b.y, c.y}) < autre.minimum().y || std::min({a.y, b.y, c.y}) > autre.maximum().y)
            return -1;
        const lieuSol centre{(a.x + b.x + c.x) / 3, (a.y + b.y + c.y) / 3};
        if (const int en = parcours.triangleEn(centre); en >= 0)
            return en;
        for (int i = 0; i < 3; ++i)
            if (const int en = parcours.triangleSurSegment(sol.debut(t, i), sol.fin(t, i)); en >= 0)
                return en;
        // The other ground may lie within the triangle, whole.
        return autre.vide() ? -1 : 0;
    }

    const maillageTerrain& sol;
    const maillageTerrain& autre;
    parcoursTerrain parcours;
    std::vector<int> vus; // the last triangle that each triangle of the other ground was held against
    std::vector<int> file;
    volumesTerrain somme;
    lieuSol origine;
    triangleLocal ici;
    planLocal plan;
    polygone commun, reste;
};

} // namespace

volumesTerrain volumesSousPlan(const maillageTerrain& sol, double altitude)
{
    volumesTerrain somme;
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        if (!sol.triangle(t).dedans)
            continue;
        const sommetSol& origine = sol.coin(t, 0);
        const auto coin = [&](int i) {
            const sommetSol& s = sol.coin(t, i);
            return coinEcart{s.x - origine.x, s.y - origine.y, s.z - altitude};
        };
        ajouterTriangle(somme, {coin(0), coin(1), coin(2)});
    }
    return somme;
}

volumesTerrain volumesEntre(const maillageTerrain& sol, const maillageTerrain& autre)
{
    return superposition(sol, autre).volumes();
}
