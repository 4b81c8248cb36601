#pragma once

#include "imagefile/CTIFOutput.h"
#include "tests/imagefile/MemoryTarget.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace vireo {

/// The code that a coder makes of a picture's rows, which lie one after the other.
template <typename Coder, typename... Arguments>
std::string CodeRows(
    ColorDepth depth, std::uint32_t width, std::string_view rows, Arguments... arguments)
{
    MemoryTarget::Log log;
    MemoryTarget target(log);
    const auto output = std::make_unique<CTIFOutput>(target);
    Coder coder(*output, arguments...);
    const auto rowBytes = static_cast<std::size_t>(BytesPerRow(depth, width));
    const auto height = static_cast<std::uint32_t>(rows.size() / rowBytes);
    EXPECT_EQ(coder.BeginImage(depth, width, height, 0, 0, 0), ImageResult::Ok);
    for (; !rows.empty(); rows.remove_prefix(rowBytes)) {
        std::memcpy(coder.GetLineBuffer(), rows.data(), rowBytes);
        EXPECT_EQ(coder.LineDone(), ImageResult::Ok);
    }
    EXPECT_EQ(coder.EndImage(0), ImageResult::Ok);
    return log.bytes;
}

/// Bits, most significant first, with blanks between them as one likes.
inline std::string FromBits(std::string_view bits)
{
    std::string bytes;
    unsigned byte = 1;
    for (const char bit : bits) {
        if (bit == ' ')
            continue;
        byte = byte * 2 + (bit == '1' ? 1 : 0);
        if (byte >= 256) {
            bytes += static_cast<char>(byte);
            byte = 1;
        }
    }
    EXPECT_EQ(byte, 1U) << "not whole bytes: " << bits;
    return bytes;
}

} // namespace vireo
