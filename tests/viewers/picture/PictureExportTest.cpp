#include "tests/TempFolder.h"
#include "tests/viewers/picture/TiffFile.h"
#include "viewers/picture/PictureCameras.h"
#include "viewers/picture/PictureExport.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(PictureCamerasTest, FindsCamerasAndWhereTheyMeet)
{
    // C is not there, and the picture ends within E.
    constexpr CameraCounts kCounts{10, 20, 0, 5, 100, -3, 0, 0};
    struct Row {
        std::int64_t column;
        std::optional<char> camera;
    };
    for (const Row& row : {Row{-1, {}}, Row{0, 'A'}, Row{9, 'A'}, Row{10, 'B'}, Row{29, 'B'},
             Row{30, 'D'}, Row{35, 'E'}, Row{134, 'E'}, Row{135, {}}})
        EXPECT_EQ(CameraOfColumn(kCounts, row.column), row.camera) << row.column;

    const std::vector<CameraBoundary> boundaries = CameraBoundaries(kCounts, 35);
    ASSERT_EQ(boundaries.size(), 2U) << "no boundary behind the last column";
    EXPECT_EQ(boundaries[0].column, 10);
    EXPECT_EQ(boundaries[1].left, 'B');
    EXPECT_EQ(boundaries[1].right, 'D');
    EXPECT_EQ(boundaries[1].column, 30);
    EXPECT_TRUE(CameraBoundaries({0, 40}, 40).empty());
}

class PictureExportTest : public testing::Test {
protected:
    std::string Export(
        const TiffPageBytes& page, std::int64_t row, ByteOrder order = ByteOrder::Little)
    {
        WorkProgress progress;
        failure = ExportPictureRow(
            {folder.Write("picture.tif", TiffFile(order).Add(page).Bytes()), 1, row, target},
            progress);
        return TempFolder::Read(target);
    }

    TempFolder folder;
    std::filesystem::path target = folder.Path() / "row.csv";
    std::string failure;
};

TEST_F(PictureExportTest, WritesSamplesAndTheirMeans)
{
    TiffPageBytes page;
    page.width = 3;
    page.height = 2;
    page.pixels = std::string("\x00\x0A\xFF\x01\x0C\xFF", 6);
    page.dotsPerInch = 1;
    page.description = "TQX\nm_iA=2\nm_iB=0\nm_iC=0\nm_iD=0\nm_iE=0\nm_iF=0\nm_iG=0\nm_iH=0";
    EXPECT_EQ(Export(page, 1),
        "pixel,position_mm,camera,gray,gray_mean\r\n"
        "0,0,A,1,0.5\r\n1,25.4,A,12,11\r\n2,50.8,,255,255\r\n");
    page.depth = ColorDepth::Bilevel;
    page.pixels = "\xA0\x20";
    page.dotsPerInch = 0;
    page.description.clear();
    EXPECT_EQ(Export(page, 0),
        "pixel,position_mm,camera,bit,bit_mean\r\n0,,,1,0.5\r\n1,,,0,0\r\n2,,,1,1\r\n");
}

TEST_F(PictureExportTest, WritesColoursAndWideSamples)
{
    TiffPageBytes page;
    page.width = 1;
    page.height = 1;
    page.depth = ColorDepth::Rgb16;
    page.pixels = std::string("\x01\x02\x03\x04\x05\x06", 6);
    page.dotsPerInch = 0;
    EXPECT_EQ(Export(page, 0, ByteOrder::Big),
        "pixel,position_mm,camera,red,green,blue,red_mean,green_mean,blue_mean\r\n"
        "0,,,258,772,1286,258,772,1286\r\n");
    page.depth = ColorDepth::Gray8;
    page.pixels = "\x07";
    page.colorMap.assign(768, 0);
    EXPECT_EQ(Export(page, 0), "pixel,position_mm,camera,index\r\n0,,,7\r\n");
}

TEST_F(PictureExportTest, LeavesNothingWhereThereIsNoSuchRow)
{
    TiffPageBytes page;
    page.pixels = std::string(12, 'x');
    EXPECT_EQ(Export(page, 3), "");
    EXPECT_EQ(failure, "There is no line 3: the picture has 3, counted from 0");
    page.pixels.resize(11);
    page.rowsPerStrip = 3;
    EXPECT_EQ(Export(page, 0), "");
    EXPECT_EQ(failure, "Can't read tif-file");
    EXPECT_FALSE(std::filesystem::exists(target));
}

} // namespace
} // namespace vireo
