#include "platform/PrivateProfile.h"
#include "tests/TempFolder.h"

namespace vireo {
namespace {

constexpr std::string_view kFile = "lost=outside any section\r\n"
                                   "; [Comment]\r\n"
                                   "[Section]\r\n"
                                   "Plain=value\r\n"
                                   "plain=second\r\n"
                                   "  spaced out \t = \t a b  \r\n"
                                   ";off=1\r\n"
                                   "double=\" kept \"\r\n"
                                   "single='it''s'\r\n"
                                   "half=\"open\r\n"
                                   "nested=\"'x'\"\r\n"
                                   "empty=\r\n"
                                   "none\r\n"
                                   "equals=a=b;c\r\n"
                                   "umlaut=\xE4\r\n"
                                   "minus=-12 mm\r\n"
                                   "[ Other ] ; not the first\r\n"
                                   "plain=3\r\n"
                                   "\r\n"
                                   "[SECTION]\r\n"
                                   "late=1\r\n"
                                   "[last]\r\n"
                                   "key=at the end";

struct ReadRow {
    const char* name;
    std::string_view section;
    std::string_view key;
    std::string_view text;
    int number; ///< With -99 as the default.
};

constexpr ReadRow kReadRows[] = {
    {"the first key of a name wins", "Section", "Plain", "value", 0},
    {"case does not count", "sEcTiOn", "PLAIN", "value", 0},
    {"blanks do not count", " Section ", "\tSpaced Out ", "a b", 0},
    {"comment", "Section", "off", "default", -99},
    {"double quotes keep blanks", "Section", "double", " kept ", 0},
    {"one pair of quotes is removed", "Section", "single", "it''s", 0},
    {"a quote without its pair stays", "Section", "half", "\"open", 0},
    {"only the outer quotes", "Section", "nested", "'x'", 0},
    {"no value", "Section", "empty", "", -99},
    {"no equals sign", "Section", "none", "default", -99},
    {"the first equals sign counts", "Section", "equals", "a=b;c", 0},
    {"8-bit text", "Section", "umlaut", "\xE4", 0},
    {"number with a unit", "Section", "minus", "-12 mm", -12},
    {"blanks in a section head", "Other", "plain", "3", 3},
    {"the first section of a name wins", "Section", "late", "default", -99},
    {"no line end at the end", "Last", "key", "at the end", 0},
    {"missing section", "Comment", "Plain", "default", -99},
    {"outside any section", "", "lost", "default", -99},
};

TEST(PrivateProfile, Reads)
{
    for (const std::string_view lineEnd : {"\r\n", "\n", "\r"}) {
        std::string text(kFile);
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
            text.replace(at, 2, lineEnd);
        const TempFolder folder;
        const PrivateProfile profile(folder.Write("settings.ini", text));
        for (const ReadRow& row : kReadRows) {
            EXPECT_EQ(profile.ReadString(row.section, row.key, "default"), row.text) << row.name;
            EXPECT_EQ(profile.ReadInt(row.section, row.key, -99), row.number) << row.name;
        }
    }
}

TEST(PrivateProfile, BufferSizesAndDefaults)
{
    const TempFolder folder;
    const PrivateProfile profile(folder.Write("settings.ini", "[s]\nk=abcdef\n"));
    EXPECT_EQ(profile.ReadString("s", "k", "", 7), "abcdef");
    EXPECT_EQ(profile.ReadString("s", "k", "", 6), "abcde");
    EXPECT_EQ(profile.ReadString("s", "k", "", 1), "");
    EXPECT_EQ(profile.ReadString("s", "k", "", 0), "");
    EXPECT_EQ(profile.ReadString("s", "x", "  abc  ", 100), "  abc");
    EXPECT_EQ(profile.ReadString("s", "x", "   "), "");
    const PrivateProfile missing(folder.Path() / "missing.ini");
    EXPECT_EQ(missing.ReadString("s", "k", "default"), "default");
    EXPECT_EQ(missing.ReadInt("s", "k", 5), 5);
}

struct WriteRow {
    const char* name;
    std::string_view before;
    std::string_view section;
    std::string_view key;
    std::string_view value;
    std::string_view after;
};

TEST(PrivateProfile, WritesOneKeyAndKeepsTheRest)
{
    const WriteRow rows[] = {
        {"new file", "", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"value replaced", "[s]\n;c\nK = 1 \nk=2\n", "S", "k", "22", "[s]\n;c\nK = 22 \nk=2\n"},
        {"quotes replaced", "[s]\nk=\" 1 \"\n", "s", "k", "2", "[s]\nk=2\n"},
        {"empty value filled", "[s]\nk=\nl=1", "s", "k", "2", "[s]\nk=2\nl=1"},
        {"key added before the blank line", "[s]\na=1\n\n[t]\nb=2\n", "s", "k", "v",
            "[s]\na=1\nk=v\n\n[t]\nb=2\n"},
        {"key added to the last line", "[s]\r\na=1", "s", "k", "v", "[s]\r\na=1\r\nk=v\r\n"},
        {"key added to an empty section", "[s]\n[t]\n", "s", "k", "v", "[s]\nk=v\n[t]\n"},
        {"section added", "; head\n[s]\na=1", "t", "k", "v", "; head\n[s]\na=1\n[t]\nk=v\n"},
        {"blanks around names and value", "", " s ", " k ", " v ", "[s]\r\nk=v\r\n"},
        {"line ends in the value", "[s]\n", "s", "k", "a\r\n[t]", "[s]\nk=a  [t]\n"},
        {"comment of the same name", "[s]\n;k=1\n", "s", "k", "2", "[s]\n;k=1\nk=2\n"},
        {"old line ends", "[s]\ra=1\r", "s", "k", "v", "[s]\ra=1\rk=v\r"},
    };
    for (const WriteRow& row : rows) {
        const TempFolder folder;
        const auto path =
            row.before.empty() ? folder.Path() / "s.ini" : folder.Write("s.ini", row.before);
        const PrivateProfile profile(path);
        EXPECT_EQ(profile.WriteString(row.section, row.key, row.value), FileStatus::Ok) << row.name;
        EXPECT_EQ(TempFolder::Read(path), row.after) << row.name;
        EXPECT_EQ(profile.WriteString(row.section, row.key, row.value), FileStatus::Ok);
        EXPECT_EQ(TempFolder::Read(path), row.after) << row.name << ", once more";
    }
}

TEST(PrivateProfile, RefusesWhatCouldNotBeReadBack)
{
    const TempFolder folder;
    const auto path = folder.Write("s.ini", "[s]\nk=1\n");
    const PrivateProfile profile(path);
    for (const std::string_view key : {"", " ", "a=b", "a\nb", "a\rb", ";a", "[a"})
        EXPECT_EQ(profile.WriteString("s", key, "v"), FileStatus::Failed) << key;
    EXPECT_EQ(profile.WriteString("s]\n[t", "k", "v"), FileStatus::Failed);
    EXPECT_EQ(TempFolder::Read(path), "[s]\nk=1\n");
    EXPECT_EQ(PrivateProfile(folder.Path()).WriteString("s", "k", "v"), FileStatus::IsFolder);
}

TEST(PrivateProfile, Removes)
{
    const TempFolder folder;
    const auto path = folder.Write("s.ini", "[s]\na=1\nA=2\n;c\n\n[t]\nb=1\n[S]\na=3\n");
    const PrivateProfile profile(path);
    EXPECT_EQ(profile.Remove("S", "a"), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(path), "[s]\nA=2\n;c\n\n[t]\nb=1\n[S]\na=3\n");
    EXPECT_EQ(profile.Remove("s", "none"), FileStatus::Ok);
    EXPECT_EQ(profile.Remove("none", std::nullopt), FileStatus::Ok);
    EXPECT_EQ(profile.Remove("s", std::nullopt), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(path), "[t]\nb=1\n[S]\na=3\n");
    EXPECT_EQ(PrivateProfile(folder.Path() / "no.ini").Remove("s", "a"), FileStatus::Ok);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "no.ini"));
}

TEST(PrivateProfile, FilesAboveAMegabyteAreNotTouched)
{
    const TempFolder folder;
    const std::string text = "[s]\nk=1\n" + std::string(1 << 20, ';');
    const auto path = folder.Write("s.ini", text);
    const PrivateProfile profile(path);
    EXPECT_EQ(profile.ReadInt("s", "k", 7), 7);
    EXPECT_EQ(profile.WriteString("s", "k", "2"), FileStatus::TooLarge);
    EXPECT_EQ(std::filesystem::file_size(path), text.size());
}

} // namespace
} // namespace vireo
