#include "calculs/reseau/approcheReseau.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "calculs/reseau/figureReseau.h"
#include "services/formatNombres.h"

namespace {

using enum genreObservation;

/// A figure on its own that is fitted into the main one by the points they share.
struct ajustage {
    std::complex<double> facteur = 1.0, glissement = 0.0;
    std::complex<double> appliquer(double x, double y) const
    {
        return facteur * std::complex<double>(x, y) + glissement;
    }
};

/// Turn, scale and shift that take points of one figure onto those of the other, by least squares.
bool ajuster(const figureReseau& petite, const figureReseau& grande, ajustage& a)
{
    std::complex<double> centreP = 0.0, centreG = 0.0, produit = 0.0;
    double carres = 0.0;
    std::vector<int> communs;
    for (const int p : petite.points())
        if (grande.pose(p))
            communs.push_back(p);
    if (communs.size() < 2)
        return false;
    for (const int p : communs) {
        centreP += std::complex<double>(petite.x(p), petite.y(p)) / static_cast<double>(communs.size());
        centreG += std::complex<double>(grande.x(p), grande.y(p)) / static_cast<double>(communs.size());
    }
    for (const int p : communs) {
        const auto dp = std::complex<double>(petite.x(p), petite.y(p)) - centreP;
        const auto dg = std::complex<double>(grande.x(p), grande.y(p)) - centreG;
        produit += dg * std::conj(dp);
        carres += std::norm(dp);
    }
    if (!(carres > 0.0))
        return false;
    a.facteur = produit / carres;
    a.glissement = centreG - a.facteur * centreP;
    return std::abs(a.facteur) > 1e-9;
}

/// The turn that makes the bearings observed within a figure right.
std::complex<double> tourSelonGisements(const reseau& r, const figureReseau& f)
{
    for (const observationReseau& o : r.observations)
        if (o.active && o.genre == gisement && f.pose(o.de) && f.pose(o.vers)) {
            const double ici = gisementDe(f.x(o.vers) - f.x(o.de), f.y(o.vers) - f.y(o.de));
            return std::polar(1.0, ici - o.mesure); // clockwise bearings, anticlockwise arguments
        }
    return 1.0;
}

class placeur {
public:
    placeur(const reseau& r, approcheReseau& a) :
        m_r(r),
        m_a(a),
        m_v(r),
        m_grande(m_v, {}),
        m_tente(r.observations.size())
    {
    }

    void executer(bool seulementFixes)
    {
        for (std::size_t p = 0; p < m_r.points.size(); ++p) {
            const pointReseau& point = m_r.points[p];
            if (point.enPlan() && point.plan != tenue::ignoree && (!seulementFixes || point.plan == tenue::fixe))
                m_grande.poser(static_cast<int>(p), point.x, point.y);
        }
        coordonneesObservees();
        m_grande.grandir();
        // What hangs together by itself, from each leg in turn that is not placed yet.
        int essais = 0;
        for (std::size_t k = 0; k < m_r.observations.size() && essais < essaisAuPlus; ++k)
            if (commence(m_r.observations[k]) && !m_tente[k]) {
                ++essais;
                ajouterFigure(k);
            }
        for (const int p : m_grande.points()) {
            m_a.enPlan[static_cast<std::size_t>(p)] = true;
            m_a.c.x[static_cast<std::size_t>(p)] = m_grande.x(p);
            m_a.c.y[static_cast<std::size_t>(p)] = m_grande.y(p);
        }
        for (const figureReseau::autrePlace& autre : m_grande.autresPlaces())
            direAutrePlace(autre);
    }

private:
    static constexpr int essaisAuPlus = 200;

    void direAutrePlace(const figureReseau::autrePlace& autre)
    {
        double a = 0.0, b = 0.0;
        m_r.axes.versFichier(autre.x, autre.y, a, b);
        m_a.messages.push_back(L"Le point « " + m_r.points[static_cast<std::size_t>(autre.point)].nom +
                               L" » a deux places possibles : (" + formaterFixe(a, 2) + L", " + formaterFixe(b, 2) +
                               L") convient aussi bien que celle qui est prise. Donnez-lui des coordonnées "
                               L"approchées, ou une observation de plus.");
    }

    void coordonneesObservees()
    {
        for (std::size_t k = 0; k + 1 < m_r.observations.size(); ++k) {
            const observationReseau &ox = m_r.observations[k], &oy = m_r.observations[k + 1];
            const bool paire = ox.genre == coordonneeX && oy.genre == coordonneeY && ox.de == oy.de;
            if (paire && ox.active && oy.active && !m_grande.pose(ox.de))
                m_grande.poser(ox.de, ox.mesure, oy.mesure);
        }
    }

    /// Whether a figure may begin with this leg: it has an end that is not placed.
    bool commence(const observationReseau& o) const
    {
        const bool jambe =
            o.genre == distance || o.genre == distanceInclinee || o.genre == direction || o.genre == angle;
        return o.active && jambe && (!m_grande.pose(o.de) || !m_grande.pose(o.vers));
    }

    void ajouterFigure(std::size_t k)
    {
        const observationReseau& o = m_r.observations[k];
        const bool mesuree = m_v.longueurs[k] > 0.0;
        // Without any length a figure has the shape alone: its scale comes from where it fits.
        figureReseau petite(m_v, {.gisements = false, .distances = mesuree});
        petite.poser(o.de, 0.0, 0.0);
        petite.poser(o.vers, 0.0, mesuree ? m_v.longueurs[k] : 1.0);
        petite.grandir();
        for (std::size_t autre = 0; autre < m_r.observations.size(); ++autre) // its legs would give the same figure
            if (const observationReseau& l = m_r.observations[autre]; l.vers >= 0 && l.de >= 0 && petite.pose(l.de) &&
                                                                      petite.pose(l.vers) &&
                                                                      (m_v.longueurs[autre] > 0.0) == mesuree)
                m_tente[autre] = true;
        if (petite.points().size() < 3 && !m_grande.points().empty() && !touche(petite))
            return;
        ajustage a;
        if (m_grande.points().empty() || !ajuster(petite, m_grande, a)) {
            if (!mesuree)
                return; // neither scale nor place
            if (!m_grande.points().empty() && !touche(petite))
                return;
            poserSeule(petite);
        } else {
            for (const int p : petite.points())
                poser(p, a.appliquer(petite.x(p), petite.y(p)));
        }
        m_grande.grandir();
    }

    /// Whether the figure shares a point with the main one.
    bool touche(const figureReseau& petite) const
    {
        return std::ranges::any_of(petite.points(), [&](int p) { return m_grande.pose(p); });
    }

    /// A figure that nothing holds, or one point: turned by its bearings, if it has any.
    void poserSeule(const figureReseau& petite)
    {
        ajustage a;
        a.facteur = tourSelonGisements(m_r, petite);
        for (const int p : petite.points())
            if (m_grande.pose(p)) {
                a.glissement = std::complex<double>(m_grande.x(p), m_grande.y(p)) -
                               a.facteur * std::complex<double>(petite.x(p), petite.y(p));
                break;
            }
        for (const int p : petite.points())
            poser(p, a.appliquer(petite.x(p), petite.y(p)));
    }

    void poser(int point, std::complex<double> place)
    {
        if (!m_grande.pose(point))
            m_grande.poser(point, place.real(), place.imag());
    }

    const reseau& m_r;
    approcheReseau& m_a;
    voisinageReseau m_v;
    figureReseau m_grande;
    std::vector<bool> m_tente; ///< by observation: the figure of its leg has been tried
};

// --- Heights -------------------------------------------------------------------------------------------------------

/// The height of `vers` above `de` by one observation, targets and instruments aside; unknown when it tells none.
double deniveleeDe(const observationReseau& o, const approcheReseau& a)
{
    if (o.genre == denivelee)
        return o.mesure;
    if (o.genre != zenithal || std::abs(std::sin(o.mesure)) < 1e-6)
        return inconnu;
    const auto i = static_cast<std::size_t>(o.de), j = static_cast<std::size_t>(o.vers);
    const double appareils = o.hauteurDe - o.hauteurVers;
    if (a.enPlan[i] && a.enPlan[j])
        return std::hypot(a.c.x[j] - a.c.x[i], a.c.y[j] - a.c.y[i]) / std::tan(o.mesure) + appareils;
    return inconnu;
}

class placeurEnAltitude {
public:
    placeurEnAltitude(const reseau& r, approcheReseau& a) : m_r(r), m_a(a), m_liens(r.points.size()) {}

    void executer(bool seulementFixes)
    {
        lierParDenivelees();
        poserConnus(seulementFixes);
        suivre();
        // Levelling that nothing holds begins at 0.
        for (std::size_t p = 0; p < m_r.points.size(); ++p)
            if (!m_a.enAltitude[p] && !m_liens[p].empty()) {
                poser(p, 0.0);
                suivre();
            }
        suivreDistancesInclinees();
    }

private:
    struct lien {
        int vers;
        double dz;
    };

    void lier(int de, int vers, double dz)
    {
        m_liens[static_cast<std::size_t>(de)].push_back({vers, dz});
        m_liens[static_cast<std::size_t>(vers)].push_back({de, -dz});
    }

    void lierParDenivelees()
    {
        for (const observationReseau& o : m_r.observations) {
            if (!o.active || !estAltimetrique(o.genre) || o.genre == coordonneeZ)
                continue;
            if (const double dz = deniveleeDe(o, m_a); estConnue(dz))
                lier(o.de, o.vers, dz);
        }
    }

    void poserConnus(bool seulementFixes)
    {
        for (std::size_t p = 0; p < m_r.points.size(); ++p)
            if (const pointReseau& point = m_r.points[p]; estConnue(point.z) && point.altitude != tenue::ignoree &&
                                                          (!seulementFixes || point.altitude == tenue::fixe))
                poser(p, point.z);
        for (const observationReseau& o : m_r.observations)
            if (o.active && o.genre == coordonneeZ)
                poser(static_cast<std::size_t>(o.de), o.mesure);
    }

    /// What only slope distances hold begins level with what it is measured from, step after step.
    void suivreDistancesInclinees()
    {
        const auto ignore = [&](int p) { return m_r.points[static_cast<std::size_t>(p)].altitude == tenue::ignoree; };
        for (const observationReseau& o : m_r.observations)
            if (o.active && o.genre == distanceInclinee && !ignore(o.de) && !ignore(o.vers))
                lier(o.de, o.vers, 0.0);
        for (std::size_t p = 0; p < m_r.points.size(); ++p)
            if (m_a.enAltitude[p])
                m_aSuivre.push_back(static_cast<int>(p));
        suivre();
    }

    void poser(std::size_t p, double z)
    {
        if (m_a.enAltitude[p])
            return;
        m_a.enAltitude[p] = true;
        m_a.c.z[p] = z;
        m_aSuivre.push_back(static_cast<int>(p));
    }

    void suivre()
    {
        while (!m_aSuivre.empty()) {
            const auto p = static_cast<std::size_t>(m_aSuivre.back());
            m_aSuivre.pop_back();
            for (const lien& l : m_liens[p])
                poser(static_cast<std::size_t>(l.vers), m_a.c.z[p] + l.dz);
        }
    }

    const reseau& m_r;
    approcheReseau& m_a;
    std::vector<std::vector<lien>> m_liens; ///< by point: what its height gives
    std::vector<int> m_aSuivre;             ///< placed, their neighbours not looked at yet
};

/// What would place a point that has no place: what there is of it, in words.
std::wstring manque(const reseau& r, int point)
{
    int distances = 0, directions = 0, autres = 0;
    for (const observationReseau& o : r.observations) {
        if (!o.active || (o.de != point && o.vers != point && o.vers2 != point) || !estPlanimetrique(o.genre))
            continue;
        if (o.genre == distance || o.genre == distanceInclinee)
            ++distances;
        else if (o.genre == direction && o.de == point)
            ++directions;
        else
            ++autres;
    }
    if (distances + directions + autres == 0)
        return L"aucune observation en plan ne le vise";
    if (distances + autres == 0 && directions > 2)
        return L"son relèvement ne donne pas de place : points sur un même cercle, ou visées fausses";
    if (distances + autres == 0)
        return L"il manque une visée vers un troisième point connu, ou une distance";
    if (distances == 1 && directions + autres == 0)
        return L"une seule distance le tient : il manque une direction, un angle ou une seconde distance";
    if (distances == 0 && autres == 1)
        return L"une seule visée le tient : il manque une distance ou une visée d'une autre station";
    return L"ses observations ne mènent à aucun point connu : il manque une distance ou une visée depuis un point "
           L"placé";
}

} // namespace

void orienterSeries(const reseau& r, approcheReseau& a)
{
    const voisinageReseau v(r);
    figureReseau f(v, {});
    for (std::size_t p = 0; p < r.points.size(); ++p)
        if (a.enPlan[p])
            f.poser(static_cast<int>(p), a.c.x[p], a.c.y[p]);
    for (int serie = 0; serie < r.series; ++serie) {
        const double zero = f.orientation(serie);
        a.c.orientations[static_cast<std::size_t>(serie)] = estConnue(zero) ? zero : 0.0;
    }
}

approcheReseau approcher(const reseau& r, bool seulementFixes)
{
    approcheReseau a;
    const std::size_t n = r.points.size();
    a.c.x.assign(n, 0.0);
    a.c.y = a.c.z = a.c.x;
    a.c.orientations.assign(static_cast<std::size_t>(r.series), 0.0);
    a.enPlan.assign(n, false);
    a.enAltitude.assign(n, false);
    placeur(r, a).executer(seulementFixes);
    placeurEnAltitude(r, a).executer(seulementFixes);
    std::vector<bool> observe(n);
    for (const observationReseau& o : r.observations)
        if (o.active && estPlanimetrique(o.genre))
            for (const int p : {o.de, o.vers, o.vers2})
                if (p >= 0)
                    observe[static_cast<std::size_t>(p)] = true;
    for (std::size_t p = 0; p < n; ++p)
        if (observe[p] && !a.enPlan[p] && r.points[p].plan != tenue::ignoree)
            a.messages.push_back(L"Le point « " + r.points[p].nom + L" » ne peut pas être placé : " +
                                 manque(r, static_cast<int>(p)) + L".");
    return a;
}
