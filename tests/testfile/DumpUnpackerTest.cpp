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

    void Open(const std::string& bytes)
    {
        m_folder.Write("in/d.con", bytes);
        ASSERT_EQ(m_dump.Open(m_in / "d.con"), DumpResult::Ok);
    }
    /// What is left out, in one line.
    std::string Unpack(DumpDescription description = DumpDescription::Skipped)
    {
        m_report = UnpackDump(m_dump, m_in, description, m_progress);
        return DescribeLeftOut(m_report);
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
    PackedDump m_dump;
    WorkProgress m_progress;
    UnpackReport m_report;
};

struct HostileRow {
    const char* name;
    DumpFile dump;
    Files unpacked;
    std::string leftOut;
    const char* directory = nullptr; ///< Instead of the true one.

    friend void PrintTo(const HostileRow& row, std::ostream* out) { *out << row.name; }
};

class HostileDump : public DumpUnpackerTest, public testing::WithParamInterface<HostileRow> { };

TEST_P(HostileDump, IsUnpackedAsFarAsItIsGood)
{
    const HostileRow& row = GetParam();
    const std::string bytes = row.directory ? row.dump.Bytes(row.directory) : row.dump.Bytes();
    Open(bytes);
    EXPECT_EQ(Unpack(), row.leftOut);
    EXPECT_EQ(Unpacked(), row.unpacked);
    EXPECT_EQ(m_report.writtenCount, row.unpacked.size());
    EXPECT_EQ(m_report.IsComplete(), row.leftOut.empty());
    EXPECT_EQ(TempFolder::Read(m_in / "d.con"), bytes) << "the dump itself";
    m_dump = {};
    std::filesystem::remove_all(m_in);
    EXPECT_EQ(FilesIn(m_folder.Path()), Files()) << "outside the folder";
}

HostileRow Refused(const char* name, const char* why)
{
    return {name, {{{"a", "before"}, {name, "bad"}, {"z", "behind"}}},
        {{"a", "before"}, {"z", "behind"}},
        std::string("1 of 3 members left out: 1 refused (") + why + ")"};
}

INSTANTIATE_TEST_SUITE_P(Dumps, HostileDump,
    testing::Values(HostileRow{"good", {{{"a", "x"}, {"b", ""}}}, {{"a", "x"}, {"b", ""}}, ""},
        HostileRow{"none", {}, {}, ""},
        HostileRow{"1252", {{{"Gr\xF6\xDF \x80", "x"}}}, {{"Größ €", "x"}}, ""},
        HostileRow{"description", {{{"Kitbag.txt", "t"}, {"a", "x"}}}, {{"a", "x"}}, ""},
        Refused("../b", "../b: the name has a folder part"),
        Refused("..\\b", "..\\b: the name has a folder part"),
        Refused("/tmp/vireo-b", "/tmp/vireo-b: the name has a folder part"),
        Refused("C:b", "C:b: the name has a folder part"),
        Refused("..", "..: the name ends with a dot or a blank"),
        Refused("nul.con", "nul.con: the name is that of a device"),
        Refused("D.con", "D.con: the name is that of the dump itself"),
        Refused("b\nc", "b?c: the name has a character that file names cannot have"),
        Refused("", ": there is no name"),
        HostileRow{"the same name twice", {{{"a", "first"}, {"b", "b"}, {"a", "second"}}},
            {{"a", "second"}, {"b", "b"}},
            "1 of 3 members left out: 1 replaced by a later one (a: a later file of the dump has "
            "the "
            "same name)"},
        HostileRow{"cut off", {{{"a", "whole"}, {"b", "xx"}}}, {{"a", "whole"}},
            "2 of 3 members left out: 2 cut off (b: the dump ends before it does; ...)",
            "a=5\nb=3\nc=0\n"},
        HostileRow{"everything", {{{"NUL", "1"}, {"a/b", "2"}, {"good", "3"}, {"good", "4"}}},
            {{"good", "4"}},
            "4 of 5 members left out: 2 refused (NUL: the name is that of a device; ...), 1 cut "
            "off "
            "(c: the dump ends before it does), 1 replaced by a later one (good: a later file of "
            "the "
            "dump has the same name)",
            "NUL=1\na/b=1\ngood=1\ngood=1\nc=1\n"}));

TEST_F(DumpUnpackerTest, ATestStationKeepsTheDescription)
{
    Open(DumpFile{{{"Kitbag.txt", "text"}}}.Bytes());
    EXPECT_EQ(Unpack(DumpDescription::Kept), "");
    EXPECT_EQ(Unpacked(), (Files{{"Kitbag.txt", "text"}}));
}

TEST_F(DumpUnpackerTest, FilesOfTheSameNameAreReplacedFoldersAndTheRestStay)
{
    m_folder.Write("in/a", "an older and longer one");
    m_folder.Write("in/other", "other");
    std::filesystem::create_directory(m_in / "b");
    Open(DumpFile{{{"a", "new"}, {"b", "x"}, {"c", "y"}}}.Bytes());
    EXPECT_EQ(Unpack(), "1 of 3 members left out: 1 not written (b: Is a folder)");
    EXPECT_EQ(Unpacked(), (Files{{"a", "new"}, {"b", "/"}, {"c", "y"}, {"other", "other"}}));
}

TEST_F(DumpUnpackerTest, MembersOfManyPiecesAreWholeAndProgressCountsBytes)
{
    std::string large;
    for (int i = 0; large.size() < 20'000'000; ++i)
        large += std::to_string(i);
    Open(DumpFile{{{"small", "s"}, {"../bad", "x"}, {"large", large}, {"last", "l"}}}.Bytes());
    Unpack();
    EXPECT_TRUE(Unpacked() == (Files{{"small", "s"}, {"large", large}, {"last", "l"}}));
    EXPECT_EQ(m_progress.Fraction(), 1.0);
    m_progress.Cancel();
    std::filesystem::remove(m_in / "small");
    Unpack();
    EXPECT_TRUE(m_report.isCancelled && !m_report.IsComplete());
    EXPECT_FALSE(std::filesystem::exists(m_in / "small"));
}

TEST_F(DumpUnpackerTest, ADumpThatShrinksMeanwhileLeavesNoHalfMember)
{
    Open(DumpFile{{{"a", "whole"}, {"b", "cut off"}, {"c", ""}}}.Bytes());
    std::filesystem::resize_file(m_dump.Path(), std::filesystem::file_size(m_dump.Path()) - 1);
    EXPECT_EQ(Unpack(), "1 of 3 members left out: 1 not written (b: Input/output error)");
    EXPECT_EQ(Unpacked(), (Files{{"a", "whole"}, {"c", ""}}));
}

TEST_F(DumpUnpackerTest, ALongListIsToldShortly)
{
    DumpFile dump;
    for (int i = 0; i < 1000; ++i)
        dump.members.emplace_back("sub/" + std::to_string(i) + std::string(200, 'n'), "");
    Open(dump.Bytes());
    Unpack();
    const std::string list = ListLeftOut(m_report);
    EXPECT_TRUE(list.starts_with("1000 of 1000 files left out:\n\nsub/0nnn")) << list;
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
    Open(bytes);
    EXPECT_EQ(
        Unpack(), "1 of 3 members left out: 1 refused (b: the name is that of the dump itself)");
    EXPECT_EQ(TempFolder::Read(m_folder.Path() / "outside"), "outside");
    EXPECT_EQ(FilesIn(m_in), (Files{{"a", "1"}, {"b", bytes}, {"c", "3"}, {"d.con", bytes}}));
}

TEST_F(DumpUnpackerTest, AFullDiskKeepsWhatFits)
{
    m_folder.Write("in/b", "old");
    Open(DumpFile{{{"a", "fits"}, {"b", std::string(300'000, 'x')}, {"c", "too"}}}.Bytes());
    const FileSizeLimit limit(100'000);
    EXPECT_EQ(Unpack(), "1 of 3 members left out: 1 not written (b: The file is too large)");
    EXPECT_EQ(Unpacked(), (Files{{"a", "fits"}, {"b", "old"}, {"c", "too"}}));
}

TEST_F(DumpUnpackerTest, AFolderThatTakesNoFiles)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everywhere";
    Open(DumpFile{{{"a", "x"}, {"b", "y"}}}.Bytes());
    ASSERT_EQ(chmod(m_in.c_str(), 0500), 0);
    EXPECT_EQ(Unpack(), "2 of 2 members left out: 2 not written (a: Permission denied; ...)");
    ASSERT_EQ(chmod(m_in.c_str(), 0700), 0);
    EXPECT_EQ(Unpacked(), Files());
}
#endif

} // namespace
} // namespace vireo
