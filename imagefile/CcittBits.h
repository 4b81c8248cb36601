#pragma once

#include "imagefile/CTIFOutput.h"
#include "imagefile/TifBits.h"

#include <cstddef>
#include <cstdint>

namespace vireo {

/// Puts codes of up to 32 bits together. Kept on the stack while a row is coded, so that its fields
/// stay in registers; what is left at the end, less than a byte, is handed on to the next one.
class CcittBits {
public:
    CcittBits(CTIFOutput& output, std::uint64_t bits, unsigned count)
        : m_output(&output),
          m_bits(bits),
          m_count(count),
          m_out(output.Reserve(kPiece)),
          m_outEnd(m_out + kPiece)
    {
    }

    void Put(std::uint64_t code, unsigned length)
    {
        m_bits = m_bits << length | code;
        m_count += length;
        if (m_count >= 32)
            StoreBytes();
    }

    /// Fills the last byte up with zeros.
    void PadByte()
    {
        StoreBytes();
        if (m_count > 0)
            Put(0, 8 - m_count);
        StoreBytes();
    }

    /// Stores all whole bytes and tells what is left.
    void Finish(std::uint64_t& bits, unsigned& count)
    {
        StoreBytes();
        m_output->AdvanceTo(m_out);
        bits = m_bits;
        count = m_count;
    }

private:
    static constexpr std::size_t kPiece = 1024;

    void StoreBytes()
    {
        StoreBigEndian64(m_out, m_bits << 1 << (63 - m_count));
        m_out += m_count / 8;
        m_count %= 8;
        if (m_outEnd - m_out < 8) {
            m_output->AdvanceTo(m_out);
            m_out = m_output->Reserve(kPiece);
            m_outEnd = m_out + kPiece;
        }
    }

    CTIFOutput* m_output;
    std::uint64_t m_bits; ///< The lowest m_count bits are still to be stored.
    unsigned m_count;
    std::uint8_t* m_out;
    std::uint8_t* m_outEnd;
};

} // namespace vireo
