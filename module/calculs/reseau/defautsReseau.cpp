#include "calculs/reseau/defautsReseau.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "calculs/reseau/resultatReseau.h"

namespace {

constexpr double partNulle = 1e-6;

/// The move of one free vector, by point.
struct mouvement {
    std::vector<int> points; ///< those that move
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

/// Several points that move as one: d = t + s·p + w·(turned p). What the move is, in words.
std::wstring natureEnPlan(const mouvement& m, const coordonneesReseau& c)
{
    const double n = static_cast<double>(m.points.size());
    double mx = 0.0, my = 0.0, tx = 0.0, ty = 0.0;
    for (std::size_t i = 0; i < m.points.size(); ++i) {
        const auto p = static_cast<std::size_t>(m.points[i]);
        mx += c.x[p] / n;
        my += c.y[p] / n;
        tx += m.dx[i] / n;
        ty += m.dy[i] / n;
    }
    double carres = 0.0, tour = 0.0, echelle = 0.0, taille = 0.0;
    for (std::size_t i = 0; i < m.points.size(); ++i) {
        const auto p = static_cast<std::size_t>(m.points[i]);
        const double x = c.x[p] - mx, y = c.y[p] - my;
        carres += x * x + y * y;
        tour += m.dx[i] * y - m.dy[i] * x; // clockwise
        echelle += m.dx[i] * x + m.dy[i] * y;
        taille += m.dx[i] * m.dx[i] + m.dy[i] * m.dy[i];
    }
    tour /= carres;
    echelle /= carres;
    double reste = 0.0;
    for (std::size_t i = 0; i < m.points.size(); ++i) {
        const auto p = static_cast<std::size_t>(m.points[i]);
        const double x = c.x[p] - mx, y = c.y[p] - my;
        reste +=
            std::pow(m.dx[i] - tx - tour * y - echelle * x, 2.0) + std::pow(m.dy[i] - ty + tour * x - echelle * y, 2.0);
    }
    if (!(reste < 1e-8 * taille))
        return L"se déforment ensemble sans changer une mesure";
    const double tourne = std::abs(tour) * std::sqrt(carres), grandit = std::abs(echelle) * std::sqrt(carres);
    const double glisse = std::hypot(tx, ty) * std::sqrt(n);
    if (tourne > 1e-4 * glisse && tourne > 1e-4 * grandit)
        return L"peuvent tourner d'un bloc : il manque un gisement, ou un second point connu";
    if (grandit > 1e-4 * glisse)
        return L"peuvent grandir d'un bloc : il manque une distance, ou un second point connu";
    return L"peuvent glisser d'un bloc : il manque un point connu";
}

/// One point that moves alone: which observations see it, and what they leave.
std::wstring raisonDuPoint(const reseau& r, const systemeReseau& s, int point, const mouvement& m)
{
    std::vector<const observationReseau*> visees;
    for (const int k : s.retenues()) {
        const observationReseau& o = r.observations[static_cast<std::size_t>(k)];
        if ((o.de == point || o.vers == point || o.vers2 == point) &&
            (m.plan ? estPlanimetrique(o.genre) : estAltimetrique(o.genre)))
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
    return phrase + (m.plan ? L" (il manque une distance, un angle ou un gisement depuis un point connu)"
                            : L" (il manque une dénivelée depuis un point connu)");
}

std::wstring phrase(const reseau& r, const systemeReseau& s, const coordonneesReseau& c, const mouvement& m)
{
    if (m.points.size() == 1)
        return L"Le point « " + r.points[static_cast<std::size_t>(m.points.front())].nom + L" » flotte : il " +
               raisonDuPoint(r, s, m.points.front(), m) + L".";
    const std::wstring qui = L"Les points " + listeDeNoms(r, m.points) + L" flottent : ils ";
    if (m.altitude && !m.plan)
        return qui + L"peuvent monter ensemble : il manque une altitude connue.";
    if (m.plan && !m.altitude)
        return qui + natureEnPlan(m, c) + L".";
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
    std::set<std::wstring> phrases;
    for (const std::vector<double>& z : libre.flottements())
        if (const mouvement m = mouvementDe(r, s, z); !m.points.empty())
            phrases.insert(phrase(r, s, c, m));
    const bool plan = toutFlotte(r, s, libre, false), altitude = toutFlotte(r, s, libre, true);
    std::wstring toutes;
    for (const std::wstring& p : phrases)
        toutes += L"\n" + p;
    const auto seulement = [&](bool celui, const wchar_t* lequel) {
        if (celui)
            throw erreurReseau(std::wstring(L"le réseau flotte ") + lequel + L"." + toutes +
                               L"\nTenez des points fixes ou d'appui, ou demandez un calcul libre.");
    };
    seulement(plan, L"en plan");
    seulement(altitude, L"en altitude");
    messages.insert(messages.end(), phrases.begin(), phrases.end());
}
