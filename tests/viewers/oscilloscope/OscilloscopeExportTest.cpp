#include "tests/TempFolder.h"
#include "tests/viewers/oscilloscope/OscilloscopeFile.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeExport.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireo {
namespace {

class OscilloscopeExportTest : public testing::Test {
protected:
    /// The table of a line, its line ends as '\n' alone.
    std::string Exported(const OscilloscopeFile& file, std::int64_t line)
    {
        EXPECT_EQ(m_data.Read(m_folder.Write("a.con", file.Bytes())), OscilloscopeResult::Ok);
        const auto target = m_folder.Path() / "line.csv";
        EXPECT_EQ(ExportLineAsCsv(target, m_data, line), FileStatus::Ok);
        std::string text = TempFolder::Read(target);
        EXPECT_EQ(
            std::count(text.begin(), text.end(), '\r'), std::count(text.begin(), text.end(), '\n'));
        std::erase(text, '\r');
        return text;
    }

    TempFolder m_folder;
    OscilloscopeData m_data;
};

TEST_F(OscilloscopeExportTest, ALineHasARowForEachPixel)
{
    OscilloscopeFile file;
    file.cameraPixels = {2, 0, 1};
    file.lines = 3;
    const std::string table = Exported(file, 1);
    // 8.5 units of 4.24 inches over three pixels are 305.14 mm a pixel.
    EXPECT_EQ(table.substr(0, table.find('\n')), "pixel,position_mm,camera,red,green,blue");
    EXPECT_NE(table.find("\n0,0,A,101,111,121\n1,305.1"), std::string::npos) << table;
    EXPECT_NE(table.find(",A,102,112,122\n2,610.2"), std::string::npos) << table;
    EXPECT_TRUE(table.ends_with(",C,103,113,123\n")) << table;
}

TEST_F(OscilloscopeExportTest, AGrayLineHasOneValue)
{
    OscilloscopeFile file;
    file.color = TestFileHeader::kColorGray;
    file.cameraPixels = {1};
    EXPECT_EQ(Exported(file, 0), "pixel,position_mm,camera,gray\n0,0,A,110\n");
}

TEST_F(OscilloscopeExportTest, WhereItCannotBeWrittenNothingIsLeft)
{
    ASSERT_EQ(
        m_data.Read(m_folder.Write("a.con", OscilloscopeFile().Bytes())), OscilloscopeResult::Ok);
    EXPECT_NE(ExportLineAsCsv(m_folder.Path() / "none" / "line.csv", m_data, 0), FileStatus::Ok);
    EXPECT_FALSE(std::filesystem::exists(m_folder.Path() / "none"));
}

} // namespace
} // namespace vireo
