#include "app/ProgramCommandLine.h"

#include <gtest/gtest.h>

using namespace vireo;

namespace {
struct LineCase {
    const char* name;
    std::string_view whole;
    std::string_view rest;
};

class BehindProgramNameTest : public testing::TestWithParam<LineCase> { };
} // namespace

TEST_P(BehindProgramNameTest, KeepsTheRestAsItStands)
{
    EXPECT_EQ(BehindProgramName(GetParam().whole), GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Lines, BehindProgramNameTest,
    testing::Values(LineCase{"Nothing", "", ""}, LineCase{"NameOnly", "vireo.exe", ""},
        LineCase{"QuotedNameOnly", "\"C:\\Program Files\\vireo.exe\"", ""},
        LineCase{"BlanksBehindTheName", "vireo.exe  ", ""},
        LineCase{
            "QuotedNameAndPath", "\"C:\\a b\\vireo.exe\" \"D:\\c d\\r.con\"", "\"D:\\c d\\r.con\""},
        LineCase{"BareNameAndPath", "vireo D:\\r.con", "D:\\r.con"},
        LineCase{"TabsAndInnerBlanks", "vireo \t D:\\a  b.con ", "D:\\a  b.con "},
        LineCase{"QuotesInsideTheName", "C:\\\"Program Files\"\\vireo.exe x", "x"},
        LineCase{"QuoteNeverClosed", "\"C:\\vireo.exe D:\\r.con", ""}),
    [](const auto& row) { return row.param.name; });
