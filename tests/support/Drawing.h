#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "dbents.h"
#include "dbsymtb.h"

/// What tests put into an open drawing and read back from it; all is closed again.

/// A record added to the table of its kind, prepared by `prepare` before it is closed.
template <class Table, class Record, class Prepare>
AcDbObjectId addRecord(AcDbDatabase& database, const wchar_t* name, const Prepare& prepare)
{
    Table* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* const made = new Record;
    made->setName(name);
    prepare(*made);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, made), Acad::eOk);
    made->close();
    table->close();
    return id;
}
template <class Table, class Record>
AcDbObjectId addRecord(AcDbDatabase& database, const wchar_t* name)
{
    return addRecord<Table, Record>(database, name, [](Record&) {});
}
AcDbObjectId addLayer(AcDbDatabase& database, const wchar_t* name, int color = 7);

/// An entity that joins a block, or the current space.
AcDbObjectId addEntity(AcDbObjectId block, AcDbEntity* entity);
AcDbObjectId addEntity(AcDbDatabase& database, AcDbEntity* entity);
AcDbObjectId addBlock(AcDbDatabase& database, const wchar_t* name, std::initializer_list<AcDbEntity*> entities,
                      AcGePoint3d base = AcGePoint3d::kOrigin);

/// The entities of a block, in their order, without erased ones.
std::vector<AcDbObjectId> entitiesOf(AcDbObjectId block);

/// What a save would write.
std::string savedBytes(AcDbDatabase& database);
