#pragma once

#include "imagefile/CDecoder.h"

#include <memory>

namespace vireo {

/// LZW in TIFF's variant (compression 5): codes of 9 to 12 bits, most significant bit first, that
/// grow one code early. One code stream a strip; strings go over the ends of rows.
///
/// Every string of the table lies somewhere in what was decoded: a new entry is the string before
/// and the first byte of the string behind it, which stand there side by side. So the decoder keeps
/// its output since the last clear code, and an entry is a place and a length.
class CTIFReader::CDecoderLZW : public CDecoder {
public:
    CDecoderLZW(std::size_t bytesPerRow, TifStream& stream);

    ImageResult DecodeLine(std::uint8_t* row) override;
    ImageResult StartStrip() override;

private:
    static constexpr std::size_t kCodes = 4096;

    struct String {
        std::uint64_t
            head; ///< The first 8 bytes, the first one lowest; only that one for longer strings.
        std::uint32_t start; ///< Where it lies in the output, needed for more than 8 bytes.
        std::uint32_t length;
    };

    enum class State {
        Decoding,
        Ended,  ///< Code 257 or the end of the file: the rows left have nothing.
        Failed, ///< A code that cannot be: nothing behind it can be told.
    };

    void DecodeSome(std::size_t wanted);
    void DecodeRun(std::size_t codes, std::size_t target);
    void Clear();
    void Rewind();

    std::unique_ptr<std::uint8_t[]> m_output;
    std::size_t m_produced = 0;  ///< Bytes in m_output,
    std::size_t m_delivered = 0; ///< of which so many are in rows.
    std::unique_ptr<String[]> m_strings;
    std::uint32_t m_next = 0;   ///< The entry that is made next.
    std::uint32_t m_growAt = 0; ///< The width grows when m_next gets here.
    unsigned m_width = 0;       ///< Bits of a code.
    bool m_hasPrevious = false;
    String m_previous{};
    unsigned m_usedBits = 0; ///< Of the stream's next byte.
    State m_state = State::Ended;
};

} // namespace vireo
