#pragma once

#include <cstdint>
#include <string>

namespace vireo {

inline constexpr char kGrayStitchType = 18;
inline constexpr char kRunLengthStitchType = 17;

/// A file of the older form: type at 11, resolution in hundredths, width and height from 24 on.
inline std::string OldStitchFile(
    char type, std::uint32_t width, std::uint32_t height, const std::string& data)
{
    std::string header(48, '\0');
    header[11] = type;
    const auto put = [&header](std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            header[at + i] = static_cast<char>(value >> (8 * i) & 0xff);
    };
    put(24, 60099);
    put(28, width);
    put(32, height);
    return header + data;
}

/// A file with a text header of these keys, each line with its end.
inline std::string TextStitchFile(const std::string& keys, const std::string& data)
{
    const std::string tag = "[Stitch Test]\nDataPointer=";
    std::string length = std::to_string(tag.size() + 11 + keys.size());
    length.insert(0, 10 - length.size(), ' ');
    return tag + length + "\n" + keys + data;
}

} // namespace vireo
