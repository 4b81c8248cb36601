#include "platform/Sha256.h"

#include "platform/HexText.h"

#include <array>
#include <openssl/evp.h>

namespace vireo {

struct Sha256::State {
    EVP_MD_CTX* context = EVP_MD_CTX_new();
};

Sha256::Sha256() : m_state(std::make_unique<State>())
{
    EVP_DigestInit_ex(m_state->context, EVP_sha256(), nullptr);
}

Sha256::~Sha256()
{
    EVP_MD_CTX_free(m_state->context);
}

void Sha256::Add(std::span<const std::uint8_t> bytes)
{
    EVP_DigestUpdate(m_state->context, bytes.data(), bytes.size());
}

std::string Sha256::HexDigest()
{
    std::array<std::uint8_t, 32> digest{};
    EVP_DigestFinal_ex(m_state->context, digest.data(), nullptr);
    return HexText(digest);
}

} // namespace vireo
