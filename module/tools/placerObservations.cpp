#include "tools/placerObservations.h"

#include "codification/observationSymbole.h"
#include "points/listePointsDuDessin.h"
#include "services/calqueVerrouille.h"
#include "tools/fusionPoints.h"

bool reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres)
{
    const AcDbObjectId& symbole = table.getData(position)->getId();
    std::vector<std::wstring> observations{observationDe(symbole)};
    for (const int autre : autres)
        if (const AcDbObjectId& id = table.getData(autre)->getId(); !estVerrouille(id)) // those stay, with theirs
            observations.push_back(observationDe(id));
    const std::wstring reunies = observationsReunies(observations);
    return reunies == observations.front() || ecrireObservation(symbole, reunies);
}
