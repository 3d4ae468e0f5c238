#include <ctime>
#include <functional>

#include <pthread.h>

#include "dbsymtb.h"
#include "exerciseDrawing.h"
#include "SmallDrawing.h"

/// Blocks within blocks by the ten thousand: whatever follows them keeps them in a list, not on the stack.

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELA_LARGE_FRAMES
#endif
#endif
#ifdef VELA_LARGE_FRAMES
constexpr std::size_t stackBytes = 8U << 20;
#else
constexpr std::size_t stackBytes = 768U << 10; // a tenth of what a program has
#endif

/// Runs in a thread whose stack is small.
void withSmallStack(const std::function<void()>& what)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, stackBytes), 0);
    pthread_t thread{};
    const auto run = [](void* function) -> void* {
        (*static_cast<const std::function<void()>*>(function))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&what)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

std::string hexadecimal(int value)
{
    char text[17] = "";
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(value));
    return text;
}

std::string common(const std::string& type, int handle, const std::string& owner)
{
    return "0 " + type + "\n5 " + hexadecimal(handle) + "\n330 " + owner + "\n100 AcDbEntity\n8 0\n";
}

/// Block "Bn" shows B(n-1), with the tags `placed`, or by a dimension; B0 holds a line from (0, 0) to (1, 0). Model
/// space shows the outermost one. Each block may show the next one twice, the second time with the tags `again` too.
SmallDrawing nested(int levels, const std::string& placed, bool byDimension = false, bool twice = false,
                    const std::string& again = {})
{
    const auto shown = [&](int handle, const std::string& owner, const std::string& block,
                           const std::string& more = {}) {
        return byDimension ? common("DIMENSION", handle, owner) + "100 AcDbDimension\n2 " + block +
                                 "\n10 0\n20 0\n30 0\n11 0\n21 0\n31 0\n12 1.0\n22 0.0\n32 0.0\n70 32\n1 \n"
                                 "100 AcDbAlignedDimension\n13 0\n23 0\n33 0\n14 1\n24 0\n34 0\n"
                           : common("INSERT", handle, owner) + "100 AcDbBlockReference\n2 " + block +
                                 "\n10 1.0\n20 0.0\n30 0.0\n" + placed + more;
    };
    SmallDrawing drawing;
    for (int i = 0; i < levels; ++i) {
        const int handle = 0x10000 + i * 0x10;
        const std::string name = "B" + std::to_string(i), owner = hexadecimal(handle);
        drawing.blockRecords += "0 BLOCK_RECORD\n5 " + owner + "\n330 1\n100 AcDbSymbolTableRecord\n" +
                                "100 AcDbBlockTableRecord\n2 " + name + "\n340 0\n";
        drawing.blocks += common("BLOCK", handle + 1, owner) + "100 AcDbBlockBegin\n2 " + name +
                          "\n70 0\n10 0.0\n20 0.0\n30 0.0\n3 " + name + "\n1 \n";
        drawing.blocks += i == 0 ? common("LINE", handle + 2, owner) +
                                       "100 AcDbLine\n10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n"
                                 : shown(handle + 2, owner, "B" + std::to_string(i - 1));
        if (twice && i > 0)
            drawing.blocks += shown(handle + 4, owner, "B" + std::to_string(i - 1), again);
        drawing.blocks += common("ENDBLK", handle + 3, owner) + "100 AcDbBlockEnd\n";
    }
    drawing.entities = shown(0x80, "1F", "B" + std::to_string(levels - 1));
    return drawing;
}

class NestingTest : public DrawingTest {
protected:
    static constexpr int levels = 20000;
};

AcDbExtents extentsOf(AcDbObjectId id)
{
    AcDbExtents box;
    EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id)->getGeomExtents(box), Acad::eOk);
    return box;
}

} // namespace

TEST_F(NestingTest, everyWalkEnds)
{
    struct Row {
        const char* name;
        const char* placed;
        bool byDimension;
    };
    for (const Row& row : {Row{"straight", "", false}, Row{"turned", "50 30.0\n", false},
                           Row{"bent", "42 2.0\n50 30.0\n", false}, Row{"dimensions", "", true}}) {
        SCOPED_TRACE(row.name);
        const std::string bytes = nested(levels, row.placed, row.byDimension).text();
        withSmallStack([&] { exerciseDrawing(bytes); });
    }
}

/// Twice as many at each level as at the one before it: no walk counts them one by one.
TEST_F(NestingTest, everyWalkOfDoubledBlocksEnds)
{
    constexpr int doublings = 200;
    for (const char* placed : {"", "50 30.0\n"}) {
        SCOPED_TRACE(placed);
        const std::string bytes = nested(doublings, placed, false, true).text();
        exerciseDrawing(bytes);
    }
    const auto database = open(nested(doublings, "", false, true));
    EXPECT_EQ(extentsOf(idOf(*database, 0x80)).maxPoint().x, doublings + 1.0);
}

TEST_F(NestingTest, theInnermostIsWhereItIsShown)
{
    const auto database = open(nested(levels, ""));
    withSmallStack([&] {
        const AcDbExtents box = extentsOf(idOf(*database, 0x80));
        EXPECT_EQ(box.minPoint().x, levels); // each level moves by one
        EXPECT_EQ(box.maxPoint().x, levels + 1.0);
    });
}

/// Each level is turned by a twelfth and moved by one: the line stands on a small circle, and its box beside it. What
/// is walked must not multiply from level to level, or boxes of boxes grow past all numbers.
TEST_F(NestingTest, turnedBlocksHaveTheSmallestBox)
{
    const auto database = open(nested(levels, "50 30.0\n"));
    withSmallStack([&] {
        const AcDbExtents box = extentsOf(idOf(*database, 0x80));
        EXPECT_GT(box.minPoint().x, -5.0);
        EXPECT_LT(box.maxPoint().x, 5.0);
        EXPECT_LT(box.maxPoint().x - box.minPoint().x, 1.0001);
    });
}

TEST_F(NestingTest, explodingGoesAllTheWayWhereShapesBend)
{
    // The scale factors of each level differ and the next one is turned: no reference keeps its kind.
    const auto database = open(nested(levels, "42 1.0001\n50 30.0\n"));
    withSmallStack([&] {
        AcDbVoidPtrArray parts;
        ASSERT_EQ(Opened<AcDbBlockReference>(*database, 0x80)->explode(parts), Acad::eOk);
        ASSERT_EQ(parts.length(), 1);
        const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[0]));
        EXPECT_TRUE(part->isKindOf(AcDbLine::desc()) || part->isKindOf(AcDbBlockReference::desc()));
    });
}

/// It took ten seconds to find out: a million copies were made, and thrown away.
TEST_F(NestingTest, explodingDoubledBlocksThatBendIsRefusedBeforeItsWork)
{
    const auto secondsOf = [this](const SmallDrawing& drawing, Acad::ErrorStatus expected) {
        const auto database = open(drawing);
        AcDbVoidPtrArray parts;
        const std::clock_t start = std::clock();
        EXPECT_EQ(Opened<AcDbBlockReference>(*database, 0x80)->explode(parts), expected);
        const std::clock_t end = std::clock();
        for (void* const part : parts)
            delete static_cast<AcDbEntity*>(part);
        return static_cast<double>(end - start);
    };
    const double eighth = secondsOf(nested(18, "42 2.0\n50 30.0\n", false, true), Acad::eOk); // 131 072 parts
    for (const char* again : {"", "41 -1.0\n", "50 45.0\n"})
        EXPECT_LT(secondsOf(nested(200, "42 2.0\n50 30.0\n", false, true, again), Acad::eOutOfRange), eighth) << again;
}

TEST_F(NestingTest, aCopyInAnotherDrawingIsWhole)
{
    const auto source = open(nested(levels, ""));
    withSmallStack([&] {
        AcDbDatabase target;
        AcDbObjectIdArray ids;
        ids.append(idOf(*source, 0x80));
        AcDbIdMapping mapping;
        ASSERT_EQ(target.wblockCloneObjects(ids, target.currentSpaceId(), mapping), Acad::eOk);
        AcDbObjectId copy;
        ASSERT_TRUE(mapping.find(ids[0], copy));
        EXPECT_EQ(extentsOf(copy).minPoint().x, levels);
    });
}

TEST_F(NestingTest, purgingLeavesWhatIsShownAtAnyDepth)
{
    const auto database = open(nested(levels, ""));
    withSmallStack([&] {
        AcDbObjectIdArray all;
        for (int i = 0; i < levels; ++i)
            all.append(idOf(*database, static_cast<std::uint64_t>(0x10000 + i * 0x10)));
        AcDbObjectIdArray unused = all;
        EXPECT_EQ(database->purge(unused), Acad::eOk);
        EXPECT_EQ(unused.length(), 0);
        Opened<AcDbEntity>(*database, 0x80, AcDb::kForWrite)->erase();
        unused = all;
        EXPECT_EQ(database->purge(unused), Acad::eOk);
        EXPECT_EQ(unused.length(), levels);
    });
}

/// Definitions that need each other without blocks: each layer has data that name the next one.
TEST_F(NestingTest, definitionsThatNameEachOther)
{
    SmallDrawing drawing;
    for (int i = 0; i < levels; ++i)
        drawing.layers += "0 LAYER\n5 " + hexadecimal(0x10000 + i) +
                          "\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 L" + std::to_string(i) +
                          "\n70 0\n62 3\n6 Continuous\n1001 ACAD\n1003 L" + std::to_string(i + 1) + "\n";
    drawing.entities = "0 POINT\n5 80\n330 1F\n100 AcDbEntity\n8 L0\n100 AcDbPoint\n10 0\n20 0\n30 0\n";
    const auto source = open(drawing);
    withSmallStack([&] {
        AcDbDatabase target;
        AcDbObjectId block;
        ASSERT_EQ(target.insert(block, L"BLOC", source.get()), Acad::eOk);
        EXPECT_TRUE(target.impl().named(NameKind::layer, L"L" + std::to_wstring(levels - 1)));
    });
}
