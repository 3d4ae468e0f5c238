#include "codification/apparenceSymbole.h"

#include <cmath>
#include <utility>

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"
#include "points/projetDansDessin.h"
#include "services/blocFichier.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/definitionsDessin.h"
#include "services/lettres.h"

#include "dbapserv.h"
#include "dbsymtb.h"

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

std::wstring nomBlocSymbole(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    return reference.openStatus() == Acad::eOk ? nomDefinition(reference->blockTableRecord()) : std::wstring();
}

symbolesDuCode symbolesARedessiner(int code, const std::wstring& chemin)
{
    symbolesDuCode symboles;
    const std::wstring nom = nomBlocDeFichier(sansBlancs(chemin, blancsSaisie));
    for (int t = 0; tablesPoints && t < tablesPoints->nbTables(); ++t) {
        const listePointsDuDessin& table = *tablesPoints->getTable(t);
        for (int i = 0; i < table.nbPoint(); ++i) {
            const AcDbObjectId id = table.getData(i)->getId();
            if (table.getData(i)->getCode() != code || id.isNull())
                continue;
            const std::wstring present = nomBlocSymbole(id);
            if (present.empty() || memesLettres(present, nom))
                continue;
            if (estVerrouille(id))
                ++symboles.verrouilles;
            else
                symboles.aRedessiner.push_back(id);
        }
    }
    return symboles;
}

std::wstring annonce(const symbolesDuCode& symboles)
{
    std::wstring texte;
    if (const std::size_t nombre = symboles.aRedessiner.size(); nombre == 1)
        texte = L"1 point placé sera redessiné avec ce block.";
    else if (nombre > 1)
        texte = std::to_wstring(nombre) + L" points placés seront redessinés avec ce block.";
    if (symboles.verrouilles > 0)
        texte += (texte.empty() ? L"" : L" ") + std::to_wstring(symboles.verrouilles) +
                 L" sur un calque verrouillé : le leur est gardé.";
    return texte;
}

bool redessiner(const symbolesDuCode& symboles, const codifPoint& codif)
{
    AcDbDatabase* const dessin = acdbHostApplicationServices()->workingDatabase();
    if (symboles.aRedessiner.empty() || !dessin)
        return true;
    const CAcadUndoGroup groupe;
    const AcDbObjectId bloc = blocDuCode(*dessin, codif);
    if (bloc.isNull())
        return false;
    for (const AcDbObjectId& id : symboles.aRedessiner)
        changerBlocSymbole(id, bloc);
    return true;
}
