#include "testfile/MemberName.h"

#include <gtest/gtest.h>

#include <string>

namespace vireo {
namespace {

struct NameRow {
    std::string name;
    NameFault fault;
};

TEST(MemberName, WhatMayBecomeAFile)
{
    using enum NameFault;
    const NameRow rows[] = {
        {"Oscil_Gray_600.con", None},
        {"a", None},
        {"Kitbag.txt", None},
        {" leading.con", None},
        {"a b.con", None},
        {".hidden", None},
        {"a..b", None},
        {"Gr\xF6\xDF"
         "e.con",
            None},
        {std::string(259, 'n'), None},
        {"", Empty},
        {std::string(260, 'n'), TooLong},
        {"../a.con", Folder},
        {"..\\a.con", Folder},
        {"/etc/passwd", Folder},
        {"sub/a.con", Folder},
        {"\\\\server\\share\\a", Folder},
        {"C:\\a.con", Folder},
        {"C:a.con", Folder},
        {"a.con:stream", Folder},
        {"a\nb", Character},
        {std::string("a\x01") + "b", Character},
        {"a?.con", Character},
        {"*", Character},
        {"a|b", Character},
        {"<a>", Character},
        {"\"a\"", Character},
        {".", Ending},
        {"..", Ending},
        {"a.con.", Ending},
        {"a.con ", Ending},
        {" ", Ending},
        {"CON", Device},
        {"con", Device},
        {"Con.txt", Device},
        {"NUL.tar.gz", Device},
        {"aux .con", Device},
        {"PRN", Device},
        {"COM1", Device},
        {"com9.con", Device},
        {"LPT1", Device},
        {"COM\xB9", Device},
        {"LPT\xB3.con", Device},
        {"CONIN$", Device},
        {"COM0", None},
        {"COM10", None},
        {"COM", None},
        {"CONS", None},
        {"a.CON", None},
        {"LPTX", None},
        {"Run 7.con", DumpItself},
        {"RUN 7.CON", DumpItself},
        {"Run 7.con2", None},
    };
    for (const NameRow& row : rows) {
        EXPECT_EQ(CheckMemberName(row.name, "Run 7.con"), row.fault) << '"' << row.name << '"';
        EXPECT_EQ(Describe(CheckMemberName(row.name, "Run 7.con")).empty(), row.fault == None);
    }
}

} // namespace
} // namespace vireo
