#include "imagefile/CTIFReader.h"
#include "tests/TempFolder.h"
#include "tests/imagefile/BitText.h"
#include "tests/imagefile/GrayFile.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

class CTIFReaderFile : public testing::Test {
protected:
    TifReading Read(const std::string& bytes, std::uint32_t page = 1)
    {
        const std::filesystem::path file = folder.Write("picture.tif", bytes);
        TifReading reading = ReadTif(file, page);
        EXPECT_TRUE(ReadTif(file, page, 4) == reading) << "rows read ahead are the same";
        return reading;
    }
    TempFolder folder;
};

// Headers and chains of pages.

TEST_F(CTIFReaderFile, TagsMustAscend)
{
    std::string bytes = GrayFile();
    const std::size_t entries = bytes.size() - 4 - 12 * 8;
    std::string twice = bytes, swapped = bytes;
    twice.replace(entries + 12, 2, bytes, entries, 2);
    swapped.replace(entries, 24, bytes.substr(entries + 12, 12) + bytes.substr(entries, 12));
    EXPECT_EQ(Read(bytes).open, kOk);
    EXPECT_EQ(Read(twice).open, kFormat);
    EXPECT_EQ(Read(swapped).open, kFormat);
}

TEST_F(CTIFReaderFile, Headers)
{
    using namespace std::string_literals;
    EXPECT_EQ(Read("").open, kCantRead);
    EXPECT_EQ(Read("I").open, kCantRead);
    EXPECT_EQ(Read("IM*\0\x8\0\0\0"s).open, kFormat);
    EXPECT_EQ(Read("II"s).open, kCantRead);
    EXPECT_EQ(Read("II+\0\x8\0\0\0"s).open, kFormat) << "64-bit TIFF";
    EXPECT_EQ(Read("II\0*\0\0\0\x8"s).open, kFormat) << "version in the other order";
    EXPECT_EQ(Read("II*\0\x8\0"s).open, kCantRead);
    EXPECT_EQ(Read("II*\0\0\0\0\0"s).open, kFormat) << "no page";
    EXPECT_EQ(ReadTif(folder.Path() / "absent.tif").open, ImageResult::CantOpenTif);
    EXPECT_EQ(ReadTif(folder.Path()).open, ImageResult::CantOpenTif);
}

/// Pages of 1, 2 and 3 rows.
TifFile ThreePages(ByteOrder order = ByteOrder::Little)
{
    TifFile file(order);
    const std::uint32_t strip = file.Strip("abcdef");
    for (std::uint32_t height = 1; height <= 3; ++height) {
        TifEntries entries = TifFile::Page(1, height, 8, TifCompression::kNone);
        entries[F::kStripOffsets] = {kLong, {strip + height}};
        file.AddPage(entries);
    }
    return file;
}

TEST_F(CTIFReaderFile, PagesAreCountedAndChosen)
{
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        const auto path = folder.Write("pages.tif", ThreePages(order).Bytes());
        EXPECT_EQ(ReadTif(path, 1).pixels, "b");
        EXPECT_EQ(ReadTif(path, 3).pixels, "def");
        EXPECT_EQ(ReadTif(path, 4).open, kFormat);
        EXPECT_EQ(ReadTif(path, 0).open, kFormat);
        const OpenedTif second(path, {}, 2);
        EXPECT_EQ(second.result, kOk);
        EXPECT_EQ(second.rows, 2U);
        EXPECT_EQ(second.reader.Pages(), 3U);
    }
}

TEST_F(CTIFReaderFile, ChainsThatComeBackOrLeadOut)
{
    TifFile file = ThreePages();
    file.LinkTo(14); // The first page, behind header and strip.
    EXPECT_EQ(Read(file.Bytes()).open, kFormat);
    file.LinkTo(static_cast<std::uint32_t>(file.Bytes().size()) - 1);
    EXPECT_EQ(Read(file.Bytes()).open, kCantRead);
    file.LinkTo(0xfffffff0);
    EXPECT_EQ(Read(file.Bytes()).open, kCantRead);
}

// Pixels.

TEST_F(CTIFReaderFile, DepthsAndBytesPerRow)
{
    struct Row {
        std::vector<std::uint32_t> bits;
        ColorDepth depth;
        std::size_t rowBytes;
    };
    for (const Row& row : {Row{{1}, ColorDepth::Bilevel, 1}, Row{{8}, ColorDepth::Gray8, 3},
             Row{{16}, ColorDepth::Gray16, 6}, Row{{8, 8, 8}, ColorDepth::Rgb8, 9},
             Row{{16, 16, 16}, ColorDepth::Rgb16, 18}, Row{{8, 8, 16}, ColorDepth::Rgb16, 18},
             Row{{16, 16, 8}, ColorDepth::Rgb8, 9}}) {
        const OpenedTif file(folder.Write(
            "depth.tif", GrayFile({{F::kBits, {kShort, row.bits}}, {F::kWidth, {kLong, {3}}}})));
        ASSERT_EQ(file.result, kOk);
        EXPECT_EQ(file.reader.Depth(), row.depth);
        EXPECT_EQ(file.reader.RowBytes(), row.rowBytes);
        EXPECT_EQ(file.sink.announced,
            (std::vector<std::uint32_t>{static_cast<std::uint32_t>(row.depth), 3, 2, 300, 0, 0}));
    }
}

TEST_F(CTIFReaderFile, Resolutions)
{
    struct Row {
        std::uint32_t unit, numerator, denominator, dpi;
    };
    for (const Row row : {Row{2, 72, 1, 72}, Row{1, 72, 1, 0}, Row{3, 118, 1, 300},
             Row{3, 2362, 10, 600}, Row{2, 1201, 2, 601}, Row{2, 300, 0, 0}, Row{3, 300, 0, 0},
             Row{2, 0xffffffff, 0xffffffff, 1}, Row{3, 0xffffffff, 1, 0xffffffff}}) {
        const OpenedTif file(folder.Write("resolution.tif",
            GrayFile({{F::kXResolution, {kRational, {row.numerator, row.denominator}}},
                {F::kYResolution, {kRational, {1, 1}}},
                {F::kResolutionUnit, {kShort, {row.unit}}}})));
        ASSERT_EQ(file.result, kOk);
        EXPECT_EQ(file.reader.Resolution(), row.dpi)
            << row.numerator << "/" << row.denominator << " unit " << row.unit;
    }
}

TEST_F(CTIFReaderFile, WhiteIsZeroIsTurnedRoundUnlessTheCodesAreCcitt)
{
    struct Row {
        std::uint32_t compression;
        bool isTurned;
        std::string strip;
    };
    const std::string dark = Pixels("...##...");
    for (const Row& row :
        {Row{TifCompression::kNone, true, dark}, Row{TifCompression::kPackBits, true, '\0' + dark},
            Row{TifCompression::kLzw, true,
                Codes9({256, static_cast<unsigned char>(dark[0]), 257})},
            Row{TifCompression::kModifiedHuffman, false, Bits("1000 11 1000")},
            Row{TifCompression::kGroup4, false, Bits("001 1000 11 1")}}) {
        for (const std::uint32_t photometric : {0U, 1U, 5U}) {
            TifFile file;
            TifEntries entries = TifFile::Page(8, 1, 1, row.compression);
            entries[F::kStripOffsets] = {kLong, {file.Strip(row.strip)}};
            entries[F::kPhotometric].values = {photometric};
            file.AddPage(entries);
            EXPECT_EQ(Read(file.Bytes()).pixels, photometric == 0 && row.isTurned ? "\x18" : dark)
                << row.compression << " " << photometric;
        }
    }
}

TEST_F(CTIFReaderFile, SamplesOfSixteenBitsStayInFileOrder)
{
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        TifFile file(order);
        TifEntries entries = TifFile::Page(2, 1, 16, TifCompression::kNone);
        entries[F::kStripOffsets] = {kLong, {file.Strip("\1\xff\2\3")}};
        file.AddPage(entries);
        EXPECT_EQ(Read(file.Bytes()).pixels, "\1\xff\2\3");
        // Differences are little-endian numbers in any file.
        entries[F::kPredictor] = {kShort, {2}};
        file.AddPage(entries);
        EXPECT_EQ(Read(file.Bytes(), 2).pixels, "\1\xff\3\2");
    }
}

TEST_F(CTIFReaderFile, PredictorOfBilevelRowsIsUnsupportedRowByRow)
{
    const TifReading reading =
        Read(GrayFile({{F::kBits, {kShort, {1}}}, {F::kPredictor, {kShort, {2}}}}));
    EXPECT_EQ(reading.open, kOk);
    EXPECT_EQ(reading.rows, kUnsupported);
    EXPECT_EQ(reading.failedRows, 2U);
    EXPECT_EQ(reading.pixels, "ab");
}

TEST_F(CTIFReaderFile, ColourMapsAreReducedToBytes)
{
    std::vector<std::uint32_t> values(768, 0);
    values[0] = 65535;
    values[256 + 1] = 256;
    values[512 + 255] = 0x7fff;
    const OpenedTif file(folder.Write("map.tif", GrayFile({{F::kColorMap, {kShort, values}}})));
    const CTIFReader& reader = file.reader;
    ASSERT_EQ(file.result, kOk);
    EXPECT_EQ(reader.Depth(), ColorDepth::Palette8);
    EXPECT_EQ(reader.ColorMapEntries(), 256U);
    EXPECT_EQ(reader.ColorMap()[0].red, 255);
    EXPECT_EQ(reader.ColorMap()[1].green, 0) << "256 x 255 / 65535, rounded down";
    EXPECT_EQ(reader.ColorMap()[255].blue, 127);
}

TEST_F(CTIFReaderFile, StripsInAnyOrderAndShortTables)
{
    TifFile file(ByteOrder::Big);
    TifEntries entries = TifFile::Page(1, 5, 8, TifCompression::kNone);
    entries[F::kRowsPerStrip].values = {2};
    entries[F::kStripOffsets] = {kShort, {12, 10, 8}};
    file.Strip("efcdab");
    file.AddPage(entries);
    EXPECT_EQ(Read(file.Bytes()).pixels, "abcde");
}

TEST_F(CTIFReaderFile, ManyStrips)
{
    TifFile file;
    TifEntries entries = TifFile::Page(1, 3000, 8, TifCompression::kNone);
    std::string pixels;
    for (std::uint32_t row = 0; row < 3000; ++row) {
        pixels += static_cast<char>(row * row);
        entries[F::kStripOffsets].values.push_back(8 + row);
    }
    entries[F::kStripOffsets].type = kLong;
    entries[F::kRowsPerStrip].values = {1};
    file.Strip(pixels);
    file.AddPage(entries);
    EXPECT_EQ(Read(file.Bytes()).pixels, pixels);
}

TEST_F(CTIFReaderFile, StripsBeyondTheFile)
{
    const auto read = [this](std::uint32_t compression, std::uint32_t predictor) {
        return Read(GrayFile({{F::kStripOffsets, {kLong, {0xfffffff0}}},
            {F::kCompression, {kShort, {compression}}}, {F::kPredictor, {kShort, {predictor}}}}));
    };
    EXPECT_EQ(read(TifCompression::kNone, 1).rows, kCantRead);
    EXPECT_EQ(read(TifCompression::kPackBits, 2).rows, kCantRead);
    EXPECT_EQ(read(TifCompression::kLzw, 1).rows, kOk);
    EXPECT_EQ(read(TifCompression::kLzw, 1).pixels, std::string(4, '\0'));
}

// Calls in their order.

TEST_F(CTIFReaderFile, RowsEndAndFail)
{
    RowSink sink;
    CTIFReader reader;
    reader.SetReceiver(sink);
    EXPECT_EQ(reader.ReadLine(), ImageResult::TifReadTooLong) << "nothing is open";
    reader.SetFile(folder.Write("short.tif",
        GrayFile({{F::kHeight, {kLong, {1000}}}, {F::kWidth, {kLong, {1}}},
            {F::kRowsPerStrip, {kLong, {1000}}}})));
    std::uint32_t rows = 0;
    ASSERT_EQ(reader.Open(rows), kOk);
    ASSERT_EQ(rows, 1000U);
    sink.fill = 'z';
    std::uint32_t failed = 0;
    for (; rows != 0; --rows)
        failed += reader.ReadLine() == kCantRead;
    EXPECT_GT(failed, 800U);
    EXPECT_EQ(sink.Row(), "z") << "what was not read is left";
    EXPECT_EQ(sink.rowsDone, 1000 - failed) << "failed rows are not done";
    EXPECT_EQ(reader.ReadLine(), ImageResult::TifReadTooLong);
    EXPECT_EQ(reader.Close(7), kOk);
    EXPECT_EQ(sink.endStatus, 7U);
    EXPECT_EQ(reader.Width(), 1U) << "what the page said stays known";
    EXPECT_EQ(reader.ReadLine(), ImageResult::TifReadTooLong);
}

TEST_F(CTIFReaderFile, TheReceiversResultsArePassedOn)
{
    RowSink sink;
    CTIFReader reader;
    reader.SetReceiver(sink);
    reader.SetFile(folder.Write("good.tif", GrayFile()));
    std::uint32_t rows = 0;
    sink.beginResult = ImageResult::TifOutOfMemory;
    EXPECT_EQ(reader.Open(rows), ImageResult::TifOutOfMemory);
    sink.beginResult = kOk;
    sink.lineResult = ImageResult::CantWriteTif;
    EXPECT_EQ(reader.Open(rows), kOk);
    EXPECT_EQ(reader.ReadLine(), ImageResult::CantWriteTif);
    EXPECT_EQ(sink.Row(), "ab");
}

TEST_F(CTIFReaderFile, OpeningAgainForgetsTheFileBefore)
{
    OpenedTif file(folder.Write("first.tif", GrayFile({{F::kDescription, {E::kAscii, {'a', 0}}}})));
    ASSERT_EQ(file.result, kOk);
    ASSERT_EQ(file.reader.ReadLine(), kOk);
    std::string other = GrayFile();
    other.replace(8, 4, "WXYZ");
    file.Again(folder.Write("second.tif", other));
    ASSERT_EQ(file.result, kOk);
    EXPECT_EQ(file.reader.Description(), "");
    EXPECT_EQ(file.reader.ReadLine(), kOk);
    EXPECT_EQ(file.sink.Row(), "WX");
    file.Again(folder.Path() / "absent.tif");
    EXPECT_EQ(file.result, ImageResult::CantOpenTif);
    EXPECT_EQ(file.reader.Width(), 0U);
    EXPECT_EQ(file.reader.ReadLine(), ImageResult::TifReadTooLong);
}

TEST_F(CTIFReaderFile, Descriptions)
{
    struct Row {
        TifEntry entry;
        std::string expected;
    };
    const TifEntry beyond{E::kAscii, {'a', 'b', 'c', 'd', 'e'}, 1000};
    for (const Row& row : {Row{{E::kAscii, {'a', 'b', 'c', 0}}, std::string("abc\0", 4)},
             Row{{E::kAscii, {'a'}}, "a"}, Row{{E::kAscii, {'a', 'b', 'c', 'd', 'e'}}, "abcde"},
             Row{beyond, "abcde"}}) {
        const OpenedTif file(folder.Write("text.tif", GrayFile({{F::kDescription, row.entry}})));
        ASSERT_EQ(file.result, kOk);
        EXPECT_EQ(file.reader.Description(), row.expected);
    }
}

TEST_F(CTIFReaderFile, ProfilesAreCopied)
{
    const std::filesystem::path profile = folder.Path() / "out.icc";
    const auto open = [&](const TifEntry& entry, const std::filesystem::path& target) {
        return OpenedTif(folder.Write("icc.tif", GrayFile({{F::kIccProfile, entry}})), target)
            .result;
    };
    const TifEntry entry{E::kUndefined, {'p', 'r', 'o', 'f', 'i', 'l', 'e'}};
    EXPECT_EQ(open(entry, profile), kOk);
    EXPECT_EQ(TempFolder::Read(profile), "profile");
    std::filesystem::remove(profile);
    TifEntry tooLong = entry;
    tooLong.claimedCount = 0xfffffff0;
    EXPECT_EQ(open(tooLong, profile), kCantRead);
    EXPECT_FALSE(std::filesystem::exists(profile));
    EXPECT_EQ(open(entry, folder.Path() / "absent" / "out.icc"), ImageResult::CantOpenIcc);
}

// Damaged files.

TEST_F(CTIFReaderFile, EveryPrefixIsAnswered)
{
    const std::string whole = ThreePages(ByteOrder::Big).Bytes();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(Read(whole.substr(0, length), 2).open, kCantRead) << length;
    // TifEntries in front of the strip: rows are there as far as the file goes.
    TifFile file;
    TifEntries entries = TifFile::Page(1, 6, 8, TifCompression::kNone);
    entries[F::kStripOffsets] = {kLong, {8 + 2 + 7 * 12 + 4}};
    file.AddPage(entries);
    file.Strip("abcdef");
    for (std::uint32_t missing = 0; missing <= 6; ++missing) {
        const TifReading reading = Read(file.Bytes().substr(0, file.Bytes().size() - missing));
        EXPECT_EQ(reading.failedRows, missing);
        EXPECT_EQ(reading.pixels,
            std::string("abcdef").substr(0, 6 - missing) + std::string(missing, '\0'));
    }
}

TEST_F(CTIFReaderFile, FlippedBytesGiveWholeRowsOrACode)
{
    TifFile file;
    TifEntries entries = TifFile::Page(24, 9, 1, TifCompression::kGroup4);
    std::string codes;
    for (int row = 0; row < 9; ++row)
        codes += "001 0111 11 001 1000 10 0001 1 ";
    entries[F::kStripOffsets] = {kLong, {file.Strip(Bits(codes))}};
    entries[F::kDescription] = {E::kAscii, {'a', 'b', 'c', 'd', 'e'}};
    file.AddPage(entries);
    for (std::size_t i = 0; i < file.Bytes().size(); ++i) {
        for (const int flip : {0xff, 0x01, 0x80, 0x20}) {
            std::string bytes = file.Bytes();
            bytes[i] = static_cast<char>(bytes[i] ^ flip);
            const TifReading reading = Read(bytes);
            if (reading.open != kOk)
                EXPECT_NE(Describe(reading.open), "") << i;
            else
                EXPECT_FALSE(reading.pixels.empty()) << i;
        }
    }
}

} // namespace

} // namespace vireo
