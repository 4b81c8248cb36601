#include "limits/LimitLevels.h"
#include "limits/Verdict.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// A limit of a header's key, which may be of any type.
Limit LimitOf(const std::string& text)
{
    LimitsFile file;
    EXPECT_FALSE(file.Parse("[light-profile]\nkeys.Resolution " + text)) << text;
    return file.Sections().front().limits.front();
}

struct WithinCase {
    const char* limit;
    FigureValue value;
    bool isWithin;
};

class WithinTest : public testing::TestWithParam<WithinCase> { };

TEST_P(WithinTest, ComparesToTheLastDigit)
{
    EXPECT_EQ(IsWithin(LimitOf(GetParam().limit), GetParam().value), GetParam().isWithin)
        << GetParam().limit << ' ' << ValueText(GetParam().value);
}

constexpr std::int64_t kLarge = 9'007'199'254'740'993; // 2^53 + 1: no double.

INSTANTIATE_TEST_SUITE_P(Limits, WithinTest,
    testing::Values(WithinCase{"<= 4.5", 4.5, true}, WithinCase{"<= 4.5", 4.500000000000001, false},
        WithinCase{"< 4.5", 4.5, false}, WithinCase{">= 4.5", 4.5, true},
        WithinCase{"> 4.5", 4.5, false}, WithinCase{"= 0.1", 0.1, true},
        WithinCase{"= 0.1", 0.30000000000000004 - 0.2, false},
        WithinCase{"between -1 and 1", -1.0, true}, WithinCase{"between -1 and 1", 1.0, true},
        WithinCase{"between -1 and 1", 1.1, false}, WithinCase{"between -1 and 1", -1.1, false},
        WithinCase{"<= 9007199254740992", kLarge, false},
        WithinCase{"<= 9007199254740993", kLarge, true},
        WithinCase{"between 0 and 9007199254740992", kLarge, false},
        WithinCase{"<= 4.5", std::int64_t{4}, true}, WithinCase{"<= 4.5", std::int64_t{5}, false},
        WithinCase{"<= 4.5", std::monostate(), false},
        WithinCase{"is empty", std::monostate(), false},
        WithinCase{"<= 4.5", std::string("4"), false}, WithinCase{"<= 4.5", true, false},
        WithinCase{"= true", true, true}, WithinCase{"= true", false, false},
        WithinCase{"= 1", true, false}, WithinCase{"= \"a\"", std::string("a"), true},
        WithinCase{"= \"a\"", std::string("A"), false}, WithinCase{"= \"\"", std::string(), true},
        WithinCase{"is empty", std::string(), true},
        WithinCase{"is not empty", std::string(), false},
        WithinCase{"is empty", ListLength{0}, true}, WithinCase{"is empty", ListLength{1}, false},
        WithinCase{"is not empty", ListLength{1}, true},
        WithinCase{"is empty", std::int64_t{0}, false},
        WithinCase{"count <= 2", ListLength{2}, true},
        WithinCase{"count <= 2", ListLength{3}, false},
        WithinCase{"count <= 2", std::int64_t{1}, false},
        WithinCase{"<= 2", ListLength{1}, false}));

TEST(VerdictTest, CountsAllAndKeepsTheFirst)
{
    const Limit limit = LimitOf("<= 4.5");
    Verdict verdict;
    EXPECT_EQ(verdict.Result(), Verdict::Outcome::NoLimits);
    verdict.Add(limit, "a", 4.0);
    EXPECT_EQ(VerdictText(verdict), "Pass");
    verdict.Add(limit, "b", 4.75);
    verdict.Add(limit, "c", std::monostate());
    Limit optional = limit;
    optional.isOptional = true;
    verdict.Add(optional, "c", std::monostate());
    EXPECT_EQ(VerdictText(verdict), "Fail: 2 of 3");
    EXPECT_EQ(FailureText(verdict, 5),
        "b is 4.75, limit <= 4.5 (line 2)\nc is missing, limit <= 4.5 (line 2)");
    EXPECT_EQ(FailureText(verdict, 1), "b is 4.75, limit <= 4.5 (line 2)\nand 1 more");
    for (std::size_t i = 0; i < 2 * Verdict::kMostFailed; ++i)
        verdict.Add(limit, "d", 5.0);
    EXPECT_EQ(verdict.failedCount, 2002U);
    EXPECT_EQ(verdict.failed.size(), Verdict::kMostFailed);
}

TEST(LimitLevelsTest, AreTheEndsOfWhatIsWithin)
{
    LimitsFile file;
    ASSERT_FALSE(file.Parse("[startest]\nsweeps[*].curves.wide_line.max < 2.5\n"
                            "sweeps[1].curves.wide_line.mean between -1 and 1\n"
                            "sweeps[0].curves.wide_line.min >= -3\n"
                            "sweeps[*].curves.wide_line.rms <= 7\n"
                            "sweeps[*].curves.y_vibration.max <= 8\nsweeps count <= 3\n"));
    const auto& limits = file.Sections().front().limits;
    constexpr const char* kWideLine = "sweeps[*].curves.wide_line.min|max|mean";
    EXPECT_EQ(LevelsOf(limits, kWideLine, 1),
        (std::vector<LimitLevel>{
            {2.5, "max < 2.5"}, {1.0, "mean <= 1"}, {-1.0, "mean >= -1", true}}));
    EXPECT_EQ(LevelsOf(limits, kWideLine).size(), 4U);
    EXPECT_TRUE(LevelsOf(limits, "sweeps").empty());
}

} // namespace
} // namespace vireo
