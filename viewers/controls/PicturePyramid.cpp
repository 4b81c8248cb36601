#include "viewers/controls/PicturePyramid.h"

#include "viewers/controls/LevelMaker.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <mutex>
#include <thread>

namespace vireo {

namespace {

/// No view is so small that it needs less.
constexpr std::int64_t kSmallestSide = 8;
/// Rows that are summed up are held at once.
constexpr std::int64_t kMostRowBytes = std::int64_t{3} << 22;

std::int64_t DivideUp(std::int64_t value, std::int64_t by)
{
    return (value + by - 1) / by;
}

PicturePyramid::Level LevelOf(const PictureRows& rows, std::int64_t reduction)
{
    PicturePyramid::Level level;
    level.reduction = reduction;
    level.width = DivideUp(rows.Width(), reduction);
    level.height = DivideUp(rows.Height(), reduction);
    level.rowBytes = level.width * rows.Channels();
    return level;
}

/// The levels from `first` on. Each has a sixteenth of the pixels of the one before: blocks of 16
/// tell noise from lines, those of 4 do not.
std::vector<PicturePyramid::Level> LevelsOf(const PictureRows& rows, std::int64_t first)
{
    constexpr std::int64_t kRatio = 4;
    std::vector<PicturePyramid::Level> levels;
    for (std::int64_t reduction = first;; reduction *= kRatio) {
        levels.push_back(LevelOf(rows, reduction));
        if (std::max(levels.back().width, levels.back().height) <= kSmallestSide)
            return levels;
    }
}

std::uint64_t BytesOf(const std::vector<PicturePyramid::Level>& levels)
{
    std::uint64_t bytes = 0;
    for (const PicturePyramid::Level& level : levels)
        bytes += static_cast<std::uint64_t>(level.rowBytes * level.height);
    return bytes;
}

} // namespace

PicturePyramid::PicturePyramid(const PictureRows& rows, std::uint64_t mostBytes) : m_rows(rows)
{
    const std::int64_t width = rows.Width();
    const std::int64_t height = rows.Height();
    // A damaged file may say that its picture is nothing wide.
    if (width <= 0 || std::max(width, height) <= kSmallestSide
        || width * rows.Channels() > kMostRowBytes || height > kMostPixels / width)
        return;
    Plan(mostBytes);
    for (Level& level : m_levels) {
        const auto bytes = static_cast<std::size_t>(level.rowBytes * level.height);
        level.pixels = std::make_unique_for_overwrite<std::uint8_t[]>(bytes);
    }
}

void PicturePyramid::Plan(std::uint64_t mostBytes)
{
    // Rows that are cheap to read need no level close to them.
    for (std::int64_t first = m_rows.IsCheap() ? 4 : 2; first <= std::int64_t{kMostBlockRows};
         first *= 2) {
        std::vector<Level> levels = LevelsOf(m_rows, first);
        if (BytesOf(levels) <= mostBytes) {
            m_levels = std::move(levels);
            return;
        }
    }
}

namespace {

using RowPointers = std::array<const std::uint8_t*, kMostBlockRows>;

} // namespace

/// Builds the first level, in chunks of rows that the threads take one after the other.
class PicturePyramid::Work {
public:
    Work(PicturePyramid& pyramid, WorkProgress& progress)
        : m_pyramid(pyramid),
          m_progress(progress),
          m_isDone(static_cast<std::size_t>(DivideUp(First().height, kChunkRows)))
    {
        progress.SetTotal(m_isDone.size());
    }

    /// Takes chunks until there is none left.
    void Run()
    {
        Reader reader(m_pyramid.m_rows, First());
        for (std::size_t chunk = m_next++; chunk < m_isDone.size(); chunk = m_next++) {
            BuildChunk(reader, static_cast<std::int64_t>(chunk) * kChunkRows);
            if (m_progress.IsCancelled())
                return;
            MarkDone(chunk);
        }
    }

private:
    static constexpr std::int64_t kChunkRows = 64;

    /// Reads a block's rows and sums them up; one for each thread.
    class Reader {
    public:
        Reader(const PictureRows& rows, const Level& level)
            : m_rows(rows),
              m_reduction(level.reduction),
              m_maker(rows.Width(), rows.Channels(), level.reduction),
              m_run(m_maker.BlockCount()),
              m_pixels(static_cast<std::size_t>(rows.Width() * rows.Channels() * m_reduction))
        {
        }

        void Make(std::int64_t blockRow, BlockRow& blocks)
        {
            const std::int64_t first = blockRow * m_reduction;
            const std::int64_t count = std::min(m_reduction, m_rows.CoveredRows() - first);
            if (count <= 0)
                return LevelMaker::MakeWhite(blocks);
            const std::int64_t rowBytes = m_rows.Width() * m_rows.Channels();
            const auto pixels =
                std::span(m_pixels).first(static_cast<std::size_t>(rowBytes * count));
            m_rows.Read({0, first, m_rows.Width(), count}, pixels);
            RowPointers rows;
            for (std::int64_t row = 0; row < count; ++row) {
                rows[static_cast<std::size_t>(row)] = pixels.data() + row * rowBytes;
                if (m_rows.Channels() == PictureRows::kRgb)
                    SplitChannels(pixels.subspan(static_cast<std::size_t>(row * rowBytes),
                                      static_cast<std::size_t>(rowBytes)),
                        m_scratch);
            }
            m_maker.Make(std::span(rows).first(static_cast<std::size_t>(count)), blocks);
        }

        LevelMaker& Maker() { return m_maker; }
        BlockRowRun& Rows() { return m_run; }

    private:
        const PictureRows& m_rows;
        std::int64_t m_reduction;
        LevelMaker m_maker;
        BlockRowRun m_run;
        std::vector<std::uint8_t> m_pixels;
        std::vector<std::uint8_t> m_scratch;
    };

    Level& First() { return m_pyramid.m_levels.front(); }

    void BuildChunk(Reader& reader, std::int64_t first)
    {
        Level& level = First();
        reader.Rows().Run(
            first, std::min(first + kChunkRows, level.height), level.height,
            [&](std::int64_t row, BlockRow& blocks) { reader.Make(row, blocks); },
            [&](std::int64_t row, const BlockRow& above, const BlockRow& here,
                const BlockRow& below) {
                reader.Maker().Pick(above, here, below, level.pixels.get() + row * level.rowBytes);
                return !m_progress.IsCancelled();
            });
    }

    void MarkDone(std::size_t chunk)
    {
        const std::lock_guard lock(m_mutex);
        m_isDone[chunk] = true;
        m_progress.Add(1);
        while (m_leading < m_isDone.size() && m_isDone[m_leading])
            ++m_leading;
        m_pyramid.m_rowsDone.store(
            std::min(static_cast<std::int64_t>(m_leading) * kChunkRows, First().height),
            std::memory_order_release);
    }

    PicturePyramid& m_pyramid;
    WorkProgress& m_progress;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_mutex;
    std::vector<bool> m_isDone;
    std::size_t m_leading = 0; ///< All chunks before this one are done.
};

bool PicturePyramid::Build(WorkProgress& progress, unsigned threads)
{
    if (m_levels.empty())
        return true;
    Work work(*this, progress);
    {
        std::vector<std::jthread> helpers;
        for (unsigned i = 1; i < threads; ++i)
            helpers.emplace_back([&work] { work.Run(); });
        work.Run();
    }
    if (progress.IsCancelled())
        return false;
    BuildUpperLevels();
    m_isComplete.store(true, std::memory_order_release);
    return true;
}

bool PicturePyramid::Build(unsigned threads)
{
    WorkProgress unwatched;
    return Build(unwatched, threads);
}

void PicturePyramid::BuildUpperLevels()
{
    for (std::size_t i = 1; i < m_levels.size(); ++i) {
        const Level& source = m_levels[i - 1];
        Level& level = m_levels[i];
        const std::int64_t ratio = level.reduction / source.reduction;
        LevelMaker maker(source.width, m_rows.Channels(), ratio);
        BlockRowRun(maker.BlockCount())
            .Run(
                0, level.height, level.height,
                [&](std::int64_t row, BlockRow& blocks) {
                    const std::int64_t first = row * ratio;
                    const std::int64_t count = std::min(ratio, source.height - first);
                    RowPointers rows;
                    for (std::int64_t j = 0; j < count; ++j)
                        rows[static_cast<std::size_t>(j)] = source.Row(first + j);
                    maker.Make(std::span(rows).first(static_cast<std::size_t>(count)), blocks);
                },
                [&](std::int64_t row, const BlockRow& above, const BlockRow& here,
                    const BlockRow& below) {
                    maker.Pick(above, here, below, level.pixels.get() + row * level.rowBytes);
                    return true;
                });
    }
}

} // namespace vireo
