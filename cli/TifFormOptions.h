#pragma once

#include <cstdint>
#include <optional>

namespace vireo {

class CommandOptions;
enum class Presence;

/// Adds --compression none|huffman|g4|lzw|packbits, which fills the compression's code in TIFF
/// files, and --predictor 1|2.
void AddTifFormOptions(CommandOptions& command, Presence presence,
    std::optional<std::uint16_t>& compression, std::optional<std::uint16_t>& predictor);

} // namespace vireo
