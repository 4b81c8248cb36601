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

/// A line of one unit. A raster draws lines of one device pixel five times faster than any wider
/// ones, so there a wider line is several of these, one under the other.
void DrawSmoothLine(QPainter& painter, const QPolygonF& points, const QColor& colour)
{
    if (!IsRaster(painter)) {
        painter.setPen(QPen(colour, 1.0));
        painter.drawPolyline(points);
        return;
    }
    painter.setPen(QPen(colour, 0));
    const double scale = DeviceScale(painter);
    const int lines = std::max(static_cast<int>(std::lround(scale)), 1);
    for (int line = 0; line < lines; ++line)
        painter.drawPolyline(points.translated(0.0, line / scale));
}

void DrawSamples(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour)
{
    const CurveSamples inView = SamplesInView(trace.samples, scale.view);
    QPolygonF points;
    points.reserve(static_cast<qsizetype>(inView.samples.size()));
    double pixel = static_cast<double>(inView.first) + 0.5;
    for (const std::uint8_t sample : inView.samples) {
        points.append({scale.XAt(pixel), scale.YAt(sample)});
        pixel += 1.0;
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    DrawSmoothLine(painter, points, colour);
    if (scale.width / scale.view.length >= kDotsFrom) {
        painter.setPen(QPen(colour, kDotSize, Qt::SolidLine, Qt::RoundCap));
        painter.drawPoints(points);
    }
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

/// On a raster each column is a fill of whole device pixels: several times faster than lines, and
/// without a line's rounding.
void DrawColumnsAsFills(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour)
{
    const QTransform toDevice = painter.deviceTransform();
    const QRectF area = toDevice.mapRect(QRectF(scale.left, scale.top, scale.width, scale.height));
    const CurveColumns curve = SumUpColumns(
        trace.samples, trace.pyramid, scale.view, static_cast<int>(std::lround(area.width())));
    const double perValue = area.height() / (scale.high - scale.low);
    const int thickness = std::max(static_cast<int>(std::lround(toDevice.m11())), 1);
    const auto yAt = [&](int value) {
        return static_cast<int>(std::lround(area.top() + (scale.high - value) * perValue));
    };
    std::vector<ColumnFill> columns;
    columns.reserve(curve.columns.size());
    const double step = curve.pixelsPerColumn / scale.view.length * area.width();
    double x = toDevice.map(QPointF(scale.XAt(curve.firstPixel), 0.0)).x();
    for (const SampleRange& range : curve.columns) {
        if (!range.IsEmpty())
            columns.push_back({static_cast<int>(std::lround(x)), yAt(range.highest),
                yAt(range.lowest) + thickness});
        x += step;
    }
    const Fills fills = FillsOf(columns);
    painter.save();
    painter.setTransform(toDevice.inverted() * painter.transform());
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRects(fills.constData(), static_cast<int>(fills.size()));
    painter.restore();
}

/// On paper and in vector files the columns become one line through their lowest and highest.
void DrawColumnsAsLine(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour)
{
    const int columns = std::min(
        static_cast<int>(scale.width * std::max(DeviceScale(painter), 1.0)), kMostVectorColumns);
    const CurveColumns curve = SumUpColumns(trace.samples, trace.pyramid, scale.view, columns);
    QPolygonF points;
    points.reserve(static_cast<qsizetype>(2 * curve.columns.size()));
    bool endedLow = false;
    double pixel = curve.firstPixel + curve.pixelsPerColumn / 2.0;
    for (const SampleRange& range : curve.columns) {
        const double x = scale.XAt(pixel);
        pixel += curve.pixelsPerColumn;
        if (range.IsEmpty())
            continue;
        const double high = scale.YAt(range.highest);
        const double low = scale.YAt(range.lowest);
        points.append({x, endedLow ? low : high});
        if (range.highest != range.lowest) {
            points.append({x, endedLow ? high : low});
            endedLow = !endedLow;
        }
    }
    painter.setPen(QPen(colour, kVectorPen, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
    painter.drawPolyline(points);
}

} // namespace

void DrawTrace(
    QPainter& painter, const ProfileScale& scale, const TraceSamples& trace, const QColor& colour)
{
    if (trace.samples.empty())
        return;
    if (scale.width / scale.view.length >= kSmoothFrom)
        DrawSamples(painter, scale, trace, colour);
    else if (IsRaster(painter))
        DrawColumnsAsFills(painter, scale, trace, colour);
    else
        DrawColumnsAsLine(painter, scale, trace, colour);
}

} // namespace vireo
