#include "samples/BigFiles.h"
#include "tests/TempFolder.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/picture/PictureData.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

struct BigFileRow {
    const char* what;
    const char* kind;
    std::uint64_t bytes;
    std::int64_t lines;
    std::int64_t width;
    bool interleaved;
};

const BigFileRow kBigFiles[] = {
    {"more lines than are computed", "oscilloscope", 20 * 64'800, 20, 21'600, true},
    {"rounded down to whole lines", "oscilloscope-gray", 2 * 21'600 + 7, 2, 21'600, false},
    {"fewer bytes than a line", "oscilloscope-gray", 1, 1, 21'600, false},
    {"one line of 60,000 pixels", "oscilloscope-line", 180'000, 1, 60'000, true},
    {"one gray line", "oscilloscope-gray-line", 40'000, 1, 40'000, false},
};

TEST(BigFiles, AreReadAsWhatTheyAreMadeFor)
{
    const TempFolder folder;
    for (const BigFileRow& row : kBigFiles) {
        SCOPED_TRACE(row.what);
        const auto path = folder.Path() / "big.con";
        ASSERT_TRUE(WriteBigFile(row.kind, row.bytes, path));
        OscilloscopeData data;
        ASSERT_EQ(data.Read(path), OscilloscopeResult::Ok);
        EXPECT_TRUE(data.MissingItems().empty());
        EXPECT_EQ(data.LineCount(), row.lines);
        EXPECT_EQ(data.LineWidth(), row.width);
        EXPECT_EQ(data.IsInterleaved(), row.interleaved);
        EXPECT_EQ(data.DataLength(), row.lines * row.width * (row.interleaved ? 3 : 1));
    }
}

TEST(BigFiles, ArePicturesOfAboutSoManyPixels)
{
    const TempFolder folder;
    for (const char* const kind : {"tiff", "tiff-lzw"}) {
        const auto path = folder.Path() / "big.tif";
        ASSERT_TRUE(WriteBigFile(kind, 90'700, path));
        PictureData data;
        ASSERT_EQ(data.Open(path), ImageResult::Ok);
        EXPECT_EQ(data.Page().width, 301U);
        EXPECT_EQ(data.Page().height, 301U);
        WorkProgress progress;
        data.Load(progress);
        EXPECT_EQ(data.RowsResult(), ImageResult::Ok);
    }
}

TEST(BigFiles, RefuseWhatTheyCannotMake)
{
    const TempFolder folder;
    EXPECT_FALSE(WriteBigFile("telescope", 1000, folder.Path() / "a.con"));
    EXPECT_FALSE(WriteBigFile("oscilloscope", 1000, folder.Path() / "missing" / "a.con"));
    EXPECT_FALSE(WriteBigFile("oscilloscope-line", 1'000'000'000'000, folder.Path() / "a.con"));
    EXPECT_FALSE(WriteBigFile("tiff", 1'000'000'000'000, folder.Path() / "a.tif"));
}

} // namespace

} // namespace vireo
