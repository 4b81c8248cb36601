#include "app/DispatchPlan.h"
#include "platform/PositionalFile.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace vireo;

namespace {
struct RefusalCase {
    const char* name;
    std::string content;
    std::string_view refusal;
};

class DispatchRefusalTest : public testing::TestWithParam<RefusalCase> { };
} // namespace

TEST_P(DispatchRefusalTest, SaysWhy)
{
    const TempFolder folder;
    const DispatchPlan plan = PlanDispatch(folder.Write("file.con", GetParam().content));
    EXPECT_EQ(plan.refusal, GetParam().refusal);
    EXPECT_TRUE(plan.viewers.empty());
    EXPECT_FALSE(plan.isPackedDump);
}

INSTANTIATE_TEST_SUITE_P(Files, DispatchRefusalTest,
    testing::Values(RefusalCase{"Empty", "", "The file is empty"},
        RefusalCase{"OneByte", "[", "It is not a test result that Vireo knows"},
        RefusalCase{"OtherText", "Dear colleague,\nthe scanner is fine.\n",
            "It is not a test result that Vireo knows"},
        RefusalCase{"TagBehindByte100", std::string(100, '-') + "[MTF]\n",
            "It is not a test result that Vireo knows"},
        RefusalCase{"TagCutAtByte100", std::string(96, '-') + "[MTF]\n",
            "It is not a test result that Vireo knows"},
        RefusalCase{"OldHeaderCutShort", std::string(11, '\0') + std::string(1, '\x10'),
            "It is not a test result that Vireo knows"}),
    [](const auto& row) { return row.param.name; });

TEST(DispatchPlanTest, ATagThatEndsAtByte100IsSeen)
{
    const TempFolder folder;
    const auto plan = PlanDispatch(folder.Write("file.con", std::string(95, '-') + "[MTF]\n"));
    EXPECT_EQ(plan.refusal, "");
    ASSERT_EQ(plan.viewers.size(), 1U);
    EXPECT_EQ(plan.viewers.front(), "COscilloscope_Dialog");
}

TEST(DispatchPlanTest, MissingFilesAndFoldersAreRefusedWithTheSystemsReason)
{
    const TempFolder folder;
    EXPECT_EQ(PlanDispatch(folder.Path() / "none.con").refusal, Describe(FileStatus::NotFound));
    EXPECT_EQ(PlanDispatch(folder.Path()).refusal, Describe(FileStatus::IsFolder));
    EXPECT_EQ(PlanDispatch({}).refusal, Describe(FileStatus::NotFound));
}

TEST(DispatchPlanTest, APackedDumpHasNoViewerOfItsOwn)
{
    const TempFolder folder;
    const auto plan = PlanDispatch(folder.Write("d.con", "[Kitbag]\nDataPointer=        33\n"));
    EXPECT_TRUE(plan.isPackedDump);
    EXPECT_TRUE(plan.viewers.empty());
    EXPECT_EQ(plan.refusal, "");
}
