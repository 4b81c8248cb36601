#pragma once

#include "imagefile/CTIFCoder.h"

namespace vireo {

/// Writes rows as they are (compression 1). Rows that fit the stream's buffer are built in it.
class CPlainCoder : public CTIFCoder {
public:
    explicit CPlainCoder(CTIFOutput& output) : CTIFCoder(output) { }

    /// Takes every depth.
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    std::uint8_t* GetLineBuffer() override;
    ImageResult LineDone() override;
};

} // namespace vireo
