#include "viewers/controls/ColumnFills.h"

#include <QImage>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vireo {

namespace {

using Fills = QVarLengthArray<QRect, 4096>;

void AppendFill(Fills& fills, int x, int width, int top, int end)
{
    if (top < end)
        fills.append(QRect(x, top, width, end - top));
}

/// Fills a few neighbouring columns. Where they have much in common that is one wide fill, which
/// goes along the rows of memory: tall columns one by one (noise over the whole height) take five
/// times as long.
void AppendGroup(Fills& fills, std::span<const ColumnFill> group)
{
    constexpr int kWorthwhile = 24;
    int top = group.front().top;
    int end = group.front().end;
    for (const ColumnFill& column : group) {
        top = std::max(top, column.top);
        end = std::min(end, column.end);
    }
    const int width = group.back().x - group.front().x + 1;
    const bool isShared = end - top >= kWorthwhile && width == static_cast<int>(group.size());
    if (isShared)
        AppendFill(fills, group.front().x, width, top, end);
    for (const ColumnFill& column : group) {
        AppendFill(fills, column.x, 1, column.top, isShared ? top : column.end);
        if (isShared)
            AppendFill(fills, column.x, 1, end, column.end);
    }
}

Fills FillsOf(std::span<const ColumnFill> columns)
{
    constexpr std::size_t kGroup = 16;
    Fills fills;
    for (std::size_t first = 0; first < columns.size(); first += kGroup)
        AppendGroup(fills, columns.subspan(first, std::min(kGroup, columns.size() - first)));
    return fills;
}

void DrawAsRectangles(QPainter& painter, const FilledCurve& curve)
{
    const Fills fills = FillsOf(curve.columns);
    painter.setPen(Qt::NoPen);
    painter.setBrush(curve.colour);
    painter.drawRects(fills.constData(), static_cast<int>(fills.size()));
}

/// What curves cover together.
QRect BoundsOf(std::span<const FilledCurve> curves)
{
    QRect bounds;
    for (const FilledCurve& curve : curves) {
        if (curve.columns.empty())
            continue;
        const auto [top, ignoredTop] = std::ranges::minmax(curve.columns, {}, &ColumnFill::top);
        const auto [ignoredEnd, end] = std::ranges::minmax(curve.columns, {}, &ColumnFill::end);
        const int left = curve.columns.front().x;
        bounds |= QRect(left, top.top, curve.columns.back().x + 1 - left, end.end - top.top);
    }
    return bounds;
}

/// A transparent picture of the curves, which a painter lays over what it has drawn.
class CurveLayer {
public:
    explicit CurveLayer(const QRect& bounds)
        : m_bounds(bounds),
          m_image(bounds.size(), QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::transparent);
        m_pixels = reinterpret_cast<QRgb*>(m_image.bits());
        m_pitch = m_image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    }

    bool IsValid() const { return !m_image.isNull(); }

    void Add(const FilledCurve& curve)
    {
        for (const QRect& fill : FillsOf(curve.columns))
            Fill(fill, curve.colour.rgba());
    }

    void Draw(QPainter& painter) const { painter.drawImage(m_bounds.topLeft(), m_image); }

private:
    void Fill(const QRect& fill, QRgb colour)
    {
        QRgb* row =
            m_pixels + (fill.top() - m_bounds.top()) * m_pitch + (fill.left() - m_bounds.left());
        if (fill.width() == 1) {
            for (int rows = fill.height(); rows > 0; --rows, row += m_pitch)
                *row = colour;
            return;
        }
        for (int rows = fill.height(); rows > 0; --rows, row += m_pitch)
            std::fill_n(row, fill.width(), colour);
    }

    QRect m_bounds;
    QImage m_image;
    QRgb* m_pixels = nullptr;
    qsizetype m_pitch = 0; ///< Pixels from a row to the next.
};

} // namespace

void DrawFilledCurves(QPainter& painter, std::span<const FilledCurve> curves)
{
    // Writing many fills into memory and laying that over the rest takes half as long as a painter
    // does, for which each fill is a figure to be clipped.
    constexpr std::size_t kFewest = 3;
    constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;
    const QRect bounds = BoundsOf(curves);
    const bool isWorthwhile =
        curves.size() >= kFewest && std::int64_t{bounds.width()} * bounds.height() <= kMostPixels;
    CurveLayer layer(isWorthwhile ? bounds : QRect());
    if (!layer.IsValid()) {
        for (const FilledCurve& curve : curves)
            DrawAsRectangles(painter, curve);
        return;
    }
    for (const FilledCurve& curve : curves)
        layer.Add(curve);
    layer.Draw(painter);
}

} // namespace vireo
