#include "codification/observationSymbole.h"

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"
#include "services/calqueVerrouille.h"

namespace {

template <typename Action>
void surObservation(const AcDbObjectId& symbole, Action&& action)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(symbole);
    if (reference.openStatus() != Acad::eOk)
        return;
    pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&](AcDbAttribute& attribut) {
        if (memeEtiquette(attribut, attribsDuModule.observation.GetString()))
            action(attribut);
    });
}

} // namespace

std::wstring observationDe(const AcDbObjectId& symbole)
{
    std::wstring observation;
    surObservation(symbole, [&](const AcDbAttribute& attribut) { observation = attribut.textStringConst(); });
    return observation;
}

bool ecrireObservation(const AcDbObjectId& symbole, const std::wstring& observation)
{
    bool ecrite = false;
    if (!estVerrouille(symbole))
        surObservation(symbole, [&](AcDbAttribute& attribut) {
            changerTexte(attribut, observation);
            ecrite = true;
        });
    return ecrite;
}
