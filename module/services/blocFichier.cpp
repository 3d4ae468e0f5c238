#include "services/blocFichier.h"

#include <algorithm>

#include "dbsymtb.h"

namespace {

constexpr const wchar_t* extensionDessin = L".dwg";

bool finitParDwg(const CString& chemin)
{
    return chemin.Right(4).CompareNoCase(extensionDessin) == 0;
}

AcDbObjectId blocPresent(AcDbDatabase& db, const CString& nom)
{
    AcDbBlockTable* blocs = nullptr;
    AcDbObjectId id;
    if (db.getBlockTable(blocs, AcDb::kForRead) != Acad::eOk)
        return id;
    if (blocs->getAt(nom, id) != Acad::eOk)
        id.setNull();
    blocs->close();
    return id;
}

} // namespace

CString nomBlocDeFichier(const CString& chemin)
{
    const CString nom = chemin.Mid(std::max(chemin.ReverseFind(L'\\'), chemin.ReverseFind(L'/')) + 1);
    return finitParDwg(nom) ? nom.Left(nom.GetLength() - 4) : nom;
}

AcDbObjectId blocDeFichier(AcDbDatabase& db, const CString& chemin)
{
    const CString nom = nomBlocDeFichier(chemin);
    if (const AcDbObjectId present = blocPresent(db, nom); !present.isNull())
        return present;
    AcDbDatabase lu(false, true);
    if (lu.readDwgFile(finitParDwg(chemin) ? chemin : chemin + extensionDessin) != Acad::eOk)
        return {};
    AcDbObjectId id;
    return db.insert(id, nom, &lu) == Acad::eOk ? id : AcDbObjectId();
}
