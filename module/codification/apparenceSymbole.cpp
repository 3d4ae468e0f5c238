#include "codification/apparenceSymbole.h"

#include <cmath>
#include <utility>

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"

namespace {

void donnerCalque(AcDbEntity& entite, AcDbObjectId calque)
{
    if (!calque.isNull() && entite.layerId() != calque)
        entite.setLayer(calque);
}

void conformerAttributs(const AcDbBlockReference& reference, const codifPoint& codif)
{
    const attribsPoints& etiquettes = attribsDuModule;
    const std::pair<const wchar_t*, emplacementCalque> calques[] = {{etiquettes.code, calqueCode},
                                                                    {etiquettes.numero, calqueNumero},
                                                                    {etiquettes.altitude, calqueAltitudes},
                                                                    {etiquettes.observation, calqueObs}};
    pourChaqueAttribut(reference, AcDb::kForWrite, [&](AcDbAttribute& attribut) {
        for (const auto& [etiquette, calque] : calques)
            if (memeEtiquette(attribut, etiquette))
                donnerCalque(attribut, codif.idCalques[calque]);
        if (memeEtiquette(attribut, etiquettes.code.GetString()))
            attribut.setTextString(std::to_wstring(codif.code).c_str());
    });
}

} // namespace

bool retaillerSymbole(AcDbBlockReference& reference, double taille)
{
    const AcGeScale3d actuelle = reference.scaleFactors();
    if (std::abs(actuelle.sx) == taille)
        return true;
    const AcGeMatrix3d homothetie = AcGeMatrix3d::scaling(taille / std::abs(actuelle.sx), reference.position());
    // A symbol that was mirrored stays so.
    return reference.transformBy(homothetie) == Acad::eOk &&
           reference.setScaleFactors({std::copysign(taille, actuelle.sx), std::copysign(taille, actuelle.sy),
                                      std::copysign(taille, actuelle.sz)}) == Acad::eOk;
}

bool changerBlocSymbole(const AcDbObjectId& id, const AcDbObjectId& bloc)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    return reference.openStatus() == Acad::eOk && reference->setBlockTableRecord(bloc) == Acad::eOk;
}

bool conformerSymbole(const AcDbObjectId& id, int code, tableCodification& table)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    if (reference.openStatus() != Acad::eOk)
        return false;
    AcDbDatabase& db = *reference->database();
    codifPoint& codif = table.getCodif(code);
    const AcDbObjectId bloc = preparerCalques(db, codif, true) ? blocDuCode(db, codif) : AcDbObjectId();
    if (bloc.isNull() || reference->setBlockTableRecord(bloc) != Acad::eOk)
        return false;
    donnerCalque(*reference.object(), codif.idCalques[calqueBlock]);
    conformerAttributs(*reference.object(), codif);
    return retaillerSymbole(*reference.object(), tailleSymbole(codif));
}
