#include "testfile/CameraDescription.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

constexpr const char* kText =
    "TQX\nm_iA=5412\nm_iB=5388\nm_iC=0\nm_iD=-1\nm_iE=7\nm_iF=0\nm_iG=0\nm_iH=12";
constexpr CameraCounts kCounts{5412, 5388, 0, -1, 7, 0, 0, 12};

struct Row {
    const char* name;
    std::string text;
    bool matches;
};

std::string Replaced(std::string_view what, std::string_view by)
{
    std::string text = kText;
    return text.replace(text.find(what), what.size(), by);
}

TEST(CameraDescriptionTest, ReadsWhatTheCLibraryWouldScan)
{
    const Row rows[] = {
        {"as written", kText, true},
        {"other lines behind it", std::string(kText) + "\nm_iI=9", true},
        {"Windows line ends", Replaced("5412\n", "5412\r\n"), true},
        {"no line end at all", Replaced("TQX\nm_iA", "TQXm_iA"), true},
        {"blanks before a number", Replaced("=5388", "=  5388"), true},
        {"a sign", Replaced("=5388", "=+5388"), true},
        {"a blank before the mark", " " + std::string(kText), false},
        {"a blank before the equals sign", Replaced("m_iB=", "m_iB ="), false},
        {"a camera left out", Replaced("m_iC=0\n", ""), false},
        {"no number", Replaced("m_iC=0", "m_iC=x"), false},
        {"another mark", Replaced("TQX", "TQY"), false},
    };
    for (const Row& row : rows) {
        const std::optional<CameraCounts> counts = ParseCameraDescription(row.text);
        EXPECT_EQ(counts.has_value(), row.matches) << row.name;
        EXPECT_EQ(counts.value_or(kCounts), kCounts) << row.name;
    }
}

TEST(CameraDescriptionTest, APrefixDoesNotMatchUnlessOnlyDigitsAreMissing)
{
    const std::string text = kText;
    for (std::size_t length = 0; length < text.size() - 2; ++length)
        EXPECT_FALSE(ParseCameraDescription(text.substr(0, length))) << length;
}

TEST(CameraDescriptionTest, WritesWhatItReads)
{
    EXPECT_EQ(CameraDescription(kCounts), kText);
}

} // namespace
} // namespace vireo
