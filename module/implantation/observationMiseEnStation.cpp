#include "implantation/observationMiseEnStation.h"

#include "implantation/entitesImplantation.h"
#include "implantation/traceImplantation.h"
#include "services/gisementPlan.h"

double observationMiseEnStation::bearingTo(const lieuNomme& cible) const
{
    return gisementVers(donnees(), cible.x, cible.y);
}

void observationMiseEnStation::clearGraphics()
{
    marqueur = {};
    m_entites.setLogicalLength(0);
}

void observationMiseEnStation::collectGraphics(AcDbObjectIdArray& ids, bool oublier)
{
    if (!marqueur.isNull())
        ids.append(marqueur);
    for (const AcDbObjectId& id : m_entites)
        ids.append(id);
    if (oublier)
        clearGraphics();
}

void observationMiseEnStation::garderMarqueurs(std::vector<AcDbObjectId>& dessines)
{
    if (dessines.empty())
        return;
    marqueur = dessines.front();
    dessines.erase(dessines.begin());
}

void observationMiseEnStation::draw(unsigned masque)
{
    releaseGraphics();
    std::vector<AcDbObjectId> dessines =
        dessinerEntites(traceStation(donnees(), masque, reglagesDuProcessus()), {typeCode(), identifiant});
    garderMarqueurs(dessines);
    for (const AcDbObjectId& id : dessines)
        m_entites.append(id);
}

void observationMiseEnStation::releaseGraphics()
{
    AcDbObjectIdArray ids;
    collectGraphics(ids, true);
    std::vector<AcDbObjectId> liste(ids.begin(), ids.end());
    effacerEntites(liste);
}

std::string observationMiseEnStation::describeHtml() const
{
    return descriptionHtml(donnees());
}

std::wstring observationMiseEnStation::describeText() const
{
    return descriptionTexte(donnees());
}

double observationMiseEnStationOrientee::angleTo(const lieuNomme& cible) const
{
    return angleVers(donnees(), cible.x, cible.y);
}

donneesStation observationMiseEnStationOrientee::donnees() const
{
    donneesStation d;
    d.station = lieu;
    d.v0 = V0;
    d.etiquette = etiquette;
    return d;
}

double observationMiseEnStationVisee::angleTo(const lieuNomme& cible) const
{
    return angleVers(donnees(), cible.x, cible.y);
}

void observationMiseEnStationVisee::clearGraphics()
{
    reference.marqueur = {};
    observationMiseEnStation::clearGraphics();
}

void observationMiseEnStationVisee::collectGraphics(AcDbObjectIdArray& ids, bool oublier)
{
    for (const AcDbObjectId& id : {marqueur, reference.marqueur})
        if (!id.isNull())
            ids.append(id);
    for (const AcDbObjectId& id : m_entites)
        ids.append(id);
    if (oublier)
        clearGraphics();
}

donneesStation observationMiseEnStationVisee::donnees() const
{
    donneesStation d;
    d.station = lieu;
    d.visee = true;
    d.reference = reference.lieu;
    d.etiquette = etiquette;
    return d;
}

void observationMiseEnStationVisee::garderMarqueurs(std::vector<AcDbObjectId>& dessines)
{
    observationMiseEnStation::garderMarqueurs(dessines);
    if (dessines.empty() || !reference.lieu.planConnu())
        return;
    reference.marqueur = dessines.front();
    dessines.erase(dessines.begin());
}

std::unique_ptr<observationMiseEnStation> creerMiseEnStation(const lieuNomme& station, const lieuNomme& reference,
                                                             int genre)
{
    lieuNomme visee = reference;
    visee.z = inconnu;
    switch (genre) {
    case miseEnStationNord:
        return std::make_unique<observationMiseEnStationOrientee>(station, 0.0);
    case miseEnStationPosition:
        visee.nom.clear();
        [[fallthrough]];
    case miseEnStationPoint:
        return std::make_unique<observationMiseEnStationVisee>(station, visee);
    case miseEnStationOrientation:
        return std::make_unique<observationMiseEnStationOrientee>(
            station, gisementPlan(station.x, station.y, reference.x, reference.y));
    default:
        return nullptr;
    }
}
