#include "viewers/stitch/StitchRows.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace vireo {

StitchRunRows::StitchRunRows(PositionalFile file, const StitchLayout& layout)
    : m_file(std::move(file)),
      m_layout(layout)
{
}

bool StitchRunRows::BuildIndex(WorkProgress& progress)
{
    return m_index.Build({&m_file, m_layout.offset, m_layout.length}, m_layout.height, progress);
}

bool StitchRunRows::IsCheap() const
{
    // So many codes of a row are passed in a few microseconds.
    constexpr std::uint64_t kFewCodes = 4096;
    const auto rows = static_cast<std::uint64_t>(std::max<std::int64_t>(CoveredRows(), 1));
    return m_layout.length / rows <= kFewCodes;
}

namespace {

/// Draws the runs of some rows into a rectangle that is white.
class RunPainter {
public:
    RunPainter(const RunLengthIndex& index, const PictureRect& rect, std::span<std::uint8_t> pixels)
        : m_index(index),
          m_rect(rect),
          m_pixels(pixels)
    {
    }

    void Paint(const RunLengthData& data)
    {
        std::size_t block = m_index.BlockOf(m_rect.top);
        m_row = m_index.Marks()[block].row;
        m_x = m_index.Marks()[block].x;
        std::vector<std::uint8_t> buffer(static_cast<std::size_t>(m_index.BlockBytes()));
        for (; block < m_index.Marks().size(); block = NextBlock(block)) {
            if (m_row >= m_rect.top + m_rect.height)
                return;
            const auto codes = data.Read(block * m_index.BlockBytes(), buffer);
            if (codes.empty())
                return;
            PaintCodes(codes);
        }
    }

private:
    std::int64_t Right() const { return m_rect.left + m_rect.width; }

    /// Mostly the block behind; but a row's codes may go on for gigabytes without drawing.
    std::size_t NextBlock(std::size_t block)
    {
        const std::vector<RunLengthIndex::Mark>& marks = m_index.Marks();
        ++block;
        const auto drawsNothing = [&](std::size_t i) {
            return i + 1 < marks.size() && marks[i].row == marks[i + 1].row
                && (marks[i].x >= Right() || marks[i].x == marks[i + 1].x);
        };
        while (drawsNothing(block))
            ++block;
        if (block < marks.size()) {
            m_row = marks[block].row;
            m_x = marks[block].x;
        }
        return block;
    }

    void PaintCodes(std::span<const std::uint8_t> codes)
    {
        const std::uint8_t* code = codes.data();
        const std::uint8_t* const end = code + codes.size();
        while (code != end && m_row < m_rect.top + m_rect.height) {
            if (m_row >= m_rect.top)
                code = PaintRuns(code, end);
            // Rows above, and what is right of the rectangle, are passed by.
            code = static_cast<const std::uint8_t*>(
                std::memchr(code, RunCode::kEndOfRow, static_cast<std::size_t>(end - code)));
            if (!code)
                return;
            ++m_row;
            m_x = 0;
            ++code;
        }
    }

    /// Draws the runs of one row from the present place on; gives the code behind the last one that
    /// matters.
    const std::uint8_t* PaintRuns(const std::uint8_t* code, const std::uint8_t* end)
    {
        const std::int64_t left = m_rect.left;
        const std::int64_t right = Right();
        std::uint8_t* const row = m_pixels.data() + (m_row - m_rect.top) * m_rect.width;
        std::int64_t x = m_x;
        for (; code != end && *code != RunCode::kEndOfRow && x < right; ++code) {
            const std::int64_t from = std::max(x, left);
            x += RunCode::Pixels(*code);
            const std::int64_t to = std::min(x, right);
            if (RunCode::IsBlack(*code) && from < to)
                std::memset(row + (from - left), 0, static_cast<std::size_t>(to - from));
        }
        m_x = x;
        return code;
    }

    const RunLengthIndex& m_index;
    PictureRect m_rect;
    std::span<std::uint8_t> m_pixels;
    std::int64_t m_row = 0;
    std::int64_t m_x = 0;
};

} // namespace

void StitchRunRows::Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const
{
    std::fill(pixels.begin(), pixels.end(), kWhite);
    if (rect.top < m_index.RowsFound())
        RunPainter(m_index, rect, pixels).Paint({&m_file, m_layout.offset, m_layout.length});
}

} // namespace vireo
