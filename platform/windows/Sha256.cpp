#include "platform/Sha256.h"

#include "platform/HexText.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <bcrypt.h>

namespace vireo {

struct Sha256::State {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
};

Sha256::Sha256() : m_state(std::make_unique<State>())
{
    BCryptOpenAlgorithmProvider(&m_state->algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0);
    BCryptCreateHash(m_state->algorithm, &m_state->hash, nullptr, 0, nullptr, 0, 0);
}

Sha256::~Sha256()
{
    BCryptDestroyHash(m_state->hash);
    BCryptCloseAlgorithmProvider(m_state->algorithm, 0);
}

void Sha256::Add(std::span<const std::uint8_t> bytes)
{
    // The library counts in 32 bits.
    constexpr std::size_t kMostBytes = std::size_t{1} << 30;
    while (!bytes.empty()) {
        const auto piece = bytes.first(std::min(bytes.size(), kMostBytes));
        BCryptHashData(m_state->hash, const_cast<std::uint8_t*>(piece.data()),
            static_cast<ULONG>(piece.size()), 0);
        bytes = bytes.subspan(piece.size());
    }
}

std::string Sha256::HexDigest()
{
    std::array<std::uint8_t, 32> digest{};
    BCryptFinishHash(m_state->hash, digest.data(), static_cast<ULONG>(digest.size()), 0);
    return HexText(digest);
}

} // namespace vireo
