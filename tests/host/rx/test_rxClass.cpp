#include <gtest/gtest.h>

#include "rxregsvc.h"

// Not in an unnamed namespace: the macros define members that no test calls.
class Shape : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(Shape);
};
class Square : public Shape {
public:
    ACRX_DECLARE_MEMBERS(Square);
};
ACRX_NO_CONS_DEFINE_MEMBERS(Shape, AcRxObject)
ACRX_DXF_DEFINE_MEMBERS(Square, Shape, SQUARE)

namespace {

TEST(RxClass, tellsAndFindsClasses)
{
    const Square square;
    const Shape shape;
    EXPECT_EQ(Shape::cast(&square), &square);
    EXPECT_EQ(Square::cast(&shape), nullptr);
    EXPECT_EQ(Square::cast(nullptr), nullptr);
    EXPECT_TRUE(square.isKindOf(AcRxObject::desc()));
    EXPECT_STREQ(square.isA()->name(), L"Square");
    EXPECT_STREQ(square.isA()->dxfName(), L"SQUARE");
    EXPECT_EQ(square.isA()->myParent(), Shape::desc());

    EXPECT_EQ(acrxClassOf(L"Square"), Square::desc());
    EXPECT_EQ(acrxClassOf(L"square"), nullptr);
    EXPECT_EQ(acrxClassOf(nullptr), nullptr);
    const std::unique_ptr<AcRxObject> made(acrxClassOf(L"Square")->create());
    EXPECT_NE(Square::cast(made.get()), nullptr);
    EXPECT_EQ(Shape::desc()->create(), nullptr);
}

TEST(RxClass, forgetsTheClassesOfAnUnloadedModule)
{
    {
        const AcRxClass ofModule(L"Passing", AcRxObject::desc());
        EXPECT_EQ(acrxClassOf(L"Passing"), &ofModule);
    }
    EXPECT_EQ(acrxClassOf(L"Passing"), nullptr);
}

TEST(SystemRegistry, keepsObjectsUnderNamesInAnyCase)
{
    EXPECT_NE(acrxDynamicLinker, nullptr);
    AcRxDictionary dictionary;
    auto* first = new Shape; // the dictionary's from the next line on
    EXPECT_EQ(dictionary.atPut(L"Clé", first), nullptr);
    EXPECT_EQ(dictionary.at(L"CLÉ"), first);
    const std::unique_ptr<AcRxObject> replaced(dictionary.atPut(L"clé", new Square));
    EXPECT_EQ(replaced.get(), first);
    EXPECT_EQ(dictionary.numEntries(), 1U);
    const std::unique_ptr<AcRxObject> removed(dictionary.remove(L"CLé"));
    EXPECT_NE(Square::cast(removed.get()), nullptr);
    EXPECT_FALSE(dictionary.has(L"Clé"));
    EXPECT_EQ(dictionary.remove(L"Clé"), nullptr);
}

TEST(ErrorStatus, isSpelledAsTheInterfaceDoes)
{
    EXPECT_STREQ(acadErrorStatusText(Acad::eOk), L"eOk");
    EXPECT_STREQ(acadErrorStatusText(Acad::eWasErased), L"eWasErased");
    EXPECT_STREQ(acadErrorStatusText(static_cast<Acad::ErrorStatus>(127)), L"unknown status");
}

} // namespace
