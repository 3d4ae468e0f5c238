#include "calculs/reseau/defautsReseau.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <optional>
#include <set>

#include "calculs/reseau/resultatReseau.h"

namespace {

constexpr double partNulle = 1e-6;

/// The move of one free vector, by point.
struct mouvement {
    std::vector<int> points; ///< those that move, in order
    std::vector<double> dx, dy, dz;
    bool plan = false, altitude = false;
};

mouvement mouvementDe(const reseau& r, const systemeReseau& s, const std::vector<double>& z)
{
    double plusGrand = 0.0;
    for (std::size_t i = 0; i < z.size(); ++i)
        if (s.rang(static_cast<int>(i)) < static_cast<int>(3 * r.points.size()))
            plusGrand = std::max(plusGrand, std::abs(z[i]));
    mouvement m;
    for (std::size_t p = 0; p < r.points.size(); ++p) {
        const auto part = [&](int axe) {
            const int i = s.inconnueDe(static_cast<int>(3 * p) + axe);
            return i < 0 || std::abs(z[static_cast<std::size_t>(i)]) <= partNulle * plusGrand
                       ? 0.0
                       : z[static_cast<std::size_t>(i)];
        };
        const double x = part(0), y = part(1), h = part(2);
        if (x == 0.0 && y == 0.0 && h == 0.0)
            continue;
        m.points.push_back(static_cast<int>(p));
        m.dx.push_back(x);
        m.dy.push_back(y);
        m.dz.push_back(h);
        m.plan |= x != 0.0 || y != 0.0;
        m.altitude |= h != 0.0;
    }
    return m;
}

/// Moves that share points, and the points of all of them.
struct groupeFlottant {
    std::vector<mouvement> mouvements;
    std::vector<int> points;
    bool plan = false, altitude = false;
};

std::vector<groupeFlottant> regrouper(std::vector<mouvement> mouvements)
{
    std::vector<groupeFlottant> groupes;
    for (mouvement& m : mouvements) {
        groupeFlottant neuf;
        neuf.points = m.points;
        neuf.plan = m.plan;
        neuf.altitude = m.altitude;
        neuf.mouvements.push_back(std::move(m));
        for (auto g = groupes.begin(); g != groupes.end();) {
            const bool touche = std::ranges::any_of(
                g->points, [&](int point) { return std::ranges::binary_search(neuf.points, point); });
            // Heights and plan are told apart: they lack different things.
            if (!touche || g->plan != neuf.plan || g->altitude != neuf.altitude) {
                ++g;
                continue;
            }
            std::vector<int> tous;
            std::ranges::set_union(g->points, neuf.points, std::back_inserter(tous));
            neuf.points = std::move(tous);
            std::ranges::move(g->mouvements, std::back_inserter(neuf.mouvements));
            g = groupes.erase(g);
        }
        groupes.push_back(std::move(neuf));
    }
    return groupes;
}

/// How a block moves: what it can do by itself, whatever basis its moves came in.
struct mouvementDeBloc {
    int glisse = 0; ///< directions in which it only slides
    bool tourne = false, grandit = false;
};

/// A move of a block as slide, turn and growth about the middle of its points, each in metres; nothing when it bends.
std::optional<std::array<double, 4>> similitude(const mouvement& m, const std::vector<int>& points,
                                                const coordonneesReseau& c)
{
    const double n = static_cast<double>(points.size());
    double mx = 0.0, my = 0.0;
    for (const int p : points) {
        mx += c.x[static_cast<std::size_t>(p)] / n;
        my += c.y[static_cast<std::size_t>(p)] / n;
    }
    struct place {
        double x, y, dx, dy;
    };
    std::vector<place> places;
    double tx = 0.0, ty = 0.0, carres = 0.0, tour = 0.0, echelle = 0.0, taille = 0.0;
    for (const int p : points) {
        const auto rang = std::ranges::lower_bound(m.points, p);
        const bool bouge = rang != m.points.end() && *rang == p;
        const auto i = static_cast<std::size_t>(rang - m.points.begin());
        const place l{c.x[static_cast<std::size_t>(p)] - mx, c.y[static_cast<std::size_t>(p)] - my,
                      bouge ? m.dx[i] : 0.0, bouge ? m.dy[i] : 0.0};
        places.push_back(l);
        tx += l.dx / n;
        ty += l.dy / n;
        carres += l.x * l.x + l.y * l.y;
        tour += l.dx * l.y - l.dy * l.x; // clockwise
        echelle += l.dx * l.x + l.dy * l.y;
        taille += l.dx * l.dx + l.dy * l.dy;
    }
    if (!(carres > 0.0))
        return std::nullopt;
    tour /= carres;
    echelle /= carres;
    double reste = 0.0;
    for (const place& l : places)
        reste += std::pow(l.dx - tx - tour * l.y - echelle * l.x, 2.0) +
                 std::pow(l.dy - ty + tour * l.x - echelle * l.y, 2.0);
    if (!(reste < 1e-8 * taille))
        return std::nullopt;
    const double bras = std::sqrt(carres / taille), poids = std::sqrt(n / taille);
    return std::array{tour * bras, echelle * bras, tx * poids, ty * poids};
}

/// What is left of the moves once turning and growing are taken out slides.
mouvementDeBloc blocDe(std::vector<std::array<double, 4>> moves)
{
    constexpr double nul = 1e-4;
    mouvementDeBloc b;
    for (const auto& m : moves) {
        b.tourne |= std::abs(m[0]) > nul;
        b.grandit |= std::abs(m[1]) > nul;
    }
    std::size_t fait = 0;
    for (const std::size_t colonne : {0U, 1U}) {
        const auto pivot = std::ranges::max_element(moves.begin() + static_cast<std::ptrdiff_t>(fait), moves.end(), {},
                                                    [&](const auto& m) { return std::abs(m[colonne]); });
        if (pivot == moves.end() || std::abs((*pivot)[colonne]) <= nul)
            continue;
        std::swap(moves[fait], *pivot);
        for (std::size_t k = fait + 1; k < moves.size(); ++k) {
            const double part = moves[k][colonne] / moves[fait][colonne];
            for (std::size_t i = 0; i < 4; ++i)
                moves[k][i] -= part * moves[fait][i];
        }
        ++fait;
    }
    b.glisse = static_cast<int>(moves.size() - fait);
    return b;
}

/// What such a block can do, and what it lacks.
std::wstring phraseDeBloc(const mouvementDeBloc& b)
{
    std::vector<const wchar_t*> verbes;
    if (b.glisse > 0)
        verbes.push_back(L"glisser");
    if (b.tourne)
        verbes.push_back(L"tourner");
    if (b.grandit)
        verbes.push_back(L"grandir");
    std::wstring peuvent;
    for (std::size_t i = 0; i < verbes.size(); ++i)
        peuvent += std::wstring(i == 0 ? L"" : i + 1 == verbes.size() ? L" et " : L", ") + verbes[i];
    const wchar_t* const manque =
        b.tourne && b.grandit ? (b.glisse > 0 ? L"deux points connus" : L"un second point connu")
        : b.tourne            ? (b.glisse > 0 ? L"un point connu, et un gisement ou un second point connu"
                                              : L"un gisement, ou un second point connu")
        : b.grandit           ? (b.glisse > 0 ? L"un point connu, et une distance ou un second point connu"
                                              : L"une distance, ou un second point connu")
                              : L"un point connu";
    return L"peuvent " + peuvent + L" d'un bloc : il manque " + manque;
}

/// Several points that move together. What their moves are, in words.
std::wstring natureEnPlan(const groupeFlottant& g, const coordonneesReseau& c)
{
    std::vector<std::array<double, 4>> moves;
    for (const mouvement& m : g.mouvements)
        if (const auto s = similitude(m, g.points, c))
            moves.push_back(*s);
    if (moves.size() == g.mouvements.size())
        return phraseDeBloc(blocDe(std::move(moves)));
    const std::size_t n = g.mouvements.size();
    return L"se déplacent les uns par rapport aux autres sans changer une mesure : il manque " +
           (n == 1 ? std::wstring(L"une observation") : std::to_wstring(n) + L" observations") +
           L" entre eux ou vers des points connus";
}

/// One point that moves alone: which observations see it, and what they leave.
std::wstring raisonDuPoint(const reseau& r, const systemeReseau& s, int point, const groupeFlottant& g)
{
    std::vector<const observationReseau*> visees;
    for (const int k : s.retenues()) {
        const observationReseau& o = r.observations[static_cast<std::size_t>(k)];
        if ((o.de == point || o.vers == point || o.vers2 == point) &&
            (g.plan ? estPlanimetrique(o.genre) : estAltimetrique(o.genre)))
            visees.push_back(&o);
    }
    if (visees.empty())
        return L"n'est vu par aucune observation";
    std::wstring phrase =
        visees.size() == 1 ? L"n'est tenu que par " : L"n'est tenu que par des observations qui le laissent glisser : ";
    for (std::size_t i = 0; i < std::min<std::size_t>(visees.size(), 3); ++i)
        phrase += (i > 0 ? L" ; " : L"") + nomObservation(r, *visees[i]);
    if (visees.size() > 3)
        phrase += L"...";
    return phrase + (g.plan ? L" (il manque une distance, un angle ou un gisement depuis un point connu)"
                            : L" (il manque une dénivelée depuis un point connu)");
}

std::wstring phraseDuGroupe(const reseau& r, const systemeReseau& s, const coordonneesReseau& c,
                            const groupeFlottant& g)
{
    if (g.points.size() == 1)
        return L"Le point « " + r.points[static_cast<std::size_t>(g.points.front())].nom + L" » flotte : il " +
               raisonDuPoint(r, s, g.points.front(), g) + L".";
    const std::wstring qui = L"Les points " + listeDeNoms(r, g.points) + L" flottent : ils ";
    if (g.altitude && !g.plan)
        return qui + L"peuvent monter ensemble : il manque une altitude connue.";
    if (g.plan && !g.altitude)
        return qui + natureEnPlan(g, c) + L".";
    return qui + L"ne sont déterminés ni en plan ni en altitude par leurs observations.";
}

/// Whether no point that is looked for is determined, in plan or in height.
bool toutFlotte(const reseau& r, const systemeReseau& s, const espaceLibre& libre, bool altitude)
{
    const auto flotte = [&](int rang) {
        const int inconnue = s.inconnueDe(rang);
        return inconnue >= 0 && !libre.determinee(inconnue);
    };
    bool un = false;
    for (int p = 0; p < static_cast<int>(r.points.size()); ++p) {
        const int rang = 3 * p + (altitude ? 2 : 0);
        if (s.inconnueDe(rang) < 0)
            continue;
        un = true;
        if (!flotte(rang) && (altitude || !flotte(rang + 1)))
            return false;
    }
    return un;
}

} // namespace

std::wstring listeDeNoms(const reseau& r, const std::vector<int>& points)
{
    constexpr std::size_t nommes = 12;
    std::wstring liste;
    for (std::size_t i = 0; i < std::min(points.size(), nommes); ++i) {
        const bool dernier = i + 1 == points.size();
        liste += (i == 0 ? L"" : dernier ? L" et " : L", ") + r.points[static_cast<std::size_t>(points[i])].nom;
    }
    return points.size() > nommes ? liste + L"... (" + std::to_wstring(points.size()) + L" points)" : liste;
}

void nommerFlottements(const reseau& r, const systemeReseau& s, const espaceLibre& libre, const coordonneesReseau& c,
                       std::vector<std::wstring>& messages)
{
    std::vector<mouvement> mouvements;
    for (const std::vector<double>& z : libre.flottements())
        if (mouvement m = mouvementDe(r, s, z); !m.points.empty())
            mouvements.push_back(std::move(m));
    std::set<std::wstring> phrases;
    for (const groupeFlottant& g : regrouper(std::move(mouvements)))
        phrases.insert(phraseDuGroupe(r, s, c, g));
    const bool plan = toutFlotte(r, s, libre, false), altitude = toutFlotte(r, s, libre, true);
    std::wstring toutes;
    for (const std::wstring& p : phrases)
        toutes += L"\n" + p;
    const auto seulement = [&](bool celui, const wchar_t* lequel) {
        if (!celui)
            return;
        std::wstring phrase = std::wstring(L"le réseau flotte ") + lequel + L"." + toutes +
                              L"\nTenez des points fixes ou d'appui, ou demandez un calcul libre.";
        for (const std::wstring& m : messages) // what was left out may be what lacks
            phrase += L"\n" + m;
        throw erreurReseau(phrase);
    };
    seulement(plan, L"en plan");
    seulement(altitude, L"en altitude");
    messages.insert(messages.end(), phrases.begin(), phrases.end());
    if (!libre.tousEtudies())
        messages.push_back(L"D'autres points encore flottent, en trop grand nombre pour être nommés.");
}
