#include "limits/FigureNames.h"
#include "limits/FigurePath.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

struct NameCase {
    const char* text;
    const char* name; ///< As written anew; null: no name.
    const char* rest;
};

class FigureNameTest : public testing::TestWithParam<NameCase> { };

TEST_P(FigureNameTest, TakesWhatBelongsToIt)
{
    std::string_view rest = GetParam().text;
    const auto path = FigurePath::Take(rest);
    ASSERT_EQ(path.has_value(), GetParam().name != nullptr);
    if (path) {
        EXPECT_EQ(path->Text(), GetParam().name);
    }
    EXPECT_EQ(rest, GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Names, FigureNameTest,
    testing::Values(NameCase{"averages.red <= 4", "averages.red", " <= 4"},
        NameCase{"a<1", "a", "<1"}, NameCase{"s[*].c[12].d", "s[*].c[12].d", ""},
        NameCase{"keys.\"Scanner ID\"=1", "keys.\"Scanner ID\"", "=1"},
        NameCase{"keys.\"plain\"", "keys.plain", ""}, NameCase{"", nullptr, ""},
        NameCase{".a", nullptr, ".a"}, NameCase{"[1]", nullptr, "[1]"},
        NameCase{"a.", nullptr, "a."}, NameCase{"a..b", nullptr, "a..b"},
        NameCase{"a[", nullptr, "a["}, NameCase{"a[]", nullptr, "a[]"},
        NameCase{"a[-1]", nullptr, "a[-1]"}, NameCase{"a[1", nullptr, "a[1"},
        NameCase{"a[2000000000]", nullptr, "a[2000000000]"},
        NameCase{"a[99999999999999999999]", nullptr, "a[99999999999999999999]"},
        NameCase{"a.\"b", nullptr, "a.\"b"}, NameCase{"a.\"\"", nullptr, "a.\"\""},
        NameCase{
            "a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a", nullptr, "a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a"}));

struct FigureCase {
    const char* kind;
    const char* name;
    std::optional<FigureType> type;
};

class KnownFigureTest : public testing::TestWithParam<FigureCase> { };

TEST_P(KnownFigureTest, BelongsToItsKind)
{
    const KindFigures* kind = FindKindFigures(GetParam().kind);
    ASSERT_NE(kind, nullptr);
    std::string_view rest = GetParam().name;
    const auto path = FigurePath::Take(rest);
    ASSERT_TRUE(path);
    EXPECT_EQ(FindFigure(*kind, *path), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Figures, KnownFigureTest,
    testing::Values(FigureCase{"noise", "averages.gray", FigureType::Number},
        FigureCase{"noise", "averages", std::nullopt},
        FigureCase{"noise", "averages.purple", std::nullopt},
        FigureCase{"noise", "averages.red.x", std::nullopt},
        FigureCase{"noise", "averages[0]", std::nullopt},
        FigureCase{"noise", "red|green", std::nullopt},
        FigureCase{"noise", "marks.red", FigureType::List},
        FigureCase{"noise", "marks.red[*].value", FigureType::Number},
        FigureCase{"startest", "averages.red", std::nullopt},
        FigureCase{"startest", "sweeps[7].curves.y_line_width.rms", FigureType::Number},
        FigureCase{"startest", "sweeps.curves.y_line_width.rms", std::nullopt},
        FigureCase{"oscilloscope", "camera_pixels[7]", FigureType::Number},
        FigureCase{"oscilloscope", "camera_pixels[8]", std::nullopt},
        FigureCase{"oscilloscope", "camera_pixels[*]", FigureType::Number},
        FigureCase{"light-profile", "keys.\"Scanner ID\"", FigureType::HeaderKey},
        FigureCase{"light-profile", "keys.CenterLines[1]", FigureType::HeaderKey},
        FigureCase{"light-profile", "keys", std::nullopt},
        FigureCase{"light-profile", "keys[1]", std::nullopt},
        FigureCase{"light-profile", "keys.Nothing", std::nullopt}));

} // namespace
} // namespace vireo
