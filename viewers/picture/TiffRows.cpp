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
        else
            AddMissing(row);
        m_loaded.store(row + 1, std::memory_order_release);
    }
}

void TiffRows::AddMissing(std::int64_t row)
{
    const std::lock_guard lock(m_missingMutex);
    if (!m_missing.empty() && m_missing.back().end == row)
        ++m_missing.back().end;
    else
        m_missing.push_back({row, row + 1});
    m_isAnyMissing.store(true, std::memory_order_release);
}

std::vector<RowRange> TiffRows::MissingWithin(RowRange rows) const
{
    std::vector<RowRange> within;
    if (!m_isAnyMissing.load(std::memory_order_acquire))
        return within;
    const std::lock_guard lock(m_missingMutex);
    auto range = std::upper_bound(m_missing.begin(), m_missing.end(), rows.first,
        [](std::int64_t row, const RowRange& each) { return row < each.end; });
    for (; range != m_missing.end() && range->first < rows.end; ++range)
        within.push_back({std::max(range->first, rows.first), std::min(range->end, rows.end)});
    return within;
}

std::vector<RowRange> TiffRows::MissingRows() const
{
    return MissingWithin({0, CoveredRows()});
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
    const std::vector<RowRange> missing = MissingWithin({rect.top, rect.top + covered});
    auto next = missing.begin();
    for (std::int64_t row = 0; row < covered; ++row, shown += shownBytes) {
        while (next != missing.end() && next->end <= rect.top + row)
            ++next;
        if (next != missing.end() && next->first <= rect.top + row) {
            std::fill_n(shown, shownBytes, kWhite);
            continue;
        }
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
    if (column < 0 || column >= m_width || row < 0 || row >= CoveredRows()
        || !MissingWithin({row, row + 1}).empty())
        return std::nullopt;
    std::array<std::uint8_t, 6> buffer{};
    const auto at = static_cast<std::uint64_t>(column);
    const auto bytes = std::span(buffer).first(static_cast<std::size_t>(m_pixels.ByteCount(at, 1)));
    return m_pixels.Samples(Bytes(row, m_pixels.FirstByte(at), bytes), at);
}

} // namespace vireo
