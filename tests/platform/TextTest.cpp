#include "platform/ScopedCLocale.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace vireo {
namespace {

TEST(Windows1252, AllCodesComeBack)
{
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(all)), all);
    for (const char c : all) {
        const std::string alone(1, c);
        EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(alone)), alone) << int(c);
    }
}

struct CodeRow {
    const char* name;
    std::string text;
    std::string utf8;
};

TEST(Windows1252, KnownCharacters)
{
    const CodeRow rows[] = {
        {"empty", "", ""},
        {"ASCII of every length around eight", "0123456789ABCDEF0", "0123456789ABCDEF0"},
        {"euro sign", "\x80", "\xE2\x82\xAC"},
        {"s with caron", "\x8A", "\xC5\xA0"},
        {"code that the page leaves open", "\x81", "\xC2\x81"},
        {"y with two dots at the end", "caf\xE9 \xFF", "caf\xC3\xA9 \xC3\xBF"},
        {"between runs of ASCII", "12345678\xB5m12345678", "12345678\xC2\xB5m12345678"},
        {"zero byte", std::string("a\0b", 3), std::string("a\0b", 3)},
    };
    for (const CodeRow& row : rows) {
        EXPECT_EQ(Utf8FromWindows1252(row.text), row.utf8) << row.name;
        EXPECT_EQ(Windows1252FromUtf8(row.utf8), row.text) << row.name;
        EXPECT_TRUE(IsUtf8(row.utf8)) << row.name;
    }
}

TEST(Windows1252, WhatIsNotInThePageOrNotUtf8)
{
    const CodeRow rows[] = {
        {"Greek letter", "a?b",
            "a\xCE\xB1"
            "b"},
        {"outside the first plane", "?", "\xF0\x9F\x98\x80"},
        {"lone continuation", "?x", "\x80x"},
        {"cut off", "???", "\xF0\x9F\x98"},
        {"overlong slash", "??", "\xC0\xAF"},
        {"overlong of three", "???", "\xE0\x80\xAF"},
        {"surrogate", "???", "\xED\xA0\x80"},
        {"above the last character", "????", "\xF4\x90\x80\x80"},
        {"character behind a broken one", "?\xE9", "\xC3\xC3\xA9"},
    };
    for (const CodeRow& row : rows) {
        EXPECT_EQ(Windows1252FromUtf8(row.utf8), row.text) << row.name;
        EXPECT_EQ(IsUtf8(row.utf8), &row < rows + 2) << row.name;
    }
}

/// Switches to any locale with a decimal comma, and back.
class CommaLocale {
public:
    CommaLocale()
    {
        for (const char* name : {"de_DE.UTF-8", "da_DK.UTF-8", "fr_FR.UTF-8", "de_DE", "German"})
            m_set = m_set || std::setlocale(LC_ALL, name) != nullptr;
    }
    ~CommaLocale() { std::setlocale(LC_ALL, "C"); }
    bool IsSet() const { return m_set && std::localeconv()->decimal_point[0] == ','; }

private:
    bool m_set = false;
};

TEST(Format, PointIsAPointInACommaLocale)
{
    const CommaLocale comma;
    if (!comma.IsSet())
        GTEST_SKIP() << "this system has no locale with a decimal comma";
    const std::string before = std::localeconv()->decimal_point;
    EXPECT_EQ(Format("%.2f", 1.5), "1.50");
    EXPECT_EQ(ParseDouble("1.5"), 1.5);
    EXPECT_EQ(ParseDouble("1,5"), 1.0);
    EXPECT_EQ(std::localeconv()->decimal_point, before) << "the caller's locale is left alone";
}

#ifndef _WIN32
TEST(ScopedCLocale, IsInPlaceWhileItLives)
{
    const locale_t other = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    ASSERT_NE(other, locale_t{});
    const locale_t before = uselocale(other);
    {
        const ScopedCLocale locale;
        EXPECT_NE(uselocale(nullptr), other);
        EXPECT_EQ(uselocale(nullptr), uselocale(nullptr));
    }
    EXPECT_EQ(uselocale(nullptr), other);
    uselocale(before);
    freelocale(other);
}
#endif

TEST(Format, TextsOfEveryLength)
{
    for (const std::size_t length : {0U, 1U, 254U, 255U, 256U, 257U, 5000U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(Format("%s", text.c_str()), text);
        EXPECT_EQ(Format("<%s>%d", text.c_str(), 7), "<" + text + ">7");
    }
    EXPECT_EQ(Format("%lld %zu", -5'000'000'000LL, std::size_t{7}), "-5000000000 7");
}

struct IntegerRow {
    const char* name;
    std::string_view text;
    std::int32_t value;
};

TEST(ParseInteger, Table)
{
    constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    const IntegerRow rows[] = {
        {"plain", "42", 42},
        {"leading blanks of every kind", " \t\r\n\v\f-7", -7},
        {"plus", "+8", 8},
        {"two signs", "-+8", 0},
        {"blank behind the sign", "- 8", 0},
        {"text behind", "12abc", 12},
        {"fraction", "3.9", 3},
        {"no digits", "abc", 0},
        {"empty", "", 0},
        {"sign alone", "-", 0},
        {"hexadecimal is not read", "0x10", 0},
        {"largest", "2147483647", kMax},
        {"one more", "2147483648", kMax},
        {"smallest", "-2147483648", kMin},
        {"one less", "-2147483649", kMin},
        {"longer than 64 bits", "99999999999999999999999999", kMax},
        {"longer than 64 bits, negative", "-99999999999999999999999999", kMin},
        {"leading zeros", "000000000000000000000000000012", 12},
    };
    for (const IntegerRow& row : rows)
        EXPECT_EQ(ParseInteger(row.text), row.value) << row.name;
    EXPECT_EQ(ParseInteger(std::string_view("123456").substr(0, 3)), 123) << "no zero byte needed";
}

TEST(ParseDouble, AgreesWithTheCLibraryInTheCLocale)
{
    const char* const texts[] = {"0", "-0", "1.5", "-1.5", "+1.5", " \t\n2.25x", "1e3", "1e+3",
        "1e", "1e-", ".5", "5.", "1,5", "1e999", "-1e999", "1e-999", "-1e-999", "4.9e-324",
        "2e-324", "0x10", "0x1.8p1", "-0x1p-2", "0x", "0xg", "inf", "-Infinity", "infx",
        "123456789012345678901234567890", "0.1", "2.2250738585072011e-308", "1 2"};
    for (const char* const text : texts) {
        const double expected = std::strtod(text, nullptr);
        const double value = ParseDouble(text);
        EXPECT_EQ(value, expected) << text;
        EXPECT_EQ(std::signbit(value), std::signbit(expected)) << text;
    }
    EXPECT_TRUE(std::isnan(ParseDouble("nan")));
    EXPECT_EQ(ParseDouble(std::string_view("12345").substr(0, 2)), 12);
}

TEST(ParseDouble, WhatIsNoNumberGivesZero)
{
    for (const char* const text : {"", " ", ".", "-.", "-", "+-1", "--1", "e5", ",5", "x"}) {
        EXPECT_EQ(ParseDouble(text), 0) << text;
        EXPECT_FALSE(std::signbit(ParseDouble(text))) << text;
    }
}

TEST(Text, IgnoringCaseIsAsciiOnly)
{
    EXPECT_TRUE(EqualsIgnoringCase("Zz[", "zZ["));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
    EXPECT_FALSE(EqualsIgnoringCase("ab", "abc"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
}

TEST(Text, Trimming)
{
    EXPECT_EQ(Trimmed(" \t a b\t "), "a b");
    EXPECT_EQ(Trimmed(" \t "), "");
    EXPECT_EQ(Trimmed("a\n"), "a\n");
}

} // namespace
} // namespace vireo
