#include "testfile/TestFileHeader.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

TestFileHeader HeaderOf(std::string_view text)
{
    TestFileHeader header;
    header.SetText(text);
    return header;
}

struct CodeRow {
    const char* what;
    const char* text;
    bool found;
    int value;
};

void ExpectCodes(std::span<const CodeRow> rows, HeaderValue<int> (TestFileHeader::*reader)() const)
{
    for (const CodeRow& row : rows) {
        SCOPED_TRACE(row.what);
        const HeaderValue<int> code = (HeaderOf(row.text).*reader)();
        EXPECT_EQ(code.found, row.found);
        EXPECT_EQ(code.value, row.value);
    }
}

TEST(TestFileHeader, CameraUsedCodes)
{
    const CodeRow rows[] = {
        {"all cameras", "CameraUsed=All\n", true, 255},
        {"A alone", "CameraUsed=A\n", true, 0},
        {"A at the end of the text", "CameraUsed=A", true, 0},
        {"an l on the next line does not make it all", "CameraUsed=A\nl", true, 0},
        {"B", "CameraUsed=B\r\n", true, 1},
        {"C", "CameraUsed=C\n", true, 2},
        {"D", "CameraUsed=D\n", true, 3},
        {"camera E reads back as 0", "CameraUsed=E\n", true, 0},
        {"camera H reads back as 0", "CameraUsed=H\n", true, 0},
        {"a number", "CameraUsed=6\n", true, 6},
        {"lower case is no letter", "CameraUsed=b\n", true, 0},
        {"no value", "CameraUsed=\n", true, 0},
        {"no key", "Camera=A\n", false, 0},
    };
    ExpectCodes(rows, &TestFileHeader::CameraUsed);
}

TEST(TestFileHeader, ColorCodes)
{
    const CodeRow rows[] = {
        {"red", "Color=Red\n", true, 0},
        {"all three interleaved", "Color=Red:Green:Blue\n", true, 254},
        {"the fifth character decides", "Color=RxyzG\n", true, 254},
        {"the next line's fifth character does not", "Color=Red\nGreen", true, 0},
        {"green", "Color=Green\n", true, 1},
        {"gray", "Color=Gray\n", true, 4},
        {"grey is green", "Color=Grey\n", true, 1},
        {"blue", "Color=Blue\n", true, 2},
        {"NONE reads back as green", "Color=NONE\n", true, 1},
        {"a number", "Color=3\n", true, 3},
        {"lower case is no colour", "Color=red\n", true, 0},
        {"ColorScanner is another key", "ColorScanner=TRUE\n", false, 0},
    };
    ExpectCodes(rows, &TestFileHeader::Color);
}

TEST(TestFileHeader, Integers)
{
    const CodeRow rows[] = {
        {"ends at the line", "Width=12\nHeight=3", true, 12},
        {"leading blanks", "Width=  \t7", true, 7},
        {"stops at a letter", "Width=7mm", true, 7},
        {"negative", "Width=-7\n", true, -7},
        {"no digits", "Width=wide\n", true, 0},
        {"nothing on its line", "Width=\n8", true, 0},
        {"beyond 32 bits", "Width=99999999999\n", true, 2147483647},
        {"the first occurrence wins", "Width=1\nWidth=2\n", true, 1},
        {"not only at line starts", "LineWidth=5\nWidth=2\n", true, 5},
        {"behind a zero byte there is nothing", "Date=x", false, 0},
        {"another case", "WIDTH=3", false, 0},
    };
    ExpectCodes(rows, &TestFileHeader::Width);
    EXPECT_FALSE(HeaderOf(std::string_view("Date=x\0Width=3", 14)).Width().found);
}

TEST(TestFileHeader, TruthDiffersFromKeyToKey)
{
    struct Row {
        const char* value;
        bool corrected;
        bool signed32Found;
        bool signed32;
        bool directory;
    };
    for (const Row& row : {Row{"TRUE", true, true, true, true}, Row{"T", true, true, true, true},
             Row{"true", false, true, true, true}, Row{"FALSE", false, false, false, false},
             Row{"1", false, false, false, false}, Row{"", false, false, false, false}}) {
        SCOPED_TRACE(row.value);
        const std::string value = row.value;
        const TestFileHeader header = HeaderOf("Corrected=" + value + "\nColorScanner=" + value
            + "\r\nIsSigned_32_Profile=" + value + "\nKvMT_ContScanUseDefaultDirectory=" + value);
        EXPECT_TRUE(header.Corrected().found);
        EXPECT_EQ(header.Corrected().value, row.corrected);
        EXPECT_EQ(header.ColorScanner().value, row.corrected);
        EXPECT_EQ(header.IsSigned32Profile().found, row.signed32Found);
        EXPECT_EQ(header.IsSigned32Profile().value, row.signed32);
        EXPECT_TRUE(header.UsesDefaultDirectory().found);
        EXPECT_EQ(header.UsesDefaultDirectory().value, row.directory);
    }
}

TEST(TestFileHeader, ThreeIntegers)
{
    using Three = std::array<int, 3>;
    struct Row {
        const char* value;
        bool complete;
        Three centerLines;
        Three magnification;
    };
    for (const Row& row : {Row{"5230 -5 7", true, {5230, -5, 7}, {5230, -5, 7}},
             Row{"  1\t2   3 4", true, {1, 2, 3}, {1, 2, 3}}, Row{"1 2", false, {}, {1, 2, 0}},
             Row{"1 x 3", false, {}, {1, 0, 0}}, Row{"", false, {}, {}},
             Row{"1 2 -", false, {}, {1, 2, 0}}, Row{"1 2\n3", false, {}, {1, 2, 0}}}) {
        SCOPED_TRACE(row.value);
        const std::string value = row.value;
        const auto centerLines = HeaderOf("CenterLines=" + value).CenterLines();
        EXPECT_EQ(centerLines.found, row.complete);
        EXPECT_EQ(centerLines.value, row.centerLines);
        const auto magnification = HeaderOf("Magnification=" + value).Magnification();
        EXPECT_TRUE(magnification.found);
        EXPECT_EQ(magnification.value, row.magnification);
    }
}

TEST(TestFileHeader, ScannerNameIsSearchedWithoutItsEquals)
{
    struct Row {
        const char* text;
        const char* name;
    };
    for (const Row& row : {Row{"ScannerName=Heron 36\nDate=x", "Heron 36"},
             Row{"ScannerName:Heron\r\n", "Heron"}, Row{"ScannerName\nnext line\n", "next line"},
             Row{"ScannerName=", ""}, Row{"x ScannerName", ""}}) {
        const HeaderValue<std::string> name = HeaderOf(row.text).ScannerName();
        EXPECT_TRUE(name.found) << row.text;
        EXPECT_EQ(name.value, row.name) << row.text;
    }
    EXPECT_FALSE(HeaderOf("Scanner Name=Heron").ScannerName().found);
}

TEST(TestFileHeader, PairedTagsOpenTheSameTest)
{
    EXPECT_TRUE(HeaderOf("[Adjust Center CCD]").IsAdjustCenterCCD());
    EXPECT_TRUE(HeaderOf("[Scan-Line Positioning]").IsAdjustCenterCCD());
    EXPECT_TRUE(HeaderOf("[Vertical Camera Verification]").IsVerticalCameraVerification());
    EXPECT_TRUE(HeaderOf("x\n[Mirror Carriage Adjustment]").IsVerticalCameraVerification());
    EXPECT_FALSE(HeaderOf("[G3 Light Profile]").IsLightProfile());
    EXPECT_FALSE(HeaderOf("[Live Oscilloscope]").IsOscilloscope());
    EXPECT_FALSE(HeaderOf("[mtf]").IsMtf());
    EXPECT_FALSE(HeaderOf("[IsKestrel6 Settings]").IsKestrel6Settings());
}

TEST(TestFileHeader, DataOffset)
{
    EXPECT_EQ(HeaderOf("[MTF]\nDataPointer=       123\n").DataOffset(), 123);
    EXPECT_EQ(HeaderOf("[MTF]\nDataPointer=0000000123456").DataOffset(), 123)
        << "ten characters only";
    EXPECT_EQ(HeaderOf("[A=7]\nDataPointer=       123\n").DataOffset(), 7)
        << "the first '=' is not that of the data offset";
    EXPECT_EQ(HeaderOf("[MTF]\n").DataOffset(), 0);
    EXPECT_EQ(HeaderOf("[MTF]\nDataPointer=").DataOffset(), 0);
}

/// A valid file: header and four bytes of data.
std::string ValidFile()
{
    TestFileHeader header;
    header.WriteOscilloscopeTag();
    header.WriteDate("2026-03-14");
    header.WriteText(std::string(120, 'x') + "\n");
    header.WriteWidth(4);
    header.FixUpDataOffset();
    return header.Text() + "data";
}

HeaderResult LoadBytes(const TempFolder& folder, std::string_view bytes, TestFileHeader& header)
{
    PositionalFile file;
    EXPECT_EQ(file.Open(folder.Write("test.con", bytes)), FileStatus::Ok);
    return header.Load(file);
}

TEST(TestFileHeaderLoad, TakesTheWholeHeaderAndNoData)
{
    const TempFolder folder;
    TestFileHeader header;
    ASSERT_EQ(LoadBytes(folder, ValidFile(), header), HeaderResult::Ok);
    EXPECT_EQ(header.Text() + "data", ValidFile());
    EXPECT_EQ(header.Width().value, 4);
}

TEST(TestFileHeaderLoad, EveryShorterFileIsRefused)
{
    const TempFolder folder;
    const std::string valid = ValidFile();
    const std::size_t firstDigit = valid.find_first_of("123456789");
    for (std::size_t length = 0; length < valid.size() - 4; ++length) {
        // Cut inside its digits the offset is another number, which can be a valid one.
        if (length > firstDigit && length < valid.find('\n', firstDigit))
            continue;
        TestFileHeader header;
        header.SetText("left from before");
        const HeaderResult result = LoadBytes(folder, valid.substr(0, length), header);
        EXPECT_NE(result, HeaderResult::Ok) << length << " bytes";
        EXPECT_TRUE(header.Text().empty()) << length << " bytes";
    }
}

TEST(TestFileHeaderLoad, SaysWhatIsWrong)
{
    const TempFolder folder;
    const std::string tooLong = "[MTF]\nDataPointer=   1048577\n" + std::string(1048577, ' ');
    struct Row {
        const char* what;
        std::string bytes;
        HeaderResult result;
    };
    for (const Row& row : {Row{"empty file", "", HeaderResult::NothingRead},
             Row{"begins with the mark of an unread buffer", "\xCD=        1",
                 HeaderResult::NothingRead},
             Row{"no equals sign", "[MTF]\n", HeaderResult::NoDataPointer},
             Row{"equals sign behind byte 100", std::string(100, ' ') + "=         5",
                 HeaderResult::NoDataPointer},
             Row{"equals sign behind a zero", std::string("[MTF]\0=       5", 15),
                 HeaderResult::NoDataPointer},
             Row{"zero", "[MTF]\nDataPointer=         0\n", HeaderResult::BadDataPointer},
             Row{"negative", "[MTF]\nDataPointer=       -30\n", HeaderResult::BadDataPointer},
             Row{"text", "[MTF]\nDataPointer=unknown   \n", HeaderResult::BadDataPointer},
             Row{"one byte too far", "[MTF]\nDataPointer=        30\n",
                 HeaderResult::DataPointerBeyondFile},
             Row{"largest number", "[MTF]\nDataPointer=9999999999\n",
                 HeaderResult::DataPointerBeyondFile},
             Row{"just the whole file", "[MTF]\nDataPointer=        29\n", HeaderResult::Ok},
             Row{"above the limit", tooLong, HeaderResult::TooLong}}) {
        TestFileHeader header;
        EXPECT_EQ(LoadBytes(folder, row.bytes, header), row.result) << row.what;
    }
}

TEST(TestFileHeaderWrite, LinesAsOtherToolsExpectThem)
{
    TestFileHeader header;
    header.WriteLiveOscilloscopeTag();
    header.WriteFirmwareRevision(12);
    header.WriteScannerWidth(43200);
    header.WriteCenterLines({1, -2, 3});
    header.WriteCameraPixels(7, 5000);
    header.WriteColorScanner(true);
    header.WriteCorrected(false);
    header.WriteUnknownKestrel6Revision();
    header.FixUpDataOffset();
    EXPECT_EQ(header.Text(),
        "[Live Oscilloscope]\nDataPointer=       209\nFirmware Revision=12\n"
        "ScannerWidth(1/1200)=43200\nCenterLines=1 -2 3\nCameraHPix=5000\nColorScanner=TRUE\n"
        "Corrected=FALSE\nKestrel6 Revision=UNKNOWN\nKestrel6 Build=UNKNOWN\n");
    TestFileHeader mtf;
    mtf.WriteMtfTag();
    EXPECT_EQ(mtf.Text(), "[MTF]\n") << "without a placeholder";
}

TEST(TestFileHeaderWrite, CodesReadBack)
{
    struct Row {
        int written;
        const char* line;
        int readBack;
    };
    for (const Row& row : {Row{0, "Color=Red\n", 0}, Row{2, "Color=Blue\n", 2},
             Row{3, "Color=Red:Green:Blue\n", 254}, Row{254, "Color=Red:Green:Blue\n", 254},
             Row{4, "Color=Gray\n", 4}, Row{77, "Color=NONE\n", 1}}) {
        TestFileHeader header;
        header.WriteColor(row.written);
        EXPECT_EQ(header.Text(), row.line);
        EXPECT_EQ(header.Color().value, row.readBack) << row.line;
    }
    for (const Row& row : {Row{0, "CameraUsed=A\n", 0}, Row{3, "CameraUsed=D\n", 3},
             Row{4, "CameraUsed=E\n", 0}, Row{255, "CameraUsed=All\n", 255}}) {
        TestFileHeader header;
        header.WriteCameraUsed(row.written);
        EXPECT_EQ(header.Text(), row.line);
        EXPECT_EQ(header.CameraUsed().value, row.readBack) << row.line;
    }
}

TEST(TestFileHeaderWrite, FixUpNeedsRoomBehindTheEquals)
{
    for (const char* text : {"", "[MTF]\n", "DataPointer=", "DataPointer=123456789"}) {
        TestFileHeader header = HeaderOf(text);
        header.FixUpDataOffset();
        EXPECT_EQ(header.Text(), text);
    }
}

TEST(TestFileHeaderWrite, KitbagTag)
{
    TestFileHeader header = HeaderOf("[Kitbag]\nDataPointer=0123456789\na.con=5\n");
    header.OverwriteKitbagTag(40);
    EXPECT_EQ(header.Text(), "[Kitbag]\nDataPointer=        40\na.con=5\n");
    TestFileHeader appended = HeaderOf("x\n");
    appended.AppendKitbagTag(-1);
    EXPECT_EQ(appended.Text(), "x\n[Kitbag]\nDataPointer=        -1\n");
    TestFileHeader shorter = HeaderOf("[Kit");
    shorter.OverwriteKitbagTag(7);
    EXPECT_EQ(shorter.Text(), "[Kitbag]\nDataPointer=         7\n");
}

TEST(TestFileHeaderWrite, ProgramRevisionComesFromTheTextBesideTheModule)
{
    const TempFolder folder;
    folder.Write("Kestr6.txt", "Kestrel6 Revision=6.1\nKestrel6 Build=9");
    folder.Write("Long.txt", std::string(100, 'r'));
    TestFileHeader header;
    header.WriteProgramRevisionOf(folder.Path() / "Kestr6.exe");
    EXPECT_EQ(header.Text(), "Kestrel6 Revision=6.1\nKestrel6 Build=9\n");
    header.WriteProgramRevisionOf(folder.Path() / "Long.exe");
    header.WriteProgramRevisionOf(folder.Path() / "Absent.exe");
    header.WriteProgramRevisionOf("ab");
    EXPECT_EQ(header.Kestrel6Build().value, "9");
    EXPECT_EQ(header.Text().size(), 39U) << "nothing more was appended";
}

} // namespace

} // namespace vireo
