#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vireo {

/// The changing elements of a bilevel row (T.4, 4.2.1.1): the pixels whose colour is not that of
/// the pixel before them, left of the first of which is white. Even ones begin black, odd ones
/// white.
class CcittChanges {
public:
    /// Makes room for rows of `width` pixels and sets a row that is all white; false when there is
    /// no memory. Only what rows really need is ever touched.
    bool Allocate(std::uint32_t width);

    /// Takes a row in which 1 bits are white. Up to 7 bytes behind the row are read.
    void Find(const std::uint8_t* row);

    std::size_t Count() const { return m_count; }
    /// The changing elements; before them stands a 0, behind them the width eight times.
    const std::int32_t* begin() const { return m_changes.get() + kBefore; }

private:
    static constexpr std::size_t kBefore = 1;
    static constexpr std::size_t kBehind = 8;

    void PutEnd(std::int32_t* end);

    std::unique_ptr<std::int32_t[]> m_changes;
    std::size_t m_count = 0;
    std::uint32_t m_width = 0;
};

} // namespace vireo
