#include "testfile/PackedDump.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"

#include <ostream>

namespace vireo {
namespace {

constexpr const char* kStart = "[Kitbag]\nDataPointer=";

/// The members in one line: name, size (? where it is no number), and the place of their bytes
/// behind the start of the data (! where the dump does not hold them).
std::string MembersOf(const PackedDump& dump)
{
    std::string text;
    for (const PackedMember& member : dump.Members()) {
        text += text.empty() ? "" : ", ";
        text += member.name + " " + (member.size ? std::to_string(*member.size) : "?");
        text += member.isWhole ? "@" + std::to_string(member.offset - dump.DataOffset()) : "!";
    }
    return text;
}

struct DirectoryRow {
    const char* name;
    std::string bytes;
    std::string members;
    DumpResult result = DumpResult::Ok;

    friend void PrintTo(const DirectoryRow& row, std::ostream* out) { *out << row.name; }
};

class Directory : public testing::TestWithParam<DirectoryRow> { };

TEST_P(Directory, IsReadAsItStands)
{
    const TempFolder folder;
    PackedDump dump;
    EXPECT_EQ(dump.Open(folder.Write("d.con", GetParam().bytes)), GetParam().result);
    EXPECT_EQ(MembersOf(dump), GetParam().members);
}

std::string With(const std::string& lines, const std::string& data)
{
    return DumpFile{{{"", data}}}.Bytes(lines);
}
const std::string kZeros(28, '0');
const std::string kLongName(300, 'n');

INSTANTIATE_TEST_SUITE_P(Dumps, Directory,
    testing::Values(DirectoryRow{"one without bytes", With("a=3\nb=0\nc.d=2\n", "abcde"),
                        "a 3@0, b 0@3, c.d 2@3"},
        DirectoryRow{"offset 0", std::string(kStart) + "         0\na=3\nabc", ""},
        DirectoryRow{"no lines", With("", ""), ""},
        DirectoryRow{"bytes behind the last", With("a=3\n", "abcde"), "a 3@0"},
        DirectoryRow{"CR LF", "[Kitbag]\r\nDataPointer=        39\r\na=3\r\nabc", "a 3@0"},
        DirectoryRow{"line end in a name", With("a\n\nb=3\n", "abc"), "a\n\nb 3@0"},
        DirectoryRow{"last line without end", With("a=1\nb=2", "abb"), "a 1@0, b 2@1"},
        DirectoryRow{"last line without size", With("a=1\nb", "ab"), "a 1@0, b ?!"},
        DirectoryRow{"blank rest", With("a=1\n \r\n\t", "a"), "a 1@0"},
        DirectoryRow{"blanks around sizes", With("a=  2 \nb=1x\n", "aab"), "a 2@0, b 1@2"},
        DirectoryRow{"no size", With("a=\nb=1\n", "ab"), "a ?!, b 1!"},
        DirectoryRow{"negative size", With("a=1\nb=-1\nc=1\n", "abc"), "a 1@0, b ?!, c 1!"},
        DirectoryRow{"too large", With("a=1\nb=3\nc=1\nd=0\n", "abc"), "a 1@0, b 3!, c 1!, d 0!"},
        DirectoryRow{"sizes whose sum wraps", With("a=1\nb=18446744073709551615\nc=1\n", "abc"),
            "a 1@0, b 18446744073709551615!, c 1!"},
        DirectoryRow{"size of 65 bits", With("a=18446744073709551616\n", "a"), "a ?!"},
        DirectoryRow{"size of 29 characters", With("a=" + kZeros + "1\n", "a"), "a 1@0"},
        DirectoryRow{"size of 30 characters", With("a=0" + kZeros + "1\n", "a"), "a ?!"},
        DirectoryRow{"long name", With(kLongName + "=1\nb=1\n", "ab"), kLongName + " 1@0, b 1@1"},
        DirectoryRow{"zero byte", With(std::string("a=1\nb\0=1\n", 9), "ab"), "a 1@0, b ?!"},
        DirectoryRow{"tag in the first 100 bytes",
            std::string(60, ' ') + kStart + "        98\nabc=1\nx", "abc 1@0"},
        DirectoryRow{"empty", "", "", DumpResult::NotADump},
        DirectoryRow{"other kind", "[MTF]\nDataPointer=        32\n", "", DumpResult::NotADump},
        DirectoryRow{"tag behind the first 100 bytes",
            std::string(95, ' ') + kStart + "       127\n", "", DumpResult::NotADump},
        DirectoryRow{"no offset", "[Kitbag]\nDataPointer\n", "", DumpResult::NoDataPointer},
        DirectoryRow{
            "negative", std::string(kStart) + "        -1\n", "", DumpResult::BadDataPointer},
        DirectoryRow{
            "in its line", std::string(kStart) + "        12\n", "", DumpResult::BadDataPointer},
        DirectoryRow{"behind the end", std::string(kStart) + "        33\n", "",
            DumpResult::DataPointerBeyondFile},
        DirectoryRow{
            "huge", std::string(kStart) + "9999999999\n", "", DumpResult::DataPointerBeyondFile},
        DirectoryRow{"above 1 MiB", With(std::string(std::size_t{1} << 20, 'n') + "=0\n", ""), "",
            DumpResult::TooLong}));

TEST(PackedDump, EveryPrefixOfADumpSaysWhatItHolds)
{
    const TempFolder folder;
    const std::string bytes = DumpFile{{{"a.con", "first"}, {"b.con", "second"}}}.Bytes();
    const std::size_t headerBytes = bytes.find("first");
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        PackedDump dump;
        const DumpResult result =
            dump.Open(folder.Write("d.con", std::string_view(bytes).substr(0, length)));
        // As long as the digits of the offset are not all there, it is another number.
        if (length < headerBytes)
            EXPECT_TRUE(result != DumpResult::Ok || dump.Members().empty()) << length;
        else
            EXPECT_EQ(MembersOf(dump),
                length < headerBytes + 5 ? "a.con 5!, b.con 6!" : "a.con 5@0, b.con 6!");
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
}

} // namespace
} // namespace vireo
