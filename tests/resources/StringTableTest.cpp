#include "resources/StringTable.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(StringTable, GivesTheTextOfANumber)
{
    EXPECT_EQ(LoadStringResource(654), "&About Vireo...");
    EXPECT_EQ(LoadStringResource(655), "Release");
    EXPECT_EQ(LoadStringResource(679), "Version");
    EXPECT_EQ(LoadStringResource(680), "Build");
    EXPECT_EQ(LoadStringResource(57344), "Vireo 6");
}

TEST(StringTable, IsEmptyForOtherNumbers)
{
    for (const int number : {-1, 0, 653, 656, 57343, 57345})
        EXPECT_EQ(LoadStringResource(number), "") << number;
}

} // namespace
} // namespace vireo
