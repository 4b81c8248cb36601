#include "cli/TifFormOptions.h"

#include "cli/CommandLineReader.h"
#include "imagefile/TifPage.h"

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>

namespace vireo {

namespace {

struct CompressionName {
    std::string_view name;
    std::uint16_t code;
};
constexpr CompressionName kCompressions[] = {
    {"none", TifCompression::kNone},
    {"huffman", TifCompression::kModifiedHuffman},
    {"g4", TifCompression::kGroup4},
    {"lzw", TifCompression::kLzw},
    {"packbits", TifCompression::kPackBits},
};

std::uint16_t CompressionFromName(const std::string& name)
{
    for (const CompressionName& compression : kCompressions) {
        if (compression.name == name)
            return compression.code;
    }
    throw CLI::ValidationError(
        "--compression", "must be one of none, huffman, g4, lzw, packbits, not " + name);
}

} // namespace

void AddTifFormOptions(CLI::App& command, Compression presence,
    std::optional<std::uint16_t>& compression, std::optional<std::uint16_t>& predictor)
{
    const bool isRequired = presence == Compression::Required;
    command
        .add_option_function<std::string>(
            "--compression",
            [&compression](const std::string& name) { compression = CompressionFromName(name); },
            std::string("none, huffman, g4, lzw or packbits")
                + (isRequired ? "" : " (default: as the page is)"))
        ->required(isRequired)
        ->type_name("NAME");
    command
        .add_option("--predictor", predictor,
            "1: none; 2: horizontal differencing, with lzw only (default: 1)")
        ->transform(WholeNumber(1, 2))
        ->type_name("N");
}

} // namespace vireo
