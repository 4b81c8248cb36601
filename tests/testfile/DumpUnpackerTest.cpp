#include "testfile/DumpUnpacker.h"
#include "tests/DumpFile.h"
#include "tests/FileSizeLimit.h"
#include "tests/TempFolder.h"

#include <map>
#include <ostream>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vireo {
namespace {

using Files = std::map<std::string, std::string>;

/// The files below a folder with their contents; a folder's content is "/".
Files FilesIn(const std::filesystem::path& folder)
{
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        files[entry.path().lexically_relative(folder).generic_string()] =
            entry.is_directory() ? "/" : TempFolder::Read(entry.path());
    return files;
}

/// A dump in a folder "in" of its own, so that what is written outside of it is seen.
class DumpUnpackerTest : public testing::Test {
protected:
    DumpUnpackerTest() { std::filesystem::create_directory(m_in); }

    UnpackReport Unpack(
        const std::string& bytes, DumpDescription description = DumpDescription::Skipped)
    {
        m_folder.Write("in/d.con", bytes);
        PackedDump dump;
        EXPECT_EQ(dump.Open(m_in / "d.con"), DumpResult::Ok);
        return UnpackDump(dump, m_in, description, m_progress);
    }
    /// What there is beside the dump.
    Files Unpacked() const
    {
        Files files = FilesIn(m_in);
        files.erase("d.con");
        return files;
    }

    TempFolder m_folder;
    std::filesystem::path m_in = m_folder.Path() / "in";
    WorkProgress m_progress;
};

struct HostileRow {
    const char* name;
    std::string bytes;
    Files unpacked;
    std::string leftOut; ///< In one line.

    friend void PrintTo(const HostileRow& row, std::ostream* out) { *out << row.name; }
};

class HostileDump : public DumpUnpackerTest, public testing::WithParamInterface<HostileRow> { };

TEST_P(HostileDump, IsUnpackedAsFarAsItIsGood)
{
    const UnpackReport report = Unpack(GetParam().bytes);
    EXPECT_EQ(Unpacked(), GetParam().unpacked);
    EXPECT_EQ(report.writtenCount, GetParam().unpacked.size());
    EXPECT_EQ(DescribeLeftOut(report), GetParam().leftOut);
    EXPECT_EQ(report.IsComplete(), GetParam().leftOut.empty());
    EXPECT_EQ(TempFolder::Read(m_in / "d.con"), GetParam().bytes) << "the dump itself";
    std::filesystem::remove_all(m_in);
    EXPECT_EQ(FilesIn(m_folder.Path()), Files()) << "outside the folder";
}

std::string With(const char* name)
{
    return DumpFile{{{"a", "before"}, {name, "bad"}, {"z", "behind"}}}.Bytes();
}
HostileRow Refused(const char* title, const char* name, const char* why)
{
    const std::string shown = std::string("1 of 3 members left out: 1 refused (") + why + ")";
    return {title, With(name), {{"a", "before"}, {"z", "behind"}}, shown};
}

INSTANTIATE_TEST_SUITE_P(Dumps, HostileDump,
    testing::Values(
        HostileRow{"a good one", With("b"), {{"a", "before"}, {"b", "bad"}, {"z", "behind"}}, ""},
        Refused("parent folder", "../b", "../b: the name has a folder part"),
        Refused("parent folder in Windows", "..\\b", "..\\b: the name has a folder part"),
        Refused("whole path", "/tmp/vireo-b", "/tmp/vireo-b: the name has a folder part"),
        Refused("drive", "C:b", "C:b: the name has a folder part"),
        Refused("parent", "..", "..: the name ends with a dot or a blank"),
        Refused("device", "nul.con", "nul.con: the name is that of a device"),
        Refused("its own name", "D.con", "D.con: the name is that of the dump itself"),
        Refused("line end", "b\nc", "b?c: the name has a character that file names cannot have"),
        Refused("no name", "", ": there is no name"),
        HostileRow{"the same name twice",
            DumpFile{{{"a", "first"}, {"b", "b"}, {"a", "second"}}}.Bytes(),
            {{"a", "second"}, {"b", "b"}},
            "1 of 3 members left out: 1 replaced by a later one (a: a later file of the dump has "
            "the "
            "same name)"},
        HostileRow{"cut off", DumpFile{{{"a", "whole"}, {"b", "xx"}}}.Bytes("a=5\nb=3\nc=0\n"),
            {{"a", "whole"}},
            "2 of 3 members left out: 2 cut off (b: the dump ends before it does; ...)"},
        HostileRow{"everything at once",
            DumpFile{{{"NUL", "1"}, {"a/b", "2"}, {"good", "3"}, {"good", "4"}, {"c", ""}}}.Bytes(
                "NUL=1\na/b=1\ngood=1\ngood=1\nc=1\n"),
            {{"good", "4"}},
            "4 of 5 members left out: 2 refused (NUL: the name is that of a device; ...), 1 cut "
            "off "
            "(c: the dump ends before it does), 1 replaced by a later one (good: a later file of "
            "the "
            "dump has the same name)"},
        HostileRow{"description", With("Kitbag.txt"), {{"a", "before"}, {"z", "behind"}}, ""}));

TEST_F(DumpUnpackerTest, ATestStationKeepsTheDescription)
{
    const UnpackReport report =
        Unpack(DumpFile{{{"Kitbag.txt", "text"}, {"a", "x"}}}.Bytes(), DumpDescription::Kept);
    EXPECT_EQ(Unpacked(), (Files{{"Kitbag.txt", "text"}, {"a", "x"}}));
    EXPECT_EQ(report.memberCount, 2U);
}

TEST_F(DumpUnpackerTest, NamesAreTextOfCodePage1252)
{
    EXPECT_TRUE(Unpack(DumpFile{{{"Gr\xF6\xDF"
                                  "e \x80.con",
                                    "x"}}}
                           .Bytes())
                    .IsComplete());
    EXPECT_EQ(Unpacked(), (Files{{"Größe €.con", "x"}}));
}

TEST_F(DumpUnpackerTest, FilesOfTheSameNameAreReplacedFoldersAndTheRestStay)
{
    m_folder.Write("in/a", "an older and longer one");
    m_folder.Write("in/other", "other");
    std::filesystem::create_directory(m_in / "b");
    const UnpackReport report = Unpack(DumpFile{{{"a", "new"}, {"b", "x"}, {"c", "y"}}}.Bytes());
    EXPECT_EQ(Unpacked(), (Files{{"a", "new"}, {"b", "/"}, {"c", "y"}, {"other", "other"}}));
    EXPECT_EQ(DescribeLeftOut(report), "1 of 3 members left out: 1 not written (b: Is a folder)");
}

TEST_F(DumpUnpackerTest, MembersOfManyPiecesAreWholeAndProgressCountsBytes)
{
    std::string large;
    for (int i = 0; large.size() < 20'000'000; ++i)
        large += std::to_string(i);
    const DumpFile dump{{{"small", "s"}, {"../bad", "refused"}, {"large", large}, {"last", "l"}}};
    const UnpackReport report = Unpack(dump.Bytes());
    EXPECT_EQ(report.writtenCount, 3U);
    EXPECT_TRUE(TempFolder::Read(m_in / "large") == large);
    EXPECT_EQ(TempFolder::Read(m_in / "last"), "l");
    EXPECT_EQ(m_progress.Fraction(), 1.0);
}

TEST_F(DumpUnpackerTest, CancelledItWritesNoMore)
{
    m_progress.Cancel();
    const UnpackReport report = Unpack(DumpFile{{{"a", "x"}}}.Bytes());
    EXPECT_TRUE(report.isCancelled);
    EXPECT_FALSE(report.IsComplete());
    EXPECT_EQ(Unpacked(), Files());
}

TEST_F(DumpUnpackerTest, ADumpThatShrinksMeanwhileLeavesNoHalfMember)
{
    const auto path =
        m_folder.Write("in/d.con", DumpFile{{{"a", "whole"}, {"b", "cut off"}, {"c", ""}}}.Bytes());
    PackedDump dump;
    ASSERT_EQ(dump.Open(path), DumpResult::Ok);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    const UnpackReport report = UnpackDump(dump, m_in, DumpDescription::Kept, m_progress);
    EXPECT_EQ(Unpacked(), (Files{{"a", "whole"}, {"c", ""}}));
    ASSERT_EQ(report.leftOut.size(), 1U);
    EXPECT_EQ(report.leftOut[0].status, FileStatus::Failed);
}

TEST_F(DumpUnpackerTest, ALongListIsToldShortly)
{
    DumpFile dump;
    for (int i = 0; i < 1000; ++i)
        dump.members.emplace_back("sub/" + std::to_string(i) + std::string(200, 'n'), "");
    const std::string list = ListLeftOut(Unpack(dump.Bytes()));
    EXPECT_TRUE(list.starts_with("1000 of 1000 files were left out:\n\nsub/0nnn")) << list;
    EXPECT_TRUE(list.ends_with("\nand 988 more")) << list;
    EXPECT_LT(list.size(), 2000U);
}

#ifndef _WIN32
TEST_F(DumpUnpackerTest, LinksLeadNowhere)
{
    m_folder.Write("outside", "outside");
    std::filesystem::create_symlink("../outside", m_in / "a");
    std::filesystem::create_symlink("d.con", m_in / "b");
    std::filesystem::create_symlink("nowhere", m_in / "c");
    const std::string bytes = DumpFile{{{"a", "1"}, {"b", "2"}, {"c", "3"}}}.Bytes();
    const UnpackReport report = Unpack(bytes);
    EXPECT_EQ(DescribeLeftOut(report),
        "1 of 3 members left out: 1 refused (b: the name is that of the dump itself)");
    EXPECT_EQ(TempFolder::Read(m_folder.Path() / "outside"), "outside");
    EXPECT_EQ(TempFolder::Read(m_in / "d.con"), bytes);
    EXPECT_EQ(Unpacked(), (Files{{"a", "1"}, {"b", bytes}, {"c", "3"}}));
}

TEST_F(DumpUnpackerTest, AFullDiskKeepsWhatFits)
{
    const DumpFile dump{{{"a", "fits"}, {"b", std::string(300'000, 'x')}, {"c", "fits too"}}};
    m_folder.Write("in/d.con", dump.Bytes());
    m_folder.Write("in/b", "old");
    PackedDump opened;
    ASSERT_EQ(opened.Open(m_in / "d.con"), DumpResult::Ok);
    UnpackReport report;
    {
        const FileSizeLimit limit(100'000);
        report = UnpackDump(opened, m_in, DumpDescription::Kept, m_progress);
    }
    EXPECT_EQ(Unpacked(), (Files{{"a", "fits"}, {"b", "old"}, {"c", "fits too"}}));
    EXPECT_EQ(DescribeLeftOut(report),
        "1 of 3 members left out: 1 not written (b: The file is too large)");
}

TEST_F(DumpUnpackerTest, AFolderThatTakesNoFiles)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everywhere";
    m_folder.Write("in/d.con", DumpFile{{{"a", "x"}, {"b", "y"}}}.Bytes());
    PackedDump dump;
    ASSERT_EQ(dump.Open(m_in / "d.con"), DumpResult::Ok);
    ASSERT_EQ(chmod(m_in.c_str(), 0500), 0);
    const UnpackReport report = UnpackDump(dump, m_in, DumpDescription::Kept, m_progress);
    ASSERT_EQ(chmod(m_in.c_str(), 0700), 0);
    EXPECT_EQ(Unpacked(), Files());
    EXPECT_EQ(report.leftOut.size(), 2U);
    EXPECT_EQ(report.leftOut[0].status, FileStatus::AccessDenied);
}
#endif

} // namespace
} // namespace vireo
