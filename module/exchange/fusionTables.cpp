#include "exchange/fusionTables.h"

#include "points/projetsTopo.h"
#include "services/CAcadUndoGroup.h"

void fusionnerTables(projetsTopo& projet, std::span<const int> places)
{
    const CAcadUndoGroup groupe;
    CString nom;
    projet.creerTablePoints(nom);
    listePointsDuDessin& fusion = *projet.getTable(projet.nbTables() - 1);
    for (const int place : places) {
        const listePointsDuDessin& source = *projet.getTable(place);
        if (place == places.front())
            nom = source.getNomTable();
        else
            nom.Format(L"%s + %s", CString(nom).GetString(), source.getNomTable().GetString());
        fusion.fusionnerAvec(source);
    }
    fusion.setNomTable(nom.Left(longueurNomTable));
    fusion.renumeroter(true);
}
