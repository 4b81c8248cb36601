#include "platform/PositionalFile.h"
#include "samples/SampleFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace vireo {

namespace {

const std::filesystem::path kFolder = VIREO_SAMPLES;

std::map<std::string, std::string> Made()
{
    std::map<std::string, std::string> made;
    for (SampleFile& sample : AllSamples())
        made.emplace(std::move(sample.name), std::move(sample.bytes));
    return made;
}

TEST(SampleFiles, TheMakerGivesTheFilesOfTheFolder)
{
    constexpr std::size_t kMostBytes = 512 * 1024;
    for (const auto& [name, bytes] : Made()) {
        std::string committed;
        ASSERT_EQ(ReadWholeFile(kFolder / name, kMostBytes, committed), FileStatus::Ok) << name;
        const auto [made, kept] =
            std::mismatch(bytes.begin(), bytes.end(), committed.begin(), committed.end());
        EXPECT_TRUE(made == bytes.end() && kept == committed.end())
            << name << " differs from byte " << made - bytes.begin();
    }
}

TEST(SampleFiles, EveryTestFileOfTheFolderIsMade)
{
    const auto made = Made();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kFolder)) {
        if (entry.path().extension() != ".con")
            continue;
        // Whoever has opened the sample dump has its members beside it.
        if (entry.path().parent_path() == kFolder / "dump"
            && entry.path().filename() != "test-run.con")
            continue;
        const std::string name = entry.path().lexically_relative(kFolder).generic_string();
        EXPECT_TRUE(made.contains(name)) << name;
    }
}

} // namespace

} // namespace vireo
