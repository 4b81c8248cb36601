#include "platform/AtomicFile.h"
#include "tests/FileSizeLimit.h"
#include "tests/TempFolder.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <vector>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vireo {
namespace {

std::size_t FilesIn(const std::filesystem::path& folder)
{
    const std::filesystem::directory_iterator files(folder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

TEST(AtomicFile, TheOldFileStandsUntilCommit)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    std::string expected;
    {
        AtomicFile file;
        ASSERT_EQ(file.Open(target), FileStatus::Ok);
        for (int line = 0; line < 100'000; ++line) {
            expected += "line " + std::to_string(line) + "\n";
            ASSERT_EQ(file.Write("line " + std::to_string(line) + "\n"), FileStatus::Ok);
        }
        EXPECT_EQ(TempFolder::Read(target), "old");
        EXPECT_EQ(file.Commit(), FileStatus::Ok);
        EXPECT_EQ(TempFolder::Read(target), expected);
        EXPECT_NE(file.Commit(), FileStatus::Ok) << "there is nothing to commit twice";
        EXPECT_NE(file.Write("more"), FileStatus::Ok);
    }
    EXPECT_EQ(TempFolder::Read(target), expected);
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(AtomicFile, WithoutCommitThereIsNoTrace)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    for (const char* const name : {"target", "new"}) {
        AtomicFile file;
        ASSERT_EQ(file.Open(folder.Path() / name), FileStatus::Ok);
        ASSERT_EQ(file.Write("new"), FileStatus::Ok);
    }
    EXPECT_EQ(TempFolder::Read(target), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(AtomicFile, OneObjectWritesOneFileAfterAnother)
{
    const TempFolder folder;
    AtomicFile file;
    ASSERT_EQ(file.Open(folder.Path() / "given up"), FileStatus::Ok);
    ASSERT_EQ(file.Write("x"), FileStatus::Ok);
    ASSERT_EQ(file.Open(folder.Path() / "kept"), FileStatus::Ok);
    ASSERT_EQ(file.Write("y"), FileStatus::Ok);
    EXPECT_EQ(file.Commit(), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(folder.Path() / "kept"), "y");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(AtomicFile, OverwritesWhatWasWrittenAndGoesOnBehindTheEnd)
{
    const TempFolder folder;
    std::string expected(600'000, 'a');
    AtomicFile file;
    ASSERT_EQ(file.Open(folder.Path() / "target"), FileStatus::Ok);
    ASSERT_EQ(file.Write(expected), FileStatus::Ok);
    ASSERT_EQ(file.Write("buffered"), FileStatus::Ok);
    const std::uint8_t patch[] = {'p', 'a', 't', 'c', 'h'};
    EXPECT_EQ(file.Overwrite(4, patch), FileStatus::Ok);
    EXPECT_EQ(file.Overwrite(600'001, patch), FileStatus::Ok);
    ASSERT_EQ(file.Write("end"), FileStatus::Ok);
    EXPECT_EQ(file.Commit(AtomicFile::Flush::WhenReplacing), FileStatus::Ok);
    expected.replace(4, 5, "patch");
    EXPECT_TRUE(TempFolder::Read(folder.Path() / "target") == expected + "bpatchedend");
    EXPECT_NE(AtomicFile().Overwrite(0, patch), FileStatus::Ok);
}

TEST(AtomicFile, TargetsThatCannotBeWritten)
{
    const TempFolder folder;
    EXPECT_EQ(WriteFileAtomically(folder.Path(), "x"), FileStatus::IsFolder);
    EXPECT_EQ(WriteFileAtomically(folder.Path() / "no" / "file", "x"), FileStatus::NotFound);
    EXPECT_EQ(WriteFileAtomically({}, "x"), FileStatus::NotFound);
    EXPECT_EQ(
        WriteFileAtomically(folder.Path() / std::string("a\0b", 3), "x"), FileStatus::NotFound);
    AtomicFile unopened;
    EXPECT_NE(unopened.Write("x"), FileStatus::Ok);
    EXPECT_NE(unopened.Commit(), FileStatus::Ok);
    EXPECT_EQ(FilesIn(folder.Path()), 0U);
}

TEST(AtomicFile, AReadOnlyFileIsLeftAlone)
{
#ifndef _WIN32
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everything";
#endif
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    constexpr auto kWrite = std::filesystem::perms::owner_write
        | std::filesystem::perms::group_write | std::filesystem::perms::others_write;
    std::filesystem::permissions(target, kWrite, std::filesystem::perm_options::remove);
    EXPECT_EQ(WriteFileAtomically(target, "new"), FileStatus::AccessDenied);
    EXPECT_EQ(TempFolder::Read(target), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
    std::filesystem::permissions(target, kWrite, std::filesystem::perm_options::add);
}

TEST(AtomicFile, TakesPartsOfAnotherFile)
{
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; i < 700'000; ++i)
        bytes += std::to_string(i);
    PositionalFile source;
    ASSERT_EQ(source.Open(folder.Write("source", bytes)), FileStatus::Ok);
    const auto target = folder.Write("target", "old");
    const std::size_t count = bytes.size() - 70'001;
    AtomicFile file;
    ASSERT_EQ(file.Open(target, AtomicFile::Links::Replaced), FileStatus::Ok);
    ASSERT_EQ(file.Write("before "), FileStatus::Ok);
    ASSERT_EQ(file.WriteFrom(source, 70'000, count), FileStatus::Ok);
    ASSERT_EQ(file.WriteFrom(source, bytes.size(), 0), FileStatus::Ok);
    ASSERT_EQ(file.Write(" behind"), FileStatus::Ok);
    EXPECT_EQ(file.Commit(), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(target), "before " + bytes.substr(70'000, count) + " behind");

    ASSERT_EQ(file.Open(target, AtomicFile::Links::Replaced), FileStatus::Ok);
    EXPECT_EQ(file.WriteFrom(source, 70'000, count + 2), FileStatus::Failed) << "one too many";
    EXPECT_EQ(file.Commit(), FileStatus::Failed);
    for (const std::uint64_t offset : {std::uint64_t{1} << 63, ~std::uint64_t{0}}) {
        ASSERT_EQ(file.Open(target), FileStatus::Ok);
        EXPECT_EQ(file.WriteFrom(source, offset, 1), FileStatus::Failed);
    }
    EXPECT_EQ(TempFolder::Read(target).substr(0, 7), "before ");
    file.Discard();
    EXPECT_EQ(FilesIn(folder.Path()), 2U);
}

#ifdef _WIN32
TEST(AtomicFile, AFileThatAnotherProgramHasOpen)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    for (const auto links : {AtomicFile::Links::Followed, AtomicFile::Links::Replaced}) {
        const std::ifstream other(target);
        AtomicFile file;
        ASSERT_EQ(file.Open(target, links), FileStatus::Ok);
        ASSERT_EQ(file.Write("new"), FileStatus::Ok);
        EXPECT_EQ(file.Commit(), FileStatus::SharingViolation);
        EXPECT_EQ(FilesIn(folder.Path()), 1U);
    }
    EXPECT_EQ(TempFolder::Read(target), "old");
}
#endif

TEST(AtomicFile, AViewerThatReadsTheFileIsNoObstacleAndReadsOn)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    PositionalFile viewer;
    ASSERT_EQ(viewer.Open(target), FileStatus::Ok);
    EXPECT_EQ(WriteFileAtomically(target, "new!"), FileStatus::Ok);
    std::array<std::uint8_t, 4> bytes{};
    EXPECT_EQ(viewer.ReadAt(0, bytes), 3U);
    EXPECT_EQ(bytes[0], 'o');
    EXPECT_EQ(TempFolder::Read(target), "new!");
}

#ifndef _WIN32
TEST(AtomicFile, ALinkIsReplacedOnRequestAndWhatIsBehindItStays)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "sub");
    const auto behind = folder.Write("behind", "old");
    for (const char* const leadsTo : {"../behind", "nowhere", "link"}) {
        const auto link = folder.Path() / "sub" / "link";
        std::filesystem::remove(link);
        std::filesystem::create_symlink(leadsTo, link);
        AtomicFile file;
        ASSERT_EQ(file.Open(link, AtomicFile::Links::Replaced), FileStatus::Ok) << leadsTo;
        ASSERT_EQ(file.Write("new"), FileStatus::Ok);
        ASSERT_EQ(file.Commit(AtomicFile::Flush::Never), FileStatus::Ok);
        EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(link)));
        EXPECT_EQ(TempFolder::Read(link), "new");
        EXPECT_EQ(TempFolder::Read(behind), "old");
        EXPECT_EQ(FilesIn(folder.Path() / "sub"), 1U);
    }
}

TEST(AtomicFile, AProgramThatIsStoppedLeavesNoTrace)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    const auto write = [&](int signal) {
        AtomicFile given;
        AtomicFile file;
        static_cast<void>(given.Open(folder.Path() / "given up"));
        static_cast<void>(file.Open(target));
        given.Discard();
        static_cast<void>(file.Write(std::string(600'000, 'n')));
        std::raise(signal);
        std::_Exit(file.Commit() == FileStatus::Ok ? 0 : 1);
    };
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGPIPE}) {
        struct sigaction answer = {};
        sigaction(signal, nullptr, &answer);
        if (answer.sa_handler == SIG_IGN)
            continue; // As in a program that runs in the background.
        EXPECT_EXIT(write(signal), testing::KilledBySignal(signal), "");
        EXPECT_EQ(TempFolder::Read(target), "old");
        EXPECT_EQ(FilesIn(folder.Path()), 1U);
    }
}

TEST(AtomicFile, WhatIsNoFileStays)
{
    const TempFolder folder;
    const auto pipe = folder.Path() / "pipe";
    const auto link = folder.Path() / "link";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink("link", link);
    EXPECT_EQ(WriteFileAtomically(pipe, "x"), FileStatus::NotAFile);
    EXPECT_EQ(WriteFileAtomically("/dev/null", "x"), FileStatus::NotAFile);
    int ends[2] = {};
    ASSERT_EQ(::pipe(ends), 0);
    EXPECT_EQ(WriteFileAtomically("/dev/fd/" + std::to_string(ends[1]), "x"), FileStatus::NotAFile);
    EXPECT_EQ(WriteFileAtomically(link, "x"), FileStatus::NotFound);
    EXPECT_EQ(PositionalFile().Open(link), FileStatus::NotFound);
    EXPECT_EQ(FilesIn(folder.Path()), 2U);
    close(ends[0]);
    close(ends[1]);
}

TEST(AtomicFile, KeepsPermissionsAndLinks)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "sub");
    const auto target = folder.Write("sub/target", "old");
    ASSERT_EQ(chmod(target.c_str(), 0640), 0);
    const auto link = folder.Path() / "link";
    std::filesystem::create_symlink("sub/target", link);
    EXPECT_EQ(WriteFileAtomically(link, "new"), FileStatus::Ok);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(TempFolder::Read(target), "new");
    EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms{0640});
}

TEST(AtomicFile, AFolderThatTakesNoFiles)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everywhere";
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    ASSERT_EQ(chmod(folder.Path().c_str(), 0500), 0);
    EXPECT_EQ(WriteFileAtomically(target, "new"), FileStatus::AccessDenied);
    EXPECT_EQ(WriteFileAtomically(folder.Path() / "other", "new"), FileStatus::AccessDenied);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0700), 0);
    EXPECT_EQ(TempFolder::Read(target), "old");
}

TEST(AtomicFile, AWriteThatFailsHalfway)
{
    const TempFolder folder;
    const auto target = folder.Write("target", "old");
    const std::string block(600'000, 'x');
    {
        const FileSizeLimit limit(1'000'000);
        AtomicFile file;
        ASSERT_EQ(file.Open(target), FileStatus::Ok);
        EXPECT_EQ(file.Write(block), FileStatus::Ok);
        EXPECT_EQ(file.Write(block), FileStatus::TooLarge);
        EXPECT_EQ(file.Write("small"), FileStatus::TooLarge) << "the first failure is kept";
        EXPECT_EQ(file.Commit(), FileStatus::TooLarge);
    }
    EXPECT_EQ(TempFolder::Read(target), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}
#endif

} // namespace
} // namespace vireo
