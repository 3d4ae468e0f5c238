#include "tools/placerSignatures.h"

#include <memory>
#include <tuple>

#include "dbents.h"
#include "dbpl.h"

namespace {

/// The bytes of what is compared, one value after the other.
class signature {
public:
    explicit signature(const AcDbEntity& entite)
    {
        ajouter(entite.isA());
        ajouter(entite.layerId());
        ajouter(entite.linetypeId());
        ajouter(entite.colorIndex());
        ajouter(entite.trueColor());
        ajouter(entite.lineWeight());
        ajouter(entite.visibility());
        ajouter(entite.linetypeScale());
    }
    template <typename Valeur>
    signature& ajouter(const Valeur& valeur)
    {
        m_octets.append(reinterpret_cast<const char*>(&valeur), sizeof valeur);
        return *this;
    }
    signature& ajouter(double valeur)
    {
        const double sansSigneDeZero = valeur + 0.0;
        m_octets.append(reinterpret_cast<const char*>(&sansSigneDeZero), sizeof valeur);
        return *this;
    }
    signature& ajouter(const AcGePoint3d& p) { return ajouter(p.x).ajouter(p.y).ajouter(p.z); }
    signature& ajouter(const AcGeVector3d& v) { return ajouter(v.x).ajouter(v.y).ajouter(v.z); }
    signature& ajouterTexte(const wchar_t* texte)
    {
        for (; *texte; ++texte)
            ajouter(*texte);
        return ajouter(L'\0');
    }
    std::string texte() const { return m_octets; }

private:
    std::string m_octets;
};

bool avant(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
}

void ajouterPolyligne(signature& s, const AcDbPolyline& ligne)
{
    s.ajouter(ligne.isClosed()).ajouter(ligne.normal()).ajouter(ligne.elevation()).ajouter(ligne.thickness());
    for (unsigned int i = 0; i < ligne.numVerts(); ++i) {
        AcGePoint2d p;
        double bombement = 0.0, debut = 0.0, fin = 0.0;
        ligne.getPointAt(i, p);
        ligne.getBulgeAt(i, bombement);
        ligne.getWidthsAt(i, debut, fin);
        s.ajouter(p.x).ajouter(p.y).ajouter(bombement).ajouter(debut).ajouter(fin);
    }
}

bool sansAttribut(const AcDbBlockReference& reference)
{
    const std::unique_ptr<AcDbObjectIterator> it(reference.attributeIterator());
    it->start();
    return it->done();
}

} // namespace

std::string signatureFamille(const AcDbLine& ligne)
{
    return signature(ligne).ajouter(ligne.thickness()).ajouter(ligne.normal()).texte();
}

std::string signatureEntite(const AcDbEntity& entite)
{
    signature s(entite);
    if (const auto* const ligne = AcDbLine::cast(&entite)) {
        const bool retourner = avant(ligne->endPoint(), ligne->startPoint());
        s.ajouter(retourner ? ligne->endPoint() : ligne->startPoint());
        s.ajouter(retourner ? ligne->startPoint() : ligne->endPoint());
        return s.ajouter(ligne->thickness()).ajouter(ligne->normal()).texte();
    }
    if (const auto* const arc = AcDbArc::cast(&entite))
        s.ajouter(arc->startAngle()).ajouter(arc->endAngle());
    if (AcDbArc::cast(&entite) || AcDbCircle::cast(&entite)) {
        const auto& rond = static_cast<const AcDbCircularCurve&>(entite);
        return s.ajouter(rond.center()).ajouter(rond.radius()).ajouter(rond.normal()).ajouter(rond.thickness()).texte();
    }
    if (const auto* const point = AcDbPoint::cast(&entite))
        return s.ajouter(point->position()).ajouter(point->thickness()).ajouter(point->normal()).texte();
    if (const auto* const ligne = AcDbPolyline::cast(&entite)) {
        ajouterPolyligne(s, *ligne);
        return s.texte();
    }
    if (const auto* const texte = AcDbText::cast(&entite); texte && texte->isA() == AcDbText::desc()) {
        s.ajouter(texte->position())
            .ajouter(texte->alignmentPoint())
            .ajouter(texte->height())
            .ajouter(texte->rotation());
        s.ajouter(texte->textStyle()).ajouter(texte->horizontalMode()).ajouter(texte->verticalMode());
        s.ajouter(texte->widthFactor()).ajouter(texte->oblique()).ajouter(texte->normal());
        return s.ajouterTexte(texte->textStringConst()).texte();
    }
    const auto* const reference = AcDbBlockReference::cast(&entite);
    if (!reference || reference->isA() != AcDbBlockReference::desc() || !sansAttribut(*reference))
        return {};
    const AcGeScale3d echelles = reference->scaleFactors();
    s.ajouter(reference->blockTableRecord()).ajouter(reference->position()).ajouter(reference->rotation());
    return s.ajouter(echelles.sx).ajouter(echelles.sy).ajouter(echelles.sz).ajouter(reference->normal()).texte();
}
