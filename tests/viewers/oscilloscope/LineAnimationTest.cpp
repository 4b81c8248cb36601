#include "viewers/oscilloscope/LineAnimation.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vireo {
namespace {

TEST(LineAnimationTest, ATickAfterTheLastLineShowsTheFirst)
{
    LineAnimation animation;
    animation.Restart(3);
    std::string shown;
    for (int tick = 0; tick < 5; ++tick) {
        animation.Advance();
        shown += static_cast<char>('0' + animation.CurrentLine());
    }
    EXPECT_EQ(shown, "12012");
}

struct StepCase {
    const char* name;
    std::int64_t lineCount;
    std::int64_t from;
    std::int64_t step;
    std::int64_t expected;
};

class LineAnimationStepTest : public testing::TestWithParam<StepCase> { };

TEST_P(LineAnimationStepTest, StaysWithinTheFile)
{
    const StepCase& row = GetParam();
    LineAnimation animation;
    animation.Restart(row.lineCount);
    animation.Step(row.from);
    animation.Step(row.step);
    EXPECT_EQ(animation.CurrentLine(), row.expected);
}

INSTANTIATE_TEST_SUITE_P(All, LineAnimationStepTest,
    testing::Values(StepCase{"Forward", 24, 3, 1, 4}, StepCase{"BackFromTheFirst", 24, 0, -1, 23},
        StepCase{"BackByMoreThanTheFileHas", 5, 1, -13, 3}, StepCase{"OneLineOnly", 1, 0, -1, 0},
        StepCase{"FurthestBack", 7, 0, std::numeric_limits<std::int64_t>::min(), 6}),
    [](const auto& test) { return test.param.name; });

TEST(LineAnimationTest, APauseOutsideTheRangeIsIgnored)
{
    LineAnimation animation;
    EXPECT_EQ(animation.PauseMs(), 100);
    EXPECT_TRUE(animation.SetPause(2500));
    for (const int refused : {99, 10001, 0, -100}) {
        EXPECT_FALSE(animation.SetPause(refused)) << refused;
        EXPECT_EQ(animation.PauseMs(), 2500) << refused;
    }
    EXPECT_TRUE(animation.SetPause(10000));
    EXPECT_TRUE(animation.SetPause(100));
    EXPECT_EQ(animation.PauseMs(), 100);
}

TEST(LineAnimationTest, AFileOfOneLineNeverRuns)
{
    LineAnimation animation;
    animation.Restart(1);
    EXPECT_FALSE(animation.IsRunning());
    animation.Restart(0);
    EXPECT_EQ(animation.LineCount(), 1);
    animation.Restart(2);
    EXPECT_TRUE(animation.IsRunning());
    animation.Hold(true);
    EXPECT_FALSE(animation.IsRunning());
    animation.Restart(2);
    EXPECT_TRUE(animation.IsRunning()) << "a newly loaded file runs";
}

} // namespace
} // namespace vireo
