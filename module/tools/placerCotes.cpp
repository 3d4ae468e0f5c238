#include "tools/placerCotes.h"

#include "codification/parcoursBloc.h"
#include "services/ecrituresDuModule.h"
#include "services/espaceObjet.h"
#include "services/lireNombre.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"

namespace {

bool lireCote(const AcDbEntity& entite, point3& cote)
{
    if (const auto* const ligne = AcDbText::cast(&entite)) {
        const AcGePoint3d place = ligne->isDefaultAlignment() ? ligne->position() : ligne->alignmentPoint();
        cote.x = place.x;
        cote.y = place.y;
        return lireNombre(ligne->textStringConst(), cote.z) == 1;
    }
    const auto* const lignes = AcDbMText::cast(&entite);
    if (!lignes)
        return false;
    cote.x = lignes->location().x;
    cote.y = lignes->location().y;
    ACHAR* texte = lignes->text();
    const bool nombre = lireNombre(texte, cote.z) == 1;
    acutDelString(texte);
    return nombre;
}

} // namespace

std::vector<point3> cotesDuDessin()
{
    std::vector<point3> cotes;
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(espaceObjetDuDessin());
    if (espace.openStatus() != Acad::eOk)
        return cotes;
    pourChaqueEntite(*espace.object(), [&cotes](const AcDbEntity& entite) {
        point3 cote;
        if (lireCote(entite, cote) && !ditDesCoordonnees(entite))
            cotes.push_back(cote);
    });
    return cotes;
}
