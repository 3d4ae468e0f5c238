#include <cstring>

#include <gtest/gtest.h>

#include "rx/ResbufChain.h"
#include "rx/ResbufKind.h"
#include "rx/ResbufPool.h"

#include "acutads.h"

namespace {

ResbufPool& pool = ResbufPool::instance();

TEST(ResbufKinds, followTheTypeOrTheGroupCode)
{
    struct Row {
        int type;
        ResbufKind kind;
    };
    const Row rows[] = {
        {RTREAL, ResbufKind::real},   {RTPOINT, ResbufKind::point}, {RTSHORT, ResbufKind::int16},
        {RTANG, ResbufKind::real},    {RTSTR, ResbufKind::text},    {RTENAME, ResbufKind::name},
        {RTPICKS, ResbufKind::name},  {RTLONG, ResbufKind::int32},  {RTLB, ResbufKind::none},
        {RTINT64, ResbufKind::int64}, {RTT, ResbufKind::none},      {-1, ResbufKind::name},
        {-3, ResbufKind::none},       {-4, ResbufKind::text},       {0, ResbufKind::text},
        {5, ResbufKind::text},        {10, ResbufKind::point},      {18, ResbufKind::point},
        {38, ResbufKind::real},       {39, ResbufKind::real},       {40, ResbufKind::real},
        {62, ResbufKind::int16},      {90, ResbufKind::int32},      {91, ResbufKind::int32},
        {100, ResbufKind::text},      {102, ResbufKind::text},      {105, ResbufKind::text},
        {160, ResbufKind::int64},     {210, ResbufKind::point},     {280, ResbufKind::int16},
        {290, ResbufKind::int16},     {300, ResbufKind::text},      {310, ResbufKind::bytes},
        {320, ResbufKind::text},      {330, ResbufKind::name},      {360, ResbufKind::name},
        {370, ResbufKind::int16},     {999, ResbufKind::text},      {1000, ResbufKind::text},
        {1004, ResbufKind::bytes},    {1005, ResbufKind::text},     {1010, ResbufKind::point},
        {1040, ResbufKind::real},     {1070, ResbufKind::int16},    {1071, ResbufKind::int32},
        {1072, ResbufKind::unknown},  {4999, ResbufKind::unknown},  {-6, ResbufKind::unknown},
    };
    for (const Row& row : rows)
        EXPECT_EQ(resbufKind(row.type), row.kind) << row.type;
}

TEST(ResultBuffers, areBuiltFromEachTypeOfArgument)
{
    const std::size_t buffersBefore = pool.liveBuffers(), textsBefore = pool.liveTexts();
    const ads_point point{1.5, 2.5, 3.5};
    const ads_name name{12345678901, 7};
    char bytes[]{'\x01', '\0', '\x7f'};
    const ads_binary block{3, bytes};
    std::wstring text = L"été";
    ResbufChain chain(acutBuildList(RTLB, RTREAL, 0.25, RTSHORT, -3, RTSTR, text.c_str(), RTPOINT, point, RT3DPOINT,
                                    point, RTENAME, name, RTLONG, -70000L, RTLE, RTINT64, Adesk::Int64{1} << 40, RTDXF0,
                                    L"POINT", 10, point, 90, 70000L, 70, 12, 300, nullptr, 310, &block, RTNIL, RTNONE));
    text = L"changed";
    const short types[] = {RTLB,    RTREAL, RTSHORT, RTSTR, RTPOINT, RT3DPOINT, RTENAME, RTLONG, RTLE,
                           RTINT64, 0,      10,      90,    70,      300,       310,     RTNIL};
    std::vector<const resbuf*> items;
    for (const resbuf* item = chain.get(); item; item = item->rbnext)
        items.push_back(item);
    ASSERT_EQ(items.size(), std::size(types));
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(items[i]->restype, types[i]) << i;

    EXPECT_EQ(items[1]->resval.rreal, 0.25);
    EXPECT_EQ(items[2]->resval.rint, -3);
    EXPECT_STREQ(items[3]->resval.rstring, L"été");
    EXPECT_EQ(items[4]->resval.rpoint[1], 2.5);
    EXPECT_EQ(items[4]->resval.rpoint[2], 0.0) << "a plane point has no third coordinate";
    EXPECT_EQ(items[5]->resval.rpoint[2], 3.5);
    EXPECT_TRUE(ads_name_equal(items[6]->resval.rlname, name));
    EXPECT_EQ(items[7]->resval.rlong, -70000);
    EXPECT_EQ(items[9]->resval.mnInt64, 1099511627776);
    EXPECT_STREQ(items[10]->resval.rstring, L"POINT");
    EXPECT_EQ(items[12]->resval.rlong, 70000);
    EXPECT_STREQ(items[14]->resval.rstring, L"");
    ASSERT_EQ(items[15]->resval.rbinary.clen, 3);
    EXPECT_EQ(std::memcmp(items[15]->resval.rbinary.buf, "\x01\0\x7f", 3), 0);

    // The copy shares nothing with its source.
    const ResbufChain copy = copiedChain(chain.get(), nullptr);
    EXPECT_EQ(pool.liveBuffers(), buffersBefore + 2 * std::size(types));
    EXPECT_EQ(pool.liveTexts(), textsBefore + 2 * 4);
    chain.reset();
    EXPECT_EQ(pool.liveBuffers(), buffersBefore + std::size(types));
    EXPECT_STREQ(copy->rbnext->rbnext->rbnext->resval.rstring, L"été");
}

TEST(ResultBuffers, refuseTypesThatAreNotKnownAndLeakNothing)
{
    const std::size_t buffers = pool.liveBuffers(), texts = pool.liveTexts();
    EXPECT_EQ(acutBuildList(RTSTR, L"lost", 4711, 1, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(0), nullptr);
    EXPECT_EQ(acutRelRb(nullptr), RTERROR);
    EXPECT_EQ(pool.liveBuffers(), buffers);
    EXPECT_EQ(pool.liveTexts(), texts);
}

TEST(ResultBuffers, countWhatNobodyReleased)
{
    const std::size_t buffers = pool.liveBuffers(), texts = pool.liveTexts();
    resbuf* leaked = acutBuildList(RTSTR, L"S1", RTREAL, 1.0, 0);
    ACHAR* text = nullptr;
    ASSERT_EQ(acutNewString(L"S2", text), Acad::eOk);
    EXPECT_EQ(pool.liveBuffers(), buffers + 2);
    EXPECT_EQ(pool.liveTexts(), texts + 2);
    acutRelRb(leaked);
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    acutDelString(text);
    EXPECT_EQ(pool.liveBuffers(), buffers);
    EXPECT_EQ(pool.liveTexts(), texts);
}

TEST(ResultBuffers, reuseIsClean)
{
    const ads_point point{1, 2, 3};
    resbuf* used = acutBuildList(RT3DPOINT, point, RTREAL, 4.0, 0);
    resbuf* kept = acutNewRb(RTREAL); // so that the pool hands out what was given back
    acutRelRb(used);
    resbuf* fresh = acutNewRb(RTSTR);
    EXPECT_EQ(fresh->rbnext, nullptr);
    EXPECT_EQ(fresh->resval.rstring, nullptr);
    acutRelRb(fresh);
    acutRelRb(kept);
}

TEST(ResultBuffers, listsAreOneValue)
{
    const ResbufChain chain(
        acutBuildList(RTLB, RTLB, RTSHORT, 1, RTLE, RTSHORT, 2, RTLE, RTSHORT, 3, RTLB, RTSHORT, 4, RTNONE));
    const resbuf* third = afterValue(chain.get());
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(third->resval.rint, 3);
    EXPECT_EQ(afterValue(afterValue(third)), nullptr) << "a list that does not end";
    EXPECT_EQ(lastOf(chain.get())->resval.rint, 4);
}

TEST(ResultBuffers, textsAreReplacedEvenByAPartOfThemselves)
{
    ACHAR* text = nullptr;
    acutUpdString(L"point S1", text);
    acutUpdString(text + 6, text);
    EXPECT_STREQ(text, L"S1");
    EXPECT_EQ(acutNewString(nullptr, text), Acad::eInvalidInput);
    EXPECT_STREQ(text, L"S1");
    acutUpdString(nullptr, text);
    EXPECT_EQ(text, nullptr);
}

} // namespace
