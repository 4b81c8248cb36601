#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

/// What a fuzz target defines: runs one input and returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vireo {

/// Ends the program, in every build, when a promise does not hold.
void Require(bool holds);

inline std::string_view AsText(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A file that holds these bytes, for targets that read by path. There is one file a program, of
/// its own in the folder for temporary files; the next call replaces its content, and the end of
/// the program removes it.
const std::filesystem::path& InputFile(std::span<const std::uint8_t> bytes);

} // namespace vireo
