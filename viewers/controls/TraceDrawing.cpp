#include "viewers/controls/TraceDrawing.h"

#include "viewers/controls/ColumnFills.h"
#include "viewers/controls/ProfileCurve.h"
#include "viewers/controls/StraightLine.h"

#include <QPainter>
#include <QPolygonF>

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
FilledCurve FillsOf(const QTransform& toDevice, const ProfileScale& scale,
    const TraceOf<Value>& trace, const TraceStyle& style)
{
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
    FilledCurve filled{style.colour, {}};
    filled.columns.reserve(curve.columns.size());
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
            filled.columns.push_back(fill);
    }
    return filled;
}

void DrawInDevicePixels(QPainter& painter, std::span<const FilledCurve> curves)
{
    painter.save();
    painter.setTransform(painter.deviceTransform().inverted() * painter.transform());
    DrawFilledCurves(painter, curves);
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

/// Whether a curve runs from sample to sample.
bool IsDrawnBySamples(const ProfileScale& scale)
{
    return scale.width / scale.view.length >= kSmoothFrom;
}

template <typename Value>
void Draw(QPainter& painter, const ProfileScale& scale, const TraceOf<Value>& trace,
    const TraceStyle& style)
{
    if (trace.samples.empty())
        return;
    if (IsDrawnBySamples(scale)) {
        DrawSamples(painter, scale, trace, style);
    } else if (IsRaster(painter)) {
        const FilledCurve curve = FillsOf(painter.deviceTransform(), scale, trace, style);
        DrawInDevicePixels(painter, {&curve, 1});
    } else {
        DrawColumnsAsLine(painter, scale, trace, style);
    }
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

void DrawTraces(QPainter& painter, const ProfileScale& scale, std::span<const StyledTrace> traces)
{
    if (IsDrawnBySamples(scale) || !IsRaster(painter)) {
        for (const StyledTrace& styled : traces)
            Draw(painter, scale, styled.trace, {styled.colour, styled.style});
        return;
    }
    std::vector<FilledCurve> curves;
    for (const StyledTrace& styled : traces)
        if (!styled.trace.samples.empty())
            curves.push_back(FillsOf(
                painter.deviceTransform(), scale, styled.trace, {styled.colour, styled.style}));
    DrawInDevicePixels(painter, curves);
}

} // namespace vireo
