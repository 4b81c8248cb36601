#include "viewers/controls/ReducedPicture.h"

#include "viewers/controls/BlockPicker.h"
#include "viewers/controls/BoxAxis.h"
#include "viewers/controls/PictureReduction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

/// About the mean of `Count` values side by side; of three, the middle one counts twice. It stays
/// within bytes, which is much faster than sums.
template <unsigned Count>
std::uint8_t MeanOf(const std::uint8_t* values)
{
    if constexpr (Count == 1)
        return values[0];
    else if constexpr (Count == 2)
        return MiddleByte(values[0], values[1]);
    else if constexpr (Count == 3)
        return MiddleByte(MiddleByte(values[0], values[2]), values[1]);
    else
        return MiddleByte(MiddleByte(values[0], values[1]), MiddleByte(values[2], values[3]));
}

template <unsigned Count>
void JoinMeans(const std::uint8_t* __restrict in, std::size_t width, std::uint8_t* __restrict out)
{
    for (std::size_t x = 0; x < width; ++x)
        out[x] = MeanOf<Count>(in + x);
}

/// Joins `count` values from each of the first `width` ones on.
void JoinMeans(std::size_t count, const std::uint8_t* in, std::size_t width, std::uint8_t* out)
{
    switch (count) {
    case 1:
        return JoinMeans<1>(in, width, out);
    case 2:
        return JoinMeans<2>(in, width, out);
    case 3:
        return JoinMeans<3>(in, width, out);
    default:
        return JoinMeans<4>(in, width, out);
    }
}

template <unsigned Count, typename Choose>
void JoinExtremes(const std::uint8_t* __restrict in, std::size_t width, const Choose& choose,
    std::uint8_t* __restrict out)
{
    for (std::size_t x = 0; x < width; ++x) {
        std::uint8_t value = in[x];
        for (unsigned i = 1; i < Count; ++i)
            value = choose(value, in[x + i]);
        out[x] = value;
    }
}

/// Joins `Count` columns from each of the first `width` ones on.
template <unsigned Count>
void JoinColumns(const BlockSums& columns, std::size_t width, BlockSums& joined)
{
    JoinMeans<Count>(columns.mean.data(), width, joined.mean.data());
    JoinExtremes<Count>(columns.lowest.data(), width, LowerByte, joined.lowest.data());
    JoinExtremes<Count>(columns.highest.data(), width, HigherByte, joined.highest.data());
}

/// `columns` has `width` entries, and as many behind them as a window is wide.
void JoinColumns(std::size_t count, const BlockSums& columns, std::size_t width, BlockSums& joined)
{
    switch (count) {
    case 1:
        return JoinColumns<1>(columns, width, joined);
    case 2:
        return JoinColumns<2>(columns, width, joined);
    case 3:
        return JoinColumns<3>(columns, width, joined);
    case 4:
        return JoinColumns<4>(columns, width, joined);
    default:
        return JoinColumns<5>(columns, width, joined);
    }
}

/// Mean and extreme of a window of columns in one word, to be fetched at once: the fewer places
/// windows are picked from, the faster it is.
using WindowPair = std::uint16_t;

void PackPairs(const std::uint8_t* __restrict means, const std::uint8_t* __restrict extremes,
    std::size_t count, WindowPair* __restrict pairs)
{
    for (std::size_t i = 0; i < count; ++i)
        pairs[i] = static_cast<WindowPair>(means[i] | extremes[i] << 8);
}

void SplitPairs(const WindowPair* __restrict pairs, std::size_t count,
    std::uint8_t* __restrict means, std::uint8_t* __restrict extremes)
{
    for (std::size_t i = 0; i < count; ++i) {
        means[i] = static_cast<std::uint8_t>(pairs[i]);
        extremes[i] = static_cast<std::uint8_t>(pairs[i] >> 8);
    }
}

/// Drawn pixels that stand for 1 to 4 source pixels on each side. The neighbours of what is in view
/// are worked out too, so that a pixel looks the same wherever in the view it is.
class ReducedDrawing {
public:
    ReducedDrawing(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
        std::int64_t top)
        : m_source(source),
          m_target(target),
          m_x(view, view.x, source, source.Width(), target.width),
          m_y(view, view.y, source, source.Height(), target.height, top),
          m_firstBox(std::max<std::int64_t>(m_x.first - 1, 0)),
          m_boxes(static_cast<std::size_t>(
              std::min(m_x.first + m_x.count + 1, m_x.total) - m_firstBox)),
          m_left(m_x.Edge(m_firstBox)),
          m_columns(static_cast<std::size_t>(
              m_x.Edge(m_firstBox + static_cast<std::int64_t>(m_boxes)) - m_left)),
          m_sums(m_columns + kMostRows),
          m_joined(m_columns),
          m_extremes(m_columns),
          m_windows(2 * m_columns),
          m_meanWindows(2 * m_columns),
          m_picked(m_boxes),
          m_values(m_boxes * Channels())
    {
        PlaceWindows();
        if (!source.level)
            m_pixels.resize(m_columns * Channels() * kMostRows);
    }

    void Draw()
    {
        FillWhite(m_target, m_y.count, m_x.count);
        if (m_x.count == 0 || m_y.count == 0)
            return;
        BlockRowRun(m_boxes * Channels())
            .Run(
                m_y.first, m_y.first + m_y.count, m_y.total,
                [this](std::int64_t row, BlockRow& blocks) { SumUp(row, blocks); },
                [this](std::int64_t row, const BlockRow& above, const BlockRow& here,
                    const BlockRow& below) {
                    DrawRow(row, above, here, below);
                    return true;
                });
    }

    /// The same of means alone, which takes a third of the time: what is thin gets paler.
    void DrawMeans()
    {
        FillWhite(m_target, m_y.count, m_x.count);
        if (m_x.count == 0 || m_y.count == 0)
            return;
        const auto layout =
            ChannelLayout::Planes(m_source.rows->Channels(), static_cast<std::int64_t>(m_boxes));
        for (std::int64_t row = 0; row < m_y.count; ++row) {
            SumUpChannels(m_y.first + row, [this](std::size_t channel) {
                std::uint8_t* const windows = m_meanWindows.data();
                JoinMeans(m_window, m_sums.mean.data(), m_columns, windows);
                JoinMeans(m_window + 1, m_sums.mean.data(), m_columns, windows + m_columns);
                for (std::size_t box = 0; box < m_boxes; ++box)
                    m_values[channel * m_boxes + box] = windows[m_starts[box]];
            });
            ConvertPixels(
                m_values.data() + (m_x.first - m_firstBox), layout, m_x.count, m_target.Row(row));
        }
    }

private:
    static constexpr std::size_t kMostRows = 5;

    std::size_t Channels() const { return static_cast<std::size_t>(m_source.rows->Channels()); }

    /// Every box is a window of w or of w + 1 columns; m_windows holds all of the former, then all
    /// of the latter.
    void PlaceWindows()
    {
        m_window = std::clamp<std::size_t>(
            static_cast<std::size_t>(m_x.ratio), 1, std::max<std::size_t>(m_columns, 1));
        for (std::size_t box = 0; box < m_boxes; ++box) {
            const std::int64_t edge = m_x.Edge(m_firstBox + static_cast<std::int64_t>(box));
            const std::int64_t next = m_x.Edge(m_firstBox + static_cast<std::int64_t>(box) + 1);
            const bool isWide = static_cast<std::size_t>(next - edge) > m_window;
            const std::size_t width = m_window + (isWide ? 1 : 0);
            // The picture's last box may have less; it then takes what is left of it as well.
            const std::size_t start =
                std::min(static_cast<std::size_t>(edge - m_left), m_columns - width);
            m_starts.push_back(static_cast<std::uint32_t>(start + (isWide ? m_columns : 0)));
        }
    }

    using RowPointers = std::array<const std::uint8_t*, kMostRows>;

    /// Pointers to the first channel of `count` rows from `first` on; gives the bytes to the next
    /// channel.
    std::size_t FindRows(std::int64_t first, std::size_t count, RowPointers& rows)
    {
        if (m_source.level) {
            for (std::size_t i = 0; i < count; ++i)
                rows[i] = m_source.level->Row(first + static_cast<std::int64_t>(i)) + m_left;
            return static_cast<std::size_t>(m_source.level->width);
        }
        const std::size_t rowBytes = m_columns * Channels();
        m_source.rows->Read(
            {m_left, first, static_cast<std::int64_t>(m_columns), static_cast<std::int64_t>(count)},
            std::span(m_pixels).first(count * rowBytes));
        for (std::size_t i = 0; i < count; ++i) {
            std::uint8_t* const row = m_pixels.data() + i * rowBytes;
            if (Channels() > 1)
                SplitChannels({row, rowBytes}, m_scratch);
            rows[i] = row;
        }
        return m_columns;
    }

    /// Sums up the rows that a drawn one stands for, and calls `take` for each channel when its
    /// sums are made.
    template <typename Take>
    void SumUpChannels(std::int64_t drawnRow, const Take& take)
    {
        const std::int64_t first = m_y.Edge(drawnRow);
        const auto count = std::clamp<std::size_t>(
            static_cast<std::size_t>(m_y.Edge(drawnRow + 1) - first), 1, kMostRows);
        RowPointers rows{};
        const std::size_t channelStep = FindRows(first, count, rows);
        for (std::size_t channel = 0; channel < Channels(); ++channel) {
            SumUpRows(std::span(rows).first(count), m_columns, m_sums);
            take(channel);
            for (const std::uint8_t*& row : rows)
                row += channelStep;
        }
    }

    void SumUp(std::int64_t drawnRow, BlockRow& blocks)
    {
        SumUpChannels(drawnRow, [&](std::size_t channel) {
            MakeWindows(m_window, 0);
            MakeWindows(m_window + 1, m_columns);
            const std::size_t offset = channel * m_boxes;
            for (std::size_t box = 0; box < m_boxes; ++box)
                m_picked[box] = m_windows[m_starts[box]];
            SplitPairs(m_picked.data(), m_boxes, blocks.mean.data() + offset,
                blocks.extreme.data() + offset);
        });
    }

    /// All windows of `count` columns, from place `offset` on.
    void MakeWindows(std::size_t count, std::size_t offset)
    {
        JoinColumns(count, m_sums, m_columns, m_joined);
        FindExtremes(m_joined, m_columns, m_extremes.data());
        PackPairs(m_joined.mean.data(), m_extremes.data(), m_columns, m_windows.data() + offset);
    }

    void DrawRow(
        std::int64_t drawnRow, const BlockRow& above, const BlockRow& here, const BlockRow& below)
    {
        for (std::size_t channel = 0; channel < Channels(); ++channel)
            m_picker.Pick(above, here, below, channel * m_boxes, m_boxes,
                m_values.data() + channel * m_boxes);
        const auto layout =
            ChannelLayout::Planes(m_source.rows->Channels(), static_cast<std::int64_t>(m_boxes));
        ConvertPixels(m_values.data() + (m_x.first - m_firstBox), layout, m_x.count,
            m_target.Row(drawnRow - m_y.first));
    }

    ReducedSource m_source;
    PixelTarget m_target;
    BoxAxis m_x;
    BoxAxis m_y;
    std::int64_t m_firstBox;
    std::size_t m_boxes;
    std::int64_t m_left;   ///< First source column.
    std::size_t m_columns; ///< Source columns.
    std::size_t m_window = 1;
    std::vector<std::uint32_t> m_starts; ///< Of each box in m_windows.
    BlockSums m_sums;
    BlockSums m_joined;
    std::vector<std::uint8_t> m_extremes;
    std::vector<WindowPair> m_windows;
    std::vector<std::uint8_t> m_meanWindows;
    std::vector<WindowPair> m_picked;
    std::vector<std::uint8_t> m_pixels;
    std::vector<std::uint8_t> m_scratch;
    std::vector<std::uint8_t> m_values;
    BlockPicker m_picker;
};

} // namespace

void DrawReduced(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top, ReducedValues values)
{
    ReducedDrawing drawing(source, view, target, top);
    if (values == ReducedValues::Means)
        drawing.DrawMeans();
    else
        drawing.Draw();
}

} // namespace vireo
