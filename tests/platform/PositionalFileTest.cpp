#include "platform/AppendFile.h"
#include "platform/AtomicFile.h"
#include "platform/FileIdentity.h"
#include "platform/PositionalFile.h"
#include "tests/TempFolder.h"

#include <limits>
#include <thread>
#include <utility>
#include <vector>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vireo {
namespace {

std::string ReadText(const PositionalFile& file, std::uint64_t offset, std::size_t length)
{
    std::vector<std::uint8_t> buffer(length);
    const std::size_t count = file.ReadAt(offset, buffer);
    return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(count)};
}

TEST(PositionalFile, ReadsAtAndBeyondTheEnd)
{
    const TempFolder folder;
    PositionalFile file;
    ASSERT_EQ(file.Open(folder.Write("data",
                  std::string_view("01\r\n\x1A\0"
                                   "6789",
                      10))),
        FileStatus::Ok);
    EXPECT_EQ(file.Size(), 10U);
    EXPECT_EQ(ReadText(file, 0, 10),
        std::string_view("01\r\n\x1A\0"
                         "6789",
            10));
    EXPECT_EQ(ReadText(file, 7, 2), "78");
    EXPECT_EQ(ReadText(file, 8, 100), "89");
    EXPECT_EQ(ReadText(file, 10, 1), "");
    EXPECT_EQ(ReadText(file, 11, 1), "");
    EXPECT_EQ(ReadText(file, std::uint64_t{1} << 40, 5), "");
    for (const std::uint64_t last : {std::numeric_limits<std::uint64_t>::max(),
             std::uint64_t{std::numeric_limits<std::int64_t>::max()}, std::uint64_t{1} << 63})
        EXPECT_EQ(ReadText(file, last, 5), "");
    EXPECT_EQ(ReadText(file, 3, 0), "");
}

TEST(PositionalFile, WhatIsCutOffReadsAsTheEnd)
{
    const TempFolder folder;
    const auto path = folder.Write("data", "0123456789");
    PositionalFile file;
    ASSERT_EQ(file.Open(path), FileStatus::Ok);
    std::filesystem::resize_file(path, 4);
    EXPECT_EQ(file.Size(), 10U);
    EXPECT_EQ(ReadText(file, 2, 8), "23");
    EXPECT_EQ(ReadText(file, 6, 4), "");
}

TEST(PositionalFile, MovesAndCloses)
{
    const TempFolder folder;
    PositionalFile first;
    EXPECT_FALSE(first.IsOpen());
    EXPECT_EQ(ReadText(first, 0, 4), "");
    ASSERT_EQ(first.Open(folder.Write("data", "0123")), FileStatus::Ok);
    PositionalFile second(std::move(first));
    PositionalFile third;
    third = std::move(second);
    EXPECT_EQ(ReadText(third, 1, 2), "12");
    ASSERT_EQ(third.Open(folder.Path() / "missing"), FileStatus::NotFound);
    EXPECT_FALSE(third.IsOpen());
    EXPECT_EQ(third.Size(), 0U);
    EXPECT_EQ(ReadText(third, 0, 4), "");
}

TEST(PositionalFile, ServesSeveralThreads)
{
    const TempFolder folder;
    std::string content(100'000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 7 % 251);
    PositionalFile file;
    ASSERT_EQ(file.Open(folder.Write("data", content)), FileStatus::Ok);
    const auto compare = [&](std::size_t step, int& faults) {
        for (std::size_t offset = 0; offset < content.size(); offset += step)
            faults += ReadText(file, offset, 97) != content.substr(offset, 97);
    };
    int faults[2] = {};
    std::thread other(compare, 101, std::ref(faults[0]));
    compare(53, faults[1]);
    other.join();
    EXPECT_EQ(faults[0] + faults[1], 0);
}

TEST(PositionalFile, WhatCannotBeOpened)
{
    const TempFolder folder;
    PositionalFile file;
    EXPECT_EQ(file.Open(folder.Path()), FileStatus::IsFolder);
    EXPECT_EQ(file.Open(folder.Path() / "no" / "file"), FileStatus::NotFound);
    EXPECT_EQ(file.Open({}), FileStatus::NotFound);
    const auto path = folder.Write("data", "x");
    EXPECT_EQ(file.Open(std::filesystem::path(path).concat(std::string("\0.con", 5))),
        FileStatus::NotFound);
    EXPECT_FALSE(file.IsOpen());
}

TEST(PositionalFile, PathsOfMoreThan260Characters)
{
    const TempFolder folder;
    const auto path = folder.Path() / (std::string(230, 'x') + ".con");
    ASSERT_GT(path.native().size(), 260U);
    ASSERT_EQ(WriteFileAtomically(path, "old"), FileStatus::Ok);
    ASSERT_EQ(WriteFileAtomically(path, "new"), FileStatus::Ok);
    AppendFile log;
    ASSERT_TRUE(log.Open(path));
    EXPECT_TRUE(log.Append("er"));
    log.Close();
    std::string content;
    EXPECT_EQ(ReadWholeFile(path, 9, content), FileStatus::Ok);
    EXPECT_EQ(content, "newer");
    FileIdentity identity;
    EXPECT_EQ(ReadIdentity(path, identity), FileStatus::Ok);
    auto folderPath = path.parent_path();
    for (int i = 0; i < 80; ++i)
        folderPath /= ".";
    EXPECT_EQ(ReadWholeFile(folderPath / path.filename(), 9, content), FileStatus::Ok);
}

#ifndef _WIN32
TEST(PositionalFile, APipeNeitherOpensNorHangs)
{
    const TempFolder folder;
    const auto pipe = folder.Path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    PositionalFile file;
    EXPECT_EQ(file.Open(pipe), FileStatus::NotAFile);
    EXPECT_EQ(file.Open("/dev/zero"), FileStatus::NotAFile);
}

TEST(PositionalFile, NoPermission)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may read everything";
    const TempFolder folder;
    const auto path = folder.Write("data", "x");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    PositionalFile file;
    EXPECT_EQ(file.Open(path), FileStatus::AccessDenied);
}
#else
TEST(PositionalFile, DevicesAreNoFiles)
{
    PositionalFile file;
    for (const char* const name : {"NUL", "nul", "\\\\.\\NUL", "CON"})
        EXPECT_NE(file.Open(name), FileStatus::Ok) << name;
    EXPECT_EQ(file.Open("NUL"), FileStatus::NotAFile);
}

TEST(PositionalFile, TrailingDotsAndBlanksAreNoPartOfAName)
{
    const TempFolder folder;
    const auto path = folder.Write("data.con", "x");
    PositionalFile file;
    EXPECT_EQ(file.Open(std::filesystem::path(path).concat(".")), FileStatus::Ok);
    EXPECT_EQ(file.Open(std::filesystem::path(path).concat(" ")), FileStatus::Ok);
}

TEST(PositionalFile, AFileThatAnotherProgramKeepsToItself)
{
    const TempFolder folder;
    const auto path = folder.Write("data", "x");
    PositionalFile reader;
    ASSERT_EQ(reader.Open(path, PositionalFile::Sharing::ReadersOnly), FileStatus::Ok);
    EXPECT_FALSE(std::ofstream(path, std::ios::app).is_open());
    reader.Close();
    EXPECT_TRUE(std::ofstream(path, std::ios::app).is_open());
}
#endif

TEST(ReadWholeFile, UpToTheLimit)
{
    const TempFolder folder;
    const auto path = folder.Write("data", "01234");
    std::string content = "before";
    EXPECT_EQ(ReadWholeFile(path, 5, content), FileStatus::Ok);
    EXPECT_EQ(content, "01234");
    EXPECT_EQ(ReadWholeFile(path, 4, content), FileStatus::TooLarge);
    EXPECT_EQ(content, "");
    EXPECT_EQ(ReadWholeFile(folder.Write("empty", ""), 0, content), FileStatus::Ok);
    EXPECT_EQ(ReadWholeFile(folder.Path() / "missing", 9, content), FileStatus::NotFound);
}

} // namespace
} // namespace vireo
