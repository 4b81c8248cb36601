#pragma once

#include "imagefile/CTIFCoder.h"

#include <array>

namespace vireo {

/// Codes a picture as one LZW stream (TIFF 6.0, section 13; compression 5): codes of 9 to 12 bits,
/// most significant bit first, that grow one code early. The stream begins with a clear code, has
/// another whenever code 4094 has been given away, and ends with the end-of-information code.
///
/// Strings are looked up in a table with a cell for each code and each byte that may follow its
/// string. A cell holds a generation in its upper 4 bits and the code of the longer string below. A
/// clear code begins a new generation, so that the table is wiped at every fifteenth only.
class CLZWCoder : public CTIFCoder {
public:
    explicit CLZWCoder(CTIFOutput& output) : CTIFCoder(output) { }

    /// Takes every depth.
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override;
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t status) override;

private:
    static constexpr unsigned kLongestCode = 12;
    static constexpr std::size_t kCodes = std::size_t{1} << kLongestCode;
    static constexpr std::size_t kMostPending = 1024;

    /// The codes of strings that are one byte over and over, as far as they are known, so that a
    /// long run need not be followed through the table byte by byte.
    struct Runs {
        std::uint8_t byte;
        std::size_t longest;                     ///< 0: the entry is free.
        std::array<std::uint16_t, kCodes> codes; ///< Of 1, 2, 3, ... bytes.
    };

    std::uint16_t& Cell(std::uint32_t code, std::uint32_t byte)
    {
        return m_table[byte << kLongestCode | code];
    }
    void AddString(std::uint32_t code, std::uint16_t& cell);
    void FollowRun(std::size_t count);
    Runs& RunsOf(std::uint8_t byte);
    void MakeRoom();
    void BeginTable();
    void SetPendingEnd();
    void WritePending();

    std::vector<std::uint16_t> m_table;
    std::array<Runs, 4> m_runs;                        ///< Of the byte `byte` % 4 only.
    std::array<std::uint16_t, kMostPending> m_pending; ///< Codes, all of the current width.
    std::uint16_t* m_pendingNext = nullptr;            ///< Where the next code goes.
    std::uint16_t* m_pendingEnd = nullptr;             ///< Where MakeRoom is due.
    bool m_bFirst = true;                              ///< No byte has come yet.
    std::uint32_t m_prefix = 0; ///< Code of the string that the bytes so far end with.
    std::uint32_t m_tag = 0;    ///< The generation, where a cell has it.
    std::uint32_t m_fresh = 0;  ///< The cell of the next new string: the tag and its code.
    unsigned m_width = 0;       ///< Bits a code.
    std::uint32_t m_growth = 0; ///< The next code at which the width changes.
    std::uint64_t m_bits = 0;   ///< The lowest m_bitCount bits are still to be written.
    unsigned m_bitCount = 0;
};

} // namespace vireo
