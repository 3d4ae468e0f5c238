#include "implantation/travailImplantation.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "implantation/entitesImplantation.h"
#include "implantation/terrainDuDessin.h"
#include "implantation/traceImplantation.h"
#include "points/altitudeDuSol.h"

namespace {

bool memePoint(const lieuNomme& a, const lieuNomme& b)
{
    return a.nom == b.nom && memePlace(a, b);
}

/// Labels of setups at one place stand below one another.
void rangerEtiquettes(const std::vector<std::unique_ptr<observationMiseEnStation>>& stations)
{
    for (auto s = stations.begin(); s != stations.end(); ++s)
        (*s)->etiquette = static_cast<int>(
            std::count_if(stations.begin(), s, [&](const auto& avant) { return memePlace(avant->lieu, (*s)->lieu); }));
}

/// Obstacles of the job as sights meet them.
obstaclesPlan planDe(const std::vector<std::unique_ptr<obstacleImplantation>>& obstacles)
{
    obstaclesPlan plan;
    for (const auto& obstacle : obstacles)
        obstacle->indexer(plan);
    plan.indexer();
    return plan;
}

point3 place(const lieuNomme& lieu)
{
    return {lieu.x, lieu.y, lieu.z};
}

bool completerAltitude(const solImplantation& sol, lieuNomme& lieu)
{
    return lieu.z != inconnu || (lieu.planConnu() && sol.altitude(lieu.plan(), lieu.z));
}

void oublierVue(pointImplante& point)
{
    point.verifie = false;
    point.hauteurVisible = inconnu;
    point.pire.reset();
    point.cause.clear();
    point.sansSol = 0.0;
}

/// What one pass over many sights holds on to.
class passe {
public:
    passe(const solImplantation& sol, const std::vector<std::unique_ptr<obstacleImplantation>>& obstacles,
          double hauteur) :
        m_sol(sol),
        m_obstacles(obstacles),
        m_plan(planDe(obstacles)),
        m_hauteur(hauteur)
    {
    }

    void verifier(const lieuNomme& station, pointImplante& point) const
    {
        oublierVue(point);
        const bool stationConnue = station.z != inconnu;
        const auto coupe = stationConnue && completerAltitude(m_sol, point)
                               ? couper(m_sol, m_plan, place(station), place(point), m_hauteur)
                               : std::nullopt;
        if (!coupe) {
            point.cause = !stationConnue                   ? L"la station est hors du terrain"
                          : point.z == inconnu             ? L"le point est hors du terrain"
                          : station.plan() == point.plan() ? L"le point est sous la station"
                                                           : L"la vis\u00e9e est hors du terrain";
            return;
        }
        point.pire = pireObstruction(*coupe);
        point.verifie = true;
        point.hauteurVisible = point.pire ? point.pire->hauteur : 0.0;
        point.sansSol = coupe->sansSol();
        if (point.pire)
            point.cause = point.pire->obstacle == leSol ? L"le terrain" : m_obstacles[point.pire->obstacle]->nom();
    }

private:
    const solImplantation& m_sol;
    const std::vector<std::unique_ptr<obstacleImplantation>>& m_obstacles;
    obstaclesPlan m_plan;
    double m_hauteur;
};

} // namespace

travailImplantation::travailImplantation() : hauteurStation(reglagesDuProcessus().hauteur)
{
    declarerApplications();
    obstacles = obstaclesDuDessin();
}

travailImplantation::~travailImplantation() = default;

travailImplantation::positions travailImplantation::toutes() const
{
    positions toutes(points.size());
    for (std::size_t i = 0; i < toutes.size(); ++i)
        toutes[i] = i;
    return toutes;
}

observationMiseEnStation* travailImplantation::station(identifiantImplantation identifiant) const
{
    const auto trouvee = std::ranges::find(stations, identifiant, [](const auto& s) { return s->identifiant; });
    return trouvee == stations.end() ? nullptr : trouvee->get();
}

bool travailImplantation::nomConnu(const std::wstring& nom)
{
    if (m_nommes != points.size()) { // some were removed, or read from the drawing
        m_noms.clear();
        for (const pointDuTravail& p : points)
            m_noms.insert(p.nom);
        m_nommes = points.size();
    }
    return m_noms.contains(nom);
}

bool travailImplantation::ajouterPoint(const lieuNomme& lieu)
{
    if (nomConnu(lieu.nom) && std::ranges::any_of(points, [&](const pointDuTravail& p) { return memePoint(p, lieu); }))
        return false;
    pointDuTravail point;
    static_cast<lieuNomme&>(point) = lieu;
    point.identifiant = nouvelIdentifiant();
    points.push_back(std::move(point));
    m_noms.insert(lieu.nom);
    m_nommes = points.size();
    return true;
}

std::wstring travailImplantation::nomLibre()
{
    while (nomConnu(numerotation.nom()))
        ++numerotation.numero;
    const std::wstring nom = numerotation.nom();
    ++numerotation.numero;
    return nom;
}

void travailImplantation::enlever(const positions& choisis)
{
    for (auto i = choisis.rbegin(); i != choisis.rend(); ++i) {
        effacerEntites(points[*i].apercu);
        points.erase(points.begin() + static_cast<std::ptrdiff_t>(*i));
    }
}

identifiantImplantation travailImplantation::ajouterStation(const lieuNomme& lieu, const lieuNomme& reference,
                                                            int genre)
{
    auto creee = creerMiseEnStation(lieu, reference, genre);
    if (!creee)
        return aucunIdentifiant;
    stations.push_back(std::move(creee));
    rangerEtiquettes(stations);
    if (options.stations)
        stations.back()->draw(masqueDe(options));
    return stations.back()->identifiant;
}

std::wstring travailImplantation::nomDeStation() const
{
    for (int i = 1;; ++i) {
        const std::wstring nom = L"ST" + std::to_wstring(i);
        if (std::ranges::none_of(stations, [&](const auto& s) { return s->lieu.nom == nom; }))
            return nom;
    }
}

void travailImplantation::affecter(const positions& choisis, identifiantImplantation laStation)
{
    for (const std::size_t i : choisis) {
        points[i].station = laStation;
        oublierVue(points[i]);
    }
}

void travailImplantation::annulerStations(const positions& choisis)
{
    affecter(choisis, aucunIdentifiant);
    std::erase_if(stations, [this](const auto& s) {
        const bool servie = std::ranges::any_of(points, [&](const auto& p) { return p.station == s->identifiant; });
        if (!servie)
            s->releaseGraphics();
        return !servie;
    });
}

std::wstring travailImplantation::phraseSousLeurStation() const
{
    std::vector<std::wstring> noms;
    for (const pointDuTravail& p : points)
        if (const observationMiseEnStation* const s = station(p.station); s && sousLaStation(p, s->donnees()))
            noms.push_back(p.nom);
    return noms.empty() ? std::wstring()
                        : L"\u00c0 la place de leur station, rien \u00e0 implanter : " + enumererNoms(noms);
}

void travailImplantation::fixerHauteurStation(double hauteur)
{
    if (hauteur == hauteurStation)
        return;
    hauteurStation = hauteur;
    for (pointDuTravail& p : points)
        oublierVue(p);
    verifierVisibilite(toutes());
}

std::unique_ptr<const solImplantation> travailImplantation::sol()
{
    auto trouve = terrainDuDessin();
    m_solServi = m_solServi || trouve;
    return trouve;
}

void travailImplantation::verifierVisibilite(const positions& choisis)
{
    const auto solLu = sol();
    if (!solLu)
        return;
    const passe p(*solLu, obstacles, hauteurStation);
    std::vector<viseeEnPlan> visees;
    std::vector<std::pair<observationMiseEnStation*, pointImplante*>> paires;
    for (const std::size_t i : choisis) {
        observationMiseEnStation* const s = station(points[i].station);
        if (!s)
            continue;
        completerAltitude(*solLu, s->lieu);
        visees.push_back({s->lieu.plan(), points[i].plan()});
        paires.emplace_back(s, &points[i]);
    }
    if (verifier)
        for (const std::size_t i : ordreDesVisees(visees))
            p.verifier(paires[i].first->lieu, *paires[i].second);
}

std::optional<coupeVisee> travailImplantation::coupeDe(const pointImplante& point) const
{
    const auto sol = terrainDuDessin();
    const observationMiseEnStation* const s = station(point.station);
    if (!sol || !s || s->lieu.z == inconnu || point.z == inconnu)
        return std::nullopt;
    return couper(*sol, planDe(obstacles), place(s->lieu), place(point), hauteurStation);
}

travailImplantation::bilanRepartition travailImplantation::repartirPoints(const positions& choisis,
                                                                          const choixRepartition& choix)
{
    bilanRepartition bilan;
    const auto solLu = sol();
    bilan.sansTerrain = !solLu;
    std::optional<passe> p;
    if (solLu) {
        p.emplace(*solLu, obstacles, hauteurStation);
        for (const auto& s : stations)
            completerAltitude(*solLu, s->lieu);
    }
    const auto distance = [&](std::size_t point, std::size_t s) {
        const lieuNomme& lieu = points[choisis[point]];
        if (memePlace(stations[s]->lieu, lieu))
            return 0.0;
        return distanceVers(stations[s]->donnees(), lieu.x, lieu.y);
    };
    const double seuil = reglagesDuProcessus().hauteur;
    const auto voir = [&](const std::vector<paireRepartition>& paires) {
        std::vector<vueDuPoint> vues(paires.size(), {true});
        std::vector<viseeEnPlan> visees;
        for (const auto& [point, s] : paires)
            visees.push_back({stations[s]->lieu.plan(), points[choisis[point]].plan()});
        if (p)
            for (const std::size_t i : ordreDesVisees(visees)) {
                pointImplante essai = points[choisis[paires[i].point]];
                p->verifier(stations[paires[i].station]->lieu, essai);
                vues[i].vu = etatDe(essai, seuil) == etatVisibilite::visible;
                if (essai.verifie && !vues[i].vu)
                    vues[i] = {false, refusStation::obstruee, essai.hauteurVisible - seuil};
            }
        return vues;
    };
    const repartition r = repartir(choisis.size(), stations.size(), choix, distance, voir);
    for (std::size_t i = 0; i < choisis.size(); ++i) {
        const bool vu = r.stations[i] != repartition::aucune;
        affecter({choisis[i]}, vu ? stations[r.stations[i]]->identifiant : aucunIdentifiant);
        if (!vu)
            bilan.nonVus.push_back({choisis[i], r.refusees[i]});
    }
    verifierVisibilite(choisis);
    return bilan;
}

resultatImplantation travailImplantation::resultat() const
{
    resultatImplantation r;
    r.verification = verifier;
    r.hauteurMin = reglagesDuProcessus().hauteur;
    r.hauteurStation = hauteurStation;
    r.terrainPerime = m_solServi && solPerime();
    std::unordered_map<identifiantImplantation, std::size_t> rangs;
    rangerEtiquettes(stations);
    for (const auto& s : stations) {
        rangs[s->identifiant] = r.blocs.size();
        r.blocs.push_back({s->donnees(), {}});
    }
    for (const pointDuTravail& p : points) {
        const auto rang = rangs.find(p.station);
        (rang == rangs.end() ? r.sansStation : r.blocs[rang->second].points).push_back(p);
    }
    std::erase_if(r.blocs, [](const blocStation& b) { return b.points.empty(); });
    return r;
}

void travailImplantation::dessinerStations()
{
    rangerEtiquettes(stations);
    for (const auto& s : stations) {
        if (options.stations)
            s->draw(masqueDe(options));
        else
            s->releaseGraphics();
    }
}

void travailImplantation::dessinerApercu(const positions& choisis)
{
    for (const std::size_t i : choisis) {
        pointDuTravail& p = points[i];
        effacerEntites(p.apercu);
        const observationMiseEnStation* const s = station(p.station);
        const donneesStation donnees = s ? s->donnees() : donneesStation();
        p.apercu =
            dessinerEntites(tracePoint(p, s ? &donnees : nullptr, masqueDe(options), verifier, reglagesDuProcessus()),
                            {1, p.identifiant});
    }
}

void travailImplantation::effacerApercu()
{
    for (pointDuTravail& p : points)
        effacerEntites(p.apercu);
}

void travailImplantation::effacerTout()
{
    effacerApercu();
    for (const auto& s : stations)
        s->releaseGraphics();
    for (const auto& o : obstacles)
        o->highlight(false);
}
