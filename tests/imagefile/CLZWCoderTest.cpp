#include "imagefile/CLZWCoder.h"
#include "tests/imagefile/CodeRows.h"

#include <random>
#include <unordered_map>

namespace vireo {
namespace {

std::string Code(std::string_view row, std::uint32_t width)
{
    return CodeRows<CLZWCoder>(ColorDepth::Gray8, width, row);
}

TEST(CLZWCoder, SmallPictures)
{
    // 7, then 258 is 7 7, 259 is 7 7 8, 260 is 8 8, 261 is 8 7 7 (TIFF 6.0, section 13).
    const std::string row = "\x07\x07\x07\x08\x08\x07\x07\x06\x06";
    EXPECT_EQ(Code(row, 9),
        FromBits("100000000 000000111 100000010 000001000 000001000 100000010 000000110 000000110"
                 "100000001 0000000"));
    EXPECT_EQ(Code(row, 3), Code(row, 9)) << "strings run on from row to row";
    EXPECT_EQ(Code("a", 1), FromBits("100000000 001100001 100000001 00000"));
}

/// The same coding, worked out the plain way: a dictionary that is emptied at every clear code.
class PlainLzw {
public:
    std::string Code(std::string_view bytes)
    {
        Begin();
        unsigned prefix = static_cast<unsigned char>(bytes[0]);
        for (const char c : bytes.substr(1)) {
            const unsigned byte = static_cast<unsigned char>(c);
            if (const auto longer = m_codes.find(prefix << 8 | byte); longer != m_codes.end()) {
                prefix = longer->second;
                continue;
            }
            Put(prefix);
            m_codes[prefix << 8 | byte] = m_next++;
            prefix = byte;
            if (m_next == 512 || m_next == 1024 || m_next == 2048)
                ++m_width;
            if (m_next == 4095)
                Begin();
        }
        Put(prefix);
        Put(257);
        while (m_bits.size() % 8 != 0)
            m_bits += '0';
        return FromBits(m_bits);
    }

private:
    void Begin()
    {
        Put(256);
        m_codes.clear();
        m_next = 258;
        m_width = 9;
    }
    void Put(unsigned code)
    {
        for (unsigned bit = m_width; bit-- > 0;)
            m_bits += (code >> bit & 1) != 0 ? '1' : '0';
    }

    std::unordered_map<unsigned, unsigned> m_codes; ///< By the prefix' code and the byte.
    unsigned m_next = 258;
    unsigned m_width = 9;
    std::string m_bits;
};

std::string Noise(std::size_t count, unsigned values, unsigned seed)
{
    std::mt19937 random(seed);
    std::string bytes;
    while (bytes.size() < count)
        bytes += static_cast<char>(random() % values);
    return bytes;
}

std::string RunsOfAllLengths(std::size_t count)
{
    std::mt19937 random(5);
    std::string bytes;
    while (bytes.size() < count)
        bytes.append(random() % 60, static_cast<char>(random() % 3 * 4));
    return bytes.substr(0, count);
}

TEST(CLZWCoder, WidthsClearsAndGenerations)
{
    const struct {
        const char* what;
        std::string bytes;
        std::uint32_t width;
    } cases[] = {
        // 80,000 codes: more than 20 clear codes, so the table is wiped on the way.
        {"noise", Noise(80'000, 256, 1), 1000},
        {"little noise", Noise(60'000, 4, 2), 100},
        {"one value, whose strings grow", std::string(300'000, '\xff'), 1000},
        {"one value that fills the table", std::string(8'000'000, 'a'), 40'000},
        {"runs", RunsOfAllLengths(200'000), 500},
        {"narrow rows", RunsOfAllLengths(20'000), 1},
    };
    for (const auto& test : cases)
        EXPECT_TRUE(Code(test.bytes, test.width) == PlainLzw().Code(test.bytes)) << test.what;
}

TEST(CLZWCoder, EveryLengthAroundTheChangesOfWidth)
{
    const std::string bytes = Noise(5000, 256, 3);
    for (std::size_t length = 1; length < bytes.size();
         length += length < 300 || length % 256 > 240 ? 1 : 61) {
        const std::string_view start = std::string_view(bytes).substr(0, length);
        ASSERT_EQ(Code(start, static_cast<std::uint32_t>(length)), PlainLzw().Code(start))
            << length;
    }
}

} // namespace
} // namespace vireo
