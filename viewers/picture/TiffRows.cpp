#include "viewers/picture/TiffRows.h"

#include <algorithm>
#include <cassert>
#include <vector>

namespace vireo {

void TiffRows::Load(std::int64_t end, const WorkProgress& progress)
{
    if (LoadedRows() >= end)
        return;
    const std::lock_guard lock(m_loading);
    for (std::int64_t row = LoadedRows(); row < end && !progress.IsCancelled(); ++row) {
        bool isThere = false;
        const ImageResult result = LoadRow(row, isThere);
        if (m_result == ImageResult::Ok)
            m_result = result;
        if (result == ImageResult::Ok || isThere)
            m_covered.store(row + 1, std::memory_order_release);
        m_loaded.store(row + 1, std::memory_order_release);
    }
}

void TiffRows::Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const
{
    const auto first = static_cast<std::uint64_t>(rect.left);
    const auto count = static_cast<std::size_t>(rect.width);
    const std::size_t shownBytes = count * static_cast<std::size_t>(Channels());
    assert(pixels.size() >= shownBytes * static_cast<std::size_t>(rect.height));
    const std::int64_t covered = std::clamp<std::int64_t>(CoveredRows() - rect.top, 0, rect.height);
    const std::uint64_t firstByte = m_pixels.FirstByte(first);
    std::vector<std::uint8_t> buffer;
    if (!m_pixels.IsVerbatim())
        buffer.resize(static_cast<std::size_t>(m_pixels.ByteCount(first, count)));
    std::uint8_t* shown = pixels.data();
    for (std::int64_t row = 0; row < covered; ++row, shown += shownBytes) {
        // What is shown as it stands is read to where it is wanted at once.
        const std::span<std::uint8_t> target =
            m_pixels.IsVerbatim() ? std::span(shown, shownBytes) : std::span(buffer);
        const std::uint8_t* const bytes = Bytes(rect.top + row, firstByte, target);
        if (bytes != shown)
            m_pixels.Show(bytes, first, count, shown);
    }
    std::fill(shown, pixels.data() + shownBytes * static_cast<std::size_t>(rect.height), kWhite);
}

std::optional<PixelSamples> TiffRows::SamplesAt(std::int64_t column, std::int64_t row) const
{
    if (column < 0 || column >= m_width || row < 0 || row >= CoveredRows())
        return std::nullopt;
    std::array<std::uint8_t, 6> buffer{};
    const auto at = static_cast<std::uint64_t>(column);
    const auto bytes = std::span(buffer).first(static_cast<std::size_t>(m_pixels.ByteCount(at, 1)));
    return m_pixels.Samples(Bytes(row, m_pixels.FirstByte(at), bytes), at);
}

} // namespace vireo
