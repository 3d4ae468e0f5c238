#include <set>
#include <string>

#include <gtest/gtest.h>

#include "afxwin.h"

namespace {

using Index = CMap<CString, const wchar_t*, int, int>;

TEST(CArray, RefusesIndicesOutside)
{
    CArray<int, int> a;
    a.SetSize(3, 10000);
    a[2] = 5;
    EXPECT_EQ(a.GetAt(2), 5);
    EXPECT_EQ(a[0], 0);
    EXPECT_THROW(a.GetAt(3), CInvalidArgException*);
    EXPECT_THROW(a[-1], CInvalidArgException*);
    EXPECT_THROW(a.SetAt(3, 1), CInvalidArgException*);
    EXPECT_THROW(a.SetSize(-1), CInvalidArgException*);
    EXPECT_THROW(a.RemoveAt(3, 1), CInvalidArgException*);
    EXPECT_THROW(a.RemoveAt(1, 3), CInvalidArgException*);
    EXPECT_THROW(a.InsertAt(-1, 1), CInvalidArgException*);
    try {
        a.ElementAt(7);
        FAIL();
    } catch (CException* e) { // caught by its base and by pointer, as the framework's users do
        wchar_t reason[8];
        EXPECT_TRUE(e->GetErrorMessage(reason, 8));
        EXPECT_STREQ(reason, L"Argumen");
        e->Delete();
    }
}

TEST(CArray, InsertsRemovesAndGrows)
{
    CArray<CString> a;
    a.Add(L"a");
    for (int i = 0; i < 20; ++i)
        a.Add(a[0]); // an element of its own, across growth
    EXPECT_STREQ(a[20], L"a");
    a.SetSize(1);
    a.Append(a);
    EXPECT_EQ(a.GetCount(), 2);
    a.InsertAt(1, L"m", 2);
    a.InsertAt(6, L"z"); // beyond the end: empty ones between
    EXPECT_EQ(a.GetSize(), 7);
    EXPECT_STREQ(a[2], L"m");
    EXPECT_TRUE(a[5].IsEmpty());
    EXPECT_STREQ(a[6], L"z");
    a.RemoveAt(1, 5);
    EXPECT_STREQ(a[1], L"z");
    a.SetAtGrow(4, a[1]);
    EXPECT_EQ(a.GetUpperBound(), 4);
    EXPECT_STREQ(a[4], L"z");
    CArray<CString> b;
    b.Copy(a);
    a.RemoveAll();
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_STREQ(b.GetData()[4], L"z");
}

/// Counts how often elements are moved to a bigger place: the cost that a fixed grow step makes quadratic.
struct Counted {
    static inline long copies = 0;
    Counted() = default;
    Counted(const Counted&) { ++copies; }
    Counted& operator=(const Counted&) = default;
};

TEST(CArray, AddingStaysLinearWhateverTheGrowStep)
{
    constexpr int count = 100000;
    for (const INT_PTR step : {1, 100, 10000}) {
        Counted::copies = 0;
        CArray<Counted> a;
        a.SetSize(0, step);
        for (int i = 0; i < count; ++i)
            a.Add(Counted());
        EXPECT_LT(Counted::copies, 6L * count) << "grow step " << step;
    }
}

TEST(CMap, LooksUpByTextAndForgets)
{
    Index map(10);
    EXPECT_EQ(map.GetHashTableSize(), 17U);
    map.InitHashTable(10037);
    EXPECT_EQ(map.GetHashTableSize(), 10037U);
    int value = -1;
    EXPECT_FALSE(map.Lookup(L"p1", value));
    EXPECT_EQ(value, -1);
    EXPECT_FALSE(map.RemoveKey(L"p1"));
    map.SetAt(L"p1", 4);
    map[CString(L"p2")] = 5;
    map.SetAt(L"p1", 6);
    EXPECT_EQ(map.GetCount(), 2);
    EXPECT_TRUE(map.Lookup(CString(L"p1"), value));
    EXPECT_EQ(value, 6);
    EXPECT_EQ(map[L"new"], 0);
    EXPECT_TRUE(map.RemoveKey(L"p1"));
    EXPECT_EQ(map.PLookup(L"p1"), nullptr);
    EXPECT_TRUE(map.RemoveKey(L"new"));
    EXPECT_TRUE(map.RemoveKey(L"p2"));
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    EXPECT_EQ(map.GetHashTableSize(), 10037U);
    map[L"again"] = 1;
    EXPECT_EQ(map.GetCount(), 1);
}

TEST(CMap, WalksEveryEntryOnce)
{
    CMap<int, int, CString, const wchar_t*> map(1);
    for (int i = 0; i < 1000; ++i)
        map.SetAt(i, std::to_wstring(i).c_str());
    for (int i = 0; i < 1000; i += 3)
        map.RemoveKey(i);
    std::set<int> seen;
    for (POSITION place = map.GetStartPosition(); place != nullptr;) {
        int key = 0;
        CString value;
        map.GetNextAssoc(place, key, value);
        EXPECT_EQ(value, std::to_wstring(key).c_str());
        EXPECT_TRUE(seen.insert(key).second && key % 3 != 0) << key;
    }
    EXPECT_EQ(seen.size(), 666U);
}

/// Counts how often keys are compared: what a fixed number of buckets makes quadratic.
struct CountedKey {
    static inline long comparisons = 0;
    int value = 0;
    operator int() const { return value; }
    bool operator==(const CountedKey& other) const
    {
        ++comparisons;
        return value == other.value;
    }
};

TEST(CMap, FindingStaysConstantWhateverTheNumberOfKeys)
{
    constexpr int count = 100000;
    CMap<CountedKey, CountedKey, int, int> map;
    map.InitHashTable(17);
    for (int i = 0; i < count; ++i)
        map.SetAt(CountedKey{i}, i);
    int value = 0;
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(map.Lookup(CountedKey{i}, value) && value == i);
    EXPECT_LT(CountedKey::comparisons, 6L * count);
}

} // namespace
