#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace vireo {

/// The kinds that WriteBigFile knows, separated by blanks, for the usage line.
std::string_view BigFileKinds();

/// Writes a file for measuring, with about `bytes` bytes of data (rounded down to whole lines, at
/// least one). The kinds: "oscilloscope", colour lines of four cameras and 21,600 pixels;
/// "oscilloscope-gray", the same in gray; "oscilloscope-line", one single colour line of four
/// cameras; "oscilloscope-gray-line", the same in gray; "noise", one colour noise line, and
/// "noise-gray", the same in gray; "startest", sweeps of
/// 20,000 lines; "tiff", a square gray picture, and "tiff-lzw", the same in LZW. Oscilloscope
/// lines, sweeps and pictures are streamed: any number needs little memory. "stitch" and
/// "stitch-run-length" are pictures as WriteBigStitch makes them. Returns false for an unknown kind
/// and when writing fails.
bool WriteBigFile(std::string_view kind, std::uint64_t bytes, const std::filesystem::path& path);

} // namespace vireo
