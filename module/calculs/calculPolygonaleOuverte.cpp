#include "calculs/calculPolygonaleOuverte.h"

#include "calculs/rapportPolygonaleOuverte.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

namespace {

/// Carries the departure bearing through every angle to the arrival.
void porterGisements(resultatPolygonaleOuverte& r)
{
    const double tour = tourComplet(r.unite);
    r.angles.resize(r.cotes.size() + 1);
    for (std::size_t i = 0; i < r.cotes.size(); ++i)
        r.angles[i].angle = normaliser(grandeur(r.cotes[i].observation.angle), tour).valeur();
    r.angles.back().angle = r.dernierAngle;

    grandeur gisement = r.depart.gisement;
    for (anglePorte& a : r.angles) {
        gisement = a.angle + gisement + tour / 2.0;
        // One turn at most, and no other reduction: the error counts one turn an angle.
        if (gisement.valeur() < 0.0)
            gisement += tour;
        a.gisement = gisement.valeur();
    }
}

/// The error against the known arrival bearing, and the corrected bearings, which stay as they come out.
void fermerAngles(resultatPolygonaleOuverte& r)
{
    const double tour = tourComplet(r.unite);
    const double nombre = static_cast<double>(r.angles.size());
    const grandeur erreur = r.angles.back().gisement - grandeur(nombre * tour) - r.arrivee.gisement;
    const grandeur e = erreur / nombre;
    for (std::size_t i = 0; i < r.angles.size(); ++i) {
        anglePorte& a = r.angles[i];
        const grandeur part = 0.0 - static_cast<double>(i + 1) * e;
        const grandeur reduit = normaliser(grandeur(a.gisement), tour);
        a.gisementReduit = reduit.valeur();
        a.part = part.valeur();
        a.corrige = (reduit + part).valeur();
    }
    for (std::size_t i = 0; i < r.cotes.size(); ++i)
        r.cotes[i].gisement = r.angles[i].corrige;
    r.erreurAngulaire = erreur.valeur();
    r.correctionAngulaire = e.valeur();
}

/// Closes the legs on the arrival.
void fermerCotes(resultatPolygonaleOuverte& r)
{
    const grandeur deltaX = grandeur(r.arrivee.x) - r.depart.x;
    const grandeur deltaY = grandeur(r.arrivee.y) - r.depart.y;
    r.deltaX = deltaX.valeur();
    r.deltaY = deltaY.valeur();
    r.fermetureX = (deltaX - r.sommeX).valeur();
    r.fermetureY = (deltaY - r.sommeY).valeur();
    repartirFermeture(r, r.fermetureX, r.fermetureY);
}

void nommerStations(resultatPolygonaleOuverte& r)
{
    r.stations.reserve(r.cotes.size() + 1);
    r.stations.push_back({r.depart.nom, r.depart.x, r.depart.y, r.depart.z});
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const cotePolygonale& cote = r.cotes[i];
        r.stations.push_back({cote.observation.nom, cote.x, cote.y, r.nivellement.denivelees[i].z});
    }
    if (!r.arrivee.nom.empty())
        r.stations.back().nom = r.arrivee.nom;
}

} // namespace

resultatPolygonaleOuverte compenserPolygonaleOuverte(const stationPolygonale& depart, const stationPolygonale& arrivee,
                                                     double dernierAngle, int mode, int unite,
                                                     const std::vector<observationPolygonale>& observations)
{
    resultatPolygonaleOuverte r;
    ouvrirCheminement(r, depart, mode, unite, observations);
    r.arrivee = arrivee;
    r.dernierAngle = dernierAngle;
    if (observations.empty())
        return r;
    porterGisements(r);
    fermerAngles(r);
    projeterCotes(r);
    fermerCotes(r);
    r.deltaZ = (grandeur(arrivee.z) - depart.z).valeur();
    compenserAltitudes(r, r.cotes.back().x, r.cotes.back().y, r.deltaZ);
    nommerStations(r);
    return r;
}

resultatPolygonaleOuverte compenserPolygonale(const donneesPolygonaleOuverte& donnees)
{
    return compenserPolygonaleOuverte(donnees.depart, donnees.arrivee, donnees.fermeture, donnees.nivellement,
                                      donnees.unite, observationsDe(donnees.lignes));
}

tracePolygonale tracePolygonaleOriginelle(const resultatPolygonaleOuverte& resultat)
{
    std::vector<double> gisements;
    gisements.reserve(resultat.angles.size());
    for (const anglePorte& a : resultat.angles)
        gisements.push_back(a.gisement);
    return traceObservee(resultat, gisements);
}

tracePolygonale tracePolygonaleCompensee(const resultatPolygonaleOuverte& resultat)
{
    tracePolygonale trace{couleurTraceCompensee, {}};
    trace.sommets.reserve(resultat.stations.size());
    for (const stationCorrigee& s : resultat.stations)
        trace.sommets.push_back({s.x, s.y});
    return trace;
}

void calculPolygonaleOuverte(const std::wstring& nomDepart, double xDepart, double yDepart, double zDepart,
                             double gisementDepart, const std::wstring& nomArrivee, double xArrivee, double yArrivee,
                             double zArrivee, double gisementArrivee, double dernierAngle, int mode, int unite,
                             const std::vector<observationPolygonale>& observations, std::vector<double>& X,
                             std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport, bool originelle,
                             bool compensee, const std::function<void(const tracePolygonale&)>& tracer)
{
    const resultatPolygonaleOuverte resultat = compenserPolygonaleOuverte(
        {nomDepart, xDepart, yDepart, zDepart, gisementDepart},
        {nomArrivee, xArrivee, yArrivee, zArrivee, gisementArrivee}, dernierAngle, mode, unite, observations);
    X.clear();
    Y.clear();
    Z.clear();
    for (const stationCorrigee& s : resultat.stations) {
        X.push_back(s.x);
        Y.push_back(s.y);
        Z.push_back(s.z);
    }
    if (rapport)
        rapporterPolygonale(resultat, *rapport);
    if (originelle)
        tracer(tracePolygonaleOriginelle(resultat));
    if (compensee)
        tracer(tracePolygonaleCompensee(resultat));
}
