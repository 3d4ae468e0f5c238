#include <memory>
#include <sstream>

#include <gtest/gtest.h>

#include "db/DatabaseImpl.h"
#include "dwg/ConverterProcess.h"
#include "gi/EntityGraphics.h"
#include "platform/CodePage.h"

#include "acutmem.h"
#include "ConversionTest.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// DWG drawings opened through the host's interface, saved as DXF, and opened again.

namespace {

std::wstring wide(const fs::path& path)
{
    return platform::wideFromUtf8(path.string());
}

/// A chain in words, "1 Été; 40 1e+38"; the chain is released.
std::wstring words(resbuf* chain)
{
    std::wostringstream text;
    for (const resbuf* item = chain; item; item = item->rbnext) {
        const int code = item->restype;
        text << (item == chain ? L"" : L"; ") << code << L' ';
        if (code == 10)
            text << item->resval.rpoint[0] << L',' << item->resval.rpoint[1] << L',' << item->resval.rpoint[2];
        else if (code == 40 || code == 1040)
            text << item->resval.rreal;
        else if (code == 70)
            text << item->resval.rint;
        else if (code == 90 || code == 1071)
            text << item->resval.rlong;
        else
            text << item->resval.rstring;
    }
    acutRelRb(chain);
    return text.str();
}

std::wstring xrecordWords(AcDbObjectId dictionaryId, const wchar_t* name)
{
    AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId);
    AcDbObjectId entry;
    if (!dictionary.object() || dictionary->getAt(name, entry) != Acad::eOk)
        return L"no entry";
    AcDbObjectPointer<AcDbXrecord> record(entry);
    resbuf* chain = nullptr;
    return record.object() && record->rbChain(&chain) == Acad::eOk ? words(chain) : L"no xrecord";
}

AcDbObjectId byHandle(AcDbDatabase& database, std::uint64_t handle)
{
    AcDbObjectId id;
    EXPECT_EQ(database.getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
    return id;
}

void expectSample(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbPoint> point(byHandle(database, 0x1E));
    ASSERT_TRUE(point.object());
    EXPECT_EQ(point->position(), AcGePoint3d(1.5, -2.25, 101.125));
    EXPECT_EQ(words(point->xData(L"SURVEY")), L"1001 SURVEY; 1000 Levés; 1040 -0.0625; 1071 70000");
    AcDbObjectPointer<AcDbLayerTableRecord> layer(point->layerId());
    ASSERT_TRUE(layer.object());
    EXPECT_TRUE(layer->isOff());
    EXPECT_TRUE(layer->isLocked());

    AcDbObjectPointer<AcDbBlockReference> borne(byHandle(database, 0x1F));
    ASSERT_TRUE(borne.object());
    EXPECT_EQ(xrecordWords(borne->extensionDictionary(), L"FICHE"), L"300 borne");
    const std::unique_ptr<AcDbObjectIterator> attributes(borne->attributeIterator());
    ASSERT_FALSE(attributes->done());
    AcDbObjectPointer<AcDbAttribute> name(attributes->objectId());
    ASSERT_TRUE(name.object());
    EXPECT_STREQ(name->tagConst(), L"NOM");
    EXPECT_STREQ(name->textStringConst(), L"B.12");
    EXPECT_EQ(xrecordWords(database.namedObjectsDictionaryId(), L"LEVE"),
              L"1 Été 2015; 40 1e+38; 10 4512.5,-7.25,0.125; 70 12; 90 123456");
}

using DwgOpenTest = DwgConversionTest;

} // namespace

TEST_F(DwgOpenTest, SurvivesOpeningAndSaving)
{
    const fs::path drawing = m_folder.write("plan.dwg", dwgSample());
    AcDbDatabase opened(false);
    ASSERT_EQ(opened.readDwgFile(wide(drawing).c_str()), Acad::eOk) << platform::utf8FromWide(opened.lastError());
    expectSample(opened);
    EXPECT_EQ(opened.impl().problems().all().size(), 1U); // that it was converted
    EXPECT_TRUE(opened.impl().problems().isSound());

    // Something is changed, so that saving is more than a copy.
    {
        AcDbObjectPointer<AcDbPoint> point(byHandle(opened, 0x1E), AcDb::kForWrite, false, true); // on a locked layer
        point->setThickness(0.5);
    }
    ASSERT_EQ(opened.saveAs(wide(drawing).c_str()), Acad::eOk) << platform::utf8FromWide(opened.lastError());
    EXPECT_EQ(contents(drawing), dwgSample());
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(wide(m_folder / "plan.dxf").c_str()), Acad::eOk);
    expectSample(again);
}

/// All the proxies of a drawing were lost: only their number was told.
TEST_F(DwgOpenTest, ShowsThePicturesOfProxies)
{
    AcDbDatabase opened(false);
    ASSERT_EQ(opened.readDwgFile(wide(m_folder.write("plan.dwg", dwgSample("mandataires.dwg"))).c_str()), Acad::eOk);
    const std::vector<std::string>& told = opened.impl().problems().all();
    ASSERT_EQ(told.size(), 3U);
    EXPECT_NE(told[1].find("objets dont seule l'image est gardée : 2 ACAD_PROXY_ENTITY"), std::string::npos) << told[1];
    EXPECT_NE(told[2].find("objets lus, mais non convertis : 1 ACAD_PROXY_ENTITY"), std::string::npos) << told[2];

    DisplayList list;
    {
        AcDbObjectPointer<AcDbEntity> proxy(byHandle(opened, 0x28));
        ASSERT_TRUE(proxy.object());
        EXPECT_EQ(proxy->layerId(), opened.layerZero());
        addEntity(*proxy, Standing::open, list);
    }
    ASSERT_EQ(list.parts().size(), 2U);
    EXPECT_EQ(list.parts()[0].look.color, 1);
    EXPECT_EQ(list.parts()[0].box.maxPoint(), AcGePoint3d(10, 5, 0));
    EXPECT_EQ(list.parts()[1].look.color, 3);
    const auto* label = std::get_if<Label>(&list.primitive(list.parts()[1].last - 1));
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text, L"Réseau");
    EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(byHandle(opened, 0x29))->ownerId(), byHandle(opened, 0x19));
}

/// The user saved "plan.dwg", and never said that "plan.dxf" may go.
TEST_F(DwgOpenTest, SpareAnotherDrawingOfItsName)
{
    const fs::path drawing = m_folder.write("plan.dwg", dwgSample());
    const fs::path other = m_folder.write("plan.dxf", "another drawing");
    AcDbDatabase opened(false);
    ASSERT_EQ(opened.readDwgFile(wide(drawing).c_str()), Acad::eOk);
    EXPECT_EQ(opened.saveAs(wide(drawing).c_str()), Acad::eFileAccessErr);
    EXPECT_EQ(contents(other), "another drawing");

    fs::remove(other);
    EXPECT_EQ(opened.saveAs(wide(drawing).c_str()), Acad::eOk);
    EXPECT_EQ(opened.saveAs(wide(drawing).c_str()), Acad::eOk); // over its own file
}

TEST_F(DwgOpenTest, SaysWhyItIsRefused)
{
    AcDbDatabase database(false);
    const fs::path drawing = m_folder.write("plan.dwg", "AC1015");
    EXPECT_EQ(database.readDwgFile(wide(drawing).c_str()), Acad::eDwgNeedsRecovery);
    EXPECT_STREQ(database.lastError(),
                 L"plan.dwg : dessin DWG illisible : ce n'est pas un dessin DWG, ou il est endommagé");
}
