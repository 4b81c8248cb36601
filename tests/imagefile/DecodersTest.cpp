#include "imagefile/CHuffmanCoder.h"
#include "tests/imagefile/BitText.h"
#include "tests/imagefile/CodeRows.h"
#include "tests/imagefile/DecodeRows.h"

#include <gtest/gtest.h>

#include <random>

namespace vireo {

namespace {

constexpr ImageResult kOk = ImageResult::Ok;
constexpr ImageResult kCantRead = ImageResult::CantReadTif;
constexpr ImageResult kFormat = ImageResult::TifFormatError;

struct DecoderCase {
    const char* name;
    std::uint16_t compression;
    std::uint32_t width; ///< Pixels of one bit.
    std::string strip;
    std::vector<DecodedRow> rows;
};

void PrintTo(const DecoderCase& row, std::ostream* out)
{
    *out << row.name;
}

class Decoders : public testing::TestWithParam<DecoderCase> { };

TEST_P(Decoders, RowsAndResults)
{
    const DecoderCase& row = GetParam();
    for (const std::size_t window : {TifStream::kWindowBytes, SmallWindow(row.compression)})
        EXPECT_EQ(
            DecodeRows(row.compression, row.width, row.strip, row.rows.size(), window), row.rows)
            << "window of " << window;
}

constexpr std::uint16_t kPack = TifCompression::kPackBits;
INSTANTIATE_TEST_SUITE_P(PackBits, Decoders,
    testing::Values(DecoderCase{"literal and run", kPack, 32, "\1ab\xff\143", {{"abcc"}}},
        DecoderCase{"128 is nothing", kPack, 32, "\x80\x80\xfd\141", {{"aaaa"}}},
        DecoderCase{"a row ends with its last byte", kPack, 16, "\1ab\1cd", {{"ab"}, {"cd"}}},
        DecoderCase{"literal past the row, though the strip holds it", kPack, 32, "\4\1ab\1cd",
            {{"zzzz", kFormat}, {"abcd"}}},
        DecoderCase{"run past what is left of the row", kPack, 32, "\1ab\xfe\143",
            {{"abzz", kFormat}, {"zzzz", kCantRead}}},
        DecoderCase{"literal cut off", kPack, 32, "\3ab", {{"zzzz", kCantRead}}},
        DecoderCase{"run cut off", kPack, 32, "\1ab\xff", {{"abzz", kCantRead}}},
        DecoderCase{"empty", kPack, 32, "", {{"zzzz", kCantRead}}}));

constexpr std::uint16_t kLzw = TifCompression::kLzw;
INSTANTIATE_TEST_SUITE_P(Lzw, Decoders,
    testing::Values(DecoderCase{"two bytes", kLzw, 16, Codes9({256, 'a', 'b', 257}), {{"ab"}}},
        DecoderCase{"a string goes over the end of a row", kLzw, 16,
            Codes9({256, 'a', 'b', 'c', 259, 'd', 257}), {{"ab"}, {"cb"}, {"cd"}}},
        DecoderCase{"strings that are being made", kLzw, 80, Codes9({256, 'a', 258, 259, 260, 257}),
            {{"aaaaaaaaaa"}, {"zzzzzzzzzz"}}},
        DecoderCase{"no end code", kLzw, 24, Codes9({256, 'a', 'b'}), {{"abz"}, {"zzz"}}},
        DecoderCase{
            "end code in a row", kLzw, 24, Codes9({256, 'a', 257, 'b', 'c'}), {{"azz"}, {"zzz"}}},
        DecoderCase{"clear code between", kLzw, 32, Codes9({256, 'a', 'b', 256, 'c', 258, 257}),
            {{"abcc"}, {"czzz"}}},
        DecoderCase{"clear codes one after the other, then the end", kLzw, 16,
            Codes9({256, 256, 'a', 256, 257}), {{"az"}}},
        DecoderCase{
            "no clear code in front", kLzw, 24, Codes9({'a', 'b', 258, 257}), {{"aba"}, {"bzz"}}},
        DecoderCase{"string without any before", kLzw, 16, Codes9({258, 'a'}),
            {{"zz", kFormat}, {"zz", kFormat}}},
        DecoderCase{"string behind a clear code", kLzw, 16, Codes9({256, 'a', 256, 258}),
            {{"az", kFormat}}},
        DecoderCase{"string beyond the one being made", kLzw, 16, Codes9({256, 'a', 'b', 260}),
            {{"ab"}, {"zz", kFormat}, {"zz", kFormat}}},
        DecoderCase{"a code cut off is none", kLzw, 16, Codes9({256, 'a'}), {{"az"}}},
        DecoderCase{"empty", kLzw, 16, "", {{"zz"}}}));

constexpr std::uint16_t kMh = TifCompression::kModifiedHuffman;
// White: 0 00110101, 1 000111, 2 0111, 3 1000, 4 1011; black: 0 0000110111, 2 11, 3 10, 8 000101.
INSTANTIATE_TEST_SUITE_P(ModifiedHuffman, Decoders,
    testing::Values(DecoderCase{"three runs", kMh, 8, Bits("1000 11 1000"), {{Pixels("...##...")}}},
        DecoderCase{"rows begin on a byte", kMh, 8, Bits("1000 11 1000 111111 00110101 000101"),
            {{Pixels("...##...")}, {Pixels("########")}}},
        DecoderCase{"one pixel, then the rest of the byte is skipped", kMh, 1,
            Bits("000111 11 000111"), {{Pixels(".")}, {Pixels(".")}}},
        DecoderCase{
            "bits behind the last pixel are white", kMh, 5, Bits("1000 11"), {{Pixels("...##")}}},
        DecoderCase{"ends of lines are skipped", kMh, 8,
            Bits("000000000001 1000 000000000001 000000000001 11 1000"), {{Pixels("...##...")}}},
        DecoderCase{"make-up codes add up", kMh, 2624, Bits("000000011111 11011 00110101"),
            {{std::string(328, '\xff')}}},
        DecoderCase{"runs of no length", kMh, 8, Bits("1000 0000110111 000111 11 0111"),
            {{Pixels("....##..")}}},
        DecoderCase{"white run past the row", kMh, 8, Bits("0111 11 11110000"),
            {{Pixels("..##...."), kFormat}}},
        DecoderCase{"black run past the row", kMh, 8, Bits("1000 11 0111 10 000000"),
            {{Pixels("...##..."), kFormat}, {Pixels("........"), kCantRead}}},
        DecoderCase{
            "no such code", kMh, 8, Bits("1000 000000000000"), {{Pixels("........"), kFormat}}},
        DecoderCase{
            "cut off in a code", kMh, 8, Bits("1000 11 00"), {{Pixels("...##..."), kCantRead}}},
        DecoderCase{"empty", kMh, 8, "", {{Pixels("........"), kCantRead}}}));

constexpr std::uint16_t kG4 = TifCompression::kGroup4;
// Pass 0001, horizontal 001, V0 1, VR1 011, VR2 000011, VR3 0000011, VL1 010, VL2 000010,
// VL3 0000010.
INSTANTIATE_TEST_SUITE_P(Group4, Decoders,
    testing::Values(DecoderCase{"white rows take a bit each", kG4, 8, Bits("1 1"),
                        {{Pixels("........")}, {Pixels("........")}}},
        DecoderCase{"horizontal, and the same again in mid-byte", kG4, 8,
            Bits("001 0111 10 1  1 1 1"), {{Pixels("..###...")}, {Pixels("..###...")}}},
        DecoderCase{"black first", kG4, 8, Bits("001 00110101 10 1  1 011 1"),
            {{Pixels("###.....")}, {Pixels("####....")}}},
        DecoderCase{"changes move by one", kG4, 8, Bits("001 0111 10 1  011 010 1"),
            {{Pixels("..###...")}, {Pixels("...#....")}}},
        DecoderCase{"changes move by two and three", kG4, 16,
            Bits("001 1011 10 1  000011 0000011 1  000010 0000010 1"),
            {{Pixels("....###.........")}, {Pixels("......####......")},
                {Pixels("....###.........")}}},
        DecoderCase{"pass over a run", kG4, 8, Bits("001 0111 10 1  0001 1"),
            {{Pixels("..###...")}, {Pixels("........")}}},
        DecoderCase{"pass within black", kG4, 12, Bits("001 0111 11 001 0111 11 1  1 0001 1 1"),
            {{Pixels("..##..##....")}, {Pixels("..######....")}}},
        DecoderCase{"a change left of b1 leaves the one before as the next b1", kG4, 12,
            Bits("001 0111 011 001 0111 11 1  001 000111 10 0000010 1 1 1 1"),
            {{Pixels("..####..##..")}, {Pixels(".###.#..##..")}}},
        DecoderCase{"a change right of b1 passes the next ones", kG4, 8,
            Bits("001 000111 010 001 000111 010 1  0000011 1"),
            {{Pixels(".#.#....")}, {Pixels("....####")}}},
        DecoderCase{"runs of no length make no change", kG4, 8,
            Bits("001 0111 0000110111 001 000111 11 1  1 1 1"),
            {{Pixels("...##...")}, {Pixels("...##...")}}},
        DecoderCase{"horizontal to the row's end", kG4, 8, Bits("001 1000 0011  1 1"),
            {{Pixels("...#####")}, {Pixels("...#####")}}},
        DecoderCase{"both runs are read though the first ends the row", kG4, 8,
            Bits("001 10011 0000110111 1"), {{Pixels("........")}, {Pixels("........")}}},
        DecoderCase{"a1 left of a0", kG4, 8, Bits("001 1011 11 1  001 0111 010 0000010 1 1 1"),
            {{Pixels("....##..")}, {Pixels("..#....."), kFormat}, {Pixels("..#.....")}}},
        DecoderCase{"a1 at a0 takes the change back", kG4, 8, Bits("001 0111 10 1  1 0000010 1"),
            {{Pixels("..###...")}, {Pixels("........")}}},
        DecoderCase{"a1 past the row", kG4, 8, Bits("011 1"),
            {{Pixels("........"), kFormat}, {Pixels("........")}}},
        DecoderCase{"run past the row, and the failed row is the next one's reference", kG4, 8,
            Bits("001 0111 11 001 10011 11  1 1 1"),
            {{Pixels("..##...."), kFormat}, {Pixels("..##....")}}},
        DecoderCase{"a failed row is black as far as it was told", kG4, 16,
            Bits("001 0111 11 001 0111 11 1  1 0001 0000001 1 1 1"),
            {{Pixels("..##..##........")}, {Pixels("..####.........."), kFormat},
                {Pixels("..####..........")}}},
        DecoderCase{"extension", kG4, 8, Bits("0000001 1"),
            {{Pixels("........"), kFormat}, {Pixels("........")}}},
        DecoderCase{"end of the block", kG4, 8, Bits("1 000000000001 000000000001"),
            {{Pixels("........")}, {Pixels("........"), kFormat}}},
        DecoderCase{"cut off in a code", kG4, 8, Bits("001 0111 1"),
            {{Pixels("........"), kCantRead}, {Pixels("........"), kCantRead}}}));

TEST(Decoders, LzwWidthsGrowAndTheTableEnds)
{
    // Nothing but single bytes: each code but the first makes an entry.
    constexpr std::size_t kEntries = 4096 - 258;
    std::vector<WideCode> codes{{256, 9}};
    std::string bytes;
    for (std::size_t i = 0; i < kEntries + 1; ++i) {
        const std::size_t next = 258 + (i == 0 ? 0 : i - 1);
        const unsigned width = next < 511 ? 9 : next < 1023 ? 10 : next < 2047 ? 11 : 12;
        codes.push_back({static_cast<unsigned>(i * 7 % 251), width});
        bytes += static_cast<char>(i * 7 % 251);
    }
    const std::string full = Codes(codes);
    const auto width = static_cast<std::uint32_t>(8 * bytes.size());
    EXPECT_EQ(DecodeRows(kLzw, width, full, 1)[0], (DecodedRow{bytes, kOk}));

    auto cleared = codes;
    cleared.insert(cleared.end(), {{256, 12}, {'x', 9}, {258, 9}, {257, 9}});
    EXPECT_EQ(DecodeRows(kLzw, width + 24, Codes(cleared), 1)[0], (DecodedRow{bytes + "xxx", kOk}));
    auto overflowing = codes;
    overflowing.insert(overflowing.end(), {{'x', 12}, {257, 12}});
    EXPECT_EQ(
        DecodeRows(kLzw, width + 8, Codes(overflowing), 1)[0], (DecodedRow{bytes + "z", kFormat}));
}

TEST(Decoders, LzwStringsOfAllLengths)
{
    // Every code is the string being made: 1 + 2 + 3 + ... bytes, the most a table can hold.
    constexpr unsigned kStrings = 4096 - 258;
    std::vector<WideCode> codes{{256, 9}, {'q', 9}};
    for (unsigned next = 258; next < 258 + kStrings; ++next)
        codes.push_back({next, next < 511 ? 9U : next < 1023 ? 10U : next < 2047 ? 11U : 12U});
    constexpr std::size_t kRow = (kStrings + 1) * (kStrings + 2) / 2 / 3;
    const auto rows = DecodeRows(kLzw, 8 * kRow, Codes(codes), 4);
    for (int row = 0; row < 3; ++row)
        EXPECT_TRUE(rows[static_cast<std::size_t>(row)] == (DecodedRow{std::string(kRow, 'q')}));
}

TEST(Decoders, PackBitsChunksOfEveryLengthAnywhereInARow)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        std::string strip, row;
        const std::size_t rowBytes = 1 + random() % 700;
        while (row.size() < rowBytes) {
            const std::size_t most = std::min<std::size_t>(rowBytes - row.size(), 128);
            const std::size_t count = 1 + random() % (random() % 2 == 0 ? most : 1 + most / 16);
            if (count >= 2 && random() % 2 == 0) {
                const std::string run(count, static_cast<char>(random()));
                strip += {static_cast<char>(257 - count), run[0]};
                row += run;
            } else {
                strip += static_cast<char>(count - 1);
                for (std::size_t i = 0; i < count; ++i) {
                    row += static_cast<char>(random());
                    strip += row.back();
                }
            }
        }
        const auto width = static_cast<std::uint32_t>(8 * rowBytes);
        const std::vector<DecodedRow> expected{{row, kOk}, {row, kOk}, {row, kOk}};
        const std::string strips = strip + strip + strip;
        EXPECT_EQ(DecodeRows(kPack, width, strips, 3), expected);
        EXPECT_EQ(DecodeRows(kPack, width, strips, 3, SmallWindow(kPack)), expected);
        for (char& byte : row)
            byte = static_cast<char>(~byte);
        const std::vector<DecodedRow> turned{{row, kOk}, {row, kOk}, {row, kOk}};
        EXPECT_EQ(DecodeRows(kPack, width, strips, 3, TifStream::kWindowBytes, 'z', true), turned);
    }
}

/// Random bits that hold the short codes more often than chance would have them.
std::string LikelyCodes(std::mt19937& random, std::size_t bytes)
{
    static const char* const kLikely[] = {"1", "11", "011", "010", "0001", "001 0111 11",
        "001 000111 010", "001 1000 10", "000011", "0000010", "001 11011 000111 0011",
        "001 00110101 11", "00110101", "0000110111"};
    std::string text;
    while (text.size() < 8 * bytes)
        text += kLikely[random() % std::size(kLikely)];
    return Bits(text);
}

TEST(Decoders, ManyCodesAtATimeGiveWhatOneByOneGives)
{
    std::mt19937 random(2);
    for (int round = 0; round < 300; ++round) {
        const auto width = static_cast<std::uint32_t>(1 + random() % (round % 3 == 0 ? 30 : 3000));
        std::string strip = LikelyCodes(random, 400);
        strip[random() % strip.size()] ^= static_cast<char>(1 << random() % 8);
        for (const std::uint16_t compression : {kMh, kG4})
            ASSERT_EQ(DecodeRows(compression, width, strip, 40),
                DecodeRows(compression, width, strip, 40, SmallWindow(compression)))
                << "round " << round;
    }
}

/// A row of white pixels in which some are black.
std::string RowWithBlack(std::uint32_t width, const std::vector<std::uint32_t>& black)
{
    std::string row((width + 7) / 8, '\xff');
    for (const std::uint32_t pixel : black) {
        if (pixel < width)
            row[pixel / 8] ^= static_cast<char>(0x80 >> pixel % 8);
    }
    return row;
}

TEST(Decoders, RowsThatAreDrawnInPartsHaveNoSeams)
{
    constexpr std::uint32_t kPart = 64 * 64 * 1024;
    for (const std::uint32_t width : {kPart - 1, kPart, kPart + 1, kPart + 64, 2 * kPart + 7}) {
        const std::string rows[] = {RowWithBlack(width, {}), RowWithBlack(width, {0, width - 1}),
            RowWithBlack(width, {kPart - 64, kPart - 1, kPart, kPart + 1, 2 * kPart}),
            RowWithBlack(width, {kPart - 1}), RowWithBlack(width, {kPart + 63, 2 * kPart - 1})};
        for (const std::string& row : rows) {
            const std::string strip = CodeRows<CHuffmanCoder>(
                ColorDepth::Bilevel, width, row, CHuffmanCoder::Scheme::Group4);
            const auto decoded = DecodeRows(kG4, width, strip, 1);
            ASSERT_EQ(decoded[0].result, kOk) << width;
            ASSERT_TRUE(decoded[0].bytes == row) << width << ", row " << &row - rows;
        }
    }
}

TEST(Decoders, CodesThatGoNowhereEnd)
{
    // Horizontal codes of two runs without length: more than the row has pixels.
    std::string nowhere;
    for (int i = 0; i < 10; ++i)
        nowhere += "001 00110101 0000110111";
    EXPECT_EQ(DecodeRows(kG4, 8, Bits(nowhere), 1)[0], (DecodedRow{"\xff", kFormat}));
    EXPECT_EQ(DecodeRows(kG4, 16, Bits(nowhere), 1)[0], (DecodedRow{"\xff\xff", kCantRead}));
}

} // namespace

} // namespace vireo
