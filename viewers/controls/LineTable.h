#pragma once

#include "platform/PositionalFile.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace vireo {

/// Appends a number as a table holds it: with '.' and as many digits as reading it back needs.
template <typename Number>
void AppendNumber(std::string& text, Number number)
{
    constexpr std::size_t kLongestNumber = 32;
    std::array<char, kLongestNumber> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

/// Appends the rows of the pixels first <= i < first + count, each ended by CR LF; false when they
/// cannot be had.
using AppendTableRows =
    std::function<bool(std::string& text, std::int64_t first, std::int64_t count)>;

/// Writes a line of `pixels` pixels as a table for a spreadsheet (RFC 4180): the heading, then the
/// rows, which are asked for in pieces, so that the line may be of any length. The file is complete
/// or absent.
FileStatus WriteLineTable(const std::filesystem::path& target, std::string_view heading,
    std::int64_t pixels, const AppendTableRows& appendRows);

} // namespace vireo
