#include "imagefile/CTIFReader.h"
#include "tests/TempFolder.h"
#include "tests/imagefile/BitText.h"
#include "tests/imagefile/ReadTif.h"
#include "tests/imagefile/TifFile.h"

#include <gtest/gtest.h>

#include <functional>

namespace vireo {

namespace {

constexpr ImageResult kOk = ImageResult::Ok;
constexpr ImageResult kCantRead = ImageResult::CantReadTif;
constexpr ImageResult kFormat = ImageResult::TifFormatError;
constexpr ImageResult kUnsupported = ImageResult::UnsupportedTifFormat;

using Entries = std::map<std::uint16_t, TifEntry>;

/// A page of 2 x 2 gray pixels, with changes.
std::string GrayFile(const std::function<void(Entries&)>& change = {})
{
    TifFile file;
    Entries entries = TifFile::Page(2, 2, 8, TifCompression::kNone);
    entries[TifFile::kStripOffsets] = {TifEntry::kLong, {file.Strip("abcd")}};
    entries[TifFile::kStripByteCounts] = {TifEntry::kLong, {4}};
    if (change)
        change(entries);
    file.AddPage(entries);
    return file.Bytes();
}

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

// What a page says.

struct PageCase {
    const char* name;
    ImageResult expected; ///< Of Open.
    std::function<void(Entries&)> change;
};

void PrintTo(const PageCase& row, std::ostream* out)
{
    *out << row.name;
}

class CTIFReaderPage : public testing::TestWithParam<PageCase> { };

TEST_P(CTIFReaderPage, Opens)
{
    const TempFolder folder;
    const auto file = folder.Write("picture.tif", GrayFile(GetParam().change));
    EXPECT_EQ(ReadTif(file).open, GetParam().expected);
}

using F = TifFile;
using E = TifEntry;
constexpr std::uint16_t kShort = E::kShort, kLong = E::kLong, kRational = E::kRational;
INSTANTIATE_TEST_SUITE_P(Tags, CTIFReaderPage,
    testing::Values( //
        PageCase{"as it is", kOk, {}},
        PageCase{"width as a byte", kFormat, [](Entries& e) { e[F::kWidth].type = E::kByte; }},
        PageCase{"two heights", kFormat,
            [](Entries& e) {
                e[F::kHeight].values = {2, 2};
            }},
        PageCase{"no width", kFormat, [](Entries& e) { e.erase(F::kWidth); }},
        PageCase{"height 0", kFormat, [](Entries& e) { e[F::kHeight].values = {0}; }},
        PageCase{"bits as a long", kUnsupported, [](Entries& e) { e[F::kBits].type = kLong; }},
        PageCase{"4 bits", kUnsupported, [](Entries& e) { e[F::kBits].values = {4}; }},
        PageCase{"12 bits", kUnsupported, [](Entries& e) { e[F::kBits].values = {12}; }},
        PageCase{"four samples", kUnsupported,
            [](Entries& e) {
                e[F::kBits].values = {8, 8, 8, 8};
            }},
        PageCase{"samples of 8, 4 and 8 bits", kUnsupported,
            [](Entries& e) {
                e[F::kBits].values = {8, 4, 8};
            }},
        PageCase{
            "compression as a long", kFormat, [](Entries& e) { e[F::kCompression].type = kLong; }},
        PageCase{"Group 3", kUnsupported, [](Entries& e) { e[F::kCompression].values = {3}; }},
        PageCase{"JPEG", kUnsupported, [](Entries& e) { e[F::kCompression].values = {7}; }},
        PageCase{"no compression", kOk, [](Entries& e) { e.erase(F::kCompression); }},
        PageCase{"photometric of two values", kFormat,
            [](Entries& e) {
                e[F::kPhotometric].values = {1, 1};
            }},
        PageCase{"any photometric", kOk, [](Entries& e) { e[F::kPhotometric].values = {777}; }},
        PageCase{"description of bytes", kFormat,
            [](Entries& e) {
                e[F::kDescription] = {E::kByte, {65}};
            }},
        PageCase{"strip offsets as rationals", kFormat,
            [](Entries& e) { e[F::kStripOffsets].type = kRational; }},
        PageCase{"no strips", kFormat,
            [](Entries& e) {
                e.erase(F::kStripOffsets);
                e.erase(F::kStripByteCounts);
            }},
        PageCase{"fewer strips than the rows need", kFormat,
            [](Entries& e) { e[F::kRowsPerStrip].values = {1}; }},
        PageCase{"more byte counts than strips", kFormat,
            [](Entries& e) {
                e[F::kStripByteCounts].values = {2, 2};
            }},
        PageCase{"no byte counts", kOk, [](Entries& e) { e.erase(F::kStripByteCounts); }},
        PageCase{"strip table beyond the file", kCantRead,
            [](Entries& e) { e[F::kStripOffsets].claimedCount = 1000; }},
        PageCase{"strip table of four thousand million", kCantRead,
            [](Entries& e) { e[F::kStripOffsets].claimedCount = 0xffffffff; }},
        PageCase{"no rows per strip", kOk, [](Entries& e) { e.erase(F::kRowsPerStrip); }},
        PageCase{"0 rows per strip", kOk, [](Entries& e) { e[F::kRowsPerStrip].values = {0}; }},
        PageCase{"x resolution as a long", kFormat,
            [](Entries& e) {
                e[F::kXResolution] = {kLong, {300}};
            }},
        PageCase{"two y resolutions", kFormat,
            [](Entries& e) {
                e[F::kYResolution] = {kRational, {1, 1, 1, 1}};
            }},
        PageCase{"planes apart", kUnsupported,
            [](Entries& e) {
                e[F::kPlanar] = {kShort, {2}};
            }},
        PageCase{"planes as a long", kFormat,
            [](Entries& e) {
                e[F::kPlanar] = {kLong, {1}};
            }},
        PageCase{"unit 4", kFormat,
            [](Entries& e) {
                e[F::kResolutionUnit] = {kShort, {4}};
            }},
        PageCase{"unit 0", kFormat,
            [](Entries& e) {
                e[F::kResolutionUnit] = {kShort, {0}};
            }},
        PageCase{"predictor 3", kUnsupported,
            [](Entries& e) {
                e[F::kPredictor] = {kShort, {3}};
            }},
        PageCase{"colour map of 767", kFormat,
            [](Entries& e) {
                e[F::kColorMap] = {kShort, std::vector<std::uint32_t>(767)};
            }},
        PageCase{"colour map of a bilevel page", kFormat,
            [](Entries& e) {
                e[F::kBits].values = {1};
                e[F::kColorMap] = {kShort, std::vector<std::uint32_t>(768)};
            }},
        PageCase{"profile of bytes", kFormat,
            [](Entries& e) {
                e[F::kIccProfile] = {E::kByte, {1}};
            }},
        PageCase{"profile that nobody asked for, beyond the file", kOk,
            [](Entries& e) {
                e[F::kIccProfile] = {E::kUndefined, {1}, 0xffffffff};
            }},
        PageCase{"tags of others", kOk,
            [](Entries& e) {
                e[254] = {kLong, {0}};
                e[266] = {kShort, {2}};
                e[333] = {E::kAscii, {65}};
                e[34674] = {99, {1}};
                e[65000] = {99, {1}};
            }},
        PageCase{"the first thing wrong counts", kUnsupported,
            [](Entries& e) {
                e[F::kBits].values = {4};
                e[F::kPlanar] = {kLong, {1}};
            }},
        PageCase{"rows too wide", kUnsupported,
            [](Entries& e) { e[F::kWidth].values = {64 * 1024 * 1024 + 1}; }},
        PageCase{"two thousand million both ways", kUnsupported,
            [](Entries& e) {
                e[F::kWidth].values = e[F::kHeight].values = {0x80000000};
                e[F::kRowsPerStrip].values = {0x80000000};
            }},
        PageCase{"more rows than so short a file can hold", kCantRead,
            [](Entries& e) { e[F::kHeight].values = e[F::kRowsPerStrip].values = {0xffffffff}; }},
        PageCase{"that many LZW rows", kCantRead, [](Entries& e) {
                     e[F::kHeight].values = e[F::kRowsPerStrip].values = {0xffffffff};
                     e[F::kCompression].values = {5};
                 }}));

TEST_F(CTIFReaderFile, TagsMustAscend)
{
    std::string bytes = GrayFile();
    const std::size_t entries = bytes.size() - 4 - 12 * 8;
    std::string twice = bytes, swapped = bytes;
    twice.replace(entries + 12, 2, bytes, entries, 2);
    std::swap_ranges(swapped.begin() + static_cast<std::ptrdiff_t>(entries),
        swapped.begin() + static_cast<std::ptrdiff_t>(entries) + 12,
        swapped.begin() + static_cast<std::ptrdiff_t>(entries) + 12);
    EXPECT_EQ(Read(bytes).open, kOk);
    EXPECT_EQ(Read(twice).open, kFormat);
    EXPECT_EQ(Read(swapped).open, kFormat);
}

// Headers and chains of pages.

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
        Entries entries = TifFile::Page(1, height, 8, TifCompression::kNone);
        entries[TifFile::kStripOffsets] = {TifEntry::kLong, {strip + height}};
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
        RowSink sink;
        CTIFReader reader;
        reader.SetFile(path);
        reader.SetReceiver(sink);
        reader.SetPage(2);
        std::uint32_t rows = 0;
        EXPECT_EQ(reader.Open(rows), kOk);
        EXPECT_EQ(rows, 2U);
        EXPECT_EQ(reader.Pages(), 3U);
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
        const std::string bytes = GrayFile([&row](Entries& entries) {
            entries[TifFile::kBits].values = row.bits;
            entries[TifFile::kWidth].values = {3};
        });
        RowSink sink;
        CTIFReader reader;
        reader.SetFile(folder.Write("depth.tif", bytes));
        reader.SetReceiver(sink);
        std::uint32_t rows = 0;
        ASSERT_EQ(reader.Open(rows), kOk);
        EXPECT_EQ(reader.Depth(), row.depth);
        EXPECT_EQ(reader.RowBytes(), row.rowBytes);
        EXPECT_EQ(sink.announced,
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
        const std::string bytes = GrayFile([&row](Entries& entries) {
            entries[TifFile::kXResolution] = {
                TifEntry::kRational, {row.numerator, row.denominator}};
            entries[TifFile::kYResolution] = {TifEntry::kRational, {1, 1}};
            entries[TifFile::kResolutionUnit] = {TifEntry::kShort, {row.unit}};
        });
        RowSink sink;
        CTIFReader reader;
        reader.SetFile(folder.Write("resolution.tif", bytes));
        reader.SetReceiver(sink);
        std::uint32_t rows = 0;
        ASSERT_EQ(reader.Open(rows), kOk);
        EXPECT_EQ(reader.Resolution(), row.dpi)
            << row.numerator << "/" << row.denominator << " unit " << row.unit;
    }
}

TEST_F(CTIFReaderFile, WhiteIsZeroIsTurnedRoundUnlessTheCodesAreCcitt)
{
    struct Row {
        std::uint32_t compression;
        std::string strip;
    };
    const std::string dark = Pixels("...##...");
    for (const Row& row :
        {Row{TifCompression::kNone, dark}, Row{TifCompression::kPackBits, '\0' + dark},
            Row{TifCompression::kLzw, Codes9({256, static_cast<unsigned char>(dark[0]), 257})},
            Row{TifCompression::kModifiedHuffman, Bits("1000 11 1000")},
            Row{TifCompression::kGroup4, Bits("001 1000 11 1")}}) {
        for (const std::uint32_t photometric : {0U, 1U, 5U}) {
            TifFile file;
            Entries entries = TifFile::Page(8, 1, 1, row.compression);
            entries[TifFile::kStripOffsets] = {TifEntry::kLong, {file.Strip(row.strip)}};
            entries[TifFile::kPhotometric].values = {photometric};
            file.AddPage(entries);
            const bool isCcitt = row.compression == TifCompression::kModifiedHuffman
                || row.compression == TifCompression::kGroup4;
            const bool isTurned = photometric == 0 && !isCcitt;
            EXPECT_EQ(Read(file.Bytes()).pixels, isTurned ? "\x18" : dark)
                << row.compression << " " << photometric;
        }
    }
}

TEST_F(CTIFReaderFile, SamplesOfSixteenBitsStayInFileOrder)
{
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        TifFile file(order);
        Entries entries = TifFile::Page(2, 1, 16, TifCompression::kNone);
        entries[TifFile::kStripOffsets] = {TifEntry::kLong, {file.Strip("\1\xff\2\3")}};
        file.AddPage(entries);
        EXPECT_EQ(Read(file.Bytes()).pixels, "\1\xff\2\3");
        // Differences are little-endian numbers in any file.
        entries[TifFile::kPredictor] = {TifEntry::kShort, {2}};
        file.AddPage(entries);
        EXPECT_EQ(Read(file.Bytes(), 2).pixels, "\1\xff\3\2");
    }
}

TEST_F(CTIFReaderFile, PredictorOfBilevelRowsIsUnsupportedRowByRow)
{
    const TifReading reading = Read(GrayFile([](Entries& entries) {
        entries[TifFile::kBits].values = {1};
        entries[TifFile::kPredictor] = {TifEntry::kShort, {2}};
    }));
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
    const auto path = folder.Write("map.tif", GrayFile([&values](Entries& entries) {
        entries[TifFile::kColorMap] = {TifEntry::kShort, values};
    }));
    RowSink sink;
    CTIFReader reader;
    reader.SetFile(path);
    reader.SetReceiver(sink);
    std::uint32_t rows = 0;
    ASSERT_EQ(reader.Open(rows), kOk);
    EXPECT_EQ(reader.Depth(), ColorDepth::Palette8);
    EXPECT_EQ(reader.ColorMapEntries(), 256U);
    EXPECT_EQ(reader.ColorMap()[0].red, 255);
    EXPECT_EQ(reader.ColorMap()[1].green, 0) << "256 x 255 / 65535, rounded down";
    EXPECT_EQ(reader.ColorMap()[255].blue, 127);
}

TEST_F(CTIFReaderFile, StripsInAnyOrderAndShortTables)
{
    TifFile file(ByteOrder::Big);
    Entries entries = TifFile::Page(1, 5, 8, TifCompression::kNone);
    entries[TifFile::kRowsPerStrip].values = {2};
    entries[TifFile::kStripOffsets] = {TifEntry::kShort, {12, 10, 8}};
    file.Strip("efcdab");
    file.AddPage(entries);
    EXPECT_EQ(Read(file.Bytes()).pixels, "abcde");
}

TEST_F(CTIFReaderFile, ManyStrips)
{
    TifFile file;
    Entries entries = TifFile::Page(1, 3000, 8, TifCompression::kNone);
    std::string pixels;
    for (std::uint32_t row = 0; row < 3000; ++row) {
        pixels += static_cast<char>(row * row);
        entries[TifFile::kStripOffsets].values.push_back(8 + row);
    }
    entries[TifFile::kStripOffsets].type = TifEntry::kLong;
    entries[TifFile::kRowsPerStrip].values = {1};
    file.Strip(pixels);
    file.AddPage(entries);
    EXPECT_EQ(Read(file.Bytes()).pixels, pixels);
}

TEST_F(CTIFReaderFile, StripsBeyondTheFile)
{
    const auto read = [this](std::uint32_t compression, std::uint32_t predictor) {
        return Read(GrayFile([=](Entries& entries) {
            entries[TifFile::kStripOffsets].values = {0xfffffff0};
            entries[TifFile::kCompression].values = {compression};
            entries[TifFile::kPredictor] = {TifEntry::kShort, {predictor}};
        }));
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
    reader.SetFile(folder.Write("short.tif", GrayFile([](Entries& entries) {
        entries[TifFile::kHeight].values = {1000};
        entries[TifFile::kWidth].values = {1};
        entries[TifFile::kRowsPerStrip].values = {1000};
    })));
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
    RowSink sink;
    CTIFReader reader;
    reader.SetReceiver(sink);
    std::uint32_t rows = 0;
    reader.SetFile(folder.Write("first.tif", GrayFile([](Entries& entries) {
        entries[TifFile::kDescription] = {TifEntry::kAscii, {'a', 0}};
    })));
    ASSERT_EQ(reader.Open(rows), kOk);
    ASSERT_EQ(reader.ReadLine(), kOk);
    std::string other = GrayFile();
    other.replace(8, 4, "WXYZ");
    reader.SetFile(folder.Write("second.tif", other));
    ASSERT_EQ(reader.Open(rows), kOk);
    EXPECT_EQ(reader.Description(), "");
    EXPECT_EQ(reader.ReadLine(), kOk);
    EXPECT_EQ(sink.Row(), "WX");
    reader.SetFile(folder.Path() / "absent.tif");
    EXPECT_EQ(reader.Open(rows), ImageResult::CantOpenTif);
    EXPECT_EQ(reader.Width(), 0U);
    EXPECT_EQ(reader.ReadLine(), ImageResult::TifReadTooLong);
}

TEST_F(CTIFReaderFile, Descriptions)
{
    struct Row {
        TifEntry entry;
        std::string expected;
    };
    const TifEntry beyond{TifEntry::kAscii, {'a', 'b', 'c', 'd', 'e'}, 1000};
    for (const Row& row : {Row{{TifEntry::kAscii, {'a', 'b', 'c', 0}}, std::string("abc\0", 4)},
             Row{{TifEntry::kAscii, {'a'}}, "a"},
             Row{{TifEntry::kAscii, {'a', 'b', 'c', 'd', 'e'}}, "abcde"}, Row{beyond, "abcde"}}) {
        RowSink sink;
        CTIFReader reader;
        reader.SetReceiver(sink);
        reader.SetFile(folder.Write("text.tif",
            GrayFile([&row](Entries& entries) { entries[TifFile::kDescription] = row.entry; })));
        std::uint32_t rows = 0;
        ASSERT_EQ(reader.Open(rows), kOk);
        EXPECT_EQ(reader.Description(), row.expected);
    }
}

TEST_F(CTIFReaderFile, ProfilesAreCopied)
{
    const std::filesystem::path profile = folder.Path() / "out.icc";
    const auto open = [&](const TifEntry& entry, const std::filesystem::path& target) {
        RowSink sink;
        CTIFReader reader;
        reader.SetReceiver(sink);
        reader.SetFile(folder.Write("icc.tif",
            GrayFile([&entry](Entries& entries) { entries[TifFile::kIccProfile] = entry; })));
        std::uint32_t rows = 0;
        return reader.Open(rows, target);
    };
    const TifEntry entry{TifEntry::kUndefined, {'p', 'r', 'o', 'f', 'i', 'l', 'e'}};
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
    // Entries in front of the strip: rows are there as far as the file goes.
    TifFile file;
    Entries entries = TifFile::Page(1, 6, 8, TifCompression::kNone);
    entries[TifFile::kStripOffsets] = {TifEntry::kLong, {8 + 2 + 7 * 12 + 4}};
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
    Entries entries = TifFile::Page(24, 9, 1, TifCompression::kGroup4);
    std::string codes;
    for (int row = 0; row < 9; ++row)
        codes += "001 0111 11 001 1000 10 0001 1 ";
    entries[TifFile::kStripOffsets] = {TifEntry::kLong, {file.Strip(Bits(codes))}};
    entries[TifFile::kDescription] = {TifEntry::kAscii, {'a', 'b', 'c', 'd', 'e'}};
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
