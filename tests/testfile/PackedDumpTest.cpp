#include "testfile/PackedDump.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"

#include <ostream>

namespace vireo {
namespace {

constexpr const char* kStart = "[Kitbag]\nDataPointer=";

/// What the directory says of a member.
struct Expected {
    std::string name;
    std::optional<std::uint64_t> size;
    bool isWhole;
    std::uint64_t offset = 0; ///< Behind the start of the data.
};

struct DirectoryRow {
    const char* name;
    std::string bytes;
    DumpResult result;
    std::vector<Expected> members;

    friend void PrintTo(const DirectoryRow& row, std::ostream* out) { *out << row.name; }
};

std::string WithLines(const std::string& lines, const std::string& data)
{
    return DumpFile{{{"", data}}}.Bytes(lines);
}

class Directory : public testing::TestWithParam<DirectoryRow> { };

TEST_P(Directory, IsReadAsItStands)
{
    const TempFolder folder;
    PackedDump dump;
    EXPECT_EQ(dump.Open(folder.Write("d.con", GetParam().bytes)), GetParam().result);
    ASSERT_EQ(dump.Members().size(), GetParam().members.size());
    for (std::size_t i = 0; i < dump.Members().size(); ++i) {
        const PackedMember& member = dump.Members()[i];
        const Expected& expected = GetParam().members[i];
        EXPECT_EQ(member.name, expected.name);
        EXPECT_EQ(member.size, expected.size);
        EXPECT_EQ(member.isWhole, expected.isWhole);
        if (expected.isWhole) {
            EXPECT_EQ(member.offset, dump.DataOffset() + expected.offset);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Dumps, Directory,
    testing::Values(
        DirectoryRow{"two members and one of no bytes", WithLines("a=3\nb=0\nc.d=2\n", "abcde"),
            DumpResult::Ok, {{"a", 3, true}, {"b", 0, true, 3}, {"c.d", 2, true, 3}}},
        DirectoryRow{"offset 0", std::string(kStart) + "         0\na=3\nabc", DumpResult::Ok, {}},
        DirectoryRow{"no lines", WithLines("", ""), DumpResult::Ok, {}},
        DirectoryRow{"bytes behind the last member", WithLines("a=3\n", "abcde"), DumpResult::Ok,
            {{"a", 3, true}}},
        DirectoryRow{"CR LF", std::string("[Kitbag]\r\nDataPointer=        39\r\na=3\r\nabc"),
            DumpResult::Ok, {{"a", 3, true}}},
        DirectoryRow{"a line end in a name", WithLines("a\n\nb=3\n", "abc"), DumpResult::Ok,
            {{"a\n\nb", 3, true}}},
        DirectoryRow{"last line without its end", WithLines("a=1\nb=2", "abb"), DumpResult::Ok,
            {{"a", 1, true}, {"b", 2, true, 1}}},
        DirectoryRow{"last line without a size", WithLines("a=1\nb", "ab"), DumpResult::Ok,
            {{"a", 1, true}, {"b", std::nullopt, false}}},
        DirectoryRow{
            "blank rest", WithLines("a=1\n \r\n\t", "a"), DumpResult::Ok, {{"a", 1, true}}},
        DirectoryRow{"blanks around a size", WithLines("a=  2 \nb=1x\n", "aab"), DumpResult::Ok,
            {{"a", 2, true}, {"b", 1, true, 2}}},
        DirectoryRow{"sizes that are none", WithLines("a=\nb=1\n", "ab"), DumpResult::Ok,
            {{"a", std::nullopt, false}, {"b", 1, false}}},
        DirectoryRow{"negative size", WithLines("a=1\nb=-1\nc=1\n", "abc"), DumpResult::Ok,
            {{"a", 1, true}, {"b", std::nullopt, false}, {"c", 1, false}}},
        DirectoryRow{"more than the file holds", WithLines("a=1\nb=3\nc=1\nd=0\n", "abc"),
            DumpResult::Ok, {{"a", 1, true}, {"b", 3, false}, {"c", 1, false}, {"d", 0, false}}},
        DirectoryRow{"sizes whose sum wraps",
            WithLines("a=1\nb=18446744073709551615\nc=1\n", "abc"), DumpResult::Ok,
            {{"a", 1, true}, {"b", ~std::uint64_t{0}, false}, {"c", 1, false}}},
        DirectoryRow{"a size of 65 bits", WithLines("a=18446744073709551616\n", "a"),
            DumpResult::Ok, {{"a", std::nullopt, false}}},
        DirectoryRow{"29 characters of a size", WithLines("a=" + std::string(28, '0') + "1\n", "a"),
            DumpResult::Ok, {{"a", 1, true}}},
        DirectoryRow{"30 characters of a size", WithLines("a=" + std::string(29, '0') + "1\n", "a"),
            DumpResult::Ok, {{"a", std::nullopt, false}}},
        DirectoryRow{"a long name", WithLines(std::string(300, 'n') + "=1\nb=1\n", "ab"),
            DumpResult::Ok, {{std::string(300, 'n'), 1, true}, {"b", 1, true, 1}}},
        DirectoryRow{"a zero byte ends the directory",
            WithLines(std::string("a=1\nb\0=1\n", 9), "ab"), DumpResult::Ok,
            {{"a", 1, true}, {"b", std::nullopt, false}}},
        DirectoryRow{"tag in the first 100 bytes",
            std::string(60, ' ') + kStart + "        98\nabc=1\nx", DumpResult::Ok,
            {{"abc", 1, true}}},
        DirectoryRow{"empty", "", DumpResult::NotADump, {}},
        DirectoryRow{
            "another kind", "[Noise Test]\nDataPointer=        36\n", DumpResult::NotADump, {}},
        DirectoryRow{"tag behind the first 100 bytes",
            std::string(95, ' ') + kStart + "       127\n", DumpResult::NotADump, {}},
        DirectoryRow{"no offset", "[Kitbag]\nDataPointer\n", DumpResult::NoDataPointer, {}},
        DirectoryRow{"negative offset", std::string(kStart) + "        -1\n",
            DumpResult::BadDataPointer, {}},
        DirectoryRow{"offset before its own line", std::string(kStart) + "        12\n",
            DumpResult::BadDataPointer, {}},
        DirectoryRow{"offset behind the end", std::string(kStart) + "        33\n",
            DumpResult::DataPointerBeyondFile, {}},
        DirectoryRow{"huge offset", std::string(kStart) + "9999999999\n",
            DumpResult::DataPointerBeyondFile, {}},
        DirectoryRow{"a directory above 1 MiB",
            WithLines(std::string(std::size_t{1} << 20, 'n') + "=0\n", ""), DumpResult::TooLong,
            {}}));

TEST(PackedDump, EveryPrefixOfADumpSaysWhatItHolds)
{
    const TempFolder folder;
    const std::string bytes = DumpFile{{{"a.con", "first"}, {"b.con", "second"}}}.Bytes();
    const std::size_t headerBytes = bytes.find("first");
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        PackedDump dump;
        const DumpResult result =
            dump.Open(folder.Write("d.con", std::string_view(bytes).substr(0, length)));
        if (length < headerBytes) {
            // As long as the digits of the offset are not all there, it is another number.
            EXPECT_TRUE(result != DumpResult::Ok || dump.Members().empty()) << length;
            continue;
        }
        ASSERT_EQ(result, DumpResult::Ok) << length;
        ASSERT_EQ(dump.Members().size(), 2U) << length;
        EXPECT_EQ(dump.Members()[0].isWhole, length >= headerBytes + 5) << length;
        EXPECT_FALSE(dump.Members()[1].isWhole) << length;
    }
}

TEST(PackedDump, TellsWhyItCannotBeOpened)
{
    const TempFolder folder;
    PackedDump dump;
    ASSERT_EQ(dump.Open(folder.Write("d.con", DumpFile{{{"a", "x"}}}.Bytes())), DumpResult::Ok);
    EXPECT_EQ(dump.Open(folder.Path() / "none"), DumpResult::CantOpen);
    EXPECT_EQ(dump.FileFailure(), FileStatus::NotFound);
    EXPECT_TRUE(dump.Members().empty()) << "nothing is left of the dump before";
    EXPECT_EQ(dump.DataOffset(), 0U);
}

} // namespace
} // namespace vireo
