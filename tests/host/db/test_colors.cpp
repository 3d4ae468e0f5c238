#include <gtest/gtest.h>

#include "db/Colors.h"

TEST(Colors, namesAndNumbers)
{
    for (const int color : {0, 1, 7, 30, 255, 256})
        EXPECT_EQ(colorNamed(colorName(color)), color);
    EXPECT_EQ(colorNamed(L"ROUGE"), 1);
    EXPECT_EQ(colorNamed(L"257"), std::nullopt);
    EXPECT_EQ(colorNamed(L"grenat"), std::nullopt);
}
