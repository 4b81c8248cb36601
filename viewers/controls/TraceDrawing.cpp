#include "viewers/controls/TraceDrawing.h"

#include "viewers/controls/ProfileCurve.h"
#include "viewers/controls/StraightLine.h"

#include <QPainter>
#include <QPolygonF>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vireo {

namespace {

/// From this many logical units a sample, a curve runs through its samples as a smooth line; below,
/// each column covers the values of its samples.
constexpr double kSmoothFrom = 3.0;
/// From this many units a sample, the samples themselves are dotted.
constexpr double kDotsFrom = 7.0;
constexpr double kDotSize = 4.5;
/// More columns than this are not told apart on paper, and would only swell a file.
constexpr int kMostVectorColumns = 3000;
constexpr double kVectorPen = 0.7;

// The parts of a dashed curve, in logical units.
constexpr double kDash = 6.0;
constexpr double kDashAndGap = 9.0;

/// How a curve is drawn, whatever its samples are.
struct TraceStyle {
    QColor colour;
    LineStyle line = LineStyle::Solid;

    /// A pen of a width; 0 is one device pixel.
    QPen Pen(double width) const
    {
        QPen pen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
        if (line == LineStyle::Dashed) {
            const double unit = std::max(width, 1.0);
            pen.setDashPattern({kDash / unit, (kDashAndGap - kDash) / unit});
        }
        return pen;
    }
    /// Whether a dash is over a device column, `scale` being the device's pixels to a unit.
    bool Covers(int column, double scale) const
    {
        return line == LineStyle::Solid || std::fmod(column, kDashAndGap * scale) < kDash * scale;
    }
};

/// Where a value is drawn: values far outside the area are brought near to it, so that no device
/// has to reckon with huge lengths.
double DrawnY(const ProfileScale& scale, double value)
{
    const double beyond = 4.0 * scale.height;
    return std::clamp(scale.YAt(value), scale.top - beyond, scale.Bottom() + beyond);
}

/// A line of one unit. A raster draws lines of one device pixel five times faster than any wider
/// ones, so there a wider line is several of these, one under the other.
void DrawSmoothLine(QPainter& painter, const QPolygonF& points, const TraceStyle& style)
{
    if (!IsRaster(painter)) {
        painter.setPen(style.Pen(1.0));
        painter.drawPolyline(points);
        return;
    }
    painter.setPen(style.Pen(0.0));
    const double scale = DeviceScale(painter);
    const int lines = std::max(static_cast<int>(std::lround(scale)), 1);
    for (int line = 0; line < lines; ++line)
        painter.drawPolyline(points.translated(0.0, line / scale));
}

template <typename Sample>
CurveSamplesOf<Sample> StretchInView(std::span<const Sample> samples, const ProfileView& view)
{
    return SamplesInView(samples, view);
}

CurveSamplesOf<double> StretchInView(std::span<const double> samples, const ProfileView& view)
{
    return ValuesInView(samples, view);
}

void DrawPiece(
    QPainter& painter, const ProfileScale& scale, const QPolygonF& points, const TraceStyle& style)
{
    if (points.isEmpty())
        return;
    DrawSmoothLine(painter, points, style);
    if (scale.width / scale.view.length >= kDotsFrom) {
        painter.setPen(QPen(style.colour, kDotSize, Qt::SolidLine, Qt::RoundCap));
        painter.drawPoints(points);
    }
}

template <typename Value>
void DrawSamples(QPainter& painter, const ProfileScale& scale, const TraceOf<Value>& trace,
    const TraceStyle& style)
{
    const auto inView = StretchInView(trace.samples, scale.view);
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPolygonF points;
    points.reserve(static_cast<qsizetype>(inView.samples.size()));
    double pixel = static_cast<double>(inView.first) + 0.5;
    for (const Value sample : inView.samples) {
        if (std::isnan(static_cast<double>(sample))) {
            DrawPiece(painter, scale, points, style);
            points.clear();
        } else {
            points.append({scale.XAt(pixel), DrawnY(scale, sample)});
        }
        pixel += 1.0;
    }
    DrawPiece(painter, scale, points, style);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// What one column of a raster has to cover, in device pixels; `end` lies behind the last.
struct ColumnFill {
    int x;
    int top;
    int end;
};

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

template <typename Sample>
CurveColumnsOf<Sample> ColumnsOf(const TraceOf<Sample>& trace, const ProfileView& view, int count)
{
    return SumUpColumns(trace.samples, trace.pyramid, view, count);
}

/// Values are points on a line, not levels of pixels: closer in, the line is drawn instead of
/// steps.
CurveColumnsOf<double> ColumnsOf(const ValueTrace& trace, const ProfileView& view, int count)
{
    return view.length < count ? InterpolateColumns(trace.samples, view, count)
                               : SumUpColumns(trace.samples, trace.pyramid, view, count);
}

/// On a raster each column is a fill of whole device pixels: several times faster than lines, and
/// without a line's rounding.
template <typename Value>
void DrawColumnsAsFills(QPainter& painter, const ProfileScale& scale, const TraceOf<Value>& trace,
    const TraceStyle& style)
{
    const QTransform toDevice = painter.deviceTransform();
    const QRectF area = toDevice.mapRect(QRectF(scale.left, scale.top, scale.width, scale.height));
    const auto curve = ColumnsOf(trace, scale.view, static_cast<int>(std::lround(area.width())));
    const double perValue = area.height() / (scale.high - scale.low);
    const int thickness = std::max(static_cast<int>(std::lround(toDevice.m11())), 1);
    const auto yAt = [&](double value) {
        const double y = area.top() + (scale.high - value) * perValue;
        const double beyond = 2.0 * thickness; // What lies outside is clipped anyway.
        return static_cast<int>(
            std::lround(std::clamp(y, area.top() - beyond, area.bottom() + beyond)));
    };
    std::vector<ColumnFill> columns;
    columns.reserve(curve.columns.size());
    const double step = curve.pixelsPerColumn / scale.view.length * area.width();
    double x = toDevice.map(QPointF(scale.XAt(curve.firstPixel), 0.0)).x();
    for (const auto& range : curve.columns) {
        const auto column = static_cast<int>(std::lround(x));
        x += step;
        if (range.IsEmpty())
            continue;
        const ColumnFill fill{column, yAt(range.highest), yAt(range.lowest) + thickness};
        // A dashed curve has gaps where it runs level; a spike is never lost in one.
        constexpr int kSpike = 3;
        if (style.Covers(column, toDevice.m11()) || fill.end - fill.top > kSpike * thickness)
            columns.push_back(fill);
    }
    const Fills fills = FillsOf(columns);
    painter.save();
    painter.setTransform(toDevice.inverted() * painter.transform());
    painter.setPen(Qt::NoPen);
    painter.setBrush(style.colour);
    painter.drawRects(fills.constData(), static_cast<int>(fills.size()));
    painter.restore();
}

/// On paper and in vector files the columns become one line through their lowest and highest.
template <typename Value>
void DrawColumnsAsLine(QPainter& painter, const ProfileScale& scale, const TraceOf<Value>& trace,
    const TraceStyle& style)
{
    const int columns = std::min(
        static_cast<int>(scale.width * std::max(DeviceScale(painter), 1.0)), kMostVectorColumns);
    const auto curve = ColumnsOf(trace, scale.view, columns);
    QPolygonF points;
    points.reserve(static_cast<qsizetype>(2 * curve.columns.size()));
    bool endedLow = false;
    double pixel = curve.firstPixel + curve.pixelsPerColumn / 2.0;
    for (const auto& range : curve.columns) {
        const double x = scale.XAt(pixel);
        pixel += curve.pixelsPerColumn;
        if (range.IsEmpty())
            continue;
        const double high = DrawnY(scale, range.highest);
        const double low = DrawnY(scale, range.lowest);
        points.append({x, endedLow ? low : high});
        if (high != low) {
            points.append({x, endedLow ? high : low});
            endedLow = !endedLow;
        }
    }
    painter.setPen(style.Pen(kVectorPen));
    painter.drawPolyline(points);
}

template <typename Value>
void Draw(QPainter& painter, const ProfileScale& scale, const TraceOf<Value>& trace,
    const TraceStyle& style)
{
    if (trace.samples.empty())
        return;
    if (scale.width / scale.view.length >= kSmoothFrom)
        DrawSamples(painter, scale, trace, style);
    else if (IsRaster(painter))
        DrawColumnsAsFills(painter, scale, trace, style);
    else
        DrawColumnsAsLine(painter, scale, trace, style);
}

} // namespace

void DrawTrace(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour)
{
    Draw(painter, scale, trace, {colour, LineStyle::Solid});
}

void DrawTrace(QPainter& painter, const ProfileScale& scale, const WideTraceSamples& trace,
    const QColor& colour)
{
    Draw(painter, scale, trace, {colour, LineStyle::Solid});
}

void DrawTrace(QPainter& painter, const ProfileScale& scale, const ValueTrace& trace,
    const QColor& colour, LineStyle style)
{
    Draw(painter, scale, trace, {colour, style});
}

} // namespace vireo
