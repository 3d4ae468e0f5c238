#include "tools/placerObservations.h"

#include "codification/observationSymbole.h"
#include "points/listePointsDuDessin.h"
#include "tools/fusionPoints.h"

void reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres)
{
    const AcDbObjectId& symbole = table.getData(position)->getId();
    std::vector<std::wstring> observations{observationDe(symbole)};
    for (const int autre : autres)
        observations.push_back(observationDe(table.getData(autre)->getId()));
    ecrireObservation(symbole, observationsReunies(observations));
}
