#include "calculs/reseau/figureReseau.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "calculs/reseau/loisStatistiques.h"

namespace {

using enum genreObservation;

/// Two lines that cross flatter than that do not place a point well.
constexpr double croisementMinimal = 0.1;
constexpr std::size_t lieuxEtudies = 12;

} // namespace

voisinageReseau::voisinageReseau(const reseau& reseauDonne) :
    r(reseauDonne),
    parPoint(r.points.size()),
    parSerie(static_cast<std::size_t>(r.series)),
    longueurs(r.observations.size(), 0.0)
{
    std::map<std::pair<int, int>, double> zenithales;
    for (const observationReseau& o : r.observations)
        if (o.active && o.genre == zenithal)
            zenithales[{o.de, o.vers}] = o.mesure;
    for (std::size_t k = 0; k < r.observations.size(); ++k) {
        const observationReseau& o = r.observations[k];
        if (!o.active || !estPlanimetrique(o.genre) || o.genre == zenithal)
            continue;
        for (const int p : {o.de, o.vers, o.vers2})
            if (p >= 0)
                parPoint[static_cast<std::size_t>(p)].push_back(static_cast<int>(k));
        if (o.genre == direction)
            parSerie[static_cast<std::size_t>(o.serie)].push_back(static_cast<int>(k));
        if (o.genre == distance) {
            longueurs[k] = o.mesure;
        } else if (o.genre == distanceInclinee) {
            longueurs[k] = o.mesure;
            const double za = r.points[static_cast<std::size_t>(o.de)].z,
                         zb = r.points[static_cast<std::size_t>(o.vers)].z;
            if (const auto z = zenithales.find({o.de, o.vers}); z != zenithales.end())
                longueurs[k] *= std::abs(std::sin(z->second));
            else if (estConnue(za) && estConnue(zb))
                longueurs[k] = std::sqrt(
                    std::max(0.0, o.mesure * o.mesure - std::pow(zb + o.hauteurVers - za - o.hauteurDe, 2.0)));
        }
    }
}

figureReseau::figureReseau(const voisinageReseau& v, choix quoi) :
    m_v(v),
    m_choix(quoi),
    m_x(v.r.points.size()),
    m_y(v.r.points.size()),
    m_pose(v.r.points.size()),
    m_enFile(v.r.points.size())
{
}

void figureReseau::poser(int point, double x, double y)
{
    const auto p = static_cast<std::size_t>(point);
    m_x[p] = x;
    m_y[p] = y;
    m_pose[p] = true;
    m_poses.push_back(point);
    voisinsATenter(point);
}

/// Points that what was just placed may help to place: those of its observations, and the other targets of a station
/// whose set it orients.
void figureReseau::voisinsATenter(int point)
{
    const auto mettre = [&](int p) {
        if (p >= 0 && !pose(p) && !m_enFile[static_cast<std::size_t>(p)]) {
            m_enFile[static_cast<std::size_t>(p)] = true;
            m_file.push_back(p);
        }
    };
    for (const int k : m_v.parPoint[static_cast<std::size_t>(point)]) {
        const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
        for (const int p : {o.de, o.vers, o.vers2})
            mettre(p);
        if (o.genre != direction || !pose(o.de))
            continue;
        for (const int autre : m_v.parSerie[static_cast<std::size_t>(o.serie)])
            mettre(m_v.r.observations[static_cast<std::size_t>(autre)].vers);
    }
}

double figureReseau::gisementVers(int de, int vers) const
{
    return gisementDe(x(vers) - x(de), y(vers) - y(de));
}

double figureReseau::orientation(int serie) const
{
    double premiere = inconnu;
    std::vector<double> ecarts;
    for (const int k : m_v.parSerie[static_cast<std::size_t>(serie)]) {
        const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
        if (!pose(o.de) || !pose(o.vers) || (x(o.de) == x(o.vers) && y(o.de) == y(o.vers)))
            continue;
        const double oriente = gisementVers(o.de, o.vers) - o.mesure;
        if (!estConnue(premiere))
            premiere = oriente;
        ecarts.push_back(ecartAngulaire(oriente - premiere));
    }
    return estConnue(premiere) ? premiere + mediane(ecarts) : inconnu;
}

void figureReseau::lieuDeDirection(const observationReseau& o, int point, lieux& l) const
{
    if (o.vers == point && pose(o.de))
        if (const double zero = orientation(o.serie); estConnue(zero))
            l.droites.push_back({o.de, zero + o.mesure});
}

/// An angle whose station and one side are placed gives the bearing of the other side.
void figureReseau::lieuDAngle(const observationReseau& o, int point, lieux& l) const
{
    if (!pose(o.de))
        return;
    if (o.vers2 == point && o.vers != point && pose(o.vers))
        l.droites.push_back({o.de, gisementVers(o.de, o.vers) + o.mesure});
    else if (o.vers == point && o.vers2 != point && pose(o.vers2))
        l.droites.push_back({o.de, gisementVers(o.de, o.vers2) - o.mesure});
}

figureReseau::lieux figureReseau::lieuxDe(int point) const
{
    lieux l;
    for (const int k : m_v.parPoint[static_cast<std::size_t>(point)]) {
        const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
        const int autre = o.de == point ? o.vers : o.de;
        if (o.genre == direction) {
            lieuDeDirection(o, point, l);
        } else if (o.genre == angle) {
            lieuDAngle(o, point, l);
        } else if (o.genre == gisement && m_choix.gisements && pose(autre)) {
            l.droites.push_back({autre, o.de == point ? o.mesure + pi : o.mesure});
        } else if (m_v.longueurs[static_cast<std::size_t>(k)] > 0.0 && m_choix.distances && pose(autre)) {
            l.cercles.push_back({autre, m_v.longueurs[static_cast<std::size_t>(k)]});
        }
    }
    // A station that sees placed points in a set oriented by a bearing of its own needs no more than that here.
    if (l.droites.size() > lieuxEtudies)
        l.droites.resize(lieuxEtudies);
    if (l.cercles.size() > lieuxEtudies)
        l.cercles.resize(lieuxEtudies);
    return l;
}

/// The places where two of the lines and circles meet: one, or two.
std::vector<figureReseau::place> figureReseau::intersections(const lieux& l) const
{
    using maniere = std::vector<place> (figureReseau::*)(const lieux&) const;
    for (const maniere m : {&figureReseau::rayonnees, &figureReseau::croiserDroites,
                            &figureReseau::croiserDroiteEtCercle, &figureReseau::croiserCercles})
        if (std::vector<place> trouvees = (this->*m)(l); !trouvees.empty())
            return trouvees;
    return {};
}

/// Along a bearing at a distance from the same point: from several points, in their middle, so that errors do not grow
/// from one to the next.
std::vector<figureReseau::place> figureReseau::rayonnees(const lieux& l) const
{
    std::vector<double> xs, ys;
    for (const droite& d : l.droites)
        for (const cercle& c : l.cercles)
            if (c.de == d.de) {
                xs.push_back(x(d.de) + c.rayon * std::sin(d.gisement));
                ys.push_back(y(d.de) + c.rayon * std::cos(d.gisement));
            }
    if (xs.empty())
        return {};
    return {{mediane(xs), mediane(ys)}};
}

/// From the pair that crosses best, in front of the instrument.
std::vector<figureReseau::place> figureReseau::croiserDroites(const lieux& l) const
{
    double meilleur = croisementMinimal;
    std::vector<place> trouvees;
    for (std::size_t i = 0; i < l.droites.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const droite &a = l.droites[i], &b = l.droites[j];
            const double sinus = std::sin(b.gisement - a.gisement);
            if (std::abs(sinus) <= meilleur || a.de == b.de)
                continue;
            const double dx = x(b.de) - x(a.de), dy = y(b.de) - y(a.de);
            const double t = (dx * std::cos(b.gisement) - dy * std::sin(b.gisement)) / -sinus;
            if (t <= 0.0)
                continue;
            meilleur = std::abs(sinus);
            trouvees = {{x(a.de) + t * std::sin(a.gisement), y(a.de) + t * std::cos(a.gisement)}};
        }
    return trouvees;
}

/// From the first pair that meets in front of the instrument.
std::vector<figureReseau::place> figureReseau::croiserDroiteEtCercle(const lieux& l) const
{
    std::vector<place> trouvees;
    for (const droite& d : l.droites)
        for (const cercle& c : l.cercles) {
            const double sx = std::sin(d.gisement), sy = std::cos(d.gisement);
            const double dx = x(c.de) - x(d.de), dy = y(c.de) - y(d.de);
            const double leLong = dx * sx + dy * sy, travers2 = dx * dx + dy * dy - leLong * leLong;
            const double demi = std::sqrt(std::max(0.0, c.rayon * c.rayon - travers2));
            for (const double t : {leLong + demi, leLong - demi})
                if (t > 0.0)
                    trouvees.push_back({x(d.de) + t * sx, y(d.de) + t * sy});
            if (!trouvees.empty())
                return trouvees;
        }
    return {};
}

/// From the pair of circles that cross best.
std::vector<figureReseau::place> figureReseau::croiserCercles(const lieux& l) const
{
    double meilleur = -1.0;
    std::vector<place> trouvees;
    for (std::size_t i = 0; i < l.cercles.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const cercle &a = l.cercles[i], &b = l.cercles[j];
            const double dx = x(b.de) - x(a.de), dy = y(b.de) - y(a.de), base = std::hypot(dx, dy);
            if (base <= 1e-6 * (a.rayon + b.rayon))
                continue;
            const double pied = (base * base + a.rayon * a.rayon - b.rayon * b.rayon) / (2.0 * base);
            const double hauteur = std::sqrt(std::max(0.0, a.rayon * a.rayon - pied * pied));
            const double ux = dx / base, uy = dy / base, croisement = hauteur / std::max(a.rayon, b.rayon);
            if (croisement <= meilleur)
                continue;
            meilleur = croisement;
            const place p{x(a.de) + pied * ux, y(a.de) + pied * uy};
            trouvees = {{p.x - hauteur * uy, p.y + hauteur * ux}, {p.x + hauteur * uy, p.y - hauteur * ux}};
        }
    return trouvees;
}

/// What the point reads towards placed points: the set of directions that has most of them, or else its angles.
std::vector<repereVise> figureReseau::reperesDe(int point) const
{
    constexpr std::size_t reperesEtudies = 6;
    std::map<int, std::vector<repereVise>> parSerie;
    std::vector<const observationReseau*> angles;
    for (const int k : m_v.parPoint[static_cast<std::size_t>(point)]) {
        const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
        if (o.de != point || !pose(o.vers))
            continue;
        if (o.genre == direction)
            parSerie[o.serie].push_back({x(o.vers), y(o.vers), o.mesure});
        else if (o.genre == angle && pose(o.vers2))
            angles.push_back(&o);
    }
    std::vector<repereVise> reperes;
    for (auto& [serie, vus] : parSerie)
        if (vus.size() > reperes.size())
            reperes = vus;
    if (reperes.size() < 3)
        reperes = enchainer(angles);
    if (reperes.size() > reperesEtudies)
        reperes.resize(reperesEtudies);
    return reperes;
}

/// Angles of a station, chained by the points that they share, as readings of one circle.
std::vector<repereVise> figureReseau::enchainer(const std::vector<const observationReseau*>& angles) const
{
    std::map<int, double> lectures;
    for (bool change = !angles.empty(); change;) {
        change = false;
        for (const observationReseau* const o : angles) {
            if (lectures.empty())
                lectures[o->vers] = 0.0;
            const auto a = lectures.find(o->vers), b = lectures.find(o->vers2);
            if (a != lectures.end() && b == lectures.end())
                change = lectures.emplace(o->vers2, a->second + o->mesure).second;
            else if (b != lectures.end() && a == lectures.end())
                change = lectures.emplace(o->vers, b->second - o->mesure).second;
        }
    }
    std::vector<repereVise> reperes;
    for (const auto& [vers, lecture] : lectures)
        reperes.push_back({x(vers), y(vers), lecture});
    return reperes;
}

/// How badly the observations to placed points agree with a place, in metres.
double figureReseau::desaccord(int point, const place& p) const
{
    double somme = 0.0;
    const auto vers = [&](int autre) { return gisementDe(x(autre) - p.x, y(autre) - p.y); };
    std::map<int, std::pair<double, double>> series; // first reading and bearing
    for (const int k : m_v.parPoint[static_cast<std::size_t>(point)]) {
        const observationReseau& o = m_v.r.observations[static_cast<std::size_t>(k)];
        const int autre = o.de == point ? o.vers : o.de;
        if (autre < 0 || autre == point || !pose(autre))
            continue;
        const double longueur = std::hypot(x(autre) - p.x, y(autre) - p.y);
        if (o.genre == direction && o.de == point) {
            const auto [premiere, neuve] = series.try_emplace(o.serie, o.mesure, vers(autre));
            if (!neuve)
                somme +=
                    longueur *
                    std::abs(ecartAngulaire(vers(autre) - premiere->second.second - o.mesure + premiere->second.first));
        } else if (o.genre == direction) {
            if (const double zero = orientation(o.serie); estConnue(zero))
                somme += longueur * std::abs(ecartAngulaire(vers(autre) + pi - zero - o.mesure));
        } else if (o.genre == gisement && m_choix.gisements) {
            somme += longueur * std::abs(ecartAngulaire(vers(autre) + (o.de == point ? 0.0 : pi) - o.mesure));
        } else if (o.genre == angle && o.de == point && pose(o.vers2)) {
            somme += longueur * std::abs(ecartAngulaire(vers(o.vers2) - vers(o.vers) - o.mesure));
        } else if (o.genre == angle && o.de != point) {
            const int cote = o.vers == point ? o.vers2 : o.vers;
            if (pose(cote) && cote != point)
                somme += longueur *
                         std::abs(ecartAngulaire(
                             (o.vers == point ? 1.0 : -1.0) * (gisementVers(o.de, cote) - vers(o.de) - pi) - o.mesure));
        } else if (m_v.longueurs[static_cast<std::size_t>(k)] > 0.0 && m_choix.distances) {
            somme += std::abs(longueur - m_v.longueurs[static_cast<std::size_t>(k)]);
        }
    }
    return somme;
}

/// Whether observations tell one place from the other.
bool figureReseau::departages(int point, const place& a, const place& b) const
{
    return std::abs(desaccord(point, a) - desaccord(point, b)) >= 0.2 * std::hypot(a.x - b.x, a.y - b.y);
}

std::vector<figureReseau::autrePlace> figureReseau::autresPlaces() const
{
    constexpr double memeLieu = 0.01; // circles that touch
    std::vector<autrePlace> restantes;
    for (const autrePlace& autre : m_autresPlaces) {
        const place ici{x(autre.point), y(autre.point)};
        if (std::hypot(autre.x - ici.x, autre.y - ici.y) > memeLieu &&
            !departages(autre.point, ici, {autre.x, autre.y}))
            restantes.push_back(autre);
    }
    return restantes;
}

bool figureReseau::tenter(int point, bool ambigu)
{
    const lieux l = lieuxDe(point);
    std::vector<place> places = intersections(l);
    if (places.size() != 1)
        if (const auto releve = relever(reperesDe(point)))
            places = {{releve->x, releve->y}};
    if (places.empty())
        return false;
    place choisie = places.front();
    if (places.size() > 1) {
        const bool surs = departages(point, places[0], places[1]);
        if (!ambigu && !surs)
            return false;
        if (desaccord(point, places[1]) < desaccord(point, places[0]))
            std::swap(places[0], places[1]);
        choisie = places[0];
        if (!surs)
            m_autresPlaces.push_back({point, places[1].x, places[1].y});
    }
    poser(point, choisie.x, choisie.y);
    return true;
}

void figureReseau::grandir()
{
    m_donnes = m_avantReprise = m_reprise = m_poses.size();
    std::vector<int> remis;
    for (;;) {
        while (!m_file.empty()) {
            const int point = m_file.front();
            m_file.pop_front();
            m_enFile[static_cast<std::size_t>(point)] = false;
            if (!pose(point) && !tenter(point, false))
                remis.push_back(point);
            reprendreAuBesoin();
        }
        // One of two places, then see what it settles.
        bool avance = false;
        while (!remis.empty() && !avance) {
            const int point = remis.back();
            remis.pop_back();
            avance = !pose(point) && tenter(point, true);
        }
        if (!avance)
            return;
    }
}
