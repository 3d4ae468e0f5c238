#include "codification/donneesEtendues.h"

#include <memory>

#include "acutmem.h"
#include "adscodes.h"
#include "dbsymtb.h"

bool declarerVelaplus(AcDbDatabase& db)
{
    AcDbRegAppTable* ouvertes = nullptr;
    if (db.getRegAppTable(ouvertes, AcDb::kForRead) != Acad::eOk)
        return false;
    bool connue = ouvertes->has(applicationVelaplus);
    if (!connue && ouvertes->upgradeOpen() == Acad::eOk) {
        auto application = std::make_unique<AcDbRegAppTableRecord>();
        application->setName(applicationVelaplus);
        connue = ouvertes->add(application.get()) == Acad::eOk;
        if (connue)
            application.release()->close();
    }
    ouvertes->close();
    return connue;
}

bool marquerSymbole(AcDbEntity& entite)
{
    AcDbDatabase* const db = entite.database();
    if (!db || !declarerVelaplus(*db))
        return false;
    wchar_t application[] = L"VELAPLUS";
    resbuf marque{nullptr, AcDb::kDxfXdInteger16, {}};
    marque.resval.rint = 1;
    resbuf nom{&marque, AcDb::kDxfRegAppName, {}};
    nom.resval.rstring = application;
    return entite.setXData(&nom) == Acad::eOk;
}
