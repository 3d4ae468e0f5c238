#include "calculs/calculPolygonaleFermee.h"

#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

namespace {

/// Interior angles, their closure and the corrected angles.
void fermerAngles(resultatPolygonaleFermee& r)
{
    const double tour = tourComplet(r.unite);
    const double n = static_cast<double>(r.cotes.size());
    r.angles.resize(r.cotes.size());
    grandeur somme;
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        const grandeur interieur = grandeur(tour) - r.cotes[i].observation.angle;
        somme += interieur;
        r.angles[i].interieur = interieur.valeur();
    }
    const grandeur erreur = somme - (n - 2.0) * tour / 2.0;
    const grandeur correction = erreur / n;
    for (angleFerme& angle : r.angles) {
        const grandeur interieur = angle.interieur - correction;
        angle.interieurCorrige = interieur.valeur();
        angle.exterieurCorrige = normaliser(tour - interieur, tour).valeur();
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
    for (std::size_t i = 0; i < r.cotes.size(); ++i) {
        if (i > 0)
            gisement = normaliser(gisement + r.angles[i].exterieurCorrige - tour / 2.0, tour);
        r.cotes[i].gisement = gisement.valeur();
    }
}

/// The departure bears the name that the last row gives it.
void nommerStations(resultatPolygonaleFermee& r)
{
    const std::size_t n = r.cotes.size();
    r.stations.reserve(n);
    r.stations.push_back({r.cotes[n - 1].observation.nom, r.depart.x, r.depart.y, r.depart.z});
    for (std::size_t k = 1; k < n; ++k) {
        const cotePolygonale& cote = r.cotes[k - 1];
        r.stations.push_back({cote.observation.nom, cote.x, cote.y, r.nivellement.denivelees[k - 1].z});
    }
}

} // namespace

resultatPolygonaleFermee compenserPolygonaleFermee(const stationPolygonale& depart, int mode, int unite,
                                                   const std::vector<observationPolygonale>& observations)
{
    resultatPolygonaleFermee r;
    ouvrirCheminement(r, depart, mode, unite, observations);
    if (observations.empty())
        return r;
    fermerAngles(r);
    porterGisements(r);
    projeterCotes(r);
    r.fermetureX = r.sommeX;
    r.fermetureY = r.sommeY;
    repartirFermeture(r, (0.0 - grandeur(r.fermetureX)).valeur(), (0.0 - grandeur(r.fermetureY)).valeur());
    // The last leg ends on the departure itself.
    compenserAltitudes(r, depart.x, depart.y, 0.0);
    nommerStations(r);
    return r;
}

resultatPolygonaleFermee compenserPolygonale(const donneesPolygonaleFermee& donnees)
{
    return compenserPolygonaleFermee(donnees.depart, donnees.nivellement, donnees.unite,
                                     observationsDe(donnees.lignes));
}

tracePolygonale tracePolygonaleOriginelle(const resultatPolygonaleFermee& resultat)
{
    const double tour = tourComplet(resultat.unite);
    std::vector<double> gisements;
    gisements.reserve(resultat.cotes.size());
    grandeur gisement = resultat.depart.gisement;
    for (const cotePolygonale& cote : resultat.cotes) {
        if (!gisements.empty())
            gisement = normaliser(gisement + cote.observation.angle - tour / 2.0, tour);
        gisements.push_back(gisement.valeur());
    }
    return traceObservee(resultat, gisements);
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
                            std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport, bool originelle,
                            bool compensee, const std::function<void(const tracePolygonale&)>& tracer)
{
    const resultatPolygonaleFermee resultat =
        compenserPolygonaleFermee({nom, x, y, z, gisement}, mode, unite, observations);
    X.assign(1, x);
    Y.assign(1, y);
    Z.assign(1, z);
    for (const cotePolygonale& cote : resultat.cotes) {
        X.push_back(cote.x);
        Y.push_back(cote.y);
    }
    for (const deniveleeCompensee& d : resultat.nivellement.denivelees)
        Z.push_back(d.z);
    if (rapport)
        rapporterPolygonale(resultat, *rapport);
    if (originelle)
        tracer(tracePolygonaleOriginelle(resultat));
    if (compensee)
        tracer(tracePolygonaleCompensee(resultat));
}
