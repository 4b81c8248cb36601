#include "viewers/stitch/RunLengthIndex.h"

#include <algorithm>
#include <numeric>

namespace vireo {

namespace {

constexpr std::uint64_t kSmallestBlock = 16 * 1024;
constexpr std::uint64_t kMostMarks = 128 * 1024;
/// Whole blocks, read at once; they stay in the fast cache.
constexpr std::uint64_t kReadBytes = 128 * 1024;

std::uint64_t BlockBytesFor(std::uint64_t length)
{
    std::uint64_t bytes = kSmallestBlock;
    while (length / bytes >= kMostMarks)
        bytes *= 2;
    return bytes;
}

/// Where the code behind these ones draws.
RunLengthIndex::Mark After(RunLengthIndex::Mark mark, std::span<const std::uint8_t> codes)
{
    const auto lastEnd =
        std::find(codes.rbegin(), codes.rend(), RunCode::kEndOfRow).base(); // Just behind it.
    if (lastEnd != codes.begin()) {
        mark.row += std::count(codes.begin(), lastEnd, RunCode::kEndOfRow);
        mark.x = 0;
    }
    return {mark.row,
        std::accumulate(lastEnd, codes.end(), mark.x,
            [](std::int64_t x, std::uint8_t code) { return x + RunCode::Pixels(code); })};
}

} // namespace

std::span<std::uint8_t> RunLengthData::Read(
    std::uint64_t position, std::span<std::uint8_t> codes) const
{
    if (position >= length)
        return {};
    const auto count =
        static_cast<std::size_t>(std::min<std::uint64_t>(codes.size(), length - position));
    return codes.first(file->ReadAt(offset + position, codes.first(count)));
}

bool RunLengthIndex::Build(const RunLengthData& data, std::int64_t rows, WorkProgress& progress)
{
    m_blockBytes = BlockBytesFor(data.length);
    m_marks.clear();
    progress.SetTotal(data.length);
    std::vector<std::uint8_t> buffer(static_cast<std::size_t>(std::max(kReadBytes, m_blockBytes)));
    Mark mark;
    for (std::uint64_t position = 0; mark.row < rows;) {
        const std::span<const std::uint8_t> codes = data.Read(position, buffer);
        if (codes.empty())
            break;
        for (std::size_t at = 0; at < codes.size(); at += m_blockBytes) {
            m_marks.push_back(mark);
            const std::size_t count = std::min<std::size_t>(m_blockBytes, codes.size() - at);
            mark = After(mark, codes.subspan(at, count));
        }
        position += codes.size();
        progress.SetDone(position);
        if (progress.IsCancelled())
            return false;
        if (codes.size() < buffer.size())
            break; // The end, or what another program has left of the file.
    }
    m_rowsFound = std::min(mark.row + (mark.x > 0 ? 1 : 0), rows);
    return true;
}

std::size_t RunLengthIndex::BlockOf(std::int64_t row) const
{
    // The first block that begins in the row or behind it; the row begins in the one before.
    const auto next = std::lower_bound(m_marks.begin(), m_marks.end(), row,
        [](const Mark& mark, std::int64_t wanted) { return mark.row < wanted; });
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(next - m_marks.begin() - 1, 0));
}

} // namespace vireo
