#include "services/espaceObjet.h"

#include "services/ajoutEntites.h"
#include "services/definitionsDessin.h"

#include "dbapserv.h"

AcDbObjectId espaceObjetDuDessin()
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    return db ? blocNomme(*db, ACDB_MODEL_SPACE) : AcDbObjectId();
}

AcDbObjectId ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite)
{
    return ajoutEntites(espaceObjetDuDessin()).ajouter(std::move(entite));
}
