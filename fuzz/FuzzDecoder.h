#pragma once

#include "fuzz/FuzzInput.h"
#include "tests/imagefile/DecodeRows.h"

#include <cstdint>
#include <span>
#include <string>

namespace vireo {

/// The first two bytes are the width of a row, less 1; the rest is a strip.
inline void DecodeInput(std::uint16_t compression, std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t kRows = 20, kWindow = 8192;
    if (bytes.size() < 2)
        return;
    const std::uint32_t width = 1 + bytes[0] + bytes[1] % 64 * 256U;
    const std::string strip(bytes.begin() + 2, bytes.end());
    const auto rows = DecodeRows(compression, width, strip, kRows, kWindow);
    Require(rows.size() == kRows);
    // Wherever the file's window ends, the rows are the same.
    Require(rows == DecodeRows(compression, width, strip, kRows, SmallWindow(compression)));
    for (const DecodedRow& row : rows)
        Require(row.result == ImageResult::Ok || row.result == ImageResult::TifFormatError
            || row.result == ImageResult::CantReadTif);
}

} // namespace vireo
