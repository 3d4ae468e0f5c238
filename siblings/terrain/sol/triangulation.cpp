#include "sol/triangulation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "sol/delaunayContraint.h"
#include "sol/etendueModele.h"
#include "sol/lieuxDistincts.h"
#include "sol/ordreVoisinage.h"
#include "sol/parcoursTerrain.h"

namespace {

constexpr double lointain = 1e10; // coordinates beyond it are not those of a survey

bool lieuConnu(const lieuSol& s)
{
    return std::abs(s.x) < lointain && std::abs(s.y) < lointain; // false for what is not a number
}

bool connu(const sommetSol& s)
{
    return lieuConnu(s) && std::abs(s.z) < lointain;
}

/// What is triangulated: vertices at places that differ, and pairs of them to be joined.
class assemblage {
public:
    explicit assemblage(std::size_t prevus) : lieux(memeLieu, prevus) {}

    std::vector<incidentSol> incidents;

    void ajouterPoint(const sommetSol& point)
    {
        if (connu(point))
            numeroDe(point);
    }

    void ajouterLigne(const std::vector<sommetSol>& sommets, bool rupture)
    {
        int avant = -1;
        for (const sommetSol& s : sommets) {
            const int numero = connu(s) ? numeroDe(s) : -1;
            if (avant >= 0 && numero >= 0 && numero != avant)
                contraintes.push_back({avant, numero, rupture});
            avant = numero;
        }
    }

    maillageTerrain trianguler()
    {
        delaunayFait fait = delaunayContraint(std::move(lieux.sommets()), contraintes);
        poserCroisements(fait);
        rapprocher(fait.sommets, fait.triangles, fait.ordre);
        return {std::move(fait.sommets), std::move(fait.triangles)};
    }

private:
    int numeroDe(const sommetSol& point)
    {
        const std::size_t avant = lieux.sommets().size();
        const int numero = lieux.ajouter(point);
        if (lieux.sommets().size() == avant) {
            double& z = lieux.sommets()[static_cast<std::size_t>(numero)].z;
            if (std::abs(z - point.z) > memeAltitude)
                incidents.push_back({incidentSol::genre::confondus, point, z, point.z});
            z = std::max(z, point.z);
        }
        return numero;
    }

    /// Altitude of a constraint's own line at a place on it.
    static double altitudeSur(const std::vector<sommetSol>& sommets, const contrainteSol& c, const lieuSol& lieu)
    {
        const sommetSol &a = sommets[static_cast<std::size_t>(c.de)], &b = sommets[static_cast<std::size_t>(c.vers)];
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double part = ((lieu.x - a.x) * dx + (lieu.y - a.y) * dy) / (dx * dx + dy * dy);
        return a.z + std::clamp(part, 0.0, 1.0) * (b.z - a.z);
    }

    /// Gives vertices made by crossings the altitude of their lines, and tells where lines and points disagree.
    void poserCroisements(delaunayFait& fait)
    {
        std::vector<sommetSol>& sommets = fait.sommets;
        const auto donnes = static_cast<std::size_t>(fait.donnes);
        std::vector<pose> poses(sommets.size() - donnes, pose::aucune);
        for (const passageSol& p : fait.passages) {
            const auto numero = static_cast<std::size_t>(p.sommet);
            sommetSol& s = sommets[numero];
            const contrainteSol& c = contraintes[static_cast<std::size_t>(p.contrainte)];
            const double z = altitudeSur(sommets, c, s);
            if (numero < donnes) {
                if (c.rupture && std::abs(z - s.z) > memeAltitude)
                    incidents.push_back({incidentSol::genre::ecart, s, s.z, z});
                continue;
            }
            pose& etat = poses[numero - donnes];
            if (etat == pose::rompue && c.rupture)
                incidents.push_back(croisement(s, z));
            // The line of a limit that follows the ground says no more than the break line it crosses.
            if (etat == pose::aucune || (etat == pose::suivie && c.rupture))
                s.z = z;
            else if (c.rupture)
                s.z = std::max(s.z, z);
            if (etat != pose::rompue)
                etat = c.rupture ? pose::rompue : pose::suivie;
        }
    }

    static incidentSol croisement(const sommetSol& s, double z)
    {
        const bool daccord = std::abs(s.z - z) <= memeAltitude;
        return {incidentSol::genre::croisement, s, s.z, daccord ? s.z : z};
    }

    enum class pose : char { aucune, suivie, rompue }; // what gave a crossing its altitude

    lieuxDistincts lieux;
    std::vector<contrainteSol> contraintes;
};

assemblage assembler(const semisTerrain& semis)
{
    std::size_t prevus = semis.points.size();
    for (const semisTerrain::ligne& l : semis.lignes)
        prevus += l.sommets.size();
    assemblage ensemble(prevus);
    for (const sommetSol& p : semis.points)
        ensemble.ajouterPoint(p);
    for (const semisTerrain::ligne& l : semis.lignes)
        if (l.nature == semisTerrain::genre::rupture)
            ensemble.ajouterLigne(l.sommets, true);
    return ensemble;
}

bool estContour(const semisTerrain::ligne& ligne)
{
    return ligne.nature != semisTerrain::genre::rupture;
}

/// Adds limits and holes. A side without altitudes is laid upon the ground, so that the ground stays what it was; what
/// of it lies beyond the points has nothing to bound.
void ajouterContours(assemblage& ensemble, const semisTerrain& semis, const maillageTerrain& sol)
{
    parcoursTerrain parcours(sol);
    for (const semisTerrain::ligne& l : semis.lignes) {
        if (!estContour(l))
            continue;
        for (std::size_t i = 0; i < l.sommets.size(); ++i) {
            const sommetSol &a = l.sommets[i], &b = l.sommets[(i + 1) % l.sommets.size()];
            if (connu(a) && connu(b))
                ensemble.ajouterLigne({a, b}, true);
            else if (lieuConnu(a) && lieuConnu(b))
                for (const auto& troncon : parcours.profil(a, b))
                    ensemble.ajouterLigne(troncon, false);
        }
    }
}

} // namespace

solTriangule trianguler(const semisTerrain& semis)
{
    solTriangule fait;
    assemblage ensemble = assembler(semis);
    const bool bornes = std::any_of(semis.lignes.begin(), semis.lignes.end(), estContour);
    if (bornes) {
        const maillageTerrain sansBornes = assembler(semis).trianguler();
        ajouterContours(ensemble, semis, sansBornes);
    }
    fait.maillage = ensemble.trianguler();
    fait.incidents = std::move(ensemble.incidents);
    if (bornes || semis.areteMax > 0.0)
        fait.maillage.delimiter(trianglesDuModele(fait.maillage, semis));
    return fait;
}
