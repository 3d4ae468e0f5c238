#include "sol/delaunayContraint.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Constrained_triangulation_plus_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/property_map.h>
#include <CGAL/spatial_sort.h>
#include <CGAL/Spatial_sort_traits_adapter_2.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

namespace {

using noyau = CGAL::Exact_predicates_inexact_constructions_kernel;

constexpr int nouveau = 0; // a vertex that nobody gave; the others hold their number plus one

struct numeroSommet {
    int valeur = nouveau;
};

using baseSommet = CGAL::Triangulation_vertex_base_with_info_2<numeroSommet, noyau>;
using baseFace =
    CGAL::Constrained_triangulation_face_base_2<noyau, CGAL::Triangulation_face_base_with_info_2<int, noyau>>;
using structure = CGAL::Triangulation_data_structure_2<baseSommet, baseFace>;
using delaunay = CGAL::Constrained_Delaunay_triangulation_2<noyau, structure, CGAL::Exact_predicates_tag>;
using triangulation = CGAL::Constrained_triangulation_plus_2<delaunay>;
using poignee = triangulation::Vertex_handle;

/// Inserts every vertex, in an order in which each is near the one before it.
std::vector<poignee> inserer(triangulation& t, const std::vector<sommetSol>& sommets, std::vector<int>& suite)
{
    std::vector<noyau::Point_2> lieux;
    lieux.reserve(sommets.size());
    for (const sommetSol& s : sommets)
        lieux.emplace_back(s.x, s.y);
    std::vector<std::size_t> ordre(sommets.size());
    for (std::size_t i = 0; i < ordre.size(); ++i)
        ordre[i] = i;
    using traits = CGAL::Spatial_sort_traits_adapter_2<noyau, CGAL::Pointer_property_map<noyau::Point_2>::type>;
    CGAL::spatial_sort(ordre.begin(), ordre.end(), traits(CGAL::make_property_map(lieux)));

    std::vector<poignee> poignees(sommets.size());
    triangulation::Face_handle voisine;
    for (const std::size_t i : ordre) {
        const poignee v = t.insert(lieux[i], voisine);
        v->info().valeur = static_cast<int>(i) + 1;
        voisine = v->face();
        poignees[i] = v;
        suite.push_back(static_cast<int>(i));
    }
    return poignees;
}

/// Inserts the constraints, then says which vertices came to lie on each.
std::vector<passageSol> contraindre(triangulation& t, std::vector<poignee>& poignees,
                                    const std::vector<contrainteSol>& contraintes, std::vector<sommetSol>& sommets)
{
    std::vector<triangulation::Constraint_id> ids;
    ids.reserve(contraintes.size());
    for (const contrainteSol& c : contraintes) {
        // A constraint given twice, either way round, has one id.
        ids.push_back(
            t.insert_constraint(poignees[static_cast<std::size_t>(c.de)], poignees[static_cast<std::size_t>(c.vers)]));
    }
    for (auto v = t.finite_vertices_begin(); v != t.finite_vertices_end(); ++v)
        if (v->info().valeur == nouveau) {
            sommets.push_back({{v->point().x(), v->point().y()}, 0.0});
            v->info().valeur = static_cast<int>(sommets.size());
        }
    std::vector<passageSol> passages;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (ids[i] == triangulation::Constraint_id())
            continue;
        const int de = contraintes[i].de + 1, vers = contraintes[i].vers + 1;
        for (const poignee v : t.vertices_in_constraint(ids[i]))
            if (v->info().valeur != de && v->info().valeur != vers)
                passages.push_back({v->info().valeur - 1, static_cast<int>(i)});
    }
    return passages;
}

std::vector<triangleSol> extraire(const triangulation& t)
{
    int somme = 0;
    for (auto f = t.all_faces_begin(); f != t.all_faces_end(); ++f)
        f->info() = t.is_infinite(f) ? -1 : somme++;
    std::vector<triangleSol> triangles(static_cast<std::size_t>(somme));
    for (auto f = t.finite_faces_begin(); f != t.finite_faces_end(); ++f) {
        triangleSol& triangle = triangles[static_cast<std::size_t>(f->info())];
        for (int i = 0; i < 3; ++i) {
            const auto k = static_cast<std::size_t>(i);
            triangle.sommets[k] = f->vertex(i)->info().valeur - 1;
            triangle.voisins[k] = f->neighbor(i)->info();
            if (f->is_constrained(i))
                triangle.contraintes = static_cast<std::uint8_t>(triangle.contraintes | 1U << k);
        }
    }
    return triangles;
}

} // namespace

delaunayFait delaunayContraint(std::vector<sommetSol> sommets, const std::vector<contrainteSol>& contraintes)
{
    triangulation t;
    delaunayFait fait;
    std::vector<poignee> poignees = inserer(t, sommets, fait.ordre);
    fait.donnes = static_cast<int>(sommets.size());
    fait.passages = contraindre(t, poignees, contraintes, sommets);
    for (auto i = static_cast<int>(fait.ordre.size()); i < static_cast<int>(sommets.size()); ++i)
        fait.ordre.push_back(i);
    if (t.dimension() == 2)
        fait.triangles = extraire(t);
    fait.sommets = std::move(sommets);
    return fait;
}
