#include "viewers/controls/PictureDrawing.h"

#include "viewers/controls/PicturePyramid.h"
#include "viewers/controls/ReducedPicture.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace vireo {

namespace {

/// Bytes read at once; they stay in the fast cache.
constexpr std::int64_t kBandBytes = 256 * 1024;

/// Zoom 1 and more: squares of `zoom` by `zoom` device pixels. `top` rows of the view, whole
/// squares, are above the target.
class EnlargedDrawing {
public:
    EnlargedDrawing(const PictureRows& rows, const PictureView& view, const PixelTarget& target,
        std::int64_t top)
        : m_rows(rows),
          m_target(target),
          m_zoom(static_cast<std::int64_t>(view.zoom)),
          m_left(std::max<std::int64_t>(view.FirstDrawn(view.x), 0)),
          m_top(std::max<std::int64_t>(view.FirstDrawn(view.y), 0) + top / m_zoom),
          m_columns(std::max<std::int64_t>(
              std::min((target.width + m_zoom - 1) / m_zoom, rows.Width() - m_left), 0)),
          m_rowCount(std::max<std::int64_t>(
              std::min((target.height + m_zoom - 1) / m_zoom, rows.Height() - m_top), 0))
    {
    }

    void Draw()
    {
        FillWhite(m_target, m_rowCount * m_zoom, m_columns * m_zoom);
        if (m_columns == 0 || m_rowCount == 0)
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
        std::uint32_t* const out = m_target.Row(top);
        const auto layout = ChannelLayout::Interleaved(m_rows.Channels());
        if (m_zoom == 1)
            return ConvertPixels(pixels, layout, m_columns, out);
        m_line.resize(static_cast<std::size_t>(m_columns));
        ConvertPixels(pixels, layout, m_columns, m_line.data());
        const std::int64_t width = std::min(m_columns * m_zoom, m_target.width);
        for (std::int64_t column = 0; column < m_columns; ++column)
            std::fill(out + column * m_zoom, out + std::min((column + 1) * m_zoom, width),
                m_line[static_cast<std::size_t>(column)]);
        const std::int64_t end = std::min(top + m_zoom, m_target.height);
        for (std::int64_t copy = top + 1; copy < end; ++copy)
            std::copy_n(out, width, m_target.Row(copy));
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

/// What a drawing below zoom 1 is made from, and how.
struct ReducedPlan {
    ReducedSource source;
    ReducedValues values = ReducedValues::LinesKept;
    bool isSampled = false;
    bool isExact = true;
};

/// Source pixels that a drawing is made from, decoded ones that are not shown included.
double PixelsNeeded(const ReducedSource& source, const PictureView& view)
{
    const auto drawn = [&view](const PictureAxis& axis) {
        return std::min(
            static_cast<double>(axis.view), static_cast<double>(axis.picture) * view.zoom);
    };
    const double ratio = 1.0 / (view.zoom * static_cast<double>(source.Reduction()));
    const bool isWholeRows = !source.level && !source.rows->IsCheap();
    const double width = isWholeRows ? static_cast<double>(source.Width()) : drawn(view.x) * ratio;
    return width * drawn(view.y) * ratio;
}

/// Whether as many pixels as a drawing needs of a source can be had in the time it may take.
bool IsAffordable(const ReducedSource& source, const PictureView& view, PictureQuality quality)
{
    constexpr double kFast = 9e6;         // About 6 ms.
    constexpr double kMostDecoded = 48e6; // Rows that are decoded whole: a tenth of a second.
    const double pixels = PixelsNeeded(source, view);
    const bool isWholeRows = !source.level && !source.rows->IsCheap();
    if (quality == PictureQuality::Fast)
        return pixels <= kFast;
    return !isWholeRows || pixels <= kMostDecoded;
}

/// The best of what can be had: the coarsest source that is no coarser than the drawing, else the
/// next coarser level with its pixels drawn larger.
ReducedPlan PlanFromLevels(ReducedPlan plan, const PicturePyramid& pyramid, const PictureView& view,
    PictureQuality quality)
{
    const double ratio = (1.0 + kRatioRounding) / view.zoom;
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
    const bool isClose = 1.0 / view.zoom <= kLargestReducedRatio * (1.0 + kRatioRounding);
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
    plan.isSampled = !plan.isExact || ratio <= 1.0 + kRatioRounding
        || ratio > kLargestReducedRatio * (1.0 + kRatioRounding);
    constexpr double kFewPixels = 2e6; // About 2 ms.
    if (!plan.isSampled && quality == PictureQuality::Fast
        && PixelsNeeded(plan.source, view) > kFewPixels) {
        plan.values = ReducedValues::Means;
        plan.isExact = false;
    }
    return plan;
}

/// Draws a target in bands of whole steps of rows, which one thread a processor take one after the
/// other: a processor that is busy with something else then has less to do.
template <typename Draw>
void DrawBands(const PixelTarget& target, std::int64_t step, const Draw& draw)
{
    constexpr std::int64_t kFewestPixels = 1 << 18; // A thread costs as much as some 20,000.
    constexpr unsigned kMostThreads = 8;
    constexpr std::int64_t kBandsAThread = 6;
    const std::int64_t processors =
        std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
    const std::int64_t threads =
        std::clamp<std::int64_t>(target.width * target.height / kFewestPixels, 1, processors);
    const std::int64_t bands = threads > 1 ? threads * kBandsAThread : 1;
    const std::int64_t rows = ((target.height + bands - 1) / bands + step - 1) / step * step;
    std::atomic<std::int64_t> next{0};
    const auto work = [&] {
        for (std::int64_t top = next.fetch_add(rows); top < target.height;
             top = next.fetch_add(rows))
            draw(target.Rows(top, std::min(rows, target.height - top)), top);
    };
    std::vector<std::jthread> helpers;
    for (std::int64_t i = 1; i < threads; ++i)
        helpers.emplace_back(work);
    work();
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
        DrawBands(target, static_cast<std::int64_t>(view.zoom),
            [&](const PixelTarget& band, std::int64_t top) {
                EnlargedDrawing(*content.rows, view, band, top).Draw();
            });
        return true;
    }
    const ReducedPlan plan = PlanReduced(content, view, quality);
    DrawBands(target, 1, [&](const PixelTarget& band, std::int64_t top) {
        if (plan.isSampled)
            DrawSampled(plan.source, view, band, top);
        else
            DrawReduced(plan.source, view, band, top, plan.values);
    });
    return plan.isExact;
}

} // namespace vireo
