#pragma once

#include "platform/PositionalFile.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace vireo {

/// Where the bytes of a TIFF go: a file that is complete or absent, or what a test makes of them.
class CTIFTarget {
public:
    virtual ~CTIFTarget() = default;

    virtual FileStatus Open() = 0;
    virtual FileStatus Write(std::span<const std::uint8_t> bytes) = 0;
    /// Replaces bytes written before, which begin `offset` bytes behind the start.
    virtual FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
    /// Puts the complete file in its place. Without it nothing remains of what was written.
    virtual FileStatus Commit() = 0;
};

/// A file. An old one stays until the new one is complete; then the new one is made to reach the
/// disk before it takes the old one's place. Where there is no old one, nobody waits for the disk.
std::unique_ptr<CTIFTarget> MakeTIFTarget(std::filesystem::path file);

} // namespace vireo
