#include <memory>

#include "codification/codifPoint.h"
#include "services/lettres.h"

#include "dbapserv.h"
#include "dbsymtb.h"

/// The layers of a code in a drawing.

namespace {

/// A name that the drawing refuses gives the null id.
AcDbObjectId ajouterCalque(AcDbLayerTable& table, const std::wstring& nom, int couleur)
{
    auto calque = std::make_unique<AcDbLayerTableRecord>();
    AcCmColor teinte;
    // "By block" (0) and "by layer" (256) are colours of entities; a layer must have one of its own.
    teinte.setColorIndex(static_cast<Adesk::UInt16>(couleur >= 1 && couleur <= 255 ? couleur : 7));
    calque->setColor(teinte);
    AcDbObjectId id;
    if (calque->setName(nom.c_str()) != Acad::eOk || table.add(id, calque.get()) != Acad::eOk)
        return {};
    calque.release()->close();
    return id;
}

AcDbLayerTable* ouvrirCalquesDuDessin()
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    AcDbLayerTable* table = nullptr;
    if (db)
        db->getLayerTable(table, AcDb::kForWrite);
    return table;
}

} // namespace

void codifPoint::creerCalques(AcDbLayerTable* table)
{
    AcDbLayerTable* const ouverte = table ? nullptr : ouvrirCalquesDuDessin();
    AcDbLayerTable* const cible = table ? table : ouverte;
    if (!cible)
        return;
    for (std::size_t e = 0; e < nombreCalques; ++e) {
        std::wstring nom(sansBlancs(layers[e], blancsSaisie));
        if (nom.empty())
            nom = layers[e] = L"0";
        idCalques[e].setNull();
        if (cible->getAt(nom.c_str(), idCalques[e]) != Acad::eOk)
            idCalques[e] = ajouterCalque(*cible, nom, couleurs[e]);
    }
    if (ouverte)
        ouverte->close();
}

void codifPoint::retrouverCalques(const AcDbLayerTable& table)
{
    for (std::size_t e = 0; e < nombreCalques; ++e) {
        const std::wstring nom(sansBlancs(layers[e], blancsSaisie));
        idCalques[e].setNull();
        table.getAt(nom.empty() ? L"0" : nom.c_str(), idCalques[e]);
    }
}
