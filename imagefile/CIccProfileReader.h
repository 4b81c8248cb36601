#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vireo {

/// Where the writer gets an ICC profile from: OpenProfile, GetProfileSize, ReadProfile until all of
/// it has been read, CloseProfile.
class CIccProfileReader {
public:
    virtual ~CIccProfileReader() = default;

    /// False on success, true on failure.
    virtual bool OpenProfile() { return false; }
    /// In bytes; 0 when it is not known.
    virtual std::uint32_t GetProfileSize() = 0;
    /// Reads the next bytes, at most as many as fit; how many were read.
    virtual std::size_t ReadProfile(std::span<std::uint8_t> buffer) = 0;
    /// 0 on success.
    virtual int CloseProfile() { return 0; }
};

} // namespace vireo
