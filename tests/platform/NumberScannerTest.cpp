#include "platform/NumberScanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace vireo {
namespace {

TEST(NumberScanner, ReadsALineAsScanfDoes)
{
    NumberScanner numbers(" -7\t +1200.25\t-.5 42 1e3\v0x1.8p1 7.5 -2147483649 99999999999");
    EXPECT_EQ(numbers.ReadInteger(), -7);
    EXPECT_EQ(numbers.ReadFloat(), 1200.25F);
    EXPECT_EQ(numbers.ReadFloat(), -0.5F);
    EXPECT_EQ(numbers.ReadInteger(), 42);
    EXPECT_EQ(numbers.ReadFloat(), 1000.0F);
    EXPECT_EQ(numbers.ReadFloat(), 3.0F);
    // No white space is needed where one number ends.
    EXPECT_EQ(numbers.ReadInteger(), 7);
    EXPECT_EQ(numbers.ReadFloat(), 0.5F);
    EXPECT_EQ(numbers.ReadInteger(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(numbers.ReadInteger(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(numbers.ReadInteger(), 0);
}

struct FloatCase {
    const char* text;
    float value;
};

TEST(NumberScanner, GivesTheNearestFloat)
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const FloatCase rows[] = {
        {"16777216", 16777216.0F},
        {"16777217", 16777216.0F}, // Halfway: to the even one.
        {"16777219", 16777220.0F},
        {"1677721.7", 1677721.75F},
        {"00000000000001.5", 1.5F},
        {"0.000000000000001", 1e-15F},
        {"12345678901234567890", 12345678901234567890.0F},
        {"5.", 5.0F},
        {"3.4028236e38", kInfinity},
        {"-1e39", -kInfinity},
        {"1e999999", kInfinity},
        {"1e-46", 0.0F},
        {"1e-999999", 0.0F},
        {"1.4e-45", std::numeric_limits<float>::denorm_min()},
        {"inf", kInfinity},
        {"-INFINITY", -kInfinity},
        {"0x", 0.0F},
        {"", 0.0F},
        {"-", 0.0F},
        {"--1", 0.0F},
        {"+-1", 0.0F},
        {".", 0.0F},
        {"x1", 0.0F},
    };
    for (const FloatCase& row : rows)
        EXPECT_EQ(NumberScanner(row.text).ReadFloat(), row.value) << row.text;
    EXPECT_TRUE(std::isnan(NumberScanner("nan").ReadFloat()));
    EXPECT_TRUE(std::signbit(NumberScanner("-0.00").ReadFloat()));
}

TEST(NumberScanner, AgreesWithTheCLibraryOnManyNumbers)
{
    std::mt19937 random(7); // NOLINT: the same numbers each time.
    for (int i = 0; i < 20'000; ++i) {
        const double magnitude = std::pow(10.0, static_cast<int>(random() % 16) - 5);
        const double value = (static_cast<double>(random()) / 2147483648.0 - 1.0) * magnitude;
        char text[64];
        if (i % 3 == 0)
            std::snprintf(text, sizeof(text), "%.9g", value);
        else
            std::snprintf(text, sizeof(text), "%.*f", static_cast<int>(random() % 9), value);
        EXPECT_EQ(NumberScanner(text).ReadFloat(), std::strtof(text, nullptr)) << text;
        // Several characters are looked at together: those behind a number must not matter.
        constexpr const char* kBehind[] = {
            " 12345678 ", "-9876543210", "/:;<=>?@AB", "\xb9\x80\xff"};
        const std::string longer = text + std::string(kBehind[i % 4]);
        EXPECT_EQ(NumberScanner(longer).ReadFloat(), std::strtof(longer.c_str(), nullptr))
            << longer;
        EXPECT_EQ(NumberScanner(longer).ReadInteger(),
            std::clamp<long long>(std::strtoll(longer.c_str(), nullptr, 10),
                std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()))
            << longer;
    }
}

TEST(NumberScanner, NothingIsReadBehindWhatIsNoNumber)
{
    NumberScanner numbers("1 2.5 x 3 4");
    EXPECT_EQ(numbers.ReadInteger(), 1);
    EXPECT_EQ(numbers.ReadFloat(), 2.5F);
    EXPECT_EQ(numbers.ReadInteger(), 0);
    EXPECT_EQ(numbers.ReadFloat(), 0.0F);
    EXPECT_EQ(numbers.ReadInteger(), 0);
    NumberScanner zeroInside(std::string_view("5\0 6", 4));
    EXPECT_EQ(zeroInside.ReadInteger(), 5);
    EXPECT_EQ(zeroInside.ReadInteger(), 0);
}

} // namespace
} // namespace vireo
