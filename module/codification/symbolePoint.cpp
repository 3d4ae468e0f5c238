#include "codification/symbolePoint.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "codification/donneesEtendues.h"
#include "points/attribsPoints.h"
#include "services/blocFichier.h"
#include "services/definitionsDessin.h"
#include "services/formatNombres.h"
#include "services/lettres.h"

#include "dbents.h"
#include "dbsymtb.h"

double facteurSymboles = 1.0;

void reglerFacteurSymboles(double facteur)
{
    const double taille = std::abs(facteur);
    facteurSymboles = taille >= 1e-6 ? taille : 1.0;
}

double tailleSymbole(const codifPoint& codif)
{
    const bool dessinable = codif.tailleBlock > 0.0 && std::isfinite(codif.tailleBlock);
    constexpr double plusGrande = 1e100; // texts are placed at some sizes from the point: by numbers still
    return std::min(facteurSymboles * (dessinable ? codif.tailleBlock : 1.0), plusGrande);
}

std::wstring texteAltitude(double z, const codifPoint& codif)
{
    return z != inconnu ? formaterFixe(z, codif.precisionAltitudes) : std::wstring();
}

bool preparerCalques(AcDbDatabase& db, codifPoint& codif, bool creer)
{
    AcDbLayerTable* calques = nullptr;
    if (db.getLayerTable(calques, creer ? AcDb::kForWrite : AcDb::kForRead) != Acad::eOk)
        return !creer;
    if (creer)
        codif.creerCalques(calques);
    else
        codif.retrouverCalques(*calques);
    calques->close();
    return true;
}

AcDbObjectId blocDuCode(AcDbDatabase& db, const codifPoint& codif)
{
    const std::wstring chemin(sansBlancs(codif.chemin, blancsSaisie));
    return blocDeFichier(db, chemin.empty() ? codifPoint().chemin : chemin);
}

bool placeConnue(const donneesSymbole& point)
{
    return estConnue(point.x) && estConnue(point.y);
}

namespace {

AcDbBlockReference* ajouterReference(AcDbDatabase& db, const AcGePoint3d& place, AcDbObjectId bloc)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(blocNomme(db, ACDB_MODEL_SPACE), AcDb::kForWrite);
    if (espace.openStatus() != Acad::eOk)
        return nullptr;
    auto reference = std::make_unique<AcDbBlockReference>(place, bloc);
    const bool ajoutee = espace->appendAcDbEntity(reference.get()) == Acad::eOk;
    return ajoutee ? reference.release() : nullptr; // open for write
}

/// One of the four attributes; `dy` is its height above the point, in text heights.
struct attributSymbole {
    const wchar_t* etiquette;
    std::wstring texte;
    double dy;
    emplacementCalque calque;
    bool visible;
};

constexpr double decalageX = 0.75; // of all attributes, in text heights

void ajouterAttribut(AcDbBlockReference& reference, const attributSymbole& modele, const AcGePoint3d& point,
                     const codifPoint& codif)
{
    const double taille = tailleSymbole(codif);
    auto attribut =
        std::make_unique<AcDbAttribute>(AcGePoint3d(point.x + decalageX * taille, point.y + modele.dy * taille, 0.0),
                                        modele.texte.c_str(), modele.etiquette);
    attribut->setHeight(taille);
    attribut->setInvisible(!modele.visible);
    if (reference.appendAttribute(attribut.get()) != Acad::eOk)
        return;
    if (!codif.idCalques[modele.calque].isNull())
        attribut->setLayer(codif.idCalques[modele.calque]);
    attribut.release()->close();
}

void ajouterAttributs(AcDbBlockReference& reference, const donneesSymbole& point, const codifPoint& codif,
                      const std::wstring& altitude)
{
    const attribsPoints& etiquettes = attribsDuModule;
    const attributSymbole attributs[] = {
        {etiquettes.code, std::to_wstring(point.code), 2.0, calqueCode, false},
        {etiquettes.numero, point.nom, 0.5, calqueNumero, true},
        {etiquettes.altitude, altitude, -1.0, calqueAltitudes, true},
        {etiquettes.observation, point.observation, -2.5, calqueObs, true},
    };
    for (const attributSymbole& attribut : attributs)
        ajouterAttribut(reference, attribut, {point.x, point.y, 0.0}, codif);
}

} // namespace

int insererSymbolePoint(const donneesSymbole& point, AcDbDatabase* db, tableCodification& table, AcDbObjectId& id,
                        bool altitudeConnue, bool creerCalques)
{
    if (!db || !placeConnue(point))
        return 0;
    codifPoint& codif = table.getCodif(point.code);
    if (!preparerCalques(*db, codif, creerCalques))
        return 0;
    const AcDbObjectId bloc = blocDuCode(*db, codif);
    if (bloc.isNull())
        return 0;
    AcDbBlockReference* const reference = ajouterReference(*db, {point.x, point.y, 0.0}, bloc);
    if (!reference)
        return 0;
    const double taille = tailleSymbole(codif);
    reference->setScaleFactors({taille, taille, taille});
    if (!codif.idCalques[calqueBlock].isNull())
        reference->setLayer(codif.idCalques[calqueBlock]);
    ajouterAttributs(*reference, point, codif, altitudeConnue ? texteAltitude(point.z, codif) : std::wstring());
    marquerSymbole(*reference);
    id = reference->objectId();
    reference->close();
    return 1;
}
