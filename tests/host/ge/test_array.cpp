#include <stdexcept>

#include <gtest/gtest.h>

#include "gedblar.h"
#include "gept3dar.h"

namespace {

TEST(Array, EditsLikeAList)
{
    AcGeDoubleArray a;
    EXPECT_EQ(a.append(1.0), 0);
    EXPECT_EQ(a.append(2.0), 1);
    a.append(a); // itself
    a.insertAt(4, 5.0).insertAt(0, 0.0);
    EXPECT_EQ(a.length(), 6); // 0 1 2 1 2 5
    EXPECT_EQ(a.findFrom(2.0, 3), 4);
    int at = -1;
    EXPECT_TRUE(a.find(2.0, at));
    EXPECT_EQ(at, 2);
    EXPECT_EQ(a.find(9.0), -1);
    EXPECT_TRUE(a.remove(1.0, 2));
    EXPECT_FALSE(a.contains(1.0, 2));
    a.removeSubArray(1, 2).reverse().swap(0, 1); // 0 2 5 → 5 2 0 → 2 5 0
    EXPECT_EQ(a.first(), 2.0);
    EXPECT_EQ(a.last(), 0.0);
    a.setLogicalLength(5).setAll(a[1]); // an element of its own
    EXPECT_EQ(a[4], 5.0);
    EXPECT_EQ(a.setPhysicalLength(2).length(), 2);
    EXPECT_TRUE(a.removeAll().isEmpty());
}

TEST(Array, RefusesIndicesOutside)
{
    AcGePoint3dArray a;
    a.append({1, 2, 3});
    EXPECT_TRUE(a.contains({1, 2, 3 + 1e-11})); // points are equal within tolerance
    EXPECT_THROW(a[1], std::out_of_range);
    EXPECT_THROW(a.at(-1), std::out_of_range);
    EXPECT_THROW(a.removeAt(1), std::out_of_range);
    EXPECT_THROW(a.insertAt(2, {}), std::out_of_range);
    EXPECT_THROW(a.removeSubArray(0, 1), std::out_of_range);
    EXPECT_THROW(AcGePoint3dArray().last(), std::out_of_range);
}

} // namespace
