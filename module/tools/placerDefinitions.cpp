#include "tools/placerDefinitions.h"

#include <memory>

#include "dbapserv.h"
#include "dbidar.h"
#include "dbsymtb.h"

namespace {

/// Appends the records of a table.
void ajouterTable(const AcDbObjectId& table, AcDbObjectIdArray& ids)
{
    const AcDbObjectPointer<AcDbSymbolTable> ouverte(table, AcDb::kForRead);
    AcDbSymbolTableIterator* cree = nullptr;
    if (ouverte.openStatus() != Acad::eOk || ouverte->newIterator(cree) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbSymbolTableIterator> it(cree);
    AcDbObjectId id;
    for (; !it->done(); it->step())
        if (it->getRecordId(id) == Acad::eOk)
            ids.append(id);
}

} // namespace

definitionsInutiles chercherDefinitionsInutiles(const std::array<bool, nombreGenresDefinition>& voulus)
{
    definitionsInutiles inutiles;
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        return inutiles;
    const std::array<AcDbObjectId, nombreGenresDefinition> tables{db->blockTableId(), db->layerTableId(),
                                                                  db->textStyleTableId(), db->linetypeTableId()};
    AcDbObjectIdArray ids;
    for (std::size_t genre = 0; genre < nombreGenresDefinition; ++genre)
        if (voulus[genre])
            ajouterTable(tables[genre], ids);
    if (db->purge(ids) != Acad::eOk)
        return inutiles;
    for (int i = 0; i < ids.length(); ++i) {
        const AcDbObjectPointer<AcDbSymbolTableRecord> definition(ids[i], AcDb::kForRead);
        const wchar_t* nom = nullptr;
        if (definition.openStatus() != Acad::eOk || definition->getName(nom) != Acad::eOk)
            continue;
        const AcDbObjectId table = definition->ownerId();
        for (std::size_t genre = 0; genre < nombreGenresDefinition; ++genre)
            if (tables[genre] == table)
                inutiles.noms[genre].emplace_back(nom);
        inutiles.ids.push_back(ids[i]);
    }
    return inutiles;
}
