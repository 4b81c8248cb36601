#pragma once

#include "imagefile/ColorDepth.h"

#include <cstddef>
#include <cstdint>

namespace vireo {

/// Undoes horizontal differencing in a row of `width` pixels: every sample takes the one of the
/// pixel before it on top of its own, modulo 2^8 or 2^16. Samples of 16 bits count as little-endian
/// as they lie. Bilevel rows have no such thing and stay as they are.
void UndoDifferencing(ColorDepth depth, std::uint8_t* row, std::size_t width);

/// The same without vector instructions, for processors that have none.
void UndoDifferencingPlainly(ColorDepth depth, std::uint8_t* row, std::size_t width);

} // namespace vireo
