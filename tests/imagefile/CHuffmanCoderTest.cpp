#include "imagefile/CHuffmanCoder.h"
#include "tests/imagefile/CodeRows.h"

#include <string>
#include <vector>

namespace vireo {
namespace {

using Scheme = CHuffmanCoder::Scheme;

/// Rows of pixels, '#' for black, all of one width.
std::string Code(Scheme scheme, const std::vector<std::string>& rows)
{
    std::string bytes;
    for (const std::string& row : rows) {
        std::string bits;
        for (const char pixel : row)
            bits += pixel == '#' ? '0' : '1';
        // What fills the last byte up does not count.
        bits.resize((bits.size() + 7) / 8 * 8, bytes.empty() ? '0' : '1');
        bytes += FromBits(bits);
    }
    return CodeRows<CHuffmanCoder>(
        ColorDepth::Bilevel, static_cast<std::uint32_t>(rows[0].size()), bytes, scheme);
}

/// Bits as a file ends with them: the end of facsimile block, and zeros up to the next byte.
std::string Ended(std::string bits)
{
    std::erase(bits, ' ');
    bits += "000000000001000000000001";
    bits.resize((bits.size() + 7) / 8 * 8, '0');
    return FromBits(bits);
}

/// A row of 20 pixels that turns black at one of them.
std::string BlackFrom(std::size_t pixel)
{
    return std::string(pixel, '.') + std::string(20 - pixel, '#');
}

struct Case {
    const char* what;
    std::vector<std::string> rows;
    const char* bits;
};

TEST(CHuffmanCoder, ModifiedHuffman)
{
    const Case cases[] = {
        {"one white pixel", {"."}, "000111 00"},
        {"one black pixel: no white ones before it", {"#"}, "00110101 010 00000"},
        {"white, black, white", {"...##...."}, "1000 11 1011 000000"},
        {"each row begins on a byte", {".", "#", "."}, "000111 00  00110101 010 00000  000111 00"},
        {"63 white", {std::string(63, '.')}, "00110100"},
        {"64 white: a make-up code and none", {std::string(64, '.')}, "11011 00110101 000"},
        {"1728 black", {std::string(1728, '#')}, "00110101 0000001100101 0000110111 0"},
        {"1792, common to both colours", {std::string(1792, '.')}, "00000001000 00110101 00000"},
        {"2561 white", {std::string(2561, '.')}, "000000011111 000111 000000"},
        {"2623 black", {std::string(2623, '#') + "."},
            "00110101 000000011111 000001100111 000111 00"},
        {"2624: no longer one make-up code", {std::string(2624, '.')},
            "000000011111 11011 00110101 0000000"},
        {"5183", {std::string(5183, '.')}, "000000011111 000000011111 00110100"},
    };
    for (const Case& test : cases)
        EXPECT_EQ(Code(Scheme::ModifiedHuffman, test.rows), Ended(test.bits)) << test.what;
}

TEST(CHuffmanCoder, Group4)
{
    const Case cases[] = {
        {"white: V0", {"........", "........"}, "1  1"},
        {"black at the very start, and a row like the one above", {"##......", "##......"},
            "001 00110101 11 1  1 1 1"},
        {"black to the end", {"......##", "......##"}, "000010 1  1 1"},
        {"horizontal, then VR3, VR1, VR2, VL3, VL1, VL2",
            {BlackFrom(10), BlackFrom(13), BlackFrom(14), BlackFrom(16), BlackFrom(13),
                BlackFrom(12), BlackFrom(10)},
            "001 00111 0000100  0000011 1  011 1  000011 1  0000010 1  010 1  000010 1"},
        {"pass over what is only above", {"...##.......", "............"}, "001 1000 11 1  0001 1"},
        {"pass, then too far from what is above", {"...##.......", ".......#...."},
            "001 1000 11 1  0001 001 0111 010 1"},
        {"too far to the left", {".....##.....", "#..........."},
            "001 1100 11 1  001 00110101 010 0001 1"},
        {"what lay left of b1 comes into view again", {"...###.###..", "...#.#......"},
            "001 1000 10 001 000111 10 1  1 000010 000010 1 0001 1"},
    };
    for (const Case& test : cases)
        EXPECT_EQ(Code(Scheme::Group4, test.rows), Ended(test.bits)) << test.what;
}

TEST(CHuffmanCoder, Group4RowsThatRepeatManyChanges)
{
    std::string row;
    while (row.size() < 200)
        row += "#.";
    // Its 200 changing elements begin with the first pixel. The last black pixel and the white one
    // behind it lie near the end of the white row above.
    std::string bits = "001 00110101 010";
    for (int i = 0; i < 98; ++i)
        bits += "001 000111 010";
    bits += "000010 010 1";
    EXPECT_EQ(Code(Scheme::Group4, {row}), Ended(bits));
    EXPECT_EQ(Code(Scheme::Group4, {row, row}), Ended(bits + std::string(201, '1')));
}

TEST(CHuffmanCoder, Group3EveryFourthRowByItsRuns)
{
    const std::string oneDimensional = "000000000001 1 1000 ";
    const std::string twoDimensional = "000000000001 0 1 ";
    EXPECT_EQ(Code(Scheme::Group3, {"...", "...", "...", "...", "...", "#.."}),
        Ended(oneDimensional + twoDimensional + twoDimensional + twoDimensional + oneDimensional
            + "000000000001 0 0000010 000010 1"));
}

TEST(CHuffmanCoder, Refusals)
{
    MemoryTarget::Log log;
    MemoryTarget target(log);
    CTIFOutput output(target);
    constexpr auto kRefused = ImageResult::InvalidHuffmanCoderArguments;
    CHuffmanCoder coder(output, Scheme::Group4);
    EXPECT_EQ(coder.BeginImage(ColorDepth::Gray8, 1, 1, 0, 0, 0), kRefused);
    EXPECT_EQ(coder.BeginImage(ColorDepth::Bilevel, 0x80000000, 1, 0, 0, 0), kRefused);
    CHuffmanCoder unknown(output, static_cast<Scheme>(3));
    EXPECT_EQ(unknown.BeginImage(ColorDepth::Bilevel, 1, 1, 0, 0, 0), kRefused);
}

} // namespace
} // namespace vireo
