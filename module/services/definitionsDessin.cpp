#include "services/definitionsDessin.h"

#include "dbsymtb.h"

std::wstring nomDefinition(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbSymbolTableRecord> enregistrement(id);
    const wchar_t* nom = L"";
    return enregistrement.openStatus() == Acad::eOk && enregistrement->getName(nom) == Acad::eOk ? nom : L"";
}

AcDbObjectId blocNomme(AcDbDatabase& db, const std::wstring& nom)
{
    const AcDbObjectPointer<AcDbBlockTable> blocs(db.blockTableId());
    AcDbObjectId id;
    if (blocs.openStatus() != Acad::eOk || blocs->getAt(nom.c_str(), id) != Acad::eOk)
        id.setNull();
    return id;
}
