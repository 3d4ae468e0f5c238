#include "acutmem.h"
#include "dbsymtb.h"
#include "Drawing.h"
#include "SmallDrawing.h"

/// Definitions that nothing needs.

using PurgeTest = DrawingTest;

namespace {

std::string insertOf(const char* name, const char* handle, const char* owner)
{
    return entityTags("INSERT", handle, "AcDbBlockReference", std::string("2 ") + name + "\n10 0\n20 0\n30 0\n", "0",
                      owner);
}

std::string layer(const char* name, const char* handle, const char* linetype = "Continuous")
{
    return recordTags("LAYER", handle, std::string("2 ") + name + "\n70 0\n62 3\n6 " + linetype + "\n");
}

/// A block in use shows another; one that nothing shows holds another, and alone uses a layer and a style.
SmallDrawing workshop()
{
    SmallDrawing drawing;
    drawing.header = "9 $CLAYER\n8 COURANT\n";
    drawing.linetypes = recordTags("LTYPE", "40", "2 Tirets\n70 0\n3 \n72 65\n73 1\n40 1.0\n49 1.0\n74 0\n") +
                        recordTags("LTYPE", "41", "2 Points\n70 0\n3 \n72 65\n73 1\n40 1.0\n49 1.0\n74 0\n");
    drawing.layers = layer("UTILE", "42", "TIRETS") + layer("COURANT", "43") + layer("DEBLOC", "44") +
                     layer("SEUL", "45") + layer("DEXDATA", "46") + layer("POINTÉ", "47");
    drawing.styles = recordTags("STYLE", "48", "2 Gras\n70 0\n40 0.0\n41 1.0\n50 0.0\n71 0\n42 2.5\n3 a.ttf\n4 \n");
    drawing.applications = recordTags("APPID", "49", "2 VELA\n70 0\n");
    for (const auto& [name, handle] : {std::pair{"POSE", "70"}, {"DEDANS", "71"}, {"INUTILE", "72"}, {"AUSSI", "73"}})
        drawing.blockRecords += recordTags("BLOCK_RECORD", handle, std::string("2 ") + name + "\n340 0\n");
    drawing.blocks =
        blockTags("POSE", "70", 0x80, insertOf("DEDANS", "90", "70")) +
        blockTags("DEDANS", "71", 0x82, entityTags("POINT", "91", "AcDbPoint", "10 0\n20 0\n30 0\n", "0", "71")) +
        blockTags("INUTILE", "72", 0x84,
                  insertOf("AUSSI", "92", "72") +
                      entityTags("TEXT", "93", "AcDbText", "10 0\n20 0\n30 0\n40 1\n1 a\n7 Gras\n", "DEBLOC", "72")) +
        blockTags("AUSSI", "73", 0x86, entityTags("POINT", "94", "AcDbPoint", "10 0\n20 0\n30 0\n", "0", "73"));
    drawing.entities = insertOf("POSE", "95", "1F") +
                       entityTags("POINT", "96", "AcDbPoint", "10 0\n20 0\n30 0\n", "UTILE") +
                       entityTags("POINT", "97", "AcDbPoint", "10 0\n20 0\n30 0\n1001 VELA\n1003 DEXDATA\n");
    drawing.rootEntries = "3 RENVOI\n350 60\n";
    drawing.objects = "0 XRECORD\n5 60\n330 C\n100 AcDbXrecord\n280 1\n330 47\n6 Points\n";
    return drawing;
}

AcDbObjectIdArray definitions(AcDbDatabase& database)
{
    AcDbObjectIdArray ids;
    for (const NameKind kind : {NameKind::block, NameKind::layer, NameKind::textStyle, NameKind::linetype})
        for (AcDbStub* record : database.impl().names(kind).records())
            ids.append(AcDbObjectId(record));
    return ids;
}

std::wstring namesOf(AcDbDatabase& database, const AcDbObjectIdArray& ids)
{
    std::wstring names;
    for (int i = 0; i < ids.length(); ++i)
        names += database.impl().recordName(ids[i].stub()) + L' ';
    return names;
}

} // namespace

TEST_F(PurgeTest, LeavesWhatNothingOutsideNeeds)
{
    const auto database = open(workshop());
    AcDbObjectIdArray ids = definitions(*database);
    ASSERT_EQ(database->purge(ids), Acad::eOk);
    EXPECT_EQ(namesOf(*database, ids), L"INUTILE AUSSI DEBLOC SEUL Gras Points ");

    // What an unused block needs stays as long as that block is not to go.
    AcDbObjectIdArray layers;
    for (AcDbStub* record : database->impl().names(NameKind::layer).records())
        layers.append(AcDbObjectId(record));
    ASSERT_EQ(database->purge(layers), Acad::eOk);
    EXPECT_EQ(namesOf(*database, layers), L"SEUL ");
}

TEST_F(PurgeTest, FollowsChangesAndNewNames)
{
    const auto database = open(workshop());
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(AcDbObjectId(database->impl().named(NameKind::layer, L"UTILE")),
                                                      AcDb::kForWrite);
        layer->setName(L"RENOMMÉ");
        AcDbObjectPointer<AcDbEntity> point(AcDbObjectId(database->impl().byHandle(0x97)), AcDb::kForWrite);
        point->setLayer(L"SEUL");
        AcDbObjectPointer<AcDbEntity> reference(AcDbObjectId(database->impl().byHandle(0x95)), AcDb::kForWrite);
        reference->erase();
    }
    AcDbObjectIdArray ids = definitions(*database);
    ASSERT_EQ(database->purge(ids), Acad::eOk);
    EXPECT_EQ(namesOf(*database, ids), L"POSE DEDANS INUTILE AUSSI DEBLOC Gras Points ");
    for (int i = 0; i < ids.length(); ++i)
        EXPECT_EQ(AcDbObjectPointer<AcDbObject>(ids[i], AcDb::kForWrite)->erase(), Acad::eOk);
    const auto again = open(saved(*database));
    EXPECT_FALSE(again->impl().named(NameKind::block, L"INUTILE"));
    EXPECT_TRUE(again->impl().named(NameKind::layer, L"renommé"));
    EXPECT_TRUE(again->impl().problems().isSound());
}
