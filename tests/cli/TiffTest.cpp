#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/picture/TiffFile.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// A gray picture of 200 x 100, each column of its own value.
TiffPageBytes Columns()
{
    TiffPageBytes page;
    page.width = 200;
    page.height = 100;
    for (std::uint32_t row = 0; row < page.height; ++row) {
        for (int column = 0; column < 200; ++column)
            page.pixels += static_cast<char>(column);
    }
    return page;
}

class TiffProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("picture.tif", bytes)); }
    std::string File(const TiffPageBytes& page) { return File(TiffFile().Add(page).Bytes()); }

    TempFolder folder;
};

TEST_F(TiffProgram, RendersTheWholePicture)
{
    const QImage image = Rendered(File(Columns()));
    ASSERT_EQ(image.size(), QSize(1600, 1000));
    // 8 times as large, it is as wide as the image and 100 lower on both sides.
    for (const int column : {0, 77, 199})
        EXPECT_EQ(qRed(image.pixel(8 * column + 4, 500)), column);
    EXPECT_NE(qRed(image.pixel(4, 99)), 0);
    EXPECT_EQ(qRed(image.pixel(4, 100)), 0);
}

TEST_F(TiffProgram, ZoomsAboutTheMiddle)
{
    const QImage image = Rendered(File(Columns()), {"--size", "100x100", "--zoom", "20"});
    ASSERT_EQ(image.size(), QSize(100, 100));
    // Half as large and 20 times that: 10 columns from 95 on.
    for (const int column : {95, 99, 104})
        EXPECT_EQ(qRed(image.pixel(10 * (column - 95) + 5, 50)), column);
}

TEST_F(TiffProgram, RefusesWhatIsNotAllThere)
{
    const std::string out = Text(folder.Path() / "out.png");
    const std::string bytes = TiffFile().Add(Columns()).Bytes();
    for (const std::string& cut : {bytes.substr(0, bytes.size() - 1), std::string("II*")}) {
        const ProgramRun run = RunCli({"render", File(cut), "-o", out});
        EXPECT_EQ(run.exitStatus, 1);
        ASSERT_EQ(run.Errors().size(), 1U);
        EXPECT_TRUE(run.Errors()[0].ends_with(": Can't read tif-file")) << run.error;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

TEST_F(TiffProgram, ExportsARow)
{
    const std::string out = Text(folder.Path() / "row.csv");
    ASSERT_EQ(RunCli({"export", File(Columns()), "-o", out, "--line", "99"}).exitStatus, 0);
    const std::string table = TempFolder::Read(out);
    EXPECT_TRUE(table.starts_with("pixel,position_mm,camera,gray,gray_mean\r\n0,0,,0,0\r\n"));
    EXPECT_TRUE(table.ends_with(",,199,199\r\n"));
    EXPECT_EQ(RunCli({"export", File(Columns()), "-o", out, "--line", "100"}).exitStatus, 1);
}

TEST_F(TiffProgram, MeasuresDrawing)
{
    const ProgramRun run =
        RunBench({"plot", "tiff", File(Columns()), "--repeat", "1", "--size", "80x60"});
    ASSERT_EQ(run.exitStatus, 0) << run.error;
    const auto object = run.Objects().at(0);
    EXPECT_EQ(object["points"], 20'000);
    EXPECT_EQ(object["width"], 80);
    EXPECT_GT(object["redraw_ms"], 0.0);
}

} // namespace
} // namespace vireo
