#pragma once

#include "imagefile/CImageReceiver.h"
#include "imagefile/CTIFOutput.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <stdexcept>
#include <vector>

namespace vireo {

/// Makes `cells` hold `count` zeros; false when there is no memory for them.
template <typename Cell>
bool AllocateZeroed(std::vector<Cell>& cells, std::uint64_t count)
{
    try {
        cells.assign(static_cast<std::size_t>(count), Cell{});
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

/// What the last stages of the writer share: one row, and the stream that its code goes to. A write
/// that fails is returned from the call in which it happened and from all later ones.
class CTIFCoder : public CImageReceiver {
public:
    std::uint8_t* GetLineBuffer() override { return m_row.data(); }
    /// Writes what is still held, whatever the status is.
    ImageResult EndImage(std::uint32_t status) override;

protected:
    /// A row's bytes may be read in blocks: so many bytes behind it can be read too.
    static constexpr std::size_t kRowPadding = 64;

    explicit CTIFCoder(CTIFOutput& output) : m_output(output) { }

    /// Makes room for rows of a picture; TifOutOfMemory when there is none.
    ImageResult BeginRows(ColorDepth depth, std::uint32_t width);
    std::size_t RowBytes() const { return m_rowBytes; }
    const std::uint8_t* Row() const { return m_row.data(); }
    /// Gives the row away for a buffer of the same size, which takes the next one.
    void SwapRow(std::vector<std::uint8_t>& other) { m_row.swap(other); }
    CTIFOutput& Output() { return m_output; }

private:
    CTIFOutput& m_output;
    std::vector<std::uint8_t> m_row;
    std::size_t m_rowBytes = 0;
};

} // namespace vireo
