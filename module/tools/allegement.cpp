#include "tools/allegement.h"

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <numeric>
#include <tuple>
#include <unordered_map>

#include "geometrie/arbreBoites.h"
#include "geometrie/douglasPeucker.h"

namespace {

using lieu = std::uint32_t; // number of a place where vertices stand

/// Numbers places in the order in which they first come. Open addressing on numbers alone: what one vertex costs does
/// not grow with the drawing, as it does where every place has memory of its own.
class numerosDeLieux {
public:
    /// @param nombre of places at most
    explicit numerosDeLieux(std::size_t nombre) : m_numeros(std::bit_ceil(2 * nombre + 2), vide)
    {
        m_places.reserve(nombre);
    }

    lieu numero(const point3& p)
    {
        const std::size_t masque = m_numeros.size() - 1;
        std::size_t i = hachage(p) & masque;
        for (; m_numeros[i] != vide; i = (i + 1) & masque)
            if (memePlace(m_places[m_numeros[i]], p))
                return m_numeros[i];
        m_numeros[i] = static_cast<lieu>(m_places.size());
        m_places.push_back(p);
        return m_numeros[i];
    }
    std::vector<point3>& places() { return m_places; }

private:
    static constexpr lieu vide = std::numeric_limits<lieu>::max();

    static bool memePlace(const point3& a, const point3& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
    static std::size_t hachage(const point3& p)
    {
        std::uint64_t h = 0;
        for (const double c : {p.x, p.y, p.z}) { // + 0.0: minus zero is the same place
            h = (h ^ std::bit_cast<std::uint64_t>(c + 0.0)) * 0x9e3779b97f4a7c15u;
            h ^= h >> 29;
        }
        return static_cast<std::size_t>(h ^ h >> 32);
    }

    std::vector<lieu> m_numeros;
    std::vector<point3> m_places;
};

bool avant(const point3& a, const point3& b)
{
    return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
}

/// All places of vertices, and where a stretch of line must be cut.
class reseauLignes {
public:
    explicit reseauLignes(std::span<const ligneAllegee> lignes)
    {
        std::size_t nombre = 0;
        for (const ligneAllegee& ligne : lignes)
            nombre += ligne.sommets.size();
        numerosDeLieux numeros(nombre);
        m_suites.reserve(lignes.size());
        for (const ligneAllegee& ligne : lignes) {
            std::vector<lieu>& suite = m_suites.emplace_back();
            suite.reserve(ligne.sommets.size());
            for (const sommetAxe& s : ligne.sommets)
                suite.push_back(numeros.numero(s.place));
        }
        m_places = std::move(numeros.places());
        m_noeuds.resize(m_places.size());
        for (std::size_t i = 0; i < lignes.size(); ++i)
            relier(lignes[i], m_suites[i]);
    }

    const std::vector<lieu>& suite(std::size_t ligne) const { return m_suites[ligne]; }
    const point3& place(lieu l) const { return m_places[l]; }
    /// Whether lines meet, part, end or turn back there, or an arc begins or ends.
    bool estNoeud(lieu l) const { return m_noeuds[l].force || m_noeuds[l].voisins != 2; }

private:
    struct noeud {
        std::array<lieu, 2> connus{};
        std::uint8_t voisins = 0; // 3: more than two
        bool force = false;
    };

    void relier(const ligneAllegee& ligne, const std::vector<lieu>& suite)
    {
        const std::size_t nombre = suite.size();
        for (std::size_t i = 0; i < nombre; ++i) {
            if (ligne.intouchable || (!ligne.fermee && (i == 0 || i + 1 == nombre)))
                m_noeuds[suite[i]].force = true;
            if (i + 1 == nombre && !ligne.fermee)
                continue;
            const lieu a = suite[i], b = suite[(i + 1) % nombre];
            if (a == b)
                continue;
            voisiner(a, b);
            voisiner(b, a);
            if (ligne.sommets[i].bombement != 0.0)
                m_noeuds[a].force = m_noeuds[b].force = true;
        }
    }
    void voisiner(lieu de, lieu vers)
    {
        noeud& n = m_noeuds[de];
        for (std::uint8_t i = 0; i < std::min<std::uint8_t>(n.voisins, 2); ++i)
            if (n.connus[i] == vers)
                return;
        if (n.voisins < 2)
            n.connus[n.voisins] = vers;
        n.voisins = std::min<std::uint8_t>(static_cast<std::uint8_t>(n.voisins + 1), 3);
    }

    std::vector<point3> m_places;
    std::vector<noeud> m_noeuds;
    std::vector<std::vector<lieu>> m_suites;
};

/// One line, cut into stretches.
class ligneEnTroncons {
public:
    ligneEnTroncons(const ligneAllegee& ligne, const std::vector<lieu>& suite, const reseauLignes& reseau,
                    double tolerance) :
        m_reseau(reseau),
        m_tolerance(tolerance)
    {
        m_rangs.reserve(suite.size());
        m_suite.reserve(suite.size());
        // Of vertices at one place the last stays: its segment is the one with a length.
        for (std::size_t i = 0; i < suite.size(); ++i) {
            const bool dernier = i + 1 == suite.size();
            if (dernier ? !ligne.fermee || suite.size() == 1 || suite[i] != suite[0] : suite[i] != suite[i + 1]) {
                m_rangs.push_back(i);
                m_suite.push_back(suite[i]);
            }
        }
        m_fermee = ligne.fermee;
    }

    std::vector<std::size_t> gardes()
    {
        if (m_suite.size() < 3)
            return m_rangs;
        m_restent.assign(m_suite.size(), false);
        if (m_fermee)
            couperAnneau();
        else
            couper(0, m_suite.size() - 1);
        std::vector<std::size_t> restent;
        for (std::size_t i = 0; i < m_suite.size(); ++i)
            if (m_restent[i])
                restent.push_back(m_rangs[i]);
        return m_fermee && restent.size() < 3 ? m_rangs : restent;
    }

private:
    std::size_t nombre() const { return m_suite.size(); }
    lieu en(std::size_t i) const { return m_suite[i % nombre()]; }

    /// Stretches from `de` to `a`, which may lie a turn ahead; both are nodes, or the ring's one beginning.
    void couper(std::size_t de, std::size_t a)
    {
        for (std::size_t debut = de; debut < a;) {
            std::size_t fin = debut + 1;
            while (fin < a && !m_reseau.estNoeud(en(fin)))
                ++fin;
            alleger(debut, fin);
            debut = fin;
        }
    }
    void couperAnneau()
    {
        std::size_t depart = 0;
        while (depart < nombre() && !m_reseau.estNoeud(en(depart)))
            ++depart;
        if (depart == nombre()) { // nothing tells where to begin: all that share the ring must agree
            depart = 0;
            for (std::size_t i = 1; i < nombre(); ++i)
                if (avant(m_reseau.place(en(i)), m_reseau.place(en(depart))))
                    depart = i;
        }
        couper(depart, depart + nombre());
    }
    void alleger(std::size_t de, std::size_t a)
    {
        std::vector<point3>& ligne = m_troncon;
        ligne.clear();
        for (std::size_t i = de; i <= a; ++i)
            ligne.push_back(m_reseau.place(en(i)));
        const bool anneau = en(de) == en(a);
        const point3 &debut = anneau ? ligne[1] : ligne.front(), &fin = anneau ? ligne[ligne.size() - 2] : ligne.back();
        const bool retourner = avant(fin, debut);
        if (retourner)
            std::reverse(ligne.begin(), ligne.end());
        for (const std::size_t garde : sommetsUtiles(ligne, m_tolerance))
            m_restent[(retourner ? a - garde : de + garde) % nombre()] = true;
    }

    const reseauLignes& m_reseau;
    double m_tolerance;
    std::vector<std::size_t> m_rangs; // in the line, of the vertices that differ from the next one
    std::vector<lieu> m_suite;
    bool m_fermee = false;
    std::vector<bool> m_restent;
    std::vector<point3> m_troncon; // its memory serves the next stretch
};

} // namespace

std::vector<std::vector<std::size_t>> sommetsGardes(std::span<const ligneAllegee> lignes, double tolerance)
{
    const reseauLignes reseau(lignes);
    std::vector<std::vector<std::size_t>> gardes;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        if (!lignes[i].intouchable) {
            gardes.push_back(ligneEnTroncons(lignes[i], reseau.suite(i), reseau, tolerance).gardes());
            continue;
        }
        gardes.emplace_back(lignes[i].sommets.size());
        std::iota(gardes.back().begin(), gardes.back().end(), std::size_t{0});
    }
    return gardes;
}

namespace {

double longueurDe(const segmentAllege& s)
{
    return norme(s.fin.plan() - s.debut.plan());
}

bool horizontal(const segmentAllege& s, double tolerance)
{
    return std::abs(s.fin.z - s.debut.z) <= tolerance && longueurDe(s) > 0.0;
}

/// Whether the shorter lies along the longer, for more than the tolerance.
bool superposes(const segmentAllege& a, const segmentAllege& b, double tolerance)
{
    if (a.famille != b.famille || std::abs(a.debut.z - b.debut.z) > tolerance)
        return false;
    const bool aLong = longueurDe(a) >= longueurDe(b);
    const segmentAllege &grand = aLong ? a : b, &petit = aLong ? b : a;
    const point2 u = (grand.fin.plan() - grand.debut.plan()) * (1.0 / longueurDe(grand));
    const point2 de = petit.debut.plan() - grand.debut.plan(), vers = petit.fin.plan() - grand.debut.plan();
    if (std::abs(vectoriel(u, de)) > tolerance || std::abs(vectoriel(u, vers)) > tolerance)
        return false;
    const double s = scalaire(u, de), t = scalaire(u, vers);
    return std::min(std::max(s, t), longueurDe(grand)) - std::max(std::min(s, t), 0.0) > std::max(tolerance, 1e-9);
}

class groupesDeSegments {
public:
    explicit groupesDeSegments(std::size_t nombre) : m_parents(nombre)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::size_t{0});
    }
    std::size_t racine(std::size_t i)
    {
        while (m_parents[i] != i)
            i = m_parents[i] = m_parents[m_parents[i]];
        return i;
    }
    void reunir(std::size_t a, std::size_t b) { m_parents[racine(a)] = racine(b); }

private:
    std::vector<std::size_t> m_parents;
};

/// The longest one takes the farthest ends of all, the others go.
void reunirGroupe(std::span<const segmentAllege> segments, const std::vector<std::size_t>& groupe,
                  std::vector<segmentReuni>& reunis)
{
    const std::size_t reste = *std::max_element(groupe.begin(), groupe.end(), [&](std::size_t a, std::size_t b) {
        return longueurDe(segments[a]) < longueurDe(segments[b]);
    });
    const segmentAllege& grand = segments[reste];
    const point2 u = grand.fin.plan() - grand.debut.plan();
    const auto rang = [&](const point3& p) { return scalaire(u, p.plan() - grand.debut.plan()); };
    segmentReuni& reuni = reunis[reste];
    for (const std::size_t i : groupe) {
        for (const point3& bout : {segments[i].debut, segments[i].fin}) {
            if (rang(bout) < rang(reuni.debut))
                reuni.debut = bout;
            if (rang(bout) > rang(reuni.fin))
                reuni.fin = bout;
        }
        reunis[i].part = i != reste;
    }
    reuni.change = !(reuni.debut.plan() == grand.debut.plan() && reuni.fin.plan() == grand.fin.plan());
}

} // namespace

std::vector<segmentReuni> reunirSegments(std::span<const segmentAllege> segments, double tolerance)
{
    std::vector<segmentReuni> reunis;
    std::vector<boite> boites;
    for (const segmentAllege& s : segments) {
        reunis.push_back({false, false, s.debut, s.fin});
        boites.push_back(horizontal(s, tolerance) ? boite::de(s.debut.plan(), s.fin.plan()).elargie(tolerance)
                                                  : boite());
    }
    const arbreBoites arbre(boites);
    groupesDeSegments groupes(segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i)
        if (!boites[i].vide())
            arbre.dans(boites[i], [&](std::size_t j) {
                if (j > i && superposes(segments[i], segments[j], tolerance))
                    groupes.reunir(j, i);
            });
    std::unordered_map<std::size_t, std::vector<std::size_t>> membres;
    for (std::size_t i = 0; i < segments.size(); ++i)
        if (groupes.racine(i) != i)
            membres[groupes.racine(i)].push_back(i);
    for (auto& groupe : membres) {
        groupe.second.push_back(groupe.first);
        reunirGroupe(segments, groupe.second, reunis);
    }
    return reunis;
}
