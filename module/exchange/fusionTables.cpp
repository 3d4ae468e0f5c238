#include "exchange/fusionTables.h"

#include <string>

#include "points/projetsTopo.h"
#include "services/CAcadUndoGroup.h"

void fusionnerTables(projetsTopo& projet, std::span<const int> places)
{
    const CAcadUndoGroup groupe;
    projet.creerTablePoints(L"");
    listePointsDuDessin& fusion = *projet.getTable(projet.nbTables() - 1);
    std::wstring nom;
    for (const int place : places) {
        const listePointsDuDessin& source = *projet.getTable(place);
        if (place != places.front())
            nom += L" + ";
        nom += source.getNomTable().GetString();
        fusion.fusionnerAvec(source);
    }
    fusion.setNomTable(nom.substr(0, longueurNomTable).c_str());
    fusion.renumeroter(true);
}
