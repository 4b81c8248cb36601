#include "viewers/controls/PictureDrawing.h"

#include "viewers/controls/PicturePyramid.h"
#include "viewers/controls/PictureReduction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace vireo {

namespace {

constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;
/// Ratios that differ by so little are the same.
constexpr double kRounding = 1e-9;
/// Bytes read at once; they stay in the fast cache.
constexpr std::int64_t kBandBytes = 256 * 1024;

std::uint32_t* TargetRow(const PixelTarget& target, std::int64_t row)
{
    return target.pixels + row * target.pixelsPerRow;
}

void FillWhite(const PixelTarget& target, std::int64_t firstRow, std::int64_t firstColumn)
{
    for (std::int64_t row = 0; row < target.height; ++row) {
        const std::int64_t from = row < firstRow ? std::min(firstColumn, target.width) : 0;
        std::fill(
            TargetRow(target, row) + from, TargetRow(target, row) + target.width, kWhitePixel);
    }
}

/// Where the channels of a row lie: side by side in each pixel, or one plane behind the other.
struct ChannelLayout {
    std::int64_t pixelStep = 1;   ///< Bytes from a pixel to the next.
    std::int64_t channelStep = 0; ///< Bytes from a channel to the next; 0 for gray.

    static ChannelLayout Interleaved(int channels)
    {
        return {channels, channels == PictureRows::kRgb ? 1 : 0};
    }
    static ChannelLayout Planes(int channels, std::int64_t planeBytes)
    {
        return {1, channels == PictureRows::kRgb ? planeBytes : 0};
    }
};

std::uint32_t PixelAt(const std::uint8_t* first, std::int64_t channelStep)
{
    return 0xFF000000U | static_cast<std::uint32_t>(first[0]) << 16
        | static_cast<std::uint32_t>(first[channelStep]) << 8 | first[2 * channelStep];
}

void ConvertGray(
    const std::uint8_t* __restrict in, std::int64_t count, std::uint32_t* __restrict out)
{
    for (std::int64_t i = 0; i < count; ++i) {
        const std::uint32_t value = in[i];
        out[i] = 0xFF000000U | value << 16 | value << 8 | value;
    }
}

void Convert(
    const std::uint8_t* in, const ChannelLayout& layout, std::int64_t count, std::uint32_t* out)
{
    if (layout.pixelStep == 1 && layout.channelStep == 0)
        return ConvertGray(in, count, out);
    for (std::int64_t i = 0; i < count; ++i)
        out[i] = PixelAt(in + i * layout.pixelStep, layout.channelStep);
}

/// Zoom 1 and more: squares of `zoom` by `zoom` device pixels.
class EnlargedDrawing {
public:
    EnlargedDrawing(const PictureRows& rows, const PictureView& view, const PixelTarget& target)
        : m_rows(rows),
          m_target(target),
          m_zoom(static_cast<std::int64_t>(view.zoom)),
          m_left(std::max<std::int64_t>(view.FirstDrawn(view.x), 0)),
          m_top(std::max<std::int64_t>(view.FirstDrawn(view.y), 0)),
          m_columns(std::max<std::int64_t>(
              std::min((target.width + m_zoom - 1) / m_zoom, rows.Width() - m_left), 0)),
          m_rowCount(std::max<std::int64_t>(
              std::min((target.height + m_zoom - 1) / m_zoom, rows.Height() - m_top), 0))
    {
    }

    void Draw()
    {
        FillWhite(m_target, m_rowCount * m_zoom, m_columns * m_zoom);
        if (m_columns == 0)
            return;
        const std::int64_t rowBytes = m_columns * m_rows.Channels();
        const std::int64_t band = std::max<std::int64_t>(kBandBytes / rowBytes, 1);
        std::vector<std::uint8_t> pixels(
            static_cast<std::size_t>(std::min(band, m_rowCount) * rowBytes));
        for (std::int64_t first = 0; first < m_rowCount; first += band) {
            const std::int64_t count = std::min(band, m_rowCount - first);
            m_rows.Read({m_left, m_top + first, m_columns, count},
                std::span(pixels).first(static_cast<std::size_t>(count * rowBytes)));
            for (std::int64_t row = 0; row < count; ++row)
                DrawRow(pixels.data() + row * rowBytes, first + row);
        }
    }

private:
    void DrawRow(const std::uint8_t* pixels, std::int64_t row)
    {
        const std::int64_t top = row * m_zoom;
        std::uint32_t* const out = TargetRow(m_target, top);
        const auto layout = ChannelLayout::Interleaved(m_rows.Channels());
        if (m_zoom == 1)
            return Convert(pixels, layout, m_columns, out);
        m_line.resize(static_cast<std::size_t>(m_columns));
        Convert(pixels, layout, m_columns, m_line.data());
        const std::int64_t width = std::min(m_columns * m_zoom, m_target.width);
        for (std::int64_t column = 0; column < m_columns; ++column)
            std::fill(out + column * m_zoom, out + std::min((column + 1) * m_zoom, width),
                m_line[static_cast<std::size_t>(column)]);
        const std::int64_t end = std::min(top + m_zoom, m_target.height);
        for (std::int64_t copy = top + 1; copy < end; ++copy)
            std::copy_n(out, width, TargetRow(m_target, copy));
    }

    const PictureRows& m_rows;
    PixelTarget m_target;
    std::int64_t m_zoom;
    std::int64_t m_left;
    std::int64_t m_top;
    std::int64_t m_columns;
    std::int64_t m_rowCount;
    std::vector<std::uint32_t> m_line;
};

/// The pixels that a drawing below zoom 1 is made from: the picture's own, or those of a level.
struct ReducedSource {
    const PictureRows* rows = nullptr;
    const PicturePyramid::Level* level = nullptr; ///< Null for the picture's own rows.
    std::int64_t rowsDone = 0;                    ///< Rows of the level that may be used.

    std::int64_t Reduction() const { return level ? level->reduction : 1; }
    std::int64_t Width() const { return level ? level->width : rows->Width(); }
    std::int64_t Height() const { return level ? level->height : rows->Height(); }
    ChannelLayout Layout() const
    {
        return level ? ChannelLayout::Planes(rows->Channels(), level->width)
                     : ChannelLayout::Interleaved(rows->Channels());
    }
};

/// One axis of a drawing below zoom 1: drawn pixel n, counted from the picture's corner, stands for
/// the source pixels Edge(n) <= i < Edge(n + 1).
struct BoxAxis {
    BoxAxis(const PictureView& view, const PictureAxis& axis, const ReducedSource& source,
        std::int64_t sourceLength, std::int64_t drawnLength)
        : length(sourceLength),
          ratio(1.0 / (view.zoom * static_cast<double>(source.Reduction()))),
          first(std::max<std::int64_t>(view.FirstDrawn(axis), 0))
    {
        if (const double whole = std::round(ratio); std::abs(ratio - whole) < kRounding * whole)
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
    std::int64_t first;  ///< First drawn pixel in view.
    std::int64_t count;  ///< Drawn pixels in view.
    std::int64_t total;  ///< Drawn pixels of the whole picture.
};

/// One source pixel for each drawn one.
void DrawSampled(const ReducedSource& source, const PictureView& view, const PixelTarget& target)
{
    const BoxAxis x(view, view.x, source, source.Width(), target.width);
    const BoxAxis y(view, view.y, source, source.Height(), target.height);
    FillWhite(target, y.count, x.count);
    if (x.count == 0)
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
        std::uint32_t* const out = TargetRow(target, row);
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

/// Mean, lowest and highest value of a window of columns in one word, to be fetched at once.
using WindowWord = std::uint32_t;

/// Joins `Count` columns from each of the first `width` ones on.
template <unsigned Count>
void JoinColumns(const std::uint8_t* __restrict means, const std::uint8_t* __restrict lows,
    const std::uint8_t* __restrict highs, std::size_t width, WindowWord* __restrict joined)
{
    for (std::size_t x = 0; x < width; ++x) {
        auto sum = static_cast<std::uint16_t>(Count / 2);
        std::uint8_t low = lows[x];
        std::uint8_t high = highs[x];
        for (unsigned i = 0; i < Count; ++i) {
            sum = static_cast<std::uint16_t>(sum + means[x + i]);
            low = lows[x + i] < low ? lows[x + i] : low;
            high = high < highs[x + i] ? highs[x + i] : high;
        }
        const auto mean = static_cast<std::uint8_t>(sum / Count);
        joined[x] = WindowWord{mean} | WindowWord{low} << 8 | WindowWord{high} << 16;
    }
}

template <unsigned Count>
void JoinColumns(const BlockRow& columns, std::size_t width, WindowWord* joined)
{
    if (width >= Count)
        JoinColumns<Count>(columns.mean.data(), columns.lowest.data(), columns.highest.data(),
            width - Count + 1, joined);
}

/// Joins `count` columns, 1 to 5, from each one on.
void JoinColumns(std::size_t count, const BlockRow& columns, std::size_t width, WindowWord* joined)
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

void SplitWords(const WindowWord* __restrict words, std::size_t count,
    std::uint8_t* __restrict mean, std::uint8_t* __restrict lowest,
    std::uint8_t* __restrict highest)
{
    for (std::size_t i = 0; i < count; ++i) {
        mean[i] = static_cast<std::uint8_t>(words[i]);
        lowest[i] = static_cast<std::uint8_t>(words[i] >> 8);
        highest[i] = static_cast<std::uint8_t>(words[i] >> 16);
    }
}

/// The largest number of source pixels on one side of a drawn one.
constexpr double kLargestRatio = 4.0;

/// Drawn pixels that stand for 1 to 4 source pixels on each side. The neighbours of what is in view
/// are worked out too, so that a pixel looks the same wherever in the view it is.
class ReducedDrawing {
public:
    ReducedDrawing(const ReducedSource& source, const PictureView& view, const PixelTarget& target)
        : m_source(source),
          m_target(target),
          m_x(view, view.x, source, source.Width(), target.width),
          m_y(view, view.y, source, source.Height(), target.height),
          m_firstBox(std::max<std::int64_t>(m_x.first - 1, 0)),
          m_boxes(static_cast<std::size_t>(
              std::min(m_x.first + m_x.count + 1, m_x.total) - m_firstBox)),
          m_left(m_x.Edge(m_firstBox)),
          m_columns(static_cast<std::size_t>(
              m_x.Edge(m_firstBox + static_cast<std::int64_t>(m_boxes)) - m_left)),
          m_sums(m_columns),
          m_windows(2 * m_columns),
          m_words(m_boxes),
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
            JoinColumns(m_window, m_sums, m_columns, m_windows.data());
            JoinColumns(m_window + 1, m_sums, m_columns, m_windows.data() + m_columns);
            for (std::size_t box = 0; box < m_boxes; ++box)
                m_words[box] = m_windows[m_starts[box]];
            const std::size_t offset = channel * m_boxes;
            SplitWords(m_words.data(), m_boxes, blocks.mean.data() + offset,
                blocks.lowest.data() + offset, blocks.highest.data() + offset);
            for (const std::uint8_t*& row : rows)
                row += channelStep;
        }
    }

    void DrawRow(
        std::int64_t drawnRow, const BlockRow& above, const BlockRow& here, const BlockRow& below)
    {
        for (std::size_t channel = 0; channel < Channels(); ++channel)
            m_picker.Pick(above, here, below, channel * m_boxes, m_boxes,
                m_values.data() + channel * m_boxes);
        const auto layout =
            ChannelLayout::Planes(m_source.rows->Channels(), static_cast<std::int64_t>(m_boxes));
        Convert(m_values.data() + (m_x.first - m_firstBox), layout, m_x.count,
            TargetRow(m_target, drawnRow - m_y.first));
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
    BlockRow m_sums;
    std::vector<WindowWord> m_windows;
    std::vector<WindowWord> m_words;
    std::vector<std::uint8_t> m_pixels;
    std::vector<std::uint8_t> m_scratch;
    std::vector<std::uint8_t> m_values;
    BlockPicker m_picker;
};

/// What a drawing below zoom 1 is made from, and how.
struct ReducedPlan {
    ReducedSource source;
    bool isSampled = false;
    bool isExact = true;
};

/// Whether as many pixels as a drawing needs of a source can be had in the time it may take.
bool IsAffordable(const ReducedSource& source, const PictureView& view, PictureQuality quality)
{
    constexpr double kFast = 9e6;         // About 6 ms.
    constexpr double kMostDecoded = 48e6; // Rows that are decoded whole: a tenth of a second.
    const auto drawn = [&view](const PictureAxis& axis) {
        return std::min(
            static_cast<double>(axis.view), static_cast<double>(axis.picture) * view.zoom);
    };
    const double ratio = 1.0 / (view.zoom * static_cast<double>(source.Reduction()));
    const double height = drawn(view.y) * ratio;
    const bool isWholeRows = !source.level && !source.rows->IsCheap();
    const double width = isWholeRows ? static_cast<double>(source.Width()) : drawn(view.x) * ratio;
    if (quality == PictureQuality::Fast)
        return width * height <= kFast;
    return !isWholeRows || width * height <= kMostDecoded;
}

/// The best of what can be had: the coarsest source that is no coarser than the drawing, else the
/// next coarser level with its pixels drawn larger.
ReducedPlan PlanFromLevels(ReducedPlan plan, const PicturePyramid& pyramid, const PictureView& view,
    PictureQuality quality)
{
    const double ratio = (1.0 + kRounding) / view.zoom;
    const PicturePyramid::Level* coarser = nullptr;
    for (const PicturePyramid::Level& level : pyramid.Levels()) {
        if (static_cast<double>(level.reduction) > ratio) {
            coarser = &level;
            break;
        }
        plan.source.level = &level;
    }
    if (coarser && !IsAffordable(plan.source, view, quality)) {
        plan.source.level = coarser;
        plan.isExact = false;
    }
    return plan;
}

ReducedPlan PlanReduced(
    const PictureContent& content, const PictureView& view, PictureQuality quality)
{
    ReducedPlan plan;
    plan.source.rows = content.rows;
    const PicturePyramid* const pyramid =
        content.pyramid && content.pyramid->HasLevels() ? content.pyramid : nullptr;
    const bool isClose = 1.0 / view.zoom <= kLargestRatio * (1.0 + kRounding);
    if (pyramid && pyramid->IsComplete()) {
        plan = PlanFromLevels(plan, *pyramid, view, quality);
    } else if (pyramid && !(isClose && IsAffordable(plan.source, view, PictureQuality::Exact))) {
        // What there is of the first level so far.
        plan.source.level = &pyramid->Levels().front();
        plan.isExact = false;
    }
    if (plan.source.level)
        plan.source.rowsDone = pyramid->IsComplete() ? plan.source.Height() : pyramid->RowsDone();
    const double ratio = 1.0 / (view.zoom * static_cast<double>(plan.source.Reduction()));
    plan.isSampled =
        !plan.isExact || ratio <= 1.0 + kRounding || ratio > kLargestRatio * (1.0 + kRounding);
    return plan;
}

} // namespace

bool DrawPicture(const PictureContent& content, const PictureView& view, const PixelTarget& target,
    PictureQuality quality)
{
    if (!content.rows || content.rows->Width() <= 0 || content.rows->Height() <= 0) {
        FillWhite(target, 0, 0);
        return true;
    }
    if (view.zoom >= 1.0) {
        EnlargedDrawing(*content.rows, view, target).Draw();
        return true;
    }
    const ReducedPlan plan = PlanReduced(content, view, quality);
    if (plan.isSampled)
        DrawSampled(plan.source, view, target);
    else
        ReducedDrawing(plan.source, view, target).Draw();
    return plan.isExact;
}

} // namespace vireo
