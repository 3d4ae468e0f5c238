#include "acutmem.h"
#include "dbdict.h"
#include "dbproxy.h"
#include "dbsymtb.h"
#include "SmallDrawing.h"

/// Names in tables and dictionaries.

using SymbolTableTest = DrawingTest;

namespace {

Acad::ErrorStatus addLayer(AcDbDatabase& database, const std::wstring& name)
{
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto record = std::make_unique<AcDbLayerTableRecord>();
    Acad::ErrorStatus es = record->setName(name.c_str());
    AcDbObjectId id;
    if (es == Acad::eOk)
        es = table->add(id, record.get());
    if (es == Acad::eOk)
        record.release()->close();
    table->close();
    return es;
}

AcDbObjectId layerNamed(AcDbDatabase& database, const wchar_t* name, bool erased = false)
{
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    AcDbObjectId id;
    const Acad::ErrorStatus es = table->getAt(name, id, erased);
    EXPECT_EQ(es == Acad::eOk, !id.isNull());
    table->close();
    return id;
}

std::wstring layersOf(AcDbDatabase& database, bool skipErased = true)
{
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    AcDbSymbolTableIterator* made = nullptr;
    table->newIterator(made, true, skipErased);
    const std::unique_ptr<AcDbSymbolTableIterator> iterator(made);
    std::wstring names;
    for (; !iterator->done(); iterator->step(false, skipErased)) {
        AcDbObjectId id;
        iterator->getRecordId(id);
        AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForRead, true);
        const ACHAR* name = nullptr;
        record->getName(name);
        names += std::wstring(name) + L";";
    }
    table->close();
    return names;
}

} // namespace

TEST_F(SymbolTableTest, namesThatAreTakenOrRefused)
{
    SmallDrawing drawing;
    drawing.version = "AC1015";
    drawing.layers = recordTags("LAYER", "40", "2 \xC9l\\U+00E9vation\n70 0\n62 3\n6 Continuous\n");
    const auto database = open(drawing);
    struct Row {
        const char* name;
        std::wstring layer;
        Acad::ErrorStatus expected;
    };
    const Row rows[] = {
        {"new", L"Neuf", Acad::eOk},
        {"taken", L"neuf", Acad::eDuplicateKey},
        {"taken in the file, accents in another case", L"\u00E9L\u00C9VATION", Acad::eDuplicateKey},
        {"another accent is another name", L"\u00C8levation", Acad::eOk},
        {"blanks are part of it", L"Neuf 2", Acad::eOk},
        {"empty", L"", Acad::eInvalidSymbolTableName},
        {"too long", std::wstring(256, L'x'), Acad::eInvalidSymbolTableName},
        {"the longest", std::wstring(255, L'x'), Acad::eOk},
        {"a star is for blocks", L"*Neuf", Acad::eInvalidSymbolTableName},
        {"a slash", L"a/b", Acad::eInvalidSymbolTableName},
        {"a line end", L"a\nb", Acad::eInvalidSymbolTableName},
        {"beyond the code page", L"\u2126 \U0001F600", Acad::eOk},
    };
    for (const Row& row : rows)
        EXPECT_EQ(addLayer(*database, row.layer), row.expected) << row.name;
    const auto again = open(saved(*database), "relu.dxf");
    for (const Row& row : rows)
        EXPECT_EQ(layerNamed(*again, row.layer.c_str()).isNull(),
                  row.expected != Acad::eOk && row.expected != Acad::eDuplicateKey)
            << row.name;
    AcDbLayerTable* table = nullptr;
    database->getSymbolTable(table, AcDb::kForRead);
    AcDbObjectId id;
    AcDbLayerTableRecord record;
    record.setName(L"Fermee");
    EXPECT_EQ(table->add(id, &record), Acad::eNotOpenForWrite);
    EXPECT_EQ(table->getAt(nullptr, id), Acad::eInvalidInput);
    table->close();
}

TEST_F(SymbolTableTest, erasedRecordsStepAside)
{
    SmallDrawing drawing;
    const auto database = open(drawing);
    addLayer(*database, L"A");
    addLayer(*database, L"B");
    const AcDbObjectId first = layerNamed(*database, L"A");
    AcDbObjectPointer<AcDbLayerTableRecord>(first, AcDb::kForWrite)->erase();
    EXPECT_EQ(layersOf(*database), L"0;B;");
    EXPECT_EQ(layersOf(*database, false), L"0;A;B;");
    EXPECT_TRUE(layerNamed(*database, L"a").isNull());
    EXPECT_EQ(layerNamed(*database, L"a", true), first);
    EXPECT_EQ(addLayer(*database, L"a"), Acad::eOk);
    AcDbObjectPointer<AcDbLayerTableRecord> erased(first, AcDb::kForWrite, true);
    EXPECT_EQ(erased->erase(Adesk::kFalse), Acad::eDuplicateRecordName);
    erased.close();
    const auto again = open(saved(*database), "relu.dxf");
    EXPECT_EQ(layersOf(*again), L"0;B;a;");
}

TEST_F(SymbolTableTest, aRenamedRecordKeepsWhatNamesIt)
{
    SmallDrawing drawing;
    drawing.header = "9 $CLAYER\n8 murs\n";
    drawing.layers = recordTags("LAYER", "40", "2 Murs\n70 0\n62 3\n6 Continuous\n");
    const std::string lineTags = "\n330 1F\n100 AcDbEntity\n8 MURS\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 1\n31 1\n";
    drawing.entities = "0 LINE\n5 80" + lineTags + "0 LINE\n5 81" + lineTags +
                       "1001 ACAD\n1003 murs\n0 TRUC\n5 82\n330 1F\n"
                       "100 AcDbEntity\n8 Murs\n100 CTruc\n8 x\n";
    const std::string before = drawing.text();
    const auto database = open(before);
    database->impl().undo().setRecording(true);
    const AcDbObjectId layer = layerNamed(*database, L"MURS");
    {
        AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        EXPECT_EQ(record->setName(L"0"), Acad::eDuplicateRecordName);
        EXPECT_EQ(record->setName(L"a|b"), Acad::eInvalidSymbolTableName);
        EXPECT_EQ(record->setName(L"Fa\u00E7ades"), Acad::eOk);
    }
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(2);
    EXPECT_EQ(Opened<AcDbLine>(*database, 0x81)->layerId(), layer) << "decoded after the renaming";
    EXPECT_TRUE(layerNamed(*database, L"Murs").isNull());
    EXPECT_EQ(database->clayer(), layer);
    const std::string after = saved(*database);
    const std::string name = "8|Fa\xC3\xA7"
                             "ades";
    EXPECT_EQ(changes(before, after),
              (Changes{"-8|murs", "+" + name, "-2|Murs", "+2" + name.substr(1), "-8|MURS", "+" + name, "+39|2.0",
                       "-8|MURS", "+" + name, "-1003|murs", "+1003" + name.substr(1), "-8|Murs", "+" + name}));
    EXPECT_EQ(addLayer(*database, L"Murs"), Acad::eOk) << "the old name is free";
    EXPECT_EQ(Opened<AcDbProxyEntity>(*database, 0x82)->layerId(), layer);
    database->impl().undo().undo();
    EXPECT_EQ(saved(*database), before);
}

TEST_F(SymbolTableTest, aMissingTableIsMadeWhenItIsUsed)
{
    std::string text = SmallDrawing().text();
    const std::size_t from = text.find("  0\r\nTABLE\r\n  2\r\nLAYER"), to = text.find("  0\r\nTABLE\r\n  2\r\nSTYLE");
    ASSERT_LT(from, to);
    text.erase(from, to - from);
    const auto database = open(text);
    EXPECT_EQ(saved(*database), text);
    EXPECT_EQ(addLayer(*database, L"Neuf"), Acad::eOk);
    const auto again = open(saved(*database), "relu.dxf");
    EXPECT_EQ(layersOf(*again), L"0;Neuf;") << "no drawing is without layer 0";
}

TEST_F(SymbolTableTest, entriesOfADictionaryGoWhileItIsWalked)
{
    const auto database = open(SmallDrawing());
    constexpr int count = 1000;
    const auto name = [](int i) { return L"N" + std::to_wstring(i); };
    AcDbDictionary* dictionary = nullptr;
    ASSERT_EQ(database->getNamedObjectsDictionary(dictionary, AcDb::kForWrite), Acad::eOk);
    for (int i = 0; i < count; ++i) {
        AcDbObjectId id;
        auto* record = new AcDbXrecord;
        ASSERT_EQ(dictionary->setAt(name(i).c_str(), record, id), Acad::eOk);
        record->close();
    }
    dictionary->close();
    const auto again = open(saved(*database), "relu.dxf");
    ASSERT_EQ(again->getNamedObjectsDictionary(dictionary, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(dictionary->numEntries(), count + 1U);
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(dictionary->has(name(i).c_str()));
    int met = 0;
    const std::unique_ptr<AcDbDictionaryIterator> iterator(dictionary->newIterator());
    for (; !iterator->done(); iterator->next())
        if (++met % 2 == 0) {
            ASSERT_EQ(dictionary->remove(std::wstring(iterator->name()).c_str()), Acad::eOk);
        }
    EXPECT_EQ(met, count + 1);
    EXPECT_EQ(dictionary->numEntries(), count / 2U + 1U);
    dictionary->close();
}
