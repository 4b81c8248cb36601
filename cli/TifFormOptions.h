#pragma once

#include <cstdint>
#include <optional>

namespace CLI {
class App;
}

namespace vireo {

enum class Compression { Required, Optional };

/// Adds --compression none|huffman|g4|lzw|packbits, which fills the compression's code in TIFF
/// files, and --predictor 1|2.
void AddTifFormOptions(CLI::App& command, Compression presence,
    std::optional<std::uint16_t>& compression, std::optional<std::uint16_t>& predictor);

} // namespace vireo
