#include "acutmem.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "gemat3d.h"
#include "SmallDrawing.h"

/// Who may open what, and who is told of it.

namespace {

SmallDrawing twoLines()
{
    SmallDrawing drawing;
    drawing.entities = lineTags("80") + lineTags("81");
    return drawing;
}

class OpeningTest : public DrawingTest {
protected:
    std::unique_ptr<AcDbDatabase> database = open(twoLines());
    AcDbObjectId line = idOf(*database, 0x80);

    Acad::ErrorStatus opens(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false)
    {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbObject(object, id, mode, openErased);
        EXPECT_EQ(object != nullptr, es == Acad::eOk);
        if (object)
            object->close();
        return es;
    }
};

/// Writes down what it is told.
class Listener : public AcDbDatabaseReactor {
public:
    std::string told;
    std::string taken() { return std::exchange(told, {}); }
    AcDbDatabase* leaves = nullptr; // takes `other` away when first told
    AcDbDatabaseReactor* other = nullptr;
    Acad::ErrorStatus forRead = Acad::eOk, forWrite = Acad::eOk;

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override { note("+", object); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override { note("u", object); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override { note("r", object); }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* object) override { note("o", object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, Adesk::Boolean erased) override
    {
        note(erased ? "-" : "e", object);
    }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override
    {
        note("m", object);
        AcDbObject* again = nullptr;
        forWrite = acdbOpenAcDbObject(again, object->objectId(), AcDb::kForWrite);
        forRead = acdbOpenAcDbObject(again, object->objectId(), AcDb::kForRead);
        if (const auto* line = AcDbLine::cast(again))
            told += std::to_string(static_cast<int>(line->startPoint().x));
        if (again)
            again->close();
        if (leaves)
            leaves->removeReactor(other);
    }
    void headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, Adesk::Boolean) override
    {
        told += "h" + std::string(name, name + std::char_traits<ACHAR>::length(name)) + " ";
    }
    void goodbye(const AcDbDatabase*) override { told += "bye"; }

private:
    void note(const char* what, const AcDbObject* object)
    {
        object->assertReadEnabled();
        told += std::string(told.empty() || told.back() == ' ' ? "" : " ") + what +
                std::to_string(static_cast<unsigned long long>(object->objectId().handle()));
    }
};

class LineListener : public AcDbObjectReactor {
public:
    std::string told;
    std::string taken() { return std::exchange(told, {}); }
    void openedForModify(const AcDbObject*) override { told += 'o'; }
    void modified(const AcDbObject* object) override
    {
        object->assertReadEnabled();
        told += 'm';
    }
    void modifyUndone(const AcDbObject*) override { told += 'u'; }
    void erased(const AcDbObject*, Adesk::Boolean erased) override { told += erased ? '-' : 'e'; }
    void objectClosed(const AcDbObjectId) override { told += 'c'; }
    void goodbye(const AcDbObject*) override { told += 'g'; }
};

} // namespace

TEST_F(OpeningTest, manyReadersOrOneWriter)
{
    AcDbObject *first = nullptr, *second = nullptr, *third = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(first, line, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(second, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(first, second);
    EXPECT_EQ(opens(line, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(first->upgradeOpen(), Acad::eHadMultipleReaders);
    EXPECT_EQ(ObjectOpening::openCount(), 2U);
    EXPECT_EQ(ObjectOpening::openNames(), std::vector<std::wstring>{L"AcDbLine (80)"});
    EXPECT_THROW(first->assertWriteEnabled(), AcDbOpenError);
    second->close();
    EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(opens(line, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(opens(line, AcDb::kForWrite), Acad::eWasOpenForWrite);
    ASSERT_EQ(acdbOpenAcDbObject(third, line, AcDb::kForNotify), Acad::eOk) << "a writer does not hinder";
    EXPECT_EQ(third->close(), Acad::eOk);
    EXPECT_TRUE(first->isWriteEnabled()) << "closing the notification leaves the writer";
    EXPECT_EQ(first->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eNotOpenForRead);
    EXPECT_THROW(first->assertReadEnabled(), AcDbOpenError);

    ASSERT_EQ(acdbOpenAcDbObject(third, line, AcDb::kForNotify), Acad::eOk);
    EXPECT_EQ(opens(line, AcDb::kForWrite), Acad::eWasOpenForNotify);
    EXPECT_EQ(opens(line, AcDb::kForNotify), Acad::eWasOpenForNotify);
    EXPECT_EQ(opens(line, AcDb::kForRead), Acad::eOk);
    third->close();
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(acdbOpenAcDbObject(first, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(opens(line, AcDb::kForRead), Acad::eAtMaxReaders);
    ObjectOpening::closeAll();
    EXPECT_EQ(ObjectOpening::openCount(), 0U);
}

TEST_F(OpeningTest, refusals)
{
    std::int64_t nowhere[4] = {};
    AcDbObjectId garbage, freed;
    garbage.setFromOldId(reinterpret_cast<std::int64_t>(&nowhere[1]));
    AcDbObjectId inside;
    inside.setFromOldId(line.asOldId() + 8); // between two ids
    {
        AcDbDatabase other;
        freed = other.layerZero();
    }
    struct Row {
        const char* name;
        AcDbObjectId id;
        Acad::ErrorStatus expected;
    };
    const Row rows[] = {{"null", {}, Acad::eNullObjectId},
                        {"garbage", garbage, Acad::eInvalidKey},
                        {"beside an id", inside, Acad::eInvalidKey},
                        {"of a closed drawing", freed, Acad::eInvalidKey}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(opens(row.id, AcDb::kForRead), row.expected);
        EXPECT_FALSE(row.id.isValid());
        EXPECT_FALSE(row.id.isErased());
        EXPECT_TRUE(row.id.handle().isNull());
        EXPECT_EQ(row.id.database(), nullptr);
        EXPECT_EQ(row.id.objectClass(), nullptr);
    }
    AcDbLayerTableRecord* layer = nullptr;
    EXPECT_EQ(acdbOpenObject(layer, line, AcDb::kForRead), Acad::eNotThatKindOfClass);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(entity, database->layerZero(), AcDb::kForRead), Acad::eNotAnEntity);
    AcDbObjectId id;
    EXPECT_EQ(database->getAcDbObjectId(id, false, AcDbHandle(0xABCDEF)), Acad::eUnknownHandle);
    EXPECT_EQ(database->getAcDbObjectId(id, false, AcDbHandle(std::uint64_t{0})), Acad::eUnknownHandle);

    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->erase();
    EXPECT_EQ(opens(line, AcDb::kForRead), Acad::eWasErased);
    EXPECT_EQ(opens(line, AcDb::kForRead, true), Acad::eOk);
    for (AcDbObjectId needed : {database->layerZero(), database->currentSpaceId(), database->namedObjectsDictionaryId(),
                                database->layerTableId(), database->continuousLinetype()}) {
        AcDbObjectPointer<AcDbObject> object(needed, AcDb::kForWrite);
        EXPECT_EQ(object->erase(), Acad::eCannotBeErasedByCaller);
    }
}

/// What stands on a locked layer is looked at, and changed by nothing but what the drawing itself does.
TEST_F(OpeningTest, lockedLayers)
{
    UndoRecorder& undo = database->impl().undo();
    undo.setRecording(true);
    undo.startMark();
    AcDbObjectPointer<AcDbLayerTableRecord>(database->layerZero(), AcDb::kForWrite)->setIsLocked(true);
    EXPECT_EQ(opens(line, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(opens(line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(opens(line, AcDb::kForNotify), Acad::eOk);
    EXPECT_EQ(opens(database->layerZero(), AcDb::kForWrite), Acad::eOk) << "no entity";
    {
        const AcDbObjectPointer<AcDbLine> read(line);
        EXPECT_EQ(read->upgradeOpen(), Acad::eOnLockedLayer);
        EXPECT_TRUE(read->isReadEnabled());
        EXPECT_FALSE(read->isWriteEnabled());
    }
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> model(database->currentSpaceId(), AcDb::kForWrite);
        auto* const drawn = new AcDbPoint;
        EXPECT_EQ(model->appendAcDbEntity(drawn), Acad::eOk) << "drawing on it is allowed";
        drawn->close();
        EXPECT_EQ(model->setOrigin({1, 2, 3}), Acad::eOk);
    }
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(line, AcDb::kForWrite, false, true)->erase(), Acad::eOk) << "forced";
    undo.endMark();
    undo.undo(); // brings the line back while its layer is still locked, then unlocks that
    EXPECT_EQ(opens(line, AcDb::kForWrite), Acad::eOk);
    undo.redo();
    EXPECT_TRUE(line.isErased());
}

TEST_F(OpeningTest, attributesOnALockedLayerGoAlongWithTheirReference)
{
    AcDbDatabase drawing;
    AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"TEXTES");
    AcDbObjectId id;
    ASSERT_EQ(layers->add(id, layer), Acad::eOk);
    layer->close();
    AcDbObjectPointer<AcDbBlockTableRecord> model(drawing.currentSpaceId(), AcDb::kForWrite);
    auto* const reference = new AcDbBlockReference({0, 0, 0}, drawing.currentSpaceId());
    ASSERT_EQ(model->appendAcDbEntity(reference), Acad::eOk);
    auto* const attribute = new AcDbAttribute({1, 1, 0}, L"7", L"NUM");
    ASSERT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    attribute->setLayer(id);
    const AcDbObjectId attributeId = attribute->objectId();
    attribute->close();
    AcDbObjectPointer<AcDbLayerTableRecord>(id, AcDb::kForWrite)->setIsLocked(true);
    EXPECT_EQ(opens(attributeId, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbAttribute>(attributeId)->position().x, 11.0);
    EXPECT_EQ(reference->erase(), Acad::eOk);
    reference->close();
    EXPECT_TRUE(attributeId.isErased());
}

TEST_F(OpeningTest, aDrawingWithoutFileHoldsNothing)
{
    AcDbDatabase empty(false, true);
    AcDbLayerTable* layers = nullptr;
    EXPECT_NE(empty.getSymbolTable(layers, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(empty.clayer().isNull());
    EXPECT_TRUE(empty.currentSpaceId().isNull());
    EXPECT_EQ(empty.ltscale(), 1.0);
    EXPECT_EQ(empty.saveAs(path("vide.dxf").c_str()), Acad::eNoDatabase);
    AcDbObjectId id;
    EXPECT_EQ(empty.getAcDbObjectId(id, false, AcDbHandle(std::uint64_t{1})), Acad::eUnknownHandle);
    auto record = std::make_unique<AcDbXrecord>();
    EXPECT_EQ(empty.addAcDbObject(id, record.get()), Acad::eNoDatabase);
    EXPECT_NE(empty.updateExt(), Acad::eOk);
    EXPECT_NE(empty.insert(id, L"BLOC", database.get()), Acad::eOk);
    EXPECT_NE(empty.readDwgFile(path("absent.dxf").c_str()), Acad::eOk);
    EXPECT_NE(std::wstring(empty.lastError()).find(L"fichier introuvable"), std::wstring::npos);
}

TEST_F(OpeningTest, databaseReactorsInOrder)
{
    Listener listener;
    database->addReactor(&listener);
    database->addReactor(&listener);
    UndoRecorder& undo = database->impl().undo();
    undo.setRecording(true);
    {
        Opened<AcDbLine> opened(*database, 0x80, AcDb::kForWrite);
        EXPECT_EQ(listener.told, "");
        opened->setStartPoint(AcGePoint3d(7, 0, 0));
        opened->setEndPoint(AcGePoint3d(9, 0, 0));
        EXPECT_EQ(listener.told, "o128");
    }
    EXPECT_EQ(listener.told, "o128 m1287") << "read while it is told of";
    EXPECT_EQ(listener.forRead, Acad::eOk);
    EXPECT_EQ(listener.forWrite, Acad::eWasOpenForNotify);
    listener.told.clear();
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->assertReadEnabled(); // changes nothing
    EXPECT_EQ(listener.told, "");

    undo.undo();
    EXPECT_EQ(listener.taken(), "m1280");
    undo.startMark();
    auto* made = new AcDbLine(AcGePoint3d(3, 0, 0), AcGePoint3d(4, 0, 0));
    Opened<AcDbBlockTableRecord>(*database, 0x1F, AcDb::kForWrite)->appendAcDbEntity(made);
    made->setThickness(1);
    made->close();
    undo.endMark();
    EXPECT_EQ(listener.taken(), "+4095") << "a new object is not told of as modified";
    undo.undo();
    undo.redo();
    EXPECT_EQ(listener.taken(), "u4095 r4095");
    Opened<AcDbLine>(*database, 0x81, AcDb::kForWrite)->erase();
    EXPECT_EQ(listener.taken(), "-129");
    database->setClayer(database->layerZero());
    EXPECT_EQ(listener.taken(), "hCLAYER ");

    Listener second, third;
    second.leaves = third.leaves = database.get();
    second.other = &third;
    third.other = &second;
    database->removeReactor(&listener);
    database->addReactor(&second);
    database->addReactor(&third);
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(3);
    EXPECT_EQ(second.told, "o128 m1280");
    EXPECT_EQ(third.told, "o128") << "taken away while the other one was told";
    EXPECT_EQ(database->removeReactor(&third), Acad::eKeyNotFound);
    second.told.clear();
    database.reset();
    EXPECT_EQ(second.told, "bye");
}

TEST_F(OpeningTest, objectReactorsStayWithTheObjectInUse)
{
    LineListener listener;
    UndoRecorder& undo = database->impl().undo();
    undo.setRecording(true);
    Opened<AcDbLine>(*database, 0x80)->addReactor(&listener);
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(3);
    EXPECT_EQ(listener.taken(), "omc");
    undo.undo();
    EXPECT_EQ(listener.taken(), "um");
    undo.redo();
    listener.told.clear();
    undo.startMark();
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->erase();
    undo.endMark();
    EXPECT_EQ(listener.taken(), "-c");
    undo.undo();
    EXPECT_EQ(listener.taken(), "e");
    undo.clear();
    EXPECT_EQ(listener.told, "") << "copies kept for undo say nothing";
    {
        Opened<AcDbLine> opened(*database, 0x80);
        const std::unique_ptr<AcRxObject> copy(opened->clone());
    }
    EXPECT_EQ(listener.told, "");
    database.reset();
    EXPECT_EQ(listener.told, "g");
}

TEST_F(OpeningTest, recordingOffKeepsNothing)
{
    UndoRecorder& undo = database->impl().undo();
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(3);
    EXPECT_EQ(undo.undoable(), 0U);
    EXPECT_FALSE(undo.undo());
    EXPECT_FALSE(undo.redo());
}

TEST_F(OpeningTest, marksNest)
{
    UndoRecorder& undo = database->impl().undo();
    undo.setRecording(true);
    const auto thicken = [&](double to) { Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(to); };
    const auto thickness = [&] { return Opened<AcDbLine>(*database, 0x80)->thickness(); };
    undo.startMark();
    thicken(1);
    undo.startMark();
    thicken(2);
    undo.endMark();
    thicken(3);
    undo.endMark();
    undo.startMark();
    thicken(4);
    undo.endMark();
    undo.startMark();
    undo.endMark(); // changed nothing: no group
    EXPECT_EQ(undo.undoable(), 2U);
    undo.undo();
    EXPECT_EQ(thickness(), 3);
    undo.undo();
    EXPECT_EQ(thickness(), 0);
    undo.redo();
    EXPECT_EQ(thickness(), 3);
    undo.redo();
    EXPECT_EQ(thickness(), 4);
    EXPECT_EQ(undo.redoable(), 0U);
    undo.endMark(); // one too many
    thicken(5);
    undo.undo();
    EXPECT_EQ(thickness(), 4);
}

TEST_F(OpeningTest, aDrawingThatGoesTakesItsOpenObjectsOffTheList)
{
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForRead), Acad::eOk);
    database.reset();
    EXPECT_EQ(ObjectOpening::openCount(), 0U);
}
