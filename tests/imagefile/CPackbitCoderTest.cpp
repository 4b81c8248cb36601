#include "imagefile/CPackbitCoder.h"
#include "imagefile/EqualPairs.h"
#include "tests/imagefile/CodeRows.h"

#include <random>
#include <vector>

namespace vireo {
namespace {

/// Chunks as readers see them: "<3>abc" for a literal, "5xa" for a repeat.
std::string Chunks(std::string_view code)
{
    std::string text;
    while (!code.empty()) {
        const auto header = static_cast<signed char>(code[0]);
        const std::size_t bytes = header < 0 ? 1 : static_cast<std::size_t>(header) + 1;
        if (code.size() < 1 + bytes || header == -128)
            return text + "broken";
        text += header < 0 ? std::to_string(1 - header) + "x" : "<" + std::to_string(bytes) + ">";
        text += code.substr(1, bytes);
        code.remove_prefix(1 + bytes);
    }
    return text;
}

std::string CodeRow(std::string_view row)
{
    return CodeRows<CPackbitCoder>(ColorDepth::Gray8, static_cast<std::uint32_t>(row.size()), row);
}

TEST(CPackbitCoder, ChoosesChunksByTheRules)
{
    std::string alphabets;
    while (alphabets.size() < 128)
        alphabets += static_cast<char>('a' + alphabets.size() % 26);
    const struct {
        const char* what;
        std::string row;
        std::string chunks;
    } cases[] = {
        {"one byte", "a", "<1>a"},
        {"a row begins with a repeat of two", "aab", "2xa<1>b"},
        {"a third equal byte ends a literal", "abccccdefgh", "<2>ab4xc<5>defgh"},
        {"a lone pair stays inside a literal", "abccdefgh", "<9>abccdefgh"},
        {"a pair behind a repeat ends the literal", "aaabccdefgh", "3xa<1>b2xc<5>defgh"},
        {"so too when the literal between is longer", "aabcdefghijkllmnop",
            "2xa<10>bcdefghijk2xl<4>mnop"},
        {"but not behind a literal that was full", "##" + alphabets + "9yyz1234",
            "2x#<128>" + alphabets + "<8>9yyz1234"},
        {"a pair at the last two bytes", "abcdd", "<3>abc2xd"},
        {"a pair at the last three bytes", "abccd", "<2>ab2xc<1>d"},
        {"a pair before the last three bytes", "abccde", "<6>abccde"},
        {"another pair follows directly", "abccddefgh", "<2>ab2xc2xd<4>efgh"},
        {"repeats follow each other", "aabbccdefg", "2xa2xb2xc<4>defg"},
        {"a repeat ends at 128, and the rule for the next chunk is the same",
            std::string(129, 'a') + "b", "128xa<2>ab"},
        {"a repeat of 130", std::string(130, 'a'), "128xa2xa"},
        {"a repeat of 256", std::string(256, 'a'), "128xa128xa"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(Chunks(CodeRow(test.row)), test.chunks) << test.what;
}

TEST(CPackbitCoder, FullLiteralsAndPairsAroundTheirEnd)
{
    std::string noise;
    for (int i = 0; i < 300; ++i)
        noise += static_cast<char>('!' + i % 89);
    EXPECT_EQ(CodeRow(noise).substr(0, 1), "\x7f");
    EXPECT_EQ(CodeRow(noise).size(), 303U) << "128, 128 and 44 bytes";
    noise[128] = noise[129] = '~'; // A lone pair right behind the first literal.
    EXPECT_EQ(CodeRow(noise).size(), 303U);
    noise[130] = '~';
    EXPECT_EQ(CodeRow(noise)[129], static_cast<char>(-2)) << "three bytes repeated";
}

TEST(CPackbitCoder, RowsStandAlone)
{
    EXPECT_EQ(Chunks(CodeRows<CPackbitCoder>(ColorDepth::Rgb8, 1, "aaaaaaabc")), "3xa3xa<3>abc");
    EXPECT_EQ(Chunks(CodeRows<CPackbitCoder>(ColorDepth::Bilevel, 9, "abcc")), "<2>ab2xc");
}

TEST(CPackbitCoder, RefusesSixteenBits)
{
    MemoryTarget::Log log;
    MemoryTarget target(log);
    CTIFOutput output(target);
    CPackbitCoder coder(output);
    for (const ColorDepth depth : {ColorDepth::Gray16, ColorDepth::Rgb16})
        EXPECT_EQ(coder.BeginImage(depth, 1, 1, 0, 0, 0), ImageResult::InvalidTiffArguments);
}

TEST(EqualPairs, BothWaysMarkTheSame)
{
    std::mt19937 random(1);
    for (std::size_t count = 0; count < 200; ++count) {
        std::vector<std::uint8_t> bytes(count + 64 + 64);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random() % 3);
        std::vector<std::uint64_t> wide(4, 7), plain(4, 7), expected(4, 7);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint64_t bit = std::uint64_t{1} << i % 64;
            if (i % 64 == 0)
                expected[i / 64] = 0;
            if (i + 1 < count && bytes[i] == bytes[i + 1])
                expected[i / 64] |= bit;
        }
        MarkEqualPairs(bytes.data(), count, wide.data());
        MarkEqualPairsPlain(bytes.data(), count, plain.data());
        ASSERT_EQ(wide, expected) << count;
        ASSERT_EQ(plain, expected) << count;
    }
}

} // namespace
} // namespace vireo
