#include "imagefile/CTIFReader.h"
#include "tests/TempFolder.h"
#include "tests/viewers/picture/TiffFile.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/TiffRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <tuple>
#include <vector>

namespace vireo {
namespace {

/// The rows as the reader delivers them, each zeroed first, and the first failure.
class ReaderRows : public CImageReceiver {
public:
    explicit ReaderRows(const std::filesystem::path& file, std::uint32_t page = 1)
    {
        m_reader.SetFile(file);
        m_reader.SetPage(page);
        m_reader.SetReceiver(*this);
        std::uint32_t rows = 0;
        result = m_reader.Open(rows);
        if (result != ImageResult::Ok)
            return;
        bytes.resize(m_reader.RowBytes() * rows);
        for (std::uint32_t row = 0; row < rows; ++row) {
            const ImageResult rowResult = m_reader.ReadLine();
            result = result == ImageResult::Ok ? rowResult : result;
            m_next += m_reader.RowBytes();
        }
    }

    ImageResult result = ImageResult::Ok;
    std::vector<std::uint8_t> bytes;

private:
    ImageResult BeginImage(ColorDepth, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
        std::uint32_t) override
    {
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override { return bytes.data() + m_next; }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

    CTIFReader m_reader;
    std::size_t m_next = 0;
};

/// What the tables of the TIFF format say of a pixel, one pixel at a time.
std::vector<int> ShownPixel(const TifPage& page, const std::uint8_t* row, std::size_t column)
{
    const auto byte = [&](std::size_t at) { return static_cast<int>(row[at]); };
    const std::size_t upper = page.order == ByteOrder::Little ? 1 : 0;
    switch (page.depth) {
    case ColorDepth::Bilevel:
        return {(byte(column / 8) >> (7 - column % 8) & 1) != 0 ? 255 : 0};
    case ColorDepth::Gray8:
        return {page.photometric == 0 ? 255 - byte(column) : byte(column)};
    case ColorDepth::Rgb8:
        return {byte(3 * column), byte(3 * column + 1), byte(3 * column + 2)};
    case ColorDepth::Palette8: {
        const TifPage::Color& color = page.colorMap[row[column]];
        return {color.red, color.green, color.blue};
    }
    case ColorDepth::Gray16:
        return {byte(2 * column + upper)};
    case ColorDepth::Rgb16:
        return {
            byte(6 * column + upper), byte(6 * column + 2 + upper), byte(6 * column + 4 + upper)};
    }
    return {};
}

std::vector<std::uint16_t> ColourMap()
{
    std::vector<std::uint16_t> map;
    for (unsigned i = 0; i < 768; ++i)
        map.push_back(static_cast<std::uint16_t>(i * 40503));
    return map;
}

struct Row {
    const char* name;
    ColorDepth depth;
    ByteOrder order = ByteOrder::Little;
    std::uint16_t photometric = 1;
    std::uint16_t predictor = 1;
};

/// A layout of pixels, and the compression they are stored with.
using Layout = std::tuple<Row, std::uint16_t>;

class TiffRowsTest : public testing::TestWithParam<Layout> {
protected:
    static constexpr std::uint32_t kWidth = 37; // Bilevel rows end within a byte.
    static constexpr std::uint32_t kHeight = 23;

    static std::string Bytes(std::vector<std::size_t> lostStrips = {})
    {
        const auto& [row, compression] = GetParam();
        TiffPageBytes page;
        page.width = kWidth;
        page.height = kHeight;
        page.depth = row.depth == ColorDepth::Palette8 ? ColorDepth::Gray8 : row.depth;
        page.pixels = VariedBytes(BytesPerRow(row.depth, kWidth) * kHeight);
        page.compression = compression;
        page.photometric = row.photometric;
        page.predictor = row.predictor;
        page.rowsPerStrip = 5;
        page.lostStrips = std::move(lostStrips);
        if (row.depth == ColorDepth::Palette8)
            page.colorMap = ColourMap();
        return TiffFile(row.order).Add(page).Bytes();
    }

    /// Loads a picture and reads it with the reader as well; false when it cannot be opened.
    bool Load(const std::string& bytes)
    {
        // While it is open, nobody may write a TIFF file on Windows.
        data.reset();
        expected.reset();
        const std::filesystem::path file = folder.Write("picture.tif", bytes);
        data = std::make_unique<PictureData>();
        expected = std::make_unique<ReaderRows>(file);
        if (data->Open(file) != ImageResult::Ok)
            return false;
        WorkProgress progress;
        data->Load(progress, 2);
        EXPECT_TRUE(data->IsLoaded());
        return true;
    }

    bool IsMissing(std::int64_t row) const
    {
        const std::vector<RowRange> missing = data->MissingRows();
        return std::any_of(missing.begin(), missing.end(),
            [row](const RowRange& rows) { return row >= rows.first && row < rows.end; });
    }

    std::size_t RowBytes() const { return BytesPerRow(data->Page().depth, data->Page().width); }
    const std::uint8_t* ExpectedRow(std::int64_t row) const
    {
        return expected->bytes.data() + static_cast<std::size_t>(row) * RowBytes();
    }

    /// Compares a part of the picture, pixel by pixel.
    void ExpectSame(const PictureRect& rect) const
    {
        const PictureRows& rows = *data->Content().rows;
        const auto channels = static_cast<std::size_t>(rows.Channels());
        std::vector<std::uint8_t> pixels(
            static_cast<std::size_t>(rect.width * rect.height) * channels);
        rows.Read(rect, pixels);
        std::vector<std::uint8_t> wanted;
        for (std::int64_t row = rect.top; row < rect.top + rect.height; ++row) {
            for (std::int64_t column = rect.left; column < rect.left + rect.width; ++column) {
                std::vector<int> pixel =
                    ShownPixel(data->Page(), ExpectedRow(row), static_cast<std::size_t>(column));
                if (row >= data->CoveredRows() || IsMissing(row))
                    pixel.assign(channels, PictureRows::kWhite);
                wanted.insert(wanted.end(), pixel.begin(), pixel.end());
            }
        }
        EXPECT_EQ(pixels, wanted);
    }

    TempFolder folder;
    std::unique_ptr<PictureData> data;
    std::unique_ptr<ReaderRows> expected;
};

TEST_P(TiffRowsTest, AreThoseOfTheReader)
{
    ASSERT_TRUE(Load(Bytes()));
    const auto& [row, compression] = GetParam();
    const bool isPlain = compression == 1 && row.predictor == 1;
    EXPECT_EQ(data->Holding(), isPlain ? PictureHolding::File : PictureHolding::Memory);
    EXPECT_EQ(data->CoveredRows(), kHeight);
    EXPECT_EQ(data->RowsResult(), ImageResult::Ok);
    ExpectSame({0, 0, kWidth, kHeight});
    ExpectSame({3, 4, 21, 17});
    ExpectSame({36, 22, 1, 1});
}

TEST_P(TiffRowsTest, OfAFileCutOffAreThoseOfTheReaderAsFarAsItGoes)
{
    const std::string bytes = Bytes();
    std::size_t opened = 0;
    for (std::size_t length = 0; length < bytes.size(); length += bytes.size() / 32) {
        SCOPED_TRACE(length);
        if (!Load(bytes.substr(0, length)))
            continue;
        ++opened;
        EXPECT_EQ(data->RowsResult(), expected->result);
        ExpectSame({0, 0, kWidth, kHeight});
        for (std::int64_t row = data->CoveredRows(); row < kHeight; ++row) {
            const std::uint8_t* const begin = ExpectedRow(row);
            EXPECT_TRUE(std::all_of(begin, begin + RowBytes(), [&](int b) { return b == *begin; }))
                << "a row that is shown as missing has pixels: " << row;
        }
    }
    EXPECT_GT(opened, 5U);
}

TEST_P(TiffRowsTest, OfLostStripsAreWhiteWithoutSamples)
{
    ASSERT_TRUE(Load(Bytes({1, 3, 4})));
    EXPECT_EQ(data->MissingRows(), std::vector<RowRange>({{5, 10}}));
    EXPECT_EQ(data->CoveredRows(), 15);
    EXPECT_NE(data->RowsResult(), ImageResult::Ok);
    ExpectSame({0, 0, kWidth, kHeight});
    ExpectSame({3, 7, 21, 5});
    for (const std::int64_t row : {4, 5, 9, 10, 14, 15})
        EXPECT_EQ(data->SamplesAt(0, row).has_value(), row == 4 || row == 10 || row == 14) << row;
}

TEST_P(TiffRowsTest, GiveTheSamplesOfTheFile)
{
    ASSERT_TRUE(Load(Bytes()));
    const bool isWide =
        data->Page().depth == ColorDepth::Gray16 || data->Page().depth == ColorDepth::Rgb16;
    const std::size_t size = isWide ? 2 : 1;
    for (std::int64_t column = 0; column < kWidth; ++column) {
        const std::optional<PixelSamples> samples = data->SamplesAt(column, 7);
        ASSERT_TRUE(samples);
        for (std::size_t i = 0; i < static_cast<std::size_t>(samples->count); ++i) {
            const std::size_t at = (static_cast<std::size_t>(column * samples->count) + i) * size;
            const std::uint8_t* const bytes = ExpectedRow(7) + at;
            unsigned value = 0;
            if (data->Page().depth == ColorDepth::Bilevel)
                value = ExpectedRow(7)[column / 8] >> (7 - column % 8) & 1;
            else if (isWide)
                value = data->Page().order == ByteOrder::Big ? bytes[0] * 256U + bytes[1]
                                                             : bytes[1] * 256U + bytes[0];
            else
                value = bytes[0];
            EXPECT_EQ(samples->values[i], value) << column;
        }
    }
    EXPECT_FALSE(data->SamplesAt(-1, 0));
    EXPECT_FALSE(data->SamplesAt(kWidth, 0));
    EXPECT_FALSE(data->SamplesAt(0, kHeight));
}

INSTANTIATE_TEST_SUITE_P(Layouts, TiffRowsTest,
    testing::Combine(testing::Values(Row{"Bilevel", ColorDepth::Bilevel},
                         Row{"BilevelWhiteIsZero", ColorDepth::Bilevel, ByteOrder::Big, 0},
                         Row{"Gray", ColorDepth::Gray8},
                         Row{"GrayWhiteIsZero", ColorDepth::Gray8, ByteOrder::Little, 0},
                         Row{"GrayPredictor", ColorDepth::Gray8, ByteOrder::Little, 1, 2},
                         Row{"Rgb", ColorDepth::Rgb8}, Row{"Palette", ColorDepth::Palette8},
                         Row{"Gray16Little", ColorDepth::Gray16},
                         Row{"Gray16Big", ColorDepth::Gray16, ByteOrder::Big},
                         Row{"Rgb16Little", ColorDepth::Rgb16},
                         Row{"Rgb16BigPredictor", ColorDepth::Rgb16, ByteOrder::Big, 1, 2}),
        testing::Values(std::uint16_t{1}, std::uint16_t{32773})),
    [](const auto& test) {
        return std::string(std::get<0>(test.param).name)
            + (std::get<1>(test.param) == 1 ? "" : "PackBits");
    });

} // namespace
} // namespace vireo
