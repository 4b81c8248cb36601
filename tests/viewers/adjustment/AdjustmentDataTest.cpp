#include "tests/TempFolder.h"
#include "tests/viewers/lightprofile/LightProfileFiles.h"
#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/adjustment/AdjustmentExport.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Form = AdjustmentData::Form;

constexpr const char* kTag = "[Adjust Center CCD]";

class AdjustmentDataTest : public testing::Test {
protected:
    AdjustmentResult Read(
        const std::string& bytes, AdjustmentKind kind = AdjustmentKind::AdjustCenterCcd)
    {
        return m_data.Read(m_folder.Write("adjust.con", bytes), kind);
    }

    TempFolder m_folder;
    AdjustmentData m_data;
};

TEST_F(AdjustmentDataTest, TakesDataThatTheSizesExplain)
{
    const struct {
        const char* name;
        std::string lines;
        std::size_t bytes;
        Form form;
        std::int64_t width;
        std::int64_t count;
    } cases[] = {
        {"one line", "Width=6\nHeight=1\n", 6, Form::Profile, 6, 1},
        {"without height", "Length=6\n", 6, Form::Profile, 6, 1},
        {"lines without height", "Width=3\n", 6, Form::Picture, 3, 2},
        {"a picture", "Width=3\nHeight=2\n", 6, Form::Picture, 3, 2},
        {"a colour picture", "Color=Red:Green:Blue\nWidth=2\nHeight=2\n", 12, Form::Picture, 2, 2},
        {"signed lines", "IsSigned_32_Profile=TRUE\nWidth=2\nHeight=2\n", 16, Form::Profile, 2, 2},
        {"cameras first", "CameraAPix=2\nCameraBPix=1\nWidth=6\n", 6, Form::Picture, 3, 2},
        {"width where the cameras do not fit", "CameraAPix=4\nWidth=6\nHeight=1\n", 6,
            Form::Profile, 6, 1},
        {"length where the width does not fit", "Width=5\nLength=2\nHeight=3\n", 6, Form::Picture,
            2, 3},
        {"nothing", "Width=6\n", 0, Form::None, 0, 0},
        {"no sizes", "ScannerName=Heron\n", 6, Form::Unexplained, 0, 0},
        {"one byte too many", "Width=6\nHeight=1\n", 7, Form::Unexplained, 0, 0},
        {"fewer lines than told", "Width=6\nHeight=3\n", 12, Form::Unexplained, 0, 0},
        {"negative", "Width=-6\nHeight=-1\n", 6, Form::Unexplained, 0, 0},
        {"huge", "CameraAPix=2147483647\nWidth=2147483647\nHeight=2147483647\nColor=3\n", 6,
            Form::Unexplained, 0, 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(
            Read(TextFile(kTag, row.lines, std::string(row.bytes, 'x'))), AdjustmentResult::Ok);
        EXPECT_EQ(m_data.DataForm(), row.form) << m_data.Explanation();
        EXPECT_EQ(m_data.Lines().LineWidth(), row.width);
        EXPECT_EQ(m_data.Lines().LineCount(), row.count);
        EXPECT_EQ(m_data.Picture() != nullptr, row.form == Form::Picture);
        EXPECT_FALSE(m_data.Explanation().empty());
    }
}

TEST_F(AdjustmentDataTest, ReadsThePixelsOfAColourPicture)
{
    ASSERT_EQ(
        Read(TextFile(kTag, "Color=3\nWidth=2\nHeight=2\n", "RGBrgb123456")), AdjustmentResult::Ok);
    std::array<std::uint8_t, 6> column{};
    m_data.Picture()->Read({1, 0, 1, 2}, column);
    EXPECT_EQ(std::string(column.begin(), column.end()), "rgb456");
}

TEST_F(AdjustmentDataTest, TellsBothNamesOfEachTest)
{
    const struct {
        const char* tag;
        AdjustmentKind kind;
    } cases[] = {
        {"[Adjust Center CCD]", AdjustmentKind::AdjustCenterCcd},
        {"[Scan-Line Positioning]", AdjustmentKind::AdjustCenterCcd},
        {"[Vertical Camera Verification]", AdjustmentKind::VerticalCameraVerification},
        {"[Mirror Carriage Adjustment]", AdjustmentKind::VerticalCameraVerification},
    };
    for (const auto& row : cases) {
        const std::string file = TextFile(row.tag, "Width=1\n", "x");
        ASSERT_EQ(Read(file, row.kind), AdjustmentResult::Ok) << row.tag;
        EXPECT_EQ("[" + std::string(m_data.Title()) + "]", row.tag);
        const auto other = row.kind == AdjustmentKind::AdjustCenterCcd
            ? AdjustmentKind::VerticalCameraVerification
            : AdjustmentKind::AdjustCenterCcd;
        EXPECT_EQ(Read(file, other), AdjustmentResult::WrongKind) << row.tag;
        EXPECT_FALSE(m_data.DescribeFailure(AdjustmentResult::WrongKind).empty());
    }
    EXPECT_EQ(Read(std::string(kTag) + "\nDataPointer=      9999\n"), AdjustmentResult::BadHeader);
}

TEST_F(AdjustmentDataTest, ExportsTheLineOrTheTable)
{
    const auto target = m_folder.Path() / "out.csv";
    ASSERT_EQ(
        Read(TextFile(kTag, "Resolution=254\nWidth=2\nHeight=2\n", "abcd")), AdjustmentResult::Ok);
    ASSERT_EQ(ExportAdjustmentAsCsv(target, m_data, 1), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(target),
        "pixel,position_mm,camera,gray\r\n0,0,,99\r\n1,0.09999999999999999,,100\r\n");

    ASSERT_EQ(Read(TextFile(kTag, "Note=\xE5, \"b\"\nWidth=7\n", "ab")), AdjustmentResult::Ok);
    ASSERT_EQ(ExportAdjustmentAsCsv(target, m_data, 0), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(target),
        "key,value,meaning\r\n[Adjust Center CCD],,Section\r\n"
        "DataPointer,63,\"Where the data begin, in bytes\"\r\n"
        "Note,\"\xC3\xA5, \"\"b\"\"\",\r\nWidth,7,Width in pixels\r\n");
}

} // namespace
} // namespace vireo
