#include "geometrie/axeDeCourbe.h"

#include "geometrie/axeEnregistre.h"
#include "services/surSommets.h"

#include "dbents.h"
#include "dbentvrt.h"
#include "dbpl.h"

point3 pointDe(const AcGePoint3d& p)
{
    return {p.x, p.y, p.z};
}

namespace {

/// 1 for a plane seen from above, -1 from below, 0 for one that leans.
double sensDuPlan(const AcGeVector3d& normale)
{
    return std::hypot(normale.x, normale.y) < 1e-9 ? std::copysign(1.0, normale.z) : 0.0;
}

std::vector<sommetAxe> sommetsLegers(const AcDbPolyline& ligne, double sens)
{
    std::vector<sommetAxe> sommets(ligne.numVerts());
    for (unsigned int i = 0; i < ligne.numVerts(); ++i) {
        AcGePoint3d place;
        ligne.getPointAt(i, place);
        ligne.getBulgeAt(i, sommets[i].bombement);
        sommets[i].place = pointDe(place);
        sommets[i].bombement *= sens;
    }
    return sommets;
}

std::vector<sommetAxe> sommetsAnciens(const AcDb2dPolyline& ligne, double sens)
{
    std::vector<sommetAxe> sommets;
    surSommets<AcDb2dVertex>(ligne, [&](const AcDb2dVertex& s) {
        if (s.vertexType() != AcDb::k2dSplineCtlVertex)
            sommets.push_back({pointDe(ligne.vertexPosition(s)), s.bulge() * sens});
    });
    return sommets;
}

std::vector<sommetAxe> sommetsEnEspace(const AcDb3dPolyline& ligne)
{
    std::vector<sommetAxe> sommets;
    surSommets<AcDb3dPolylineVertex>(ligne, [&](const AcDb3dPolylineVertex& s) {
        if (s.vertexType() != AcDb::k3dControlVertex)
            sommets.push_back({pointDe(s.position()), 0.0});
    });
    return sommets;
}

/// A circle or an arc of a plane that does not lean.
axe axeCirculaire(const AcDbCircularCurve& courbe, double sens)
{
    AcGePoint3d debut;
    double de = 0.0, a = 0.0;
    courbe.getStartPoint(debut);
    courbe.getStartParam(de);
    courbe.getEndParam(a);
    const point2 rayon = point2{debut.x - courbe.center().x, debut.y - courbe.center().y} * (1.0 / courbe.radius());
    elementAxe e;
    e.debut = pointDe(debut).plan();
    e.direction = droiteDe(rayon) * -sens;
    e.longueur = courbe.radius() * (a - de);
    e.courbureDebut = e.courbureFin = sens / courbe.radius();
    e.zDebut = e.zFin = debut.z;
    return axe({e}, courbe.isClosed());
}

/// Halves what strays from its chord; a spline of few turns needs its halves looked at however straight the whole is.
class cordes {
public:
    cordes(const AcDbCurve& courbe, double fleche) : m_courbe(courbe), m_carre(fleche * fleche) {}

    std::vector<sommetAxe> faire()
    {
        double de = 0.0, a = 0.0;
        if (m_courbe.getStartParam(de) != Acad::eOk || m_courbe.getEndParam(a) != Acad::eOk)
            return {};
        const point3 debut = en(de);
        m_sommets.push_back({debut, 0.0});
        couper(de, debut, a, en(a), 0);
        return std::move(m_sommets);
    }

private:
    static constexpr int toujours = 5, auPlus = 16; // times that a stretch is halved

    point3 en(double parametre) const
    {
        AcGePoint3d p;
        m_courbe.getPointAtParam(parametre, p);
        return pointDe(p);
    }
    void couper(double de, const point3& debut, double a, const point3& fin, int profondeur)
    {
        const double milieu = (de + a) / 2.0;
        const point3 p = en(milieu);
        const point2 corde =
            debut.plan() + (fin.plan() - debut.plan()) * partPlusProche(p.plan(), debut.plan(), fin.plan());
        const double dz = p.z - (debut.z + fin.z) / 2.0;
        const bool assez = carreDistance(p.plan(), corde) + dz * dz <= m_carre;
        if (profondeur >= auPlus || (assez && profondeur >= toujours)) {
            m_sommets.push_back({fin, 0.0});
            return;
        }
        couper(de, debut, milieu, p, profondeur + 1);
        couper(milieu, p, a, fin, profondeur + 1);
    }

    const AcDbCurve& m_courbe;
    double m_carre;
    std::vector<sommetAxe> m_sommets;
};

/// Whether a curve still stands where its axis does: its ends, and the vertices between, which may have been dragged.
bool encoreSur(const AcDbCurve& courbe, const axe& ligne)
{
    constexpr double memeLieu = 1e-4;
    AcGePoint3d debut, fin;
    if (courbe.getStartPoint(debut) != Acad::eOk || courbe.getEndPoint(fin) != Acad::eOk ||
        norme(pointDe(debut).plan() - ligne.pointA(0.0)) >= memeLieu ||
        norme(pointDe(fin).plan() - ligne.pointA(ligne.longueur())) >= memeLieu)
        return false;
    const auto* const legere = AcDbPolyline::cast(&courbe);
    for (unsigned int i = 0; legere && i < legere->numVerts(); ++i) {
        AcGePoint3d sommet;
        legere->getPointAt(i, sommet);
        if (!ligne.projeter(pointDe(sommet).plan(), memeLieu))
            return false;
    }
    return true;
}

axe axeBrut(const AcDbCurve& courbe, double fleche)
{
    if (const auto* const ligne = AcDbLine::cast(&courbe))
        return axe({elementAxe::droite(pointDe(ligne->startPoint()), pointDe(ligne->endPoint()))});
    if (const auto* const ligne = AcDbPolyline::cast(&courbe))
        if (const double sens = sensDuPlan(ligne->normal()); sens != 0.0)
            return axe::deSommets(sommetsLegers(*ligne, sens), ligne->isClosed());
    if (const auto* const ligne = AcDb2dPolyline::cast(&courbe))
        if (const double sens = sensDuPlan(ligne->normal()); sens != 0.0)
            return axe::deSommets(sommetsAnciens(*ligne, sens), ligne->isClosed());
    if (const auto* const ligne = AcDb3dPolyline::cast(&courbe))
        return axe::deSommets(sommetsEnEspace(*ligne), ligne->isClosed());
    if (AcDbArc::cast(&courbe) || AcDbCircle::cast(&courbe)) {
        const auto& ronde = static_cast<const AcDbCircularCurve&>(courbe);
        if (const double sens = sensDuPlan(ronde.normal()); sens != 0.0)
            return axeCirculaire(ronde, sens);
    }
    const std::vector<sommetAxe> sommets = cordes(courbe, fleche).faire();
    return axe::deSommets(sommets, courbe.isClosed());
}

} // namespace

axe axeDeCourbe(const AcDbCurve& courbe, double fleche)
{
    const axe brut = axeBrut(courbe, fleche);
    std::vector<elementAxe> elements = brut.elements();
    if (!std::all_of(elements.begin(), elements.end(),
                     [](const elementAxe& e) { return e.zDebut == 0.0 && e.zFin == 0.0; }))
        return brut;
    for (elementAxe& e : elements)
        e.zDebut = e.zFin = inconnu;
    return axe(std::move(elements), brut.ferme());
}

axe axeDeEntite(const AcDbObjectId& id, double fleche)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    if (entite.openStatus() != Acad::eOk)
        return {};
    const auto* const courbe = AcDbCurve::cast(entite.object());
    if (!courbe)
        return {};
    const auto vrai = lireAxeEnregistre(id);
    return vrai && encoreSur(*courbe, vrai->ligne) ? vrai->ligne : axeDeCourbe(*courbe, fleche);
}
