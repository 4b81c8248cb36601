#include "cli/TifFormOptions.h"

#include "cli/CommandLine.h"
#include "imagefile/TifPage.h"

#include <string>

namespace vireo {

namespace {

constexpr Choice<std::uint16_t> kCompressions[] = {
    {"none", TifCompression::kNone},
    {"huffman", TifCompression::kModifiedHuffman},
    {"g4", TifCompression::kGroup4},
    {"lzw", TifCompression::kLzw},
    {"packbits", TifCompression::kPackBits},
};

} // namespace

void AddTifFormOptions(CommandOptions& command, Presence presence,
    std::optional<std::uint16_t>& compression, std::optional<std::uint16_t>& predictor)
{
    std::string names = "none, huffman, g4, lzw or packbits";
    if (presence == Presence::Optional)
        names += " (default: as the page is)";
    command.AddChoice(
        {"--compression NAME", presence}, names, kCompressions, compression, LetterCase::Heeded);
    command.AddNumber("--predictor N",
        "1: none; 2: horizontal differencing, with lzw only (default: 1)", {1, 2}, predictor);
}

} // namespace vireo
