#include "viewers/controls/ReducedPicture.h"

#include "viewers/controls/BlockPicker.h"
#include "viewers/controls/PictureReduction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

/// One axis of a drawing below zoom 1: drawn pixel n, counted from the picture's corner, stands for
/// the source pixels Edge(n) <= i < Edge(n + 1).
struct BoxAxis {
    BoxAxis(const PictureView& view, const PictureAxis& axis, const ReducedSource& source,
        std::int64_t sourceLength, std::int64_t drawnLength, std::int64_t skipped = 0)
        : length(sourceLength),
          ratio(1.0 / (view.zoom * static_cast<double>(source.Reduction()))),
          first(std::max<std::int64_t>(view.FirstDrawn(axis), 0) + skipped)
    {
        if (const double whole = std::round(ratio);
            std::abs(ratio - whole) < kRatioRounding * whole)
            ratio = whole;
        const auto all = static_cast<std::int64_t>(std::ceil(static_cast<double>(length) / ratio));
        total = std::max<std::int64_t>(all, 0);
        count = std::clamp<std::int64_t>(total - first, 0, drawnLength);
    }

    std::int64_t Edge(std::int64_t drawn) const
    {
        return std::min(
            static_cast<std::int64_t>(std::floor(static_cast<double>(drawn) * ratio)), length);
    }

    std::int64_t length; ///< Source pixels in all.
    double ratio;        ///< Source pixels a drawn pixel.
    std::int64_t first;  ///< First drawn pixel in view, behind those that are skipped.
    std::int64_t count;  ///< Drawn pixels in view.
    std::int64_t total;  ///< Drawn pixels of the whole picture.
};

} // namespace

void DrawSampled(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top)
{
    const BoxAxis x(view, view.x, source, source.Width(), target.width);
    const BoxAxis y(view, view.y, source, source.Height(), target.height, top);
    FillWhite(target, y.count, x.count);
    if (x.count == 0 || y.count == 0)
        return;
    const ChannelLayout layout = source.Layout();
    const std::int64_t left = x.Edge(x.first);
    const std::int64_t width = std::min(x.Edge(x.first + x.count - 1) + 1, source.Width()) - left;
    std::vector<std::int64_t> offsets;
    for (std::int64_t i = 0; i < x.count; ++i)
        offsets.push_back((x.Edge(x.first + i) - left) * layout.pixelStep);
    std::vector<std::uint8_t> pixels;
    if (!source.level)
        pixels.resize(static_cast<std::size_t>(width * source.rows->Channels()));
    for (std::int64_t row = 0; row < y.count; ++row) {
        std::uint32_t* const out = target.Row(row);
        const std::int64_t at = y.Edge(y.first + row);
        if (source.level && at >= source.rowsDone) {
            std::fill_n(out, x.count, kWhitePixel);
            continue;
        }
        const std::uint8_t* in = pixels.data();
        if (source.level)
            in = source.level->Row(at) + left;
        else
            source.rows->Read({left, at, width, 1}, pixels);
        for (std::int64_t i = 0; i < x.count; ++i)
            out[i] = PixelAt(in + offsets[static_cast<std::size_t>(i)], layout.channelStep);
    }
}

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

    void SumUp(std::int64_t drawnRow, BlockRow& blocks)
    {
        const std::int64_t first = m_y.Edge(drawnRow);
        const auto count = std::clamp<std::size_t>(
            static_cast<std::size_t>(m_y.Edge(drawnRow + 1) - first), 1, kMostRows);
        RowPointers rows{};
        const std::size_t channelStep = FindRows(first, count, rows);
        for (std::size_t channel = 0; channel < Channels(); ++channel) {
            SumUpRows(std::span(rows).first(count), m_columns, m_sums);
            MakeWindows(m_window, 0);
            MakeWindows(m_window + 1, m_columns);
            const std::size_t offset = channel * m_boxes;
            for (std::size_t box = 0; box < m_boxes; ++box)
                m_picked[box] = m_windows[m_starts[box]];
            SplitPairs(m_picked.data(), m_boxes, blocks.mean.data() + offset,
                blocks.extreme.data() + offset);
            for (const std::uint8_t*& row : rows)
                row += channelStep;
        }
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
    std::vector<WindowPair> m_picked;
    std::vector<std::uint8_t> m_pixels;
    std::vector<std::uint8_t> m_scratch;
    std::vector<std::uint8_t> m_values;
    BlockPicker m_picker;
};

} // namespace

void DrawReduced(const ReducedSource& source, const PictureView& view, const PixelTarget& target,
    std::int64_t top)
{
    ReducedDrawing(source, view, target, top).Draw();
}

} // namespace vireo
