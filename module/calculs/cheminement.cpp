#include "calculs/cheminement.h"

#include "calculs/uniteAngulaire.h"
#include "services/grandeur.h"

void ouvrirCheminement(cheminement& c, const stationPolygonale& depart, int mode, int unite,
                       const std::vector<observationPolygonale>& observations)
{
    c.depart = depart;
    c.mode = mode;
    c.unite = unite;
    c.cotes.resize(observations.size());
    for (std::size_t i = 0; i < observations.size(); ++i)
        c.cotes[i].observation = observations[i];
}

void projeterCotes(cheminement& c)
{
    const double k = facteurRadians(c.unite);
    grandeur longueur, sommeX, sommeY;
    for (cotePolygonale& cote : c.cotes) {
        const grandeur distance = cote.observation.distance;
        const grandeur angle = grandeur(k) * cote.gisement;
        const grandeur dx = distance * sin(angle);
        const grandeur dy = distance * cos(angle);
        longueur += distance;
        sommeX += dx;
        sommeY += dy;
        cote.dx = dx.valeur();
        cote.dy = dy.valeur();
    }
    c.longueur = longueur.valeur();
    c.sommeX = sommeX.valeur();
    c.sommeY = sommeY.valeur();
}

void repartirFermeture(cheminement& c, double ajoutX, double ajoutY)
{
    grandeur x = c.depart.x, y = c.depart.y, sommeX, sommeY;
    for (cotePolygonale& cote : c.cotes) {
        const grandeur part = grandeur(cote.observation.distance) / c.longueur;
        const grandeur dx = cote.dx + part * ajoutX;
        const grandeur dy = cote.dy + part * ajoutY;
        x += dx;
        y += dy;
        sommeX += dx;
        sommeY += dy;
        cote.dxCorrige = dx.valeur();
        cote.dyCorrige = dy.valeur();
        cote.x = x.valeur();
        cote.y = y.valeur();
    }
    c.sommeXCorrigee = sommeX.valeur();
    c.sommeYCorrigee = sommeY.valeur();
    const grandeur fermeture = hypot(grandeur(c.fermetureX), grandeur(c.fermetureY));
    c.fermeturePlanimetrique = fermeture.valeur();
    c.fermetureRelative = (grandeur(c.longueur) / fermeture).valeur();
}

void compenserAltitudes(cheminement& c, double xFin, double yFin, double deniveleeConnue)
{
    std::vector<double> dz, longueurs;
    dz.reserve(c.cotes.size());
    longueurs.reserve(c.cotes.size());
    grandeur x = c.depart.x, y = c.depart.y;
    for (std::size_t i = 0; i < c.cotes.size(); ++i) {
        cotePolygonale& cote = c.cotes[i];
        const bool derniere = i + 1 == c.cotes.size();
        const grandeur xSuivant = derniere ? xFin : cote.x;
        const grandeur ySuivant = derniere ? yFin : cote.y;
        cote.longueurCorrigee = hypot(xSuivant - x, ySuivant - y).valeur();
        longueurs.push_back(cote.longueurCorrigee);
        dz.push_back(cote.observation.dz);
        x = xSuivant;
        y = ySuivant;
    }
    c.nivellement = compenserNivellement(c.mode, c.depart.z, deniveleeConnue, dz, longueurs);
}

tracePolygonale traceObservee(const cheminement& c, const std::vector<double>& gisements)
{
    const double k = facteurRadians(c.unite);
    tracePolygonale trace{couleurTraceOriginelle, {{c.depart.x, c.depart.y}}};
    trace.sommets.reserve(c.cotes.size() + 1);
    grandeur x = c.depart.x, y = c.depart.y;
    for (std::size_t i = 0; i < c.cotes.size(); ++i) {
        const grandeur angle = grandeur(k) * gisements[i];
        x += c.cotes[i].observation.distance * sin(angle);
        y += c.cotes[i].observation.distance * cos(angle);
        trace.sommets.push_back({x.valeur(), y.valeur()});
    }
    return trace;
}
