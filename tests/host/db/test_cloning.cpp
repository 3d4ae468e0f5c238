#include <algorithm>

#include "acutmem.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "Drawing.h"
#include "SmallDrawing.h"

/// Copies within a drawing, and drawings that become blocks of another.

using CloningTest = DrawingTest;

namespace {

std::string insert(const char* name, const char* handle, const char* owner, const std::string& head = "",
                   const std::string& tail = "")
{
    return std::string("0 INSERT\n5 ") + handle + "\n" + head + "330 " + owner +
           "\n100 AcDbEntity\n8 Bornes\n100 AcDbBlockReference\n66 1\n2 " + name + "\n10 5.0\n20 6.0\n30 0\n" + tail +
           "0 ATTRIB\n5 " + handle + "A\n330 " + handle +
           "\n100 AcDbEntity\n8 Bornes\n100 AcDbText\n10 1\n20 2\n30 0\n40 2.5\n1 S\xC3\xA9\n7 Gras\n"
           "100 AcDbAttribute\n2 NUM\n70 0\n0 ATTRIB\n5 " +
           handle + "B\n330 " + handle +
           "\n100 AcDbEntity\n8 0\n100 AcDbText\n10 1\n20 2\n30 0\n40 2.5\n1 12\n100 AcDbAttribute\n2 Z\n70 0\n0 "
           "SEQEND\n5 " +
           handle + "C\n330 " + handle + "\n100 AcDbEntity\n8 0\n";
}

/// Nested blocks, an unknown entity, an unnamed block, an extension dictionary; UTF-8.
SmallDrawing library()
{
    SmallDrawing drawing;
    drawing.header = "9 $INSBASE\n10 7.0\n20 8.0\n30 0.0\n";
    drawing.linetypes =
        recordTags("LTYPE", "17", "2 Tirets\n70 0\n3 \n72 65\n73 2\n40 3.0\n49 2.0\n74 0\n49 -1.0\n74 0\n");
    drawing.layers = recordTags("LAYER", "40", "2 Bornes\n70 0\n62 3\n6 Tirets\n");
    drawing.styles = recordTags("STYLE", "41", "2 Gras\n70 0\n40 0.0\n41 1.0\n50 0.0\n71 0\n42 2.5\n3 arial.ttf\n4 \n");
    drawing.applications = recordTags("APPID", "42", "2 VELA\n70 0\n");
    drawing.blockRecords =
        recordTags("BLOCK_RECORD", "70", "2 BORNE\n340 0\n", "102 {ACAD_XDICTIONARY\n360 60\n102 }\n") +
        recordTags("BLOCK_RECORD", "71", "2 CROIX\n340 0\n") + recordTags("BLOCK_RECORD", "72", "2 *U1\n340 0\n");
    drawing.blocks =
        blockTags("BORNE", "70", 0x73,
                  insert("CROIX", "E0", "70") + entityTags("TRUC", "75", "CTruc", "90 5\n330 70\n", "Bornes", "70") +
                      entityTags("ATTDEF", "76", "AcDbText",
                                 "10 0\n20 0\n30 0\n40 1\n1 ?\n100 AcDbAttributeDefinition\n"
                                 "3 Num\n2 NUM\n70 0\n",
                                 "0", "70"),
                  "1.0") +
        blockTags("CROIX", "71", 0x77, entityTags("POINT", "79", "AcDbPoint", "10 0\n20 0\n30 0\n", "0", "71"), "1.0") +
        blockTags("*U1", "72", 0x7A, entityTags("POINT", "7C", "AcDbPoint", "10 1\n20 0\n30 0\n", "0", "72"), "1.0");
    drawing.entities =
        insert("BORNE", "E1", "1F", "102 {ACAD_XDICTIONARY\n360 62\n102 }\n", "1001 VELA\n1005 E1\n1003 Bornes\n") +
        insert("*U1", "E2", "1F");
    drawing.objects =
        "0 DICTIONARY\n5 60\n330 70\n100 AcDbDictionary\n280 1\n281 1\n3 INFO\n360 61\n0 XRECORD\n5 61\n330 60\n"
        "100 AcDbXrecord\n280 1\n1 info\n330 70\n0 DICTIONARY\n5 62\n330 E1\n100 AcDbDictionary\n280 1\n281 1\n"
        "3 FICHE\n360 63\n0 XRECORD\n5 63\n330 62\n100 AcDbXrecord\n280 1\n1 fiche\n330 E1\n";
    return drawing;
}

std::ptrdiff_t count(const std::string& file, const std::string& tag)
{
    return std::ranges::count(tagsOf(file), tag);
}

AcDbObjectId blockNamed(AcDbDatabase& database, const wchar_t* name)
{
    return AcDbObjectId(database.impl().named(NameKind::block, name));
}

/// The record that the extension dictionary of an object holds refers to that object.
void checkExtension(AcDbObjectId owner, const wchar_t* key)
{
    AcDbObjectPointer<AcDbObject> object(owner);
    AcDbObjectPointer<AcDbDictionary> dictionary(object->extensionDictionary());
    ASSERT_TRUE(dictionary.object());
    EXPECT_EQ(dictionary->ownerId(), owner);
    AcDbObject* record = nullptr;
    ASSERT_EQ(dictionary->getAt(key, record, AcDb::kForRead), Acad::eOk);
    resbuf* data = nullptr;
    AcDbXrecord::cast(record)->rbChain(&data);
    EXPECT_EQ(data->rbnext->resval.rlname[0], owner.asOldId());
    acutRelRb(data);
    record->close();
}

} // namespace

TEST_F(CloningTest, aReferenceWithAllItOwns)
{
    const auto database = open(library());
    database->impl().undo().setRecording(true);
    AcDbObjectIdArray ids;
    ids.append(idOf(*database, 0xE1));
    AcDbIdMapping mapping;
    ASSERT_EQ(database->deepCloneObjects(ids, database->currentSpaceId(), mapping), Acad::eOk);
    EXPECT_EQ(mapping.count(), 6) << "reference, two attributes, SEQEND, dictionary, record";
    AcDbObjectId copy;
    ASSERT_TRUE(mapping.find(ids[0], copy));
    const std::string before = library().text(), after = saved(*database);
    EXPECT_EQ(count(after, "0|INSERT"), count(before, "0|INSERT") + 1);
    EXPECT_EQ(count(after, "0|ATTRIB"), count(before, "0|ATTRIB") + 2);
    EXPECT_EQ(count(after, "0|SEQEND"), count(before, "0|SEQEND") + 1);
    EXPECT_EQ(count(after, "1|fiche"), 2);
    for (AcDbDatabase* each : {database.get(), open(after, "relu.dxf").release()}) {
        const std::unique_ptr<AcDbDatabase> kept(each == database.get() ? nullptr : each);
        const AcDbObjectId there = idOf(*each, copy.handle());
        EXPECT_EQ(entitiesOf(each->currentSpaceId()).size(), 3U);
        checkExtension(there, L"FICHE");
        AcDbObjectPointer<AcDbBlockReference> opened(there);
        resbuf* data = opened->xData(L"VELA");
        wchar_t handle[17] = L"";
        there.handle().getIntoAsciiBuffer(handle, 17);
        EXPECT_STREQ(data->rbnext->resval.rstring, handle) << "a handle in extended data follows";
        acutRelRb(data);
    }
    AcDbObjectPointer<AcDbBlockReference>(copy, AcDb::kForWrite)->setPosition(AcGePoint3d(9, 9, 9));
    database->impl().undo().undo();
    EXPECT_EQ(saved(*database), before);
}

TEST_F(CloningTest, aPolylineDoesNotDoubleAtEachVertex)
{
    SmallDrawing drawing;
    drawing.entities =
        "0 POLYLINE\n5 E0\n330 1F\n100 AcDbEntity\n8 0\n100 AcDb3dPolyline\n66 1\n10 0\n20 0\n30 0\n70 8\n";
    for (int i = 0; i < 40; ++i)
        drawing.entities += "0 VERTEX\n5 " + std::to_string(300 + i) +
                            "\n330 E0\n100 AcDbEntity\n8 0\n100 AcDbVertex\n"
                            "100 AcDb3dPolylineVertex\n10 " +
                            std::to_string(i) + "\n20 0\n30 0\n70 32\n";
    drawing.entities += "0 SEQEND\n5 E1\n330 E0\n100 AcDbEntity\n8 0\n";
    const auto database = open(drawing);
    AcDbObjectIdArray ids;
    ids.append(idOf(*database, 0xE0));
    AcDbIdMapping mapping;
    ASSERT_EQ(database->deepCloneObjects(ids, database->currentSpaceId(), mapping), Acad::eOk);
    EXPECT_EQ(mapping.count(), 42);
    AcDbObjectPointer<AcDbEntity>(idOf(*database, 0x300), AcDb::kForWrite)->erase();
    EXPECT_EQ(count(saved(*database), "0|VERTEX"), 79) << "one vertex erased takes no other along";
}

TEST_F(CloningTest, aDrawingBecomesABlock)
{
    SmallDrawing target;
    target.version = "AC1015";
    target.eol = "\n";
    target.layers = recordTags("LAYER", "40", "2 BORNES\n70 0\n62 1\n6 Continuous\n");
    target.blockRecords = recordTags("BLOCK_RECORD", "70", "2 *U1\n340 0\n");
    target.blocks = blockTags("*U1", "70", 0x71, "", "1.0");
    for (const bool binary : {false, true}) {
        SCOPED_TRACE(binary ? "binary" : "ASCII");
        const std::string before = binary ? target.binary() : target.text();
        const auto database = open(before);
        const auto source = open(library().text(), "biblio.dxf");
        UndoRecorder& undo = database->impl().undo();
        undo.setRecording(true);
        AcDbObjectId placed;
        ASSERT_EQ(database->insert(placed, L"biblio", source.get()), Acad::eOk);
        AcDbObjectId again;
        EXPECT_EQ(database->insert(again, L"BIBLIO", source.get()), Acad::eOk);
        EXPECT_EQ(again, placed) << "the present definition stays";
        const std::string after = saved(*database);
        EXPECT_EQ(saved(*source, "biblio-2.dxf"), library().text());

        const auto read = open(after, "relu.dxf");
        EXPECT_TRUE(read->impl().problems().all().empty());
        for (AcDbDatabase* each : {database.get(), read.get()}) {
            const AcDbObjectId there = blockNamed(*each, L"biblio");
            AcDbObjectPointer<AcDbBlockTableRecord> opened(there);
            EXPECT_EQ(opened->origin(), AcGePoint3d(7, 8, 0));
            const std::vector<AcDbObjectId> content = entitiesOf(there);
            ASSERT_EQ(content.size(), 2U);
            AcDbObjectPointer<AcDbBlockReference> reference(content[0]);
            EXPECT_EQ(reference->blockTableRecord(), blockNamed(*each, L"BORNE"));
            EXPECT_EQ(reference->ownerId(), there);
            EXPECT_EQ(reference->layerId(), AcDbObjectId(each->impl().named(NameKind::layer, L"bornes")));
            const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
            AcDbObjectPointer<AcDbAttribute> attribute(attributes->objectId());
            EXPECT_STREQ(attribute->textStringConst(), L"S\u00E9") << "from one code page to another";
            EXPECT_FALSE(AcDbObjectId(each->impl().named(NameKind::textStyle, L"Gras")).isNull());
            checkExtension(content[0], L"FICHE");
            checkExtension(blockNamed(*each, L"BORNE"), L"INFO");
            EXPECT_EQ(entitiesOf(blockNamed(*each, L"BORNE")).size(), 3U);
            EXPECT_EQ(entitiesOf(blockNamed(*each, L"CROIX")).size(), 1U);
            AcDbObjectPointer<AcDbBlockTableRecord> borne(blockNamed(*each, L"BORNE"));
            EXPECT_EQ(borne->origin(), AcGePoint3d(1, 0, 0));
            EXPECT_TRUE(borne->hasAttributeDefinitions());
            EXPECT_EQ(entitiesOf(blockNamed(*each, L"*U1")).size(), 0U) << "the one of this drawing";
            AcDbObjectPointer<AcDbBlockReference> unnamed(content[1]);
            EXPECT_EQ(entitiesOf(unnamed->blockTableRecord()).size(), 1U) << "the one of the other drawing";
        }
        DxfForm ascii = database->impl().form();
        ascii.binary = false;
        ASSERT_EQ(database->impl().save(path("texte.dxf"), ascii), Acad::eOk);
        EXPECT_EQ(count(DrawingTest::read("texte.dxf"), "0|TRUC"), 1) << "an unknown entity comes along";
        EXPECT_EQ(count(DrawingTest::read("texte.dxf"), "62|1"), 1) << "the layer that was here keeps its colour";
        while (undo.undo()) {
        }
        EXPECT_EQ(saved(*database), before);
    }
}

TEST_F(CloningTest, objectsOfAnotherDrawing)
{
    const auto database = open(SmallDrawing());
    const auto source = open(library().text(), "biblio.dxf");
    AcDbObjectIdArray ids;
    ids.append(idOf(*source, 0xE1));
    AcDbIdMapping mapping;
    ASSERT_EQ(database->wblockCloneObjects(ids, database->currentSpaceId(), mapping), Acad::eOk);
    EXPECT_EQ(entitiesOf(database->currentSpaceId()).size(), 1U);
    EXPECT_EQ(count(saved(*database), "2|Tirets"), 1) << "the linetype that the layer needs";
    EXPECT_EQ(database->deepCloneObjects(ids, database->currentSpaceId(), mapping), Acad::eWrongDatabase);
    EXPECT_EQ(database->wblockCloneObjects(ids, AcDbObjectId(), mapping), Acad::eWrongDatabase);
    AcDbObjectId id;
    EXPECT_NE(database->insert(id, L"a/b", source.get()), Acad::eOk);
    EXPECT_NE(database->insert(id, L"soi", database.get()), Acad::eOk);
}
