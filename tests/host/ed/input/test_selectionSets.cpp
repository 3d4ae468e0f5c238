// Selection sets as programs hold them; what filters and answers select is told by the AutoLISP programs.

#include <array>

#include "ed/select/SelectionSets.h"

#include "aced.h"
#include "acutmem.h"
#include "dbads.h"
#include "Drawing.h"
#include "InputTest.h"

namespace {

/// Two lines: a at y = 0 and b at y = 50, then a point aside, the youngest.
class Selecting : public InputTest {
protected:
    Selecting()
    {
        for (AcDbEntity* const entity :
             std::initializer_list<AcDbEntity*>{new AcDbLine({0, 0, 0}, {10, 0, 0}),
                                                new AcDbLine({0, 50, 0}, {10, 50, 0}), new AcDbPoint({200, 0, 0})})
            ids.push_back(addEntity(*curDoc()->database(), entity));
    }
    std::string lettersOf(const ads_name set) const
    {
        std::string found;
        Adesk::Int32 length = 0;
        acedSSLength(set, &length);
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name name;
            EXPECT_EQ(acedSSName(set, i, name), RTNORM);
            for (std::size_t k = 0; k < ids.size(); ++k)
                if (ids[k].asOldId() == name[0])
                    found += static_cast<char>('a' + k);
        }
        return found;
    }

    std::vector<AcDbObjectId> ids;
};

TEST_F(Selecting, asksWithThePromptsOfTheCaller)
{
    const ACHAR* prompts[] = {L"Murs : ", L"Pas ceux-là : "};
    answers.give({L"s", L"a", L"d", L""});
    ads_name set;
    ASSERT_EQ(acedSSGet(L"_:$", prompts, nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(lettersOf(set), "c");
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(answers.asked[0].prompt, L"Murs : ");
    EXPECT_EQ(answers.asked[1].prompt, L"Pas ceux-là : ");
}

TEST_F(Selecting, setsHoldEachEntityOnce)
{
    ads_name first, second, set, same;
    ASSERT_EQ(acdbGetAdsName(first, ids[0]), Acad::eOk);
    ASSERT_EQ(acdbGetAdsName(second, ids[1]), Acad::eOk);
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, same), RTNORM);
    EXPECT_TRUE(ads_name_equal(set, same));
    EXPECT_EQ(acedSSAdd(second, set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, set), RTNORM);
    EXPECT_EQ(lettersOf(set), "ab");
    EXPECT_EQ(acedSSMemb(first, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTERROR);
    EXPECT_EQ(acedSSMemb(first, set), RTERROR);
    EXPECT_EQ(lettersOf(set), "b");
    EXPECT_EQ(acedSSSetFirst(set, nullptr), RTNORM);
    resbuf* picked = nullptr;
    EXPECT_EQ(acedSSGetFirst(nullptr, &picked), RTNORM);
    ASSERT_TRUE(picked);
    EXPECT_EQ(lettersOf(picked->resval.rlname), "b");
    acedSSFree(picked->resval.rlname);
    acutRelRb(picked);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    ads_name entity;
    EXPECT_EQ(acedSSName(set, 0, entity), RTERROR);
}

TEST_F(Selecting, entitiesArePickedAtAPoint)
{
    ads_name entity;
    ads_point point;
    answers.give({L"<5,50>"});
    ASSERT_EQ(acedEntSel(nullptr, entity, point), RTNORM);
    EXPECT_EQ(entity[0], ids[1].asOldId());
    EXPECT_EQ(point[1], 50.0);
    const auto errorNumber = [] {
        resbuf value{};
        acedGetVar(L"ERRNO", &value);
        return value.resval.rint;
    };
    answers.give({L"<5,40>", L"", L"<Esc>", L"d"});
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTERROR);
    EXPECT_EQ(errorNumber(), 7);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTERROR);
    EXPECT_EQ(errorNumber(), 52);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTCAN);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTNORM);
    EXPECT_EQ(entity[0], ids[2].asOldId()) << "the last one";
}

TEST(SelectionSet, takesOutTheFirstOneInConstantTime)
{
    SelectionSet set;
    constexpr std::int64_t count = 200'000;
    for (std::int64_t i = 1; i <= count; ++i)
        set.add(AcDbObjectId().setFromOldId(i * 32));
    // A loop that takes the first one as long as there is one: quadratic, it would take minutes.
    std::int64_t expected = 1;
    for (; !set.empty(); ++expected) {
        const AcDbObjectId first = set.at(0);
        ASSERT_EQ(first.asOldId(), expected * 32);
        ASSERT_TRUE(set.remove(first));
    }
    EXPECT_EQ(expected, count + 1);
}

TEST(SelectionSet, keepsItsOrderWhenSomeLeave)
{
    SelectionSet set;
    for (std::int64_t i = 1; i <= 6; ++i)
        set.add(AcDbObjectId().setFromOldId(i * 32));
    set.remove(AcDbObjectId().setFromOldId(3 * 32));
    set.remove(AcDbObjectId().setFromOldId(1 * 32));
    set.remove(AcDbObjectId().setFromOldId(6 * 32));
    set.add(AcDbObjectId().setFromOldId(1 * 32));
    std::vector<std::int64_t> order;
    for (const AcDbObjectId id : set.objects())
        order.push_back(id.asOldId() / 32);
    EXPECT_EQ(order, (std::vector<std::int64_t>{2, 4, 5, 1}));
    EXPECT_EQ(set.at(1).asOldId(), 4 * 32);
    EXPECT_TRUE(set.at(4).isNull());
}

TEST(SelectionSets, areLimited)
{
    SelectionSets& sets = SelectionSets::instance();
    std::vector<std::array<std::int64_t, 2>> names;
    std::array<std::int64_t, 2> name{};
    while (sets.make(name.data()))
        names.push_back(name);
    EXPECT_EQ(sets.count(), SelectionSets::kMost);
    for (const auto& one : names)
        EXPECT_TRUE(sets.free(one.data()));
}

} // namespace
