#include "calculs/calculPolygonaleFermee.h"

#include "calculs/grandeur.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/uniteAngulaire.h"

namespace {

/// Interior angles, their closure and the corrected angles.
void fermerAngles(resultatPolygonaleFermee& r)
{
    const double tour = tourComplet(r.unite);
    const double n = static_cast<double>(r.visees.size());
    grandeur somme;
    for (viseeFermee& v : r.visees) {
        const grandeur interieur = grandeur(tour) - v.observation.angle;
        somme += interieur;
        v.interieur = interieur.valeur();
    }
    const grandeur erreur = somme - (n - 2.0) * tour / 2.0;
    const grandeur correction = erreur / n;
    for (viseeFermee& v : r.visees) {
        const grandeur interieur = v.interieur - correction;
        v.interieurCorrige = interieur.valeur();
        v.exterieurCorrige = normaliser(tour - interieur, tour).valeur();
    }
    r.sommeInterieurs = somme.valeur();
    r.erreurAngulaire = erreur.valeur();
    r.correctionAngulaire = correction.valeur();
}

/// The departure bearing is that of the first leg, unchanged; each next one turns by the corrected exterior angle.
void porterGisements(resultatPolygonaleFermee& r)
{
    const double tour = tourComplet(r.unite);
    grandeur gisement = r.depart.gisement;
    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        if (i > 0)
            gisement = normaliser(gisement + r.visees[i].exterieurCorrige - tour / 2.0, tour);
        r.visees[i].gisement = gisement.valeur();
    }
}

/// Legs, their closure, and the closure shared by length of leg.
void compenserDistances(resultatPolygonaleFermee& r)
{
    const double k = facteurRadians(r.unite);
    grandeur longueur, fermetureX, fermetureY;
    for (viseeFermee& v : r.visees) {
        const grandeur distance = v.observation.distance;
        const grandeur angle = grandeur(k) * v.gisement;
        const grandeur dx = distance * sin(angle);
        const grandeur dy = distance * cos(angle);
        longueur += distance;
        fermetureX += dx;
        fermetureY += dy;
        v.dx = dx.valeur();
        v.dy = dy.valeur();
    }
    for (viseeFermee& v : r.visees) {
        const grandeur part = grandeur(v.observation.distance) / longueur;
        v.dxCorrige = (v.dx - part * fermetureX).valeur();
        v.dyCorrige = (v.dy - part * fermetureY).valeur();
    }
    const grandeur fermeture = hypot(fermetureX, fermetureY);
    r.longueur = longueur.valeur();
    r.fermetureX = fermetureX.valeur();
    r.fermetureY = fermetureY.valeur();
    r.fermeturePlanimetrique = fermeture.valeur();
    r.fermetureRelative = (longueur / fermeture).valeur();
}

void calculerCoordonnees(resultatPolygonaleFermee& r)
{
    grandeur x = r.depart.x, y = r.depart.y;
    for (viseeFermee& v : r.visees) {
        x += v.dxCorrige;
        y += v.dyCorrige;
        v.x = x.valeur();
        v.y = y.valeur();
    }
}

/// Altitude shares follow the distances between corrected stations; the last leg ends on the departure itself.
void calculerAltitudes(resultatPolygonaleFermee& r)
{
    std::vector<double> dz, longueurs;
    dz.reserve(r.visees.size());
    longueurs.reserve(r.visees.size());
    grandeur x = r.depart.x, y = r.depart.y;
    for (std::size_t i = 0; i < r.visees.size(); ++i) {
        viseeFermee& v = r.visees[i];
        const bool derniere = i + 1 == r.visees.size();
        const grandeur xSuivant = derniere ? r.depart.x : v.x;
        const grandeur ySuivant = derniere ? r.depart.y : v.y;
        v.longueurCorrigee = hypot(xSuivant - x, ySuivant - y).valeur();
        longueurs.push_back(v.longueurCorrigee);
        dz.push_back(v.observation.dz);
        x = xSuivant;
        y = ySuivant;
    }
    r.nivellement = compenserNivellement(r.mode, r.depart.z, 0.0, dz, longueurs);
}

/// The departure bears the name that the last row gives it.
void nommerStations(resultatPolygonaleFermee& r)
{
    const std::size_t n = r.visees.size();
    r.stations.reserve(n);
    r.stations.push_back({r.visees[n - 1].observation.nom, r.depart.x, r.depart.y, r.depart.z});
    for (std::size_t k = 1; k < n; ++k) {
        const viseeFermee& v = r.visees[k - 1];
        r.stations.push_back({v.observation.nom, v.x, v.y, r.nivellement.denivelees[k - 1].z});
    }
}

} // namespace

resultatPolygonaleFermee compenserPolygonaleFermee(const stationPolygonale& depart, int mode, int unite,
                                                   const std::vector<observationPolygonale>& observations)
{
    resultatPolygonaleFermee r;
    r.depart = depart;
    r.unite = unite;
    r.mode = mode;
    if (observations.empty())
        return r;
    r.visees.resize(observations.size());
    for (std::size_t i = 0; i < observations.size(); ++i)
        r.visees[i].observation = observations[i];

    fermerAngles(r);
    porterGisements(r);
    compenserDistances(r);
    calculerCoordonnees(r);
    calculerAltitudes(r);
    nommerStations(r);
    return r;
}

tracePolygonale tracePolygonaleOriginelle(const stationPolygonale& depart, int unite,
                                          const std::vector<observationPolygonale>& observations)
{
    const double tour = tourComplet(unite);
    const double k = facteurRadians(unite);
    tracePolygonale trace{couleurTraceOriginelle, {{depart.x, depart.y}}};
    trace.sommets.reserve(observations.size() + 1);
    grandeur x = depart.x, y = depart.y, gisement = depart.gisement;
    for (std::size_t i = 0; i < observations.size(); ++i) {
        if (i > 0)
            gisement = normaliser(gisement + observations[i].angle - tour / 2.0, tour);
        x += observations[i].distance * sin(k * gisement);
        y += observations[i].distance * cos(k * gisement);
        trace.sommets.push_back({x.valeur(), y.valeur()});
    }
    return trace;
}

tracePolygonale tracePolygonaleCompensee(const resultatPolygonaleFermee& resultat)
{
    tracePolygonale trace{couleurTraceCompensee, {{resultat.depart.x, resultat.depart.y}}};
    trace.sommets.reserve(resultat.stations.size() + 1);
    for (const stationCorrigee& s : resultat.stations)
        trace.sommets.push_back({s.x, s.y});
    return trace;
}

void calculPolygonaleFermee(const std::wstring& nom, double x, double y, double z, double gisement, int mode, int unite,
                            const std::vector<observationPolygonale>& observations, std::vector<double>& X,
                            std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport,
                            const std::function<void(const tracePolygonale&)>& tracer)
{
    const stationPolygonale depart{nom, x, y, z, gisement};
    if (tracer)
        tracer(tracePolygonaleOriginelle(depart, unite, observations));

    const resultatPolygonaleFermee resultat = compenserPolygonaleFermee(depart, mode, unite, observations);
    X.assign(1, x);
    Y.assign(1, y);
    Z.assign(1, z);
    for (const viseeFermee& v : resultat.visees) {
        X.push_back(v.x);
        Y.push_back(v.y);
    }
    for (const deniveleeCompensee& d : resultat.nivellement.denivelees)
        Z.push_back(d.z);
    if (rapport)
        rapporterPolygonaleFermee(resultat, *rapport);
    if (tracer)
        tracer(tracePolygonaleCompensee(resultat));
}
