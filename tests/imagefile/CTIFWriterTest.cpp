#include "imagefile/CTIFWriter.h"
#include "tests/TempFolder.h"
#include "tests/imagefile/MemoryTarget.h"
#include "tests/imagefile/ReadTif.h"

#include <cstring>
#include <random>

namespace vireo {
namespace {

constexpr std::uint16_t kCompressions[] = {1, 2, 4, 5, 32773};

struct Picture {
    ColorDepth depth;
    std::uint32_t width;
    std::uint32_t height;
    std::string pixels;
    std::uint32_t resolution = 300;

    std::size_t RowBytes() const { return static_cast<std::size_t>(BytesPerRow(depth, width)); }
};

/// What a file reads back as; `reader` keeps what its page says.
Picture ReadBack(CTIFReader& reader, const std::filesystem::path& file)
{
    RowSink sink;
    reader.SetFile(file);
    reader.SetReceiver(sink);
    std::uint32_t rows = 0;
    EXPECT_EQ(reader.Open(rows), ImageResult::Ok);
    Picture picture = {reader.Depth(), reader.Width(), reader.Height(), {}, reader.Resolution()};
    for (; rows > 0; --rows) {
        EXPECT_EQ(reader.ReadLine(), ImageResult::Ok);
        picture.pixels += sink.Row();
    }
    return picture;
}

ImageResult WriteRows(CTIFWriter& writer, const Picture& picture)
{
    ImageResult result =
        writer.BeginImage(picture.depth, picture.width, picture.height, picture.resolution, 0, 0);
    const std::size_t rowBytes = picture.RowBytes();
    for (std::size_t row = 0; row < picture.height && result == ImageResult::Ok; ++row) {
        std::memcpy(writer.GetLineBuffer(), picture.pixels.data() + row * rowBytes, rowBytes);
        result = writer.LineDone();
    }
    return writer.EndImage(static_cast<std::uint32_t>(result));
}

/// Bands of noise, of runs and of slow changes; the bits that fill bilevel rows up are set.
Picture MakePicture(ColorDepth depth, std::uint32_t width, std::uint32_t height)
{
    Picture picture = {depth, width, height, {}};
    std::mt19937 random(width * 7 + height);
    const std::size_t rowBytes = picture.RowBytes();
    for (std::uint32_t row = 0; row < height; ++row) {
        std::string bytes(rowBytes, '\xff');
        for (std::size_t i = 0; i < rowBytes; ++i) {
            if (row % 8 < 2)
                bytes[i] = static_cast<char>(random());
            else if (row % 8 < 4)
                bytes[i] = static_cast<char>((i + row) / 9);
            else if (row % 8 < 6 && i > 0)
                bytes[i] = random() % 40 == 0 ? static_cast<char>(random()) : bytes[i - 1];
        }
        if (depth == ColorDepth::Bilevel && width % 8 != 0)
            bytes.back() = static_cast<char>(bytes.back() | (0xff >> width % 8));
        picture.pixels += bytes;
    }
    return picture;
}

std::array<TifPage::Color, 256> MakeColorMap()
{
    std::array<TifPage::Color, 256> map;
    for (std::size_t i = 0; i < map.size(); ++i)
        map[i] = {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(255 - i),
            static_cast<std::uint8_t>(i * 7)};
    return map;
}

struct Form {
    std::uint16_t compression;
    std::uint16_t predictor;
};

class CTIFWriterRoundTrip : public testing::TestWithParam<ColorDepth> {
protected:
    /// Whether the writer is to take it.
    static bool IsTaken(ColorDepth depth, Form form)
    {
        const bool isBilevel = depth == ColorDepth::Bilevel;
        if (form.predictor == 2)
            return form.compression == TifCompression::kLzw && !isBilevel
                && depth != ColorDepth::Palette8;
        if (form.compression == TifCompression::kPackBits)
            return depth <= ColorDepth::Palette8;
        return isBilevel || form.compression == TifCompression::kNone
            || form.compression == TifCompression::kLzw;
    }
};

INSTANTIATE_TEST_SUITE_P(Depths, CTIFWriterRoundTrip,
    testing::Values(ColorDepth::Bilevel, ColorDepth::Gray8, ColorDepth::Rgb8, ColorDepth::Palette8,
        ColorDepth::Gray16, ColorDepth::Rgb16));

TEST_P(CTIFWriterRoundTrip, EveryFormAndOddSizes)
{
    const TempFolder folder;
    const auto file = folder.Path() / "picture.tif";
    constexpr Form kForms[] = {
        {1, 1}, {2, 1}, {4, 1}, {5, 1}, {32773, 1}, {1, 2}, {4, 2}, {5, 2}, {32773, 2}};
    for (const std::uint32_t width : {1U, 7U, 8U, 9U, 64U, 1728U, 2561U, 11'000U, 90'001U}) {
        for (const std::uint32_t height : {1U, width < 2000 ? 41U : 5U}) {
            const Picture picture = MakePicture(GetParam(), width, height);
            for (const Form form : kForms) {
                SCOPED_TRACE(testing::Message() << width << "x" << height << " compression "
                                                << form.compression << " " << form.predictor);
                TifSettings settings;
                settings.compression = form.compression;
                settings.predictor = form.predictor;
                settings.colorMap = MakeColorMap();
                CTIFWriter writer(file, settings);
                std::filesystem::remove(file);
                const ImageResult result = WriteRows(writer, picture);
                EXPECT_EQ(result == ImageResult::Ok, IsTaken(GetParam(), form));
                EXPECT_EQ(std::filesystem::exists(file), result == ImageResult::Ok);
                if (result != ImageResult::Ok)
                    continue;
                CTIFReader reader;
                const Picture readBack = ReadBack(reader, file);
                EXPECT_EQ(readBack.depth, GetParam());
                EXPECT_EQ(readBack.width, width);
                EXPECT_TRUE(readBack.pixels == picture.pixels);
                EXPECT_EQ(reader.Predictor(), form.predictor);
            }
        }
    }
}

TEST(CTIFWriter, WhatAPageSays)
{
    const TempFolder folder;
    const auto file = folder.Path() / "picture.tif";
    TifSettings settings;
    settings.description = "TQX\nm_iA=5412";
    settings.colorMap = MakeColorMap();
    CTIFWriter writer(file, settings);
    Picture picture = MakePicture(ColorDepth::Palette8, 1000, 200);
    picture.resolution = 1200;
    ASSERT_EQ(WriteRows(writer, picture), ImageResult::Ok);

    CTIFReader reader;
    EXPECT_EQ(ReadBack(reader, file).resolution, 1200U);
    EXPECT_EQ(reader.Pages(), 1U);
    EXPECT_EQ(reader.Description(), std::string("TQX\nm_iA=5412") + '\0');
    EXPECT_EQ(reader.Photometric(), 3);
    EXPECT_EQ(reader.Entries().RowsPerStrip(), 65U) << "65,536 bytes of pixels";
    const auto expected = MakeColorMap();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(reader.ColorMap()[i].red, expected[i].red);
        EXPECT_EQ(reader.ColorMap()[i].green, expected[i].green);
        EXPECT_EQ(reader.ColorMap()[i].blue, expected[i].blue);
    }
}

TEST(CTIFWriter, SmallFileByteForByte)
{
    MemoryTarget::Log log;
    TifSettings settings;
    settings.description = "abcd";
    CTIFWriter writer(std::make_unique<MemoryTarget>(log), settings);
    ASSERT_EQ(WriteRows(writer, {ColorDepth::Rgb8, 1, 1, "RGB", 0}), ImageResult::Ok);
    const auto number = [](std::uint32_t value, std::size_t bytes) {
        std::string text;
        for (; bytes > 0; --bytes, value >>= 8)
            text += static_cast<char>(value);
        return text;
    };
    std::string entries;
    const auto entry = [&](std::uint32_t tag, std::uint32_t type, std::uint32_t count,
                           std::uint32_t value) {
        entries += number(tag, 2) + number(type, 2) + number(count, 4) + number(value, 4);
    };
    entry(256, 4, 1, 1);
    entry(257, 4, 1, 1);
    entry(258, 3, 3, 12);
    entry(259, 3, 1, 1);
    entry(262, 3, 1, 2);
    entry(270, 2, 5, 18);
    entry(273, 4, 1, 8);
    entry(277, 3, 1, 3);
    entry(278, 4, 1, 1);
    entry(279, 4, 1, 3);
    entry(282, 5, 1, 24);
    entry(283, 5, 1, 32);
    entry(284, 3, 1, 1);
    entry(296, 3, 1, 1); // No unit: the resolution is not known.
    const std::string ratio = number(1, 4) + number(1, 4);
    EXPECT_EQ(log.bytes,
        "II" + number(42, 2) + number(40, 4) + "RGB" + number(0, 1) + number(8, 2) + number(8, 2)
            + number(8, 2) + "abcd" + number(0, 2) + ratio + ratio + number(14, 2) + entries
            + number(0, 4));
    EXPECT_TRUE(log.isCommitted);
}

TEST(CTIFWriter, WhiteIsZero)
{
    const TempFolder folder;
    for (const bool whiteIsZero : {false, true}) {
        TifSettings settings;
        settings.whiteIsZero = whiteIsZero;
        CTIFWriter writer(folder.Path() / "gray.tif", settings);
        const Picture picture = MakePicture(ColorDepth::Gray8, 3, 3);
        ASSERT_EQ(WriteRows(writer, picture), ImageResult::Ok);
        CTIFReader reader;
        EXPECT_EQ(ReadBack(reader, folder.Path() / "gray.tif").pixels, picture.pixels);
        EXPECT_EQ(reader.Photometric(), whiteIsZero ? 0 : 1);
    }
}

TEST(CTIFWriter, WhatRunsMean)
{
    const TempFolder folder;
    const Picture picture = MakePicture(ColorDepth::Bilevel, 24, 9);
    for (const std::optional<bool> whiteIsZero : {std::optional<bool>(), {true}, {false}}) {
        TifSettings settings;
        settings.compression = TifCompression::kGroup4;
        settings.whiteIsZero = whiteIsZero;
        CTIFWriter writer(folder.Path() / "runs.tif", settings);
        ASSERT_EQ(WriteRows(writer, picture), ImageResult::Ok);
        CTIFReader reader;
        EXPECT_EQ(ReadBack(reader, folder.Path() / "runs.tif").pixels, picture.pixels);
        EXPECT_EQ(reader.Photometric(), whiteIsZero.value_or(true) ? 0 : 1);
    }
}

/// A profile in memory, which comes in pieces.
class MemoryProfile : public CIccProfileReader {
public:
    explicit MemoryProfile(std::string bytes)
        : m_bytes(std::move(bytes)),
          m_size(m_bytes.size()) { }

    bool OpenProfile() override { return m_bytes.empty(); }
    std::uint32_t GetProfileSize() override { return static_cast<std::uint32_t>(m_size); }
    std::size_t ReadProfile(std::span<std::uint8_t> buffer) override
    {
        const std::size_t count = std::min({buffer.size(), m_bytes.size() - m_done, kPiece});
        std::memcpy(buffer.data(), m_bytes.data() + m_done, count);
        m_done += count;
        return count;
    }
    void Announce(std::size_t size) { m_size = size; }

private:
    static constexpr std::size_t kPiece = 100;

    std::string m_bytes;
    std::size_t m_size;
    std::size_t m_done = 0;
};

std::string MakeProfile(std::size_t bytes)
{
    std::string profile(bytes, 'p');
    return profile.replace(36, 4, "acsp");
}

TEST(CTIFWriter, IccProfile)
{
    const TempFolder folder;
    const auto file = folder.Path() / "picture.tif";
    MemoryProfile profile(MakeProfile(20'001));
    TifSettings settings;
    settings.profile = &profile;
    CTIFWriter writer(file, settings);
    ASSERT_EQ(WriteRows(writer, MakePicture(ColorDepth::Gray8, 50, 50)), ImageResult::Ok);
    RowSink sink;
    CTIFReader reader;
    reader.SetFile(file);
    reader.SetReceiver(sink);
    std::uint32_t rows = 0;
    EXPECT_EQ(reader.Open(rows, folder.Path() / "profile.icc"), ImageResult::Ok);
    EXPECT_EQ(TempFolder::Read(folder.Path() / "profile.icc"), MakeProfile(20'001));
}

TEST(CTIFWriter, IccProfilesThatCannotBeTaken)
{
    MemoryProfile closed("");
    MemoryProfile cutOff(MakeProfile(300));
    cutOff.Announce(301);
    MemoryProfile unknown(std::string(300, 'p'));
    MemoryProfile tiny(MakeProfile(127));
    MemoryProfile huge(MakeProfile(300));
    huge.Announce(0xffffffff);
    const struct {
        CIccProfileReader& profile;
        ImageResult result;
        const char* text;
    } cases[] = {
        {closed, ImageResult::CantOpenIcc, "Can't open icc-file"},
        {cutOff, ImageResult::CantOpenIcc, "Can't open icc-file: it ends too early"},
        {unknown, ImageResult::InvalidTiffArguments,
            "Invalid tiff-arguments: Icc-profile unknown format"},
        {tiny, ImageResult::InvalidTiffArguments,
            "Invalid tiff-arguments: Icc-profile unknown format"},
        {huge, ImageResult::TifOutOfMemory, "tif out of memory: the icc-profile is too large"},
    };
    const TempFolder folder;
    for (const auto& test : cases) {
        TifSettings settings;
        settings.profile = &test.profile;
        CTIFWriter writer(folder.Path() / "picture.tif", settings);
        EXPECT_EQ(WriteRows(writer, MakePicture(ColorDepth::Gray8, 5, 5)), test.result);
        EXPECT_EQ(writer.DescribeFailure(), test.text);
        EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    }
}

TEST(CTIFWriter, AFailureAtAnyCallLeavesNothing)
{
    const Picture picture = MakePicture(ColorDepth::Bilevel, 3000, 300);
    for (const std::uint16_t compression : kCompressions) {
        for (std::size_t failing = 1;; ++failing) {
            MemoryTarget::Log log;
            log.failingCall = failing;
            TifSettings settings;
            settings.compression = compression;
            CTIFWriter writer(std::make_unique<MemoryTarget>(log), settings);
            const ImageResult result = WriteRows(writer, picture);
            if (log.calls < failing) {
                EXPECT_EQ(result, ImageResult::Ok);
                EXPECT_TRUE(log.isCommitted);
                EXPECT_GT(failing, 5U) << "open, at least twice write, overwrite, commit";
                break;
            }
            EXPECT_EQ(result, failing == 1 ? ImageResult::CantOpenTif : ImageResult::CantWriteTif);
            EXPECT_EQ(writer.Result(), result);
            EXPECT_NE(
                writer.DescribeFailure().find(Describe(FileStatus::DiskFull)), std::string::npos);
            EXPECT_EQ(log.calls, failing) << "nothing is tried after a failure";
            EXPECT_FALSE(log.isCommitted);
        }
    }
}

TEST(CTIFWriter, FilesThatGrowTooLarge)
{
    const Picture picture = MakePicture(ColorDepth::Bilevel, 3000, 300);
    for (const std::uint16_t compression : kCompressions) {
        std::size_t size = 0;
        for (const std::uint64_t most : {std::uint64_t{0xffffffff}, std::uint64_t{0}}) {
            MemoryTarget::Log log;
            TifSettings settings;
            settings.compression = compression;
            CTIFWriter writer(
                std::make_unique<MemoryTarget>(log), settings, most != 0 ? most : size - 1);
            const ImageResult result = WriteRows(writer, picture);
            EXPECT_EQ(result, most != 0 ? ImageResult::Ok : ImageResult::CantWriteTif);
            EXPECT_EQ(log.isCommitted, most != 0);
            size = log.bytes.size();
            if (most == 0) {
                EXPECT_EQ(writer.DescribeFailure(),
                    "Can't write tif-file: the file would be larger than a TIFF can be, 4 GiB");
            }
        }
    }
    // Without compression this is known before a row has come.
    CTIFWriter writer(TempFolder().Path() / "no" / "file.tif", {});
    EXPECT_EQ(writer.BeginImage(ColorDepth::Rgb16, 1'000'000, 1000, 300, 0, 0),
        ImageResult::CantWriteTif);
}

TEST(CTIFWriter, MissingAndSurplusRowsAndAStatusWriteNothing)
{
    const TempFolder folder;
    const auto file = folder.Write("old.tif", "old");
    const Picture picture = MakePicture(ColorDepth::Gray8, 10, 3);
    CTIFWriter missing(file, {});
    ASSERT_EQ(missing.BeginImage(picture.depth, 10, 4, 0, 0, 0), ImageResult::Ok);
    EXPECT_EQ(missing.LineDone(), ImageResult::Ok);
    EXPECT_EQ(missing.EndImage(0), ImageResult::InvalidTiffArguments);

    CTIFWriter surplus(file, {});
    ASSERT_EQ(surplus.BeginImage(picture.depth, 10, 1, 0, 0, 0), ImageResult::Ok);
    EXPECT_EQ(surplus.LineDone(), ImageResult::Ok);
    EXPECT_EQ(surplus.LineDone(), ImageResult::InvalidTiffArguments);
    EXPECT_EQ(surplus.EndImage(0), ImageResult::InvalidTiffArguments);

    CTIFWriter givenUp(file, {});
    ASSERT_EQ(givenUp.BeginImage(picture.depth, 10, 1, 0, 0, 0), ImageResult::Ok);
    EXPECT_EQ(givenUp.LineDone(), ImageResult::Ok);
    EXPECT_EQ(givenUp.EndImage(0x8447001c), ImageResult::TifFormatError);
    EXPECT_EQ(TempFolder::Read(file), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(CTIFWriter, Refusals)
{
    const TempFolder folder;
    const auto expectRefused = [&](const char* what, ColorDepth depth, std::uint32_t width,
                                   std::uint32_t height, auto&& change) {
        TifSettings settings;
        change(settings);
        CTIFWriter writer(folder.Path() / "picture.tif", settings);
        EXPECT_EQ(
            writer.BeginImage(depth, width, height, 0, 0, 0), ImageResult::InvalidTiffArguments)
            << what;
        EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << what;
    };
    const auto asIs = [](TifSettings&) {};
    constexpr ColorDepth kGray = ColorDepth::Gray8;
    expectRefused("no width", kGray, 0, 1, asIs);
    expectRefused("no height", kGray, 1, 0, asIs);
    expectRefused("row above 64 MiB", kGray, 64 * 1024 * 1024 + 1, 1, asIs);
    expectRefused("palette without colours", ColorDepth::Palette8, 1, 1, asIs);
    expectRefused("depth 6", static_cast<ColorDepth>(6), 1, 1, asIs);
    expectRefused("Group 3", ColorDepth::Bilevel, 1, 1,
        [](TifSettings& settings) { settings.compression = TifCompression::kGroup3; });
    expectRefused("predictor 3", kGray, 1, 1, [](TifSettings& settings) {
        settings.compression = TifCompression::kLzw;
        settings.predictor = 3;
    });
    expectRefused("long description", kGray, 1, 1,
        [](TifSettings& settings) { settings.description.assign(1024 * 1024 + 1, 'x'); });
}

} // namespace
} // namespace vireo
