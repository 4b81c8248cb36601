#pragma once

#include <cstddef>
#include <cstdint>

namespace vireo {

/// Marks which bytes equal the byte behind them: bit i % 64 of word i / 64 for byte i. Fills
/// (count + 63) / 64 words for `count` bytes, of which the last has no neighbour and is never
/// marked. Up to 64 bytes behind the last one are read.
void MarkEqualPairs(const std::uint8_t* bytes, std::size_t count, std::uint64_t* words);

/// The same without the processor's wide comparisons, for processors that have none.
void MarkEqualPairsPlain(const std::uint8_t* bytes, std::size_t count, std::uint64_t* words);

} // namespace vireo
