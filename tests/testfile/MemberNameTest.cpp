#include "testfile/MemberName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vireo {
namespace {

TEST(MemberName, WhatMayBecomeAFile)
{
    using Names = std::vector<std::string>;
    const std::pair<NameFault, Names> rows[] = {
        {NameFault::None,
            {"Oscil_Gray_600.con", "a", "Kitbag.txt", " leading.con", "a b.con", ".hidden", "a..b",
                "Gr\xF6\xDF.con", std::string(259, 'n'), "COM0", "COM10", "COM", "CONS", "a.CON",
                "LPTX", "Run 7.con2"}},
        {NameFault::Empty, {""}},
        {NameFault::TooLong, {std::string(260, 'n'), "../" + std::string(300, 'n')}},
        {NameFault::Folder,
            {"../a.con", "..\\a.con", "/etc/passwd", "sub/a.con", "\\\\server\\share\\a",
                "C:\\a.con", "C:a.con", "a.con:stream"}},
        {NameFault::Character, {"a\nb", "a\x01", "a?.con", "*", "a|b", "<a", "a>", "\"a\""}},
        {NameFault::Ending, {".", "..", "a.con.", "a.con ", " "}},
        {NameFault::Device,
            {"CON", "con", "Con.txt", "NUL.tar.gz", "aux .con", "PRN", "COM1", "com9.con", "LPT1",
                "COM\xB9", "LPT\xB3.con", "CONIN$", "conout$.x"}},
        {NameFault::DumpItself, {"Run 7.con", "RUN 7.CON"}},
    };
    for (const auto& [fault, names] : rows) {
        EXPECT_EQ(Describe(fault).empty(), fault == NameFault::None);
        for (const std::string& name : names)
            EXPECT_EQ(CheckMemberName(name, "Run 7.con"), fault) << '"' << name << '"';
    }
}

} // namespace
} // namespace vireo
