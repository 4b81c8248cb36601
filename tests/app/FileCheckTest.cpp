#include "app/FileCheck.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

using namespace vireo;

namespace {
/// Nothing when there is no answer within a minute.
std::optional<std::vector<std::filesystem::path>> WaitForMissing(FileCheck& check)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (std::chrono::steady_clock::now() < end) {
        if (auto missing = check.TakeMissing())
            return missing;
        std::this_thread::yield();
    }
    return std::nullopt;
}
} // namespace

TEST(FileCheckTest, NamesTheMissingFilesInOrder)
{
    const TempFolder folder;
    const auto there = folder.Write("there.con", "x");
    const auto gone = folder.Path() / "gone.con";
    const auto inNoFolder = folder.Path() / "no" / "folder.con";
    FileCheck check;
    check.Start({gone, there, inNoFolder});
    EXPECT_EQ(WaitForMissing(check), (std::vector{gone, inNoFolder}));
    EXPECT_FALSE(check.TakeMissing()) << "An answer is given once.";
}

TEST(FileCheckTest, OnlyTheLastQuestionIsAnswered)
{
    const TempFolder folder;
    // Often: a thread that never ran was one of a thousand.
    for (int round = 0; round < 100; ++round) {
        FileCheck check;
        check.Start({folder.Path() / "first.con"});
        check.Start({folder.Path() / "second.con"});
        ASSERT_EQ(WaitForMissing(check), std::vector{folder.Path() / "second.con"});
    }
}

TEST(FileCheckTest, WithoutAQuestionThereIsNoAnswer)
{
    FileCheck check;
    EXPECT_FALSE(check.TakeMissing());
}
