#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace vireo {

/// A SHA-256 digest (FIPS 180-4) of bytes given piece by piece, by the system's own library with
/// the processor's instructions where it has them: OpenSSL's libcrypto, on Windows CNG.
class Sha256 {
public:
    Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;
    ~Sha256();

    void Add(std::span<const std::uint8_t> bytes);
    /// The digest of everything added as 64 lower-case hexadecimal digits. Ends the digest: nothing
    /// may be added behind it.
    std::string HexDigest();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace vireo
