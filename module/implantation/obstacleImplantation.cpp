#include "implantation/obstacleImplantation.h"

#include <algorithm>

#include "geometrie/axeDeCourbe.h"
#include "implantation/entitesImplantation.h"
#include "services/chaineResbuf.h"
#include "services/formatNombres.h"
#include "services/selection.h"

#include "acdb.h"
#include "aced.h"
#include "acgitransient.h"
#include "acutmem.h"
#include "dbads.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

constexpr int marqueLineaire = 71209, marquePonctuelle = 87340;

/// Extended data of obstacles on an entity, item by item.
std::vector<resbuf> donneesDe(const AcDbObjectId& id, chaineResbuf& chaine)
{
    std::vector<resbuf> items;
    const AcDbObjectPointer<AcDbEntity> entite(id);
    if (entite.openStatus() != Acad::eOk)
        return items;
    chaine.prendre(entite->xData(applicationHauteurs));
    for (const resbuf* item = chaine.tete(); item; item = item->rbnext)
        items.push_back(*item);
    return items;
}

bool estEntier(const resbuf& item)
{
    return item.restype == AcDb::kDxfXdInteger16 || item.restype == AcDb::kDxfXdInteger32;
}

int entierDe(const resbuf& item)
{
    return item.restype == AcDb::kDxfXdInteger16 ? item.resval.rint : static_cast<int>(item.resval.rlong);
}

bool aLaMarque(const std::vector<resbuf>& items, std::size_t nombre, int marque)
{
    return items.size() == nombre && estEntier(items[1]) && entierDe(items[1]) == marque;
}

bool lireReel(const resbuf& item, double& valeur)
{
    if (item.restype == AcDb::kDxfXdReal || item.restype == AcDb::kDxfXdDist)
        valeur = item.resval.rreal;
    else if (estEntier(item))
        valeur = entierDe(item);
    else
        return false;
    return true;
}

bool ecrire(const AcDbObjectId& id, const chaineResbuf& donnees)
{
    declarerApplications();
    const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    return entite.openStatus() == Acad::eOk && entite->setXData(donnees.tete()) == Acad::eOk;
}

bool etendueDe(const AcDbObjectId& id, AcDbExtents& etendue)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    return entite.openStatus() == Acad::eOk && entite->getGeomExtents(etendue) == Acad::eOk;
}

template <typename Parts>
bool ajouterPoints(const AcGePoint3d& de, const AcGePoint3d& vers, const Parts& parts, AcGePoint3dArray& points)
{
    for (const double part : parts)
        points.append({de.x + (vers.x - de.x) * part, de.y + (vers.y - de.y) * part, 0.0});
    return !parts.empty();
}

} // namespace

obstacleImplantation::~obstacleImplantation()
{
    cacher();
}

bool obstacleImplantation::detach()
{
    chaineResbuf donnees;
    donnees.ajouter(AcDb::kDxfRegAppName, applicationHauteurs);
    return ecrire(id, donnees);
}

std::wstring obstacleImplantation::nom() const
{
    std::wstring quoi;
    if (const AcDbObjectPointer<AcDbBlockReference> bloc(id); bloc.openStatus() == Acad::eOk) {
        const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc->blockTableRecord());
        const ACHAR* texte = nullptr;
        if (definition.openStatus() == Acad::eOk && definition->getName(texte) == Acad::eOk)
            quoi = std::wstring(L" \u00ab ") + texte + L" \u00bb";
    } else if (const AcDbObjectPointer<AcDbEntity> entite(id); entite.openStatus() == Acad::eOk) {
        ACHAR* calque = entite->layer();
        quoi = std::wstring(L" du calque \u00ab ") + (calque ? calque : L"") + L" \u00bb";
        acutDelString(calque);
    }
    return L"l'obstacle" + quoi + L", haut de " + formaterFixe(hauteur, 2);
}

void obstacleImplantation::montrer(std::unique_ptr<AcDbEntity> marque)
{
    cacher();
    m_marque = std::move(marque);
    m_marque->setColorIndex(static_cast<Adesk::UInt16>(std::clamp(couleur, 0, 256)));
    if (AcGiTransientManager* const gestion = acgiGetTransientManager())
        gestion->addTransient(m_marque.get(), kAcGiDirectTopmost, 0, AcGeIntArray());
}

void obstacleImplantation::cacher()
{
    if (!m_marque)
        return;
    if (AcGiTransientManager* const gestion = acgiGetTransientManager())
        gestion->eraseTransient(m_marque.get(), AcGeIntArray());
    m_marque.reset();
}

obstacleLineaireImplantation::~obstacleLineaireImplantation()
{
    obstacleLineaireImplantation::highlight(false);
}

bool obstacleLineaireImplantation::save()
{
    chaineResbuf donnees;
    donnees.ajouter(AcDb::kDxfRegAppName, applicationHauteurs);
    donnees.ajouter(AcDb::kDxfXdInteger32, marqueLineaire);
    donnees.ajouter(AcDb::kDxfXdReal, hauteur);
    donnees.ajouter(AcDb::kDxfXdInteger32, couleur);
    return ecrire(id, donnees);
}

bool obstacleLineaireImplantation::load(const AcDbObjectId& entite)
{
    chaineResbuf chaine;
    const std::vector<resbuf> items = donneesDe(entite, chaine);
    double lue = 0.0;
    if (!aLaMarque(items, 4, marqueLineaire) || !lireReel(items[2], lue) || !estEntier(items[3]))
        return false;
    id = entite;
    hauteur = lue;
    couleur = entierDe(items[3]);
    return true;
}

void obstacleLineaireImplantation::highlight(bool montre)
{
    cacher();
    const auto surligner = [this](bool oui) {
        ads_name nom;
        if (acdbGetAdsName(nom, id) == Acad::eOk)
            acedRedraw(nom, oui ? 3 : 4);
        m_surbrillance = oui;
    };
    if (m_surbrillance)
        surligner(false);
    if (!montre)
        return;
    AcDbExtents etendue;
    const bool lue = etendueDe(id, etendue);
    const AcGePoint3d min = etendue.minPoint(), max = etendue.maxPoint();
    const double marge = lue ? 0.01 * std::max(max.x - min.x, max.y - min.y) : 0.0;
    if (marge < 1e-8)
        return surligner(true);
    auto cadre = std::make_unique<AcDbPolyline>(4U);
    for (const AcGePoint2d& coin :
         {AcGePoint2d(min.x - marge, min.y - marge), AcGePoint2d(max.x + marge, min.y - marge),
          AcGePoint2d(max.x + marge, max.y + marge), AcGePoint2d(min.x - marge, max.y + marge)})
        cadre->addVertexAt(cadre->numVerts(), coin);
    cadre->setClosed(Adesk::kTrue);
    montrer(std::move(cadre));
}

bool obstacleLineaireImplantation::intersect(const AcGePoint3d& de, const AcGePoint3d& vers,
                                             AcGePoint3dArray& points) const
{
    const axe ligne = axeDeEntite(id);
    bool trouve = false;
    for (const elementAxe& element : ligne.elements())
        trouve |= ajouterPoints(de, vers, rencontres({de.x, de.y}, {vers.x, vers.y}, element), points);
    return trouve;
}

void obstacleLineaireImplantation::indexer(obstaclesPlan& plan) const
{
    plan.ajouterLigne(axeDeEntite(id), hauteur);
}

obstaclePonctuelImplantation::~obstaclePonctuelImplantation() = default;

bool obstaclePonctuelImplantation::save()
{
    chaineResbuf donnees;
    donnees.ajouter(AcDb::kDxfRegAppName, applicationHauteurs);
    donnees.ajouter(AcDb::kDxfXdInteger32, marquePonctuelle);
    donnees.ajouter(AcDb::kDxfXdReal, hauteur);
    donnees.ajouter(AcDb::kDxfXdDist, taille);
    donnees.ajouter(AcDb::kDxfXdInteger32, couleur);
    return ecrire(id, donnees);
}

bool obstaclePonctuelImplantation::load(const AcDbObjectId& entite)
{
    chaineResbuf chaine;
    const std::vector<resbuf> items = donneesDe(entite, chaine);
    double lue = 0.0, tailleLue = 0.0;
    if (!aLaMarque(items, 5, marquePonctuelle) || !lireReel(items[2], lue) || !lireReel(items[3], tailleLue) ||
        !estEntier(items[4]) || !prendreCentre(entite))
        return false;
    id = entite;
    hauteur = lue;
    taille = tailleLue;
    couleur = entierDe(items[4]);
    return true;
}

void obstaclePonctuelImplantation::highlight(bool montre)
{
    cacher();
    if (!montre)
        return;
    constexpr double plusPetit = 1e-3; // a circle must have a radius
    montrer(
        std::make_unique<AcDbCircle>(AcGePoint3d(X, Y, 0.0), AcGeVector3d(0.0, 0.0, 1.0), std::max(taille, plusPetit)));
}

bool obstaclePonctuelImplantation::intersect(const AcGePoint3d& de, const AcGePoint3d& vers,
                                             AcGePoint3dArray& points) const
{
    return taille > 0.0 && ajouterPoints(de, vers, rencontres({de.x, de.y}, {vers.x, vers.y}, {X, Y}, taille), points);
}

void obstaclePonctuelImplantation::indexer(obstaclesPlan& plan) const
{
    plan.ajouterRond({X, Y}, taille, hauteur);
}

bool obstaclePonctuelImplantation::prendreCentre(const AcDbObjectId& lEntite)
{
    const AcDbObjectPointer<AcDbEntity> entite(lEntite);
    if (entite.openStatus() != Acad::eOk)
        return false;
    AcGePoint3d centre;
    if (const auto* const bloc = AcDbBlockReference::cast(entite.object())) {
        centre = bloc->position();
    } else if (const auto* const cercle = AcDbCircle::cast(entite.object())) {
        centre = cercle->center();
        taille = cercle->radius();
    } else if (const auto* const point = AcDbPoint::cast(entite.object())) {
        centre = point->position();
    } else {
        return false;
    }
    X = centre.x;
    Y = centre.y;
    return true;
}

std::vector<std::unique_ptr<obstacleImplantation>> obstaclesDuDessin()
{
    std::vector<std::unique_ptr<obstacleImplantation>> obstacles;
    std::vector<AcDbObjectId> ids = selectionAvecDonnees(applicationHauteurs);
    std::ranges::reverse(ids); // the host gives the youngest first
    for (const AcDbObjectId& id : ids) {
        auto lineaire = std::make_unique<obstacleLineaireImplantation>();
        auto ponctuel = std::make_unique<obstaclePonctuelImplantation>();
        if (lineaire->load(id))
            obstacles.push_back(std::move(lineaire));
        else if (ponctuel->load(id))
            obstacles.push_back(std::move(ponctuel));
    }
    return obstacles;
}
