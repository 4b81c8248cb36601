#pragma once

#include "imagefile/CDecoder.h"

#include <memory>

namespace vireo {

/// LZW in TIFF's variant (compression 5): codes of 9 to 12 bits, most significant bit first, that
/// grow one code early. One code stream a strip; strings go over the ends of rows.
///
/// Every string of the table lies somewhere in what was decoded: a new entry is the string before
/// and the first byte of the string behind it, which stand there side by side. So the decoder keeps
/// its output since the last clear code, an entry is a place and a length, and rows are copied out.
class CTIFReader::CDecoderLZW : public CDecoder {
public:
    CDecoderLZW(std::size_t bytesPerRow, TifStream& stream);

    ImageResult DecodeLine(std::uint8_t* row) override;
    ImageResult StartStrip() override;

private:
    /// A string of the table, in the output.
    struct String {
        std::uint32_t start;
        std::uint32_t length;
    };

    enum class State {
        Decoding,
        Ended,  ///< Code 257 or the end of the file: the rows left have nothing.
        Failed, ///< A code that cannot be: nothing behind it can be told.
    };

    void DecodeSome(std::size_t wanted);
    template <unsigned Width>
    void DecodeRun(std::size_t codes, std::size_t target);
    void DecodeRunOfWidth(std::size_t codes, std::size_t target);
    void DecodeCode();
    void PutFirst(unsigned code);
    void Clear();
    void GrowWidth();
    void DropDelivered();

    /// Begins with the 256 single bytes, the strings that are always there.
    std::unique_ptr<std::uint8_t[]> m_output;
    std::size_t m_produced = 0;  ///< Where the output ends,
    std::size_t m_delivered = 0; ///< and where that begins that is not in a row yet.
    std::unique_ptr<String[]> m_strings;
    std::uint32_t m_next = 0;   ///< The entry that is made next.
    std::uint32_t m_growAt = 0; ///< The width grows when m_next gets here.
    unsigned m_width = 0;       ///< Bits of a code.
    String m_previous{};        ///< Length 0: there is none.
    unsigned m_usedBits = 0;    ///< Of the stream's next byte.
    State m_state = State::Ended;
};

} // namespace vireo
