#include "tests/TempFolder.h"
#include "tests/viewers/picture/TiffFile.h"
#include "viewers/picture/PictureData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

namespace vireo {
namespace {

constexpr std::uint16_t kPackBits = 32773;

TiffPageBytes GrayPage(std::uint32_t width, std::uint32_t height, std::uint16_t compression)
{
    TiffPageBytes page;
    page.width = width;
    page.height = height;
    page.pixels = VariedBytes(std::size_t{width} * height);
    page.compression = compression;
    return page;
}

class PictureDataTest : public testing::Test {
protected:
    ImageResult Open(
        const std::string& bytes, std::uint32_t page = 1, std::uint64_t mostBytes = 1'000'000'000)
    {
        data = std::make_unique<PictureData>();
        return data->Open(folder.Write("picture.tif", bytes), page, mostBytes);
    }
    void Load()
    {
        WorkProgress progress;
        data->Load(progress);
        EXPECT_EQ(progress.Fraction(), 1.0);
        EXPECT_TRUE(data->IsLoaded());
    }
    static std::vector<std::uint8_t> Pixels(const PictureRows& rows, const PictureRect& rect)
    {
        std::vector<std::uint8_t> pixels(static_cast<std::size_t>(rect.width * rect.height));
        rows.Read(rect, pixels);
        return pixels;
    }

    TempFolder folder;
    std::unique_ptr<PictureData> data;
};

TEST_F(PictureDataTest, TellsWhatThePageSays)
{
    TiffPageBytes page = GrayPage(60, 40, 1);
    page.description = "TQX\nm_iA=20\nm_iB=40\nm_iC=0\nm_iD=0\nm_iE=0\nm_iF=0\nm_iG=0\nm_iH=0";
    page.dotsPerInch = 600;
    const std::string bytes = TiffFile().Add(page).Bytes();
    ASSERT_EQ(Open(bytes), ImageResult::Ok);
    EXPECT_EQ(data->FileBytes(), bytes.size());
    EXPECT_EQ(data->PixelBytes(), 2400U);
    EXPECT_EQ(data->Page().width, 60U);
    EXPECT_EQ(data->Page().height, 40U);
    EXPECT_EQ(data->Page().resolution, 600U);
    ASSERT_TRUE(data->Cameras());
    EXPECT_EQ((*data->Cameras())[1], 40);
    EXPECT_EQ(data->CoveredRows(), 0) << "nothing is read before it is loaded";
}

TEST_F(PictureDataTest, OpensThePageAskedFor)
{
    TiffFile file;
    for (const std::uint32_t width : {5U, 6U, 7U})
        file.Add(GrayPage(width, 4, 1));
    for (const std::uint32_t page : {1U, 2U, 3U}) {
        ASSERT_EQ(Open(file.Bytes(), page), ImageResult::Ok);
        EXPECT_EQ(data->Pages(), 3U);
        EXPECT_EQ(data->PageNumber(), page);
        EXPECT_EQ(data->Page().width, page + 4);
    }
    EXPECT_EQ(Open(file.Bytes(), 4), ImageResult::TifFormatError);
    EXPECT_EQ(data->Holding(), PictureHolding::Nowhere);
    EXPECT_EQ(data->Content().rows, nullptr);
}

TEST_F(PictureDataTest, RefusesWhatCannotBeAPicture)
{
    TiffFile looping = TiffFile().Add(GrayPage(6, 4, 1));
    looping.LinkTo(8); // The first page, behind the header.
    TiffPageBytes page = GrayPage(6, 4, kPackBits);
    page.rowsPerStrip = 0xFFFFFFFF;
    std::string huge = TiffFile().Add(page).Bytes();
    // The first two entries are width and height; their values take the last four of twelve bytes.
    huge.replace(huge.find(std::string("\x01\x01\x04\x00", 4)) + 8, 4, "\xFF\xFF\xFF\x7F");
    huge.replace(huge.find(std::string("\x00\x01\x04\x00", 4)) + 8, 4, "\x00\x00\x00\x01", 4);
    struct Row {
        const char* name;
        std::string bytes;
        ImageResult result;
    };
    for (const Row& row : {Row{"empty", "", ImageResult::CantReadTif},
             Row{"text", "no picture", ImageResult::TifFormatError},
             Row{"chain that comes back", looping.Bytes(), ImageResult::TifFormatError},
             Row{"2147483647 rows in few bytes", huge, ImageResult::CantReadTif}}) {
        EXPECT_EQ(Open(row.bytes), row.result) << row.name;
        EXPECT_EQ(data->Holding(), PictureHolding::Nowhere) << row.name;
    }
    EXPECT_EQ(PictureData().Open(folder.Path() / "missing.tif"), ImageResult::CantOpenTif);
}

TEST_F(PictureDataTest, KeepsAReducedPictureWhereMemoryIsShort)
{
    const std::string bytes = TiffFile().Add(GrayPage(600, 500, kPackBits)).Bytes();
    ASSERT_EQ(Open(bytes, 1, 299'999), ImageResult::Ok);
    EXPECT_EQ(data->Holding(), PictureHolding::Reduced);
    Load();
    const std::unique_ptr<PictureData> reduced = std::move(data);
    ASSERT_EQ(Open(bytes, 1, 300'000), ImageResult::Ok);
    EXPECT_EQ(data->Holding(), PictureHolding::Memory);
    Load();

    EXPECT_FALSE(reduced->SamplesAt(0, 0));
    EXPECT_TRUE(data->SamplesAt(0, 0));
    const auto& levels = data->Content().pyramid->Levels();
    const auto& reducedLevels = reduced->Content().pyramid->Levels();
    ASSERT_EQ(levels.size(), reducedLevels.size());
    const PicturePyramid::Level& first = levels.front();
    EXPECT_TRUE(std::equal(first.Row(0), first.Row(first.height), reducedLevels.front().Row(0)));
    EXPECT_EQ(reduced->KeptReduction(), first.reduction);
    const std::int64_t r = first.reduction;
    EXPECT_EQ(Pixels(*reduced->Content().rows, {r - 1, 2 * r, 2, 1}),
        (std::vector{first.Row(2)[0], first.Row(2)[1]}));
    EXPECT_EQ(Open(bytes, 1, 100'000), ImageResult::TifOutOfMemory);
}

TEST_F(PictureDataTest, LostStripsAreWhiteInTheReducedPictureToo)
{
    for (const std::uint16_t compression : {std::uint16_t{1}, kPackBits}) {
        TiffPageBytes page = GrayPage(64, 2000, compression);
        page.pixels.assign(page.pixels.size(), '\x64');
        page.rowsPerStrip = 250;
        page.lostStrips = {1, 3, 5};
        ASSERT_EQ(Open(TiffFile().Add(page).Bytes()), ImageResult::Ok);
        WorkProgress progress;
        data->Load(progress, 4);
        EXPECT_EQ(
            data->MissingRows(), std::vector<RowRange>({{250, 500}, {750, 1000}, {1250, 1500}}));
        const PicturePyramid::Level& level = data->Content().pyramid->Levels().front();
        for (std::int64_t row = 0; row < level.height; ++row) {
            const std::int64_t strip = row * level.reduction / 250;
            // Blocks that two strips share show either.
            if ((row + 1) * level.reduction / 250 == strip) {
                EXPECT_EQ(level.Row(row)[0], strip % 2 == 1 && strip < 7 ? 255 : 100) << row;
            }
        }
    }
}

TEST_F(PictureDataTest, AnUncompressedPictureNeedsNoMemory)
{
    ASSERT_EQ(Open(TiffFile().Add(GrayPage(600, 500, 1)).Bytes(), 1, 1000), ImageResult::Ok);
    EXPECT_EQ(data->Holding(), PictureHolding::File);
    Load();
    EXPECT_TRUE(data->SamplesAt(599, 499));
}

TEST_F(PictureDataTest, LoadingEndsWhenItIsCancelled)
{
    for (const std::uint16_t compression : {std::uint16_t{1}, kPackBits}) {
        ASSERT_EQ(Open(TiffFile().Add(GrayPage(600, 500, compression)).Bytes()), ImageResult::Ok);
        WorkProgress progress;
        progress.Cancel();
        data->Load(progress, 2);
        EXPECT_FALSE(data->IsLoaded());
        EXPECT_EQ(data->CoveredRows(), 0);
    }
}

TEST_F(PictureDataTest, WhatLoadingGotBeforeItIsCancelledIsInTheReducedPicture)
{
    ASSERT_EQ(Open(TiffFile().Add(GrayPage(3000, 3000, kPackBits)).Bytes()), ImageResult::Ok);
    WorkProgress progress;
    std::jthread loading([this, &progress] { data->Load(progress, 2); });
    while (data->CoveredRows() < 64)
        std::this_thread::yield();
    progress.Cancel();
    loading.join();
    const PicturePyramid& pyramid = *data->Content().pyramid;
    EXPECT_LE(data->CoveredRows(), pyramid.RowsDone() * pyramid.Levels().front().reduction);
    EXPECT_FALSE(data->SamplesAt(0, data->CoveredRows()));
}

TEST_F(PictureDataTest, ATinyPictureIsLoadedToo)
{
    ASSERT_EQ(Open(TiffFile().Add(GrayPage(2, 2, kPackBits)).Bytes()), ImageResult::Ok);
    Load();
    EXPECT_EQ(data->CoveredRows(), 2);
    EXPECT_EQ(data->SamplesAt(1, 1)->count, 1);
}

} // namespace
} // namespace vireo
