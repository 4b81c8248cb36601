#include "imagefile/TifConversion.h"
#include "tests/TempFolder.h"
#include "tests/imagefile/ReadTif.h"
#include "tests/imagefile/TifFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace vireo {
namespace {

using Entries = std::map<std::uint16_t, TifEntry>;

/// A file of one page, whose entries a test changes, and what it is converted to.
class TifConversionTest : public testing::Test {
protected:
    void AddPage(Entries entries, const std::string& strip, ByteOrder order = ByteOrder::Little)
    {
        if (m_file.Bytes().size() == 8)
            m_file = TifFile(order);
        entries[TifFile::kStripOffsets] = {TifEntry::kLong, {m_file.Strip(strip)}};
        entries[TifFile::kStripByteCounts] = {
            TifEntry::kLong, {static_cast<std::uint32_t>(strip.size())}};
        m_file.AddPage(entries);
    }

    /// Converts and reads the output back.
    std::string Convert()
    {
        conversion.input = folder.Write("in.tif", m_file.Bytes());
        conversion.output = folder.Path() / "out.tif";
        // On some systems a file that is open for reading is not replaced.
        if (std::exchange(m_isReading, false)) {
            EXPECT_EQ(reader.Close(0), ImageResult::Ok);
        }
        std::string failure = ConvertTif(conversion);
        if (failure.empty()) {
            reading = ReadTif(conversion.output);
            EXPECT_EQ(reading.rows, ImageResult::Ok);
            reader.SetFile(conversion.output);
            std::uint32_t rows = 0;
            reader.SetReceiver(sink);
            EXPECT_EQ(reader.Open(rows, folder.Path() / "out.icc"), ImageResult::Ok);
            m_isReading = true;
        }
        return failure;
    }

    const TempFolder folder;
    TifConversion conversion;
    TifReading reading;
    RowSink sink;
    CTIFReader reader; ///< Knows what the output's page says.

private:
    TifFile m_file;
    bool m_isReading = false;
};

TEST_F(TifConversionTest, BigEndianSamplesBecomeLittleEndian)
{
    AddPage(TifFile::Page(3, 1, 16, 1), std::string("\1\2\3\4\0\xff", 6), ByteOrder::Big);
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reading.pixels, std::string("\2\1\4\3\xff\0", 6));
}

TEST_F(TifConversionTest, BigEndianDifferences)
{
    Entries entries = TifFile::Page(3, 1, 16, 1);
    entries[TifFile::kPredictor] = {TifEntry::kShort, {2}};
    // 0x0102, then 0x00ff more, then 0x0001 less.
    AddPage(entries, std::string("\1\2\0\xff\xff\xff", 6), ByteOrder::Big);
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reading.pixels, std::string("\2\1\1\2\0\2", 6));
    EXPECT_EQ(reader.Predictor(), 1);
}

TEST_F(TifConversionTest, WhatAStripDoesNotFillIsZero)
{
    // Clear, "a", end: three codes of 9 bits; then two rows are missing.
    AddPage(TifFile::Page(3, 3, 8, 5), std::string("\x80\x18\x60\x20", 4));
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reading.pixels, "a" + std::string(8, '\0'));
    EXPECT_EQ(reader.Compression(), TifCompression::kLzw) << "as it was";
}

TEST_F(TifConversionTest, ColoursKeepTheir16Bits)
{
    Entries entries = TifFile::Page(2, 1, 8, 1);
    TifEntry& map = entries[TifFile::kColorMap];
    for (std::uint32_t i = 0; i < 768; ++i)
        map.values.push_back(i * 85 + 3);
    AddPage(entries, "ab");
    conversion.compression = TifCompression::kPackBits;
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reader.Depth(), ColorDepth::Palette8);
    EXPECT_TRUE(std::ranges::equal(map.values, reader.Entries().colorMapValues));
}

TEST_F(TifConversionTest, GrayOnWhich0IsWhiteStaysSo)
{
    Entries entries = TifFile::Page(2, 1, 8, 1);
    entries[TifFile::kPhotometric].values = {0};
    entries[TifFile::kDescription] = {TifEntry::kAscii, {'T', 'Q', 'X', '\n', 'm', 0}};
    entries[TifFile::kXResolution] = {TifEntry::kRational, {118, 1}};
    entries[TifFile::kResolutionUnit] = {TifEntry::kShort, {3}};
    AddPage(entries, "ab");
    conversion.compression = TifCompression::kLzw;
    conversion.predictor = 2;
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reading.pixels, "ab");
    EXPECT_EQ(reader.Photometric(), 0);
    EXPECT_EQ(reader.Description(), std::string("TQX\nm\0", 6));
    EXPECT_EQ(reader.Resolution(), 300U);
}

TEST_F(TifConversionTest, RunsThatMeanBlackStayRunsThatMeanBlack)
{
    for (const std::uint32_t photometric : {0U, 1U}) {
        // Two rows like the white one above: V0 V0.
        Entries entries = TifFile::Page(8, 2, 1, 4);
        entries[TifFile::kPhotometric].values = {photometric};
        TifConversionTest::AddPage(entries, "\xc0");
        conversion.page = photometric + 1;
        EXPECT_EQ(Convert(), "");
        EXPECT_EQ(reader.Photometric(), photometric);
        EXPECT_EQ(reading.pixels, "\xff\xff");
    }
}

TEST_F(TifConversionTest, FormsThatAreNotWrittenBecomePlain)
{
    AddPage(TifFile::Page(1, 1, 16, 32773), "\1ab");
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reader.Compression(), TifCompression::kNone);
    EXPECT_EQ(reading.pixels, "ab");
    conversion.compression = TifCompression::kPackBits;
    EXPECT_EQ(Convert(), "Invalid tiff-arguments: PackBits holds no 16-bit samples");
}

TEST_F(TifConversionTest, PredictorsAreForSamples)
{
    AddPage(TifFile::Page(8, 1, 1, 1), "a");
    conversion.compression = TifCompression::kLzw;
    conversion.predictor = 2;
    EXPECT_EQ(Convert(), "Invalid tiff-arguments: a predictor is for gray and RGB pictures");
}

TEST_F(TifConversionTest, Profiles)
{
    const std::string own = std::string(36, 'o') + "acsp" + std::string(100, 'o');
    const std::string other = std::string(36, 'n') + "acsp" + std::string(90, 'n');
    Entries entries = TifFile::Page(2, 1, 8, 1);
    TifEntry& profile = entries[TifFile::kIccProfile];
    profile.type = TifEntry::kUndefined;
    profile.values.assign(own.begin(), own.end());
    AddPage(entries, "ab");
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(TempFolder::Read(folder.Path() / "out.icc"), own);
    conversion.profile = folder.Write("other.icc", other);
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(TempFolder::Read(folder.Path() / "out.icc"), other);
    TifConversion onto = conversion;
    onto.output = folder.Path() / "." / "other.icc";
    EXPECT_EQ(ConvertTif(onto), "The output would replace the profile " + onto.profile.string());
    EXPECT_EQ(TempFolder::Read(onto.profile), other);
    conversion.profile = "no such profile.icc";
    EXPECT_EQ(Convert(), "no such profile.icc: Can't open icc-file");
    conversion.profile = folder.Write("text.icc", std::string(200, 'x'));
    EXPECT_EQ(Convert(), "Invalid tiff-arguments: Icc-profile unknown format");
}

TEST_F(TifConversionTest, AnOwnProfileThatIsNoneIsLeftOut)
{
    Entries entries = TifFile::Page(2, 1, 8, 1);
    entries[TifFile::kIccProfile] = {TifEntry::kUndefined, {'n', 'o', 'n', 'e', '!'}};
    AddPage(entries, "ab");
    EXPECT_EQ(Convert(), "");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "out.icc"));
}

TEST_F(TifConversionTest, PagesAndWhatFails)
{
    AddPage(TifFile::Page(2, 1, 8, 1), "ab");
    AddPage(TifFile::Page(2, 2, 8, 32773), "\1cd\x7f");
    EXPECT_EQ(Convert(), "");
    EXPECT_EQ(reading.pixels, "ab");
    EXPECT_EQ(reader.Pages(), 1U);
    conversion.page = 3;
    EXPECT_EQ(Convert(), "Tif format error");
    conversion.page = 2;
    EXPECT_EQ(Convert(), "Tif format error in row 1") << "which would hold 128 bytes";
    EXPECT_EQ(ReadTif(conversion.output).pixels, "ab") << "the old output stays";
    conversion.page = 1;
    conversion.compression = TifCompression::kGroup4;
    EXPECT_EQ(Convert(),
        "Invalid huffman coder-arguments: modified Huffman and Group 4 hold bilevel pictures only");
}

TEST_F(TifConversionTest, FilesThatAreRefused)
{
    AddPage(TifFile::Page(2, 1, 8, 1), "ab");
    ASSERT_EQ(Convert(), "");
    const std::string before = TempFolder::Read(conversion.input);
    conversion.output = folder.Path() / "." / "in.tif";
    EXPECT_EQ(ConvertTif(conversion), "The output would replace the file itself");
    std::filesystem::create_hard_link(conversion.input, folder.Path() / "link.tif");
    conversion.output = folder.Path() / "link.tif";
    EXPECT_EQ(ConvertTif(conversion), "The output would replace the file itself");
    EXPECT_EQ(TempFolder::Read(conversion.input), before);
    conversion.output = folder.Path() / "none" / "out.tif";
    EXPECT_NE(ConvertTif(conversion).find("Can't open tif-file: "), std::string::npos);
    conversion.input = folder.Path() / "none.tif";
    EXPECT_EQ(ConvertTif(conversion), "Can't open tif-file");
}

} // namespace
} // namespace vireo
