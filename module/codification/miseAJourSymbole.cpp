#include "codification/miseAJourSymbole.h"

#include <optional>
#include <utility>

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"
#include "services/entierDeTexte.h"
#include "services/lireNombre.h"

#include "dbapserv.h"

namespace {

/// The last text of the attribute's tag counts.
struct texteEtiquete {
    const wchar_t* etiquette;
    std::wstring texte;
};

void ecrireTextes(const AcDbBlockReference& reference, const donneesSymbole& point, const codifPoint& codif)
{
    const attribsPoints& etiquettes = attribsDuModule;
    const texteEtiquete textes[] = {
        // Intended: the name's tag, where one expects that of the code. The name below wins, so a change of code does
        // not reach the symbol's code text; drawings and programs that read them count on it.
        {etiquettes.numero, std::to_wstring(point.code)},
        {etiquettes.numero, point.nom},
        {etiquettes.altitude, texteAltitude(point.z, codif)},
    };
    pourChaqueAttribut(reference, AcDb::kForRead, [&](AcDbAttribute& attribut) {
        const std::wstring* nouveau = nullptr;
        for (const texteEtiquete& t : textes)
            if (memeEtiquette(attribut, t.etiquette))
                nouveau = &t.texte;
        if (nouveau)
            changerTexte(attribut, *nouveau);
    });
}

void deplacer(AcDbBlockReference& reference, double x, double y)
{
    const AcGePoint3d place = reference.position();
    if (place.x == x && place.y == y)
        return;
    reference.transformBy(AcGeMatrix3d::translation({x - place.x, y - place.y, 0.0}));
    reference.setPosition({x, y, place.z}); // to the last digit, where the sum may be off by one
}

} // namespace

bool actualiserSymbole(const AcDbObjectId& id, const donneesSymbole& point, const codifPoint& codif)
{
    if (id.isNull() || id.database() != acdbHostApplicationServices()->workingDatabase())
        return false;
    const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    if (entite.openStatus() != Acad::eOk)
        return false;
    if (AcDbBlockReference* const reference = AcDbBlockReference::cast(entite.object())) {
        ecrireTextes(*reference, point, codif);
        if (placeConnue(point))
            deplacer(*reference, point.x, point.y);
    }
    return true;
}

lectureSymbole lireSymbole(const AcDbObjectId& id, donneesSymbole& point)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (reference.openStatus() != Acad::eOk)
        return lectureSymbole::autreEntite;
    const AcGePoint3d place = reference->position();
    point.x = place.x;
    point.y = place.y;
    const attribsPoints& etiquettes = attribsDuModule;
    std::optional<std::wstring> nom, code, altitude; // the first attribute of each tag
    pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](const AcDbAttribute& attribut) {
        for (const auto& [etiquette, texte] : {std::pair(etiquettes.numero.GetString(), &nom),
                                               {etiquettes.code.GetString(), &code},
                                               {etiquettes.altitude.GetString(), &altitude}})
            if (!*texte && memeEtiquette(attribut, etiquette))
                *texte = attribut.textStringConst();
    });
    if (!nom)
        return lectureSymbole::sansNom;
    point.nom = *nom;
    const int numero = code ? entierDeTexte(*code) : 1;
    point.code = numero < 0 || numero > 9999 ? 1 : numero; // Intended: 0 is kept
    if (!altitude || !lireNombre(altitude->c_str(), point.z))
        point.z = inconnu;
    return lectureSymbole::lu;
}
