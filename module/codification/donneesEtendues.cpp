#include "codification/donneesEtendues.h"

#include <memory>

#include "services/chaineResbuf.h"

#include "adscodes.h"
#include "dbsymtb.h"

bool declarerApplication(AcDbDatabase& db, const wchar_t* nom)
{
    AcDbRegAppTable* ouvertes = nullptr;
    if (db.getRegAppTable(ouvertes, AcDb::kForRead) != Acad::eOk)
        return false;
    bool connue = ouvertes->has(nom);
    if (!connue && ouvertes->upgradeOpen() == Acad::eOk) {
        auto application = std::make_unique<AcDbRegAppTableRecord>();
        application->setName(nom);
        connue = ouvertes->add(application.get()) == Acad::eOk;
        if (connue)
            application.release()->close();
    }
    ouvertes->close();
    return connue;
}

bool declarerVelaplus(AcDbDatabase& db)
{
    return declarerApplication(db, applicationVelaplus);
}

bool marquerSymbole(AcDbEntity& entite)
{
    AcDbDatabase* const db = entite.database();
    if (!db || !declarerVelaplus(*db))
        return false;
    chaineResbuf marque;
    marque.ajouter(AcDb::kDxfRegAppName, applicationVelaplus);
    marque.ajouter(AcDb::kDxfXdInteger16, short{1});
    return entite.setXData(marque.tete()) == Acad::eOk;
}
