#include "tools/placerObservations.h"

#include "codification/attributsBloc.h"
#include "points/attribsPoints.h"
#include "points/listePointsDuDessin.h"
#include "services/calqueVerrouille.h"
#include "tools/fusionPoints.h"

namespace {

template <typename Action>
void surObservation(const AcDbObjectId& symbole, AcDb::OpenMode mode, Action&& action)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(symbole);
    if (reference.openStatus() != Acad::eOk)
        return;
    pourChaqueAttribut(*reference.object(), mode, [&](AcDbAttribute& attribut) {
        if (memeEtiquette(attribut, attribsDuModule.observation.GetString()))
            action(attribut);
    });
}

} // namespace

std::wstring observationDe(const AcDbObjectId& symbole)
{
    std::wstring observation;
    surObservation(symbole, AcDb::kForRead,
                   [&](const AcDbAttribute& attribut) { observation = attribut.textStringConst(); });
    return observation;
}

void reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres)
{
    const AcDbObjectId& symbole = table.getData(position)->getId();
    if (estVerrouille(symbole))
        return;
    std::vector<std::wstring> observations{observationDe(symbole)};
    for (const int autre : autres)
        observations.push_back(observationDe(table.getData(autre)->getId()));
    const std::wstring reunies = observationsReunies(observations);
    surObservation(symbole, AcDb::kForRead, [&](AcDbAttribute& attribut) { changerTexte(attribut, reunies); });
}
