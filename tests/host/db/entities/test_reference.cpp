#include <memory>

#include "dbelipse.h"
#include "Drawing.h"
#include "gemat3d.h"
#include "geplane.h"
#include "Near.h"

namespace {

/// A default drawing with blocks made for a test.
class References : public testing::Test {
protected:
    AcDbObjectId block(const wchar_t* name, std::initializer_list<AcDbEntity*> entities, AcGePoint3d base = {})
    {
        return addBlock(m_database, name, entities, base);
    }

    /// A bar from (0,0) to (10,0) and the upper half of a circle about the origin.
    AcDbObjectId symbol(AcGePoint3d base = {})
    {
        return block(L"SYMBOLE", {new AcDbLine({0, 0, 0}, {10, 0, 0}), new AcDbArc({0, 0, 0}, 2.0, 0.0, pi)}, base);
    }

    AcDbDatabase m_database;
};

} // namespace

TEST_F(References, extentsOfScaledTurnedAndBasedReferences)
{
    AcDbBlockReference reference({100, 50, 0}, symbol({10, 0, 0}));
    expectBox(reference, {88, 50, 0}, {100, 52, 0});
    reference.setScaleFactors({2.0, 2.0, 2.0});
    expectBox(reference, {76, 50, 0}, {100, 54, 0});
    reference.setRotation(pi / 2);
    expectBox(reference, {96, 26, 0}, {100, 50, 0});
    reference.setRotation(pi); // exactly so, not the box of the turned box
    expectBox(reference, {100, 46, 0}, {124, 50, 0});
    reference.setRotation(pi / 4);
    const double h = std::sqrt(0.5); // the bar from the base backwards, the arc's far side at its end
    AcDbExtents box;
    reference.getGeomExtents(box);
    EXPECT_NEAR(box.minPoint().x, 100 - 20 * h - 4, 1e-9);
    EXPECT_NEAR(box.maxPoint().x, 100, 1e-9);
}

TEST_F(References, unevenScaleShowsCirclesAsEllipses)
{
    AcDbBlockReference reference({0, 0, 0}, block(L"DISQUE", {new AcDbCircle({0, 0, 0}, {0, 0, 1}, 1.0)}));
    reference.setScaleFactors({3.0, 1.0, 1.0});
    reference.setRotation(pi / 4);
    // Half extent of an ellipse of half axes 3 and 1 turned by 45 degrees: sqrt((9 + 1) / 2).
    expectBox(reference, {-std::sqrt(5.0), -std::sqrt(5.0), 0}, {std::sqrt(5.0), std::sqrt(5.0), 0});
    AcDbVoidPtrArray parts;
    ASSERT_EQ(reference.explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[0]));
    ASSERT_TRUE(AcDbEllipse::cast(part.get()));
    expectBox(*part, {-std::sqrt(5.0), -std::sqrt(5.0), 0}, {std::sqrt(5.0), std::sqrt(5.0), 0});
}

TEST_F(References, nestedOnesAndBlocksWithinThemselves)
{
    const AcDbObjectId inner = symbol();
    auto* nested = new AcDbBlockReference({5, 5, 0}, inner);
    nested->setRotation(pi / 2);
    const AcDbObjectId outer = block(L"DEHORS", {nested, new AcDbPoint({-1, 0, 0})});
    AcDbBlockReference reference({1000, 0, 0}, outer);
    expectBox(reference, {999, 0, 0}, {1005, 15, 0});
    addEntity(inner, new AcDbBlockReference({7, 7, 0}, outer));
    expectBox(reference, {999, 0, 0}, {1005, 15, 0});
}

TEST_F(References, blocksThatNestByTheDozenEndSoon)
{
    AcDbObjectId id = symbol();
    for (int level = 0; level < 12; ++level) { // 12^12 lines in all
        const AcDbObjectId made = block((L"NIVEAU" + std::to_wstring(level)).c_str(), {});
        for (int i = 0; i < 12; ++i) {
            auto* copy = new AcDbBlockReference({i * 1.0, 0, 0}, id);
            copy->setRotation(0.1);
            addEntity(made, copy);
        }
        id = made;
    }
    AcDbExtents box;
    EXPECT_EQ(AcDbBlockReference({0, 0, 0}, id).getGeomExtents(box), Acad::eOk);
}

TEST_F(References, attributesMoveAlong)
{
    AcDbBlockReference reference({10, 10, 0}, symbol());
    auto* number = new AcDbAttribute({10.75, 10.5, 0}, L"S1", L"NUMPT");
    number->setHeight(1.0);
    auto* code = new AcDbAttribute({500, 500, 0}, L"7", L"CODE");
    code->setInvisible(Adesk::kTrue);
    ASSERT_EQ(reference.appendAttribute(number), Acad::eOk);
    ASSERT_EQ(reference.appendAttribute(code), Acad::eOk);
    expectBox(reference, {8, 10, 0}, {20, 12, 0}); // an invisible attribute takes no room
    ASSERT_EQ(reference.transformBy(AcGeMatrix3d::translation({5, -2, 0})), Acad::eOk);
    expectNear(number->position(), {15.75, 8.5, 0});
    expectNear(reference.position(), {15, 8, 0});
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    std::wstring tags;
    for (attributes->start(); !attributes->done(); attributes->step())
        tags += AcDbAttribute::cast(attributes->entity())->tagConst();
    EXPECT_EQ(tags, L"NUMPTCODE");
}

TEST_F(References, attributesInTheDrawing)
{
    const AcDbObjectId id = symbol();
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, m_database.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto* reference = new AcDbBlockReference({10, 10, 0}, id);
    space->appendAcDbEntity(reference);
    space->close();
    for (const wchar_t* tag : {L"CODE", L"NUMPT"}) {
        auto* attribute = new AcDbAttribute({11, 10, 0}, L"12", tag);
        AcDbObjectId attributeId;
        ASSERT_EQ(reference->appendAttribute(attributeId, attribute), Acad::eOk);
        EXPECT_FALSE(attributeId.isNull());
        attribute->close();
    }
    std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    int count = 0;
    for (attributes->start(); !attributes->done(); attributes->step(), ++count) {
        AcDbAttribute* attribute = nullptr;
        ASSERT_EQ(reference->openAttribute(attribute, attributes->objectId(), AcDb::kForWrite), Acad::eOk);
        attribute->setTextString(L"13");
        attribute->close();
    }
    EXPECT_EQ(count, 2);
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation({1, 0, 0})), Acad::eOk);
    AcDbObjectPointer<AcDbAttribute> first((attributes->start(), attributes->objectId()));
    expectNear(first->position(), {12, 10, 0});
    EXPECT_STREQ(first->textStringConst(), L"13");
    first.close();
    reference->close();
}

TEST_F(References, blockTransformThereAndBack)
{
    AcDbBlockReference reference({3, 4, 5}, symbol({1, 1, 0}));
    reference.setScaleFactors({-2.0, 3.0, 1.5});
    reference.setRotation(0.7);
    reference.setNormal({0.2, 0.3, 0.9});
    const AcGeMatrix3d whole = reference.blockTransform();
    expectNear(whole * AcGePoint3d(1, 1, 0), reference.position());
    AcDbBlockReference other({0, 0, 0}, reference.blockTableRecord());
    ASSERT_EQ(other.setBlockTransform(whole), Acad::eOk);
    for (const AcGePoint3d& point :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(0, 1, 0), AcGePoint3d(0, 0, 1)})
        expectNear(other.blockTransform() * point, whole * point);
    AcGeMatrix3d slant;
    slant(0, 1) = 0.5;
    EXPECT_EQ(other.setBlockTransform(slant), Acad::eInvalidInput);
    AcDbBlockReference mirrored({10, 0, 0}, reference.blockTableRecord());
    mirrored.transformBy(AcGeMatrix3d::mirroring(AcGePlane::kYZPlane));
    EXPECT_EQ(mirrored.normal().z, 1.0);
    EXPECT_LT(mirrored.scaleFactors().sx * mirrored.scaleFactors().sy, 0.0);
}

TEST_F(References, rowsAndColumns)
{
    AcDbMInsertBlock grid;
    grid.setBlockTableRecord(symbol());
    grid.setRows(2);
    grid.setColumns(3);
    grid.setRowSpacing(20.0);
    grid.setColumnSpacing(30.0);
    expectBox(grid, {-2, 0, 0}, {70, 22, 0});
    grid.setRotation(pi / 2);
    expectBox(grid, {-22, -2, 0}, {0, 70, 0});
    AcDbVoidPtrArray parts;
    ASSERT_EQ(grid.explode(parts), Acad::eOk);
    EXPECT_EQ(parts.length(), 12);
    for (void* part : parts)
        delete static_cast<AcDbEntity*>(part);
    grid.setRows(32000);
    grid.setColumns(32000);
    EXPECT_EQ(grid.explode(parts), Acad::eOutOfRange);
}

TEST_F(References, explodeLeavesDefinitionsOut)
{
    auto* definition = new AcDbAttributeDefinition({0, 0, 0}, L"", L"Z", L"Altitude");
    const AcDbObjectId id = block(L"AVEC", {new AcDbLine({0, 0, 0}, {1, 0, 0}), definition});
    AcDbVoidPtrArray parts;
    const AcDbBlockReference reference({5, 5, 0}, id);
    ASSERT_EQ(reference.explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[0]));
    expectBox(*part, {5, 5, 0}, {6, 5, 0});
    EXPECT_TRUE(part->objectId().isNull());
}
