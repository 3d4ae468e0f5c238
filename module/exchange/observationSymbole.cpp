#include "exchange/observationSymbole.h"

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"
#include "services/codages.h"

std::string observationDuSymbole(const AcDbObjectId& id)
{
    std::string observation;
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    if (reference.openStatus() == Acad::eOk)
        pourChaqueAttribut(*reference.object(), AcDb::kForRead, [&observation](AcDbAttribute& attribut) {
            if (memeEtiquette(attribut, attribsDuModule.observation.GetString()))
                observation = versAnsi(attribut.textStringConst());
        });
    return observation;
}
