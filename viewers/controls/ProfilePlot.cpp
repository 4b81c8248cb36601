#include "viewers/controls/ProfilePlot.h"

#include "limits/LimitLevels.h"
#include "platform/Text.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/TraceDrawing.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;
using PlotColour::kInk;
using PlotColour::kSoftInk;

// Layout, in logical units.
constexpr double kRightMargin = 14.0;
constexpr double kCameraBandHeight = 16.0;

const QColor kBandColour(244, 246, 249);
const QColor kBoundaryColour(170, 120, 40);
const QColor kAccent(190, 75, 0);
const QColor kLeftStretch(255, 170, 40, 70);
const QColor kRightStretch(40, 150, 230, 60);
const QColor kExtraTraces[] = {
    {200, 0, 200}, {0, 160, 170}, {170, 140, 0}, {110, 80, 200}, {120, 120, 120}};

QColor TintColour(MarkTint tint)
{
    switch (tint) {
    case MarkTint::Red:
        return TraceColour(ShownColour::Red);
    case MarkTint::Green:
        return TraceColour(ShownColour::Green);
    case MarkTint::Blue:
        return TraceColour(ShownColour::Blue);
    case MarkTint::Gray:
        return kSoftInk;
    case MarkTint::Accent:
        break;
    }
    return kAccent;
}

bool HasPixels(const ProfilePlotContent& content)
{
    return content.line && content.line->Length() > 0;
}

bool ShowsEveryPlane(const ProfilePlotContent& content)
{
    return content.shown != ShownColour::Gray
        && (content.shown == ShownColour::All || content.scene.everyPlane);
}

constexpr ShownColour kPlanes[] = {ShownColour::Red, ShownColour::Green, ShownColour::Blue};

struct LegendEntry {
    QString name;
    QColor colour;
};

/// The traces that a plot has to tell apart; none where there is only one.
std::vector<LegendEntry> LegendOf(const ProfilePlotContent& content)
{
    std::vector<LegendEntry> legend;
    if (!HasPixels(content))
        return legend;
    if (ShowsEveryPlane(content)) {
        const char* const names[] = {"Red", "Green", "Blue"};
        for (std::size_t i = 0; i < std::size(kPlanes); ++i)
            if (content.line->HasPlane(PlaneOf(kPlanes[i])))
                legend.push_back({QString::fromLatin1(names[i]), TraceColour(kPlanes[i])});
    }
    for (std::size_t i = 0; i < content.line->extras.size(); ++i)
        legend.push_back({QString::fromStdString(content.line->extras[i].name),
            kExtraTraces[i % std::size(kExtraTraces)]});
    return legend.size() > 1 ? legend : std::vector<LegendEntry>();
}

/// The limits of the planes shown; where there are several, with their names.
std::vector<LimitLevel> LevelsOfPlanes(const ProfilePlotContent& content)
{
    std::vector<LimitLevel> levels;
    const bool showsEvery = ShowsEveryPlane(content);
    for (const ShownColour plane : kPlanes) {
        if (!showsEvery && PlaneOf(content.shown) != PlaneOf(plane))
            continue;
        const std::string name = LowerAscii(ColourName(plane));
        for (LimitLevel& level : LevelsOf(content.limits, "planes." + name + ".min|max|mean")) {
            if (showsEvery)
                level.label.insert(0, name + ' ');
            levels.push_back(std::move(level));
        }
    }
    return levels;
}

/// One drawing of a plot: what its steps share.
class PlotDrawing {
public:
    PlotDrawing(QPainter& painter, QSizeF size, const ProfilePlotContent& content)
        : m_painter(painter),
          m_size(size),
          m_content(content),
          m_scale(ScaleOf(content, size)),
          m_furniture(painter, size, m_scale),
          m_area(m_furniture.Area()),
          m_metrics(m_furniture.Metrics())
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setFont(m_furniture.Font());
        DrawBackground();
        if (HasPixels(m_content)) {
            DrawStretches();
            m_furniture.DrawValueAxis(m_scale.high);
            DrawPositionAxes();
            DrawCameras();
            DrawCurves();
            DrawLevels();
            m_furniture.DrawLimits(LevelsOfPlanes(m_content));
            DrawMarks();
        }
        DrawTitle();
        DrawLegend();
        m_furniture.DrawFrame();
        m_painter.restore();
    }

private:
    void DrawBackground()
    {
        m_painter.fillRect(QRectF({0, 0}, m_size), Qt::white);
        m_painter.fillRect(
            QRectF(m_scale.left, m_scale.top - kCameraBandHeight, m_scale.width, kCameraBandHeight),
            kBandColour);
    }

    void DrawStretches()
    {
        for (const ProfileStretch& stretch : m_content.stretches) {
            const double from = std::max(m_scale.XAt(stretch.view.first), m_area.left());
            const double to = std::min(m_scale.XAt(stretch.view.End()), m_area.right());
            // A stretch of less than a pixel must still be seen.
            constexpr double kNarrowest = 3.0;
            if (to < from)
                continue;
            m_painter.fillRect(
                QRectF(from, m_area.top(), std::max(to - from, kNarrowest), m_area.height()),
                stretch.side == ProfileSide::Left ? kLeftStretch : kRightStretch);
        }
    }

    void DrawPositionAxes()
    {
        m_furniture.DrawPositionAxis({"px", 1.0, 0});
        if (m_content.cameras.pixelPitchMm > 0.0)
            m_furniture.DrawPositionAxis({m_content.unit.symbol,
                m_content.cameras.pixelPitchMm / m_content.unit.millimetres, 1});
    }

    /// The letters of the cameras in the band above the plot, and a line at each boundary.
    void DrawCameras()
    {
        const ProfileCameras& cameras = m_content.cameras;
        const double bandTop = m_area.top() - kCameraBandHeight;
        for (int camera = 0; camera < cameras.Count(); ++camera) {
            const auto end = static_cast<double>(cameras.End(camera));
            const double from =
                std::max(m_scale.XAt(static_cast<double>(cameras.Start(camera))), m_area.left());
            const double to = std::min(m_scale.XAt(end), m_area.right());
            const bool isBoundary = camera + 1 < cameras.Count();
            if (isBoundary && end > m_scale.view.first && end < m_scale.view.End())
                m_furniture.DrawLine(
                    to, bandTop, to, m_area.bottom(), kBoundaryColour, LineStyle::Dashed);
            constexpr double kRoomForLetter = 10.0;
            if (to - from >= kRoomForLetter)
                m_furniture.DrawText((from + to) / 2.0, m_area.top() - 4.0,
                    std::string(1, ProfileCameras::Letter(camera)), Align::Centre, kBoundaryColour);
        }
    }

    void DrawCurves()
    {
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        std::size_t extra = 0;
        for (const ProfileLine::ExtraTrace& trace : m_content.line->extras)
            DrawCurve(trace.trace, kExtraTraces[extra++ % std::size(kExtraTraces)]);
        if (!ShowsEveryPlane(m_content))
            DrawPlane(PlaneOf(m_content.shown), TraceColour(m_content.shown));
        else
            for (const ShownColour plane : kPlanes) {
                QColor colour = TraceColour(plane);
                constexpr int kSeeThrough = 190;
                colour.setAlpha(kSeeThrough);
                DrawPlane(PlaneOf(plane), colour);
            }
        m_painter.restore();
    }

    void DrawPlane(Plane plane, const QColor& colour)
    {
        DrawCurve(m_content.line->Of(plane), colour);
        DrawCurve(m_content.line->WideOf(plane), colour);
    }

    template <typename Sample>
    void DrawCurve(const ProfileLine::TraceWith<Sample>& trace, const QColor& colour)
    {
        DrawTrace(m_painter, m_scale, TraceOf<Sample>{trace.samples, trace.pyramid}, colour);
    }

    void DrawLevels()
    {
        for (const ProfileLevel& level : m_content.scene.levels) {
            const double y = m_scale.YAt(level.value);
            const double from = std::max(m_scale.XAt(level.from), m_area.left());
            const double to = std::min(m_scale.XAt(level.to), m_area.right());
            if (y < m_area.top() || y > m_area.bottom() || from >= to)
                continue;
            m_furniture.DrawLine(from, y, to, y, TintColour(level.tint), LineStyle::Dashed);
        }
        DrawLevelLabels();
    }

    /// Labels of levels stand above their lines, the lower of two below, so that close ones do not
    /// cover each other.
    void DrawLevelLabels()
    {
        const auto& levels = m_content.scene.levels;
        for (const ProfileLevel& level : levels) {
            const bool isLower = std::any_of(levels.begin(), levels.end(),
                [&](const ProfileLevel& other) { return other.value > level.value; });
            const double y = m_scale.YAt(level.value);
            const double baseline = isLower ? y + m_metrics.ascent() + 2.0 : y - 4.0;
            const bool atLeft = m_content.scene.levelLabelsAtLeft;
            m_furniture.DrawBoxedText(atLeft ? m_area.left() + 6.0 : m_area.right() - 6.0, baseline,
                level.label, atLeft ? Align::Left : Align::Right, TintColour(level.tint));
        }
    }

    void DrawMarks()
    {
        for (const ProfileMark& mark : m_content.scene.marks) {
            const double x = m_scale.XAt(mark.pixel);
            if (x < m_area.left() || x > m_area.right())
                continue;
            m_furniture.DrawLine(
                x, m_area.top(), x, m_area.bottom(), TintColour(mark.tint), LineStyle::Dashed);
            if (!mark.label.empty())
                m_furniture.DrawBoxedText(x + 5.0, m_area.top() + m_metrics.ascent() + 4.0,
                    mark.label, Align::Left, TintColour(mark.tint));
        }
    }

    void DrawTitle()
    {
        if (!m_content.scene.title.empty())
            m_furniture.DrawTitle(m_content.scene.title);
    }

    /// The names of the traces: in the row of the title, or where that is taken, at the end of the
    /// camera band.
    void DrawLegend()
    {
        const std::vector<LegendEntry> legend = LegendOf(m_content);
        constexpr double kSwatch = 9.0;
        constexpr double kGap = 4.0;
        const bool hasTitle = !m_content.scene.title.empty();
        const double baseline = hasTitle ? m_area.top() - 4.0 : PlotFurniture::kTitleHeight - 6.0;
        double right = m_area.right() - kGap;
        for (auto entry = legend.rbegin(); entry != legend.rend(); ++entry) {
            const double left = right - m_metrics.horizontalAdvance(entry->name);
            const double swatchLeft = left - kGap - kSwatch;
            const double next = swatchLeft - 3.0 * kGap;
            if (hasTitle)
                m_painter.fillRect(
                    QRectF(next, m_area.top() - kCameraBandHeight, right - next, kCameraBandHeight),
                    kBandColour);
            m_furniture.DrawText(left, baseline, entry->name.toStdString(), Align::Left, kInk);
            m_painter.fillRect(
                QRectF(swatchLeft, baseline - kSwatch, kSwatch, kSwatch), entry->colour);
            right = next;
        }
    }

    QPainter& m_painter;
    QSizeF m_size;
    const ProfilePlotContent& m_content;
    ProfileScale m_scale;
    PlotFurniture m_furniture;
    QRectF m_area;
    QFontMetricsF m_metrics;
};

} // namespace

QColor TraceColour(ShownColour shown)
{
    switch (shown) {
    case ShownColour::Red:
        return {205, 20, 20};
    case ShownColour::Green:
        return {0, 140, 30};
    case ShownColour::Blue:
        return {20, 70, 215};
    case ShownColour::Gray:
    case ShownColour::All:
        break;
    }
    return {60, 64, 70};
}

namespace {

/// Room for the longest number of the value axis: bytes need what every plot has.
double LeftMargin(double low, double high)
{
    constexpr double kPerCharacter = 7.0;
    constexpr double kBesideText = 19.0;
    double characters = 0.0;
    for (const double value : {low, high})
        characters = std::max(characters,
            std::floor(std::log10(std::max(std::abs(value), 1.0))) + (value < 0.0) + 1.0);
    return std::max(PlotFurniture::kLeftMargin, kBesideText + kPerCharacter * characters);
}

} // namespace

ProfileScale ScaleOf(const ProfilePlotContent& content, QSizeF size)
{
    ProfileScale scale;
    scale.view = content.scene.view;
    scale.view.length = std::max(scale.view.length, 1.0);
    scale.low = content.scene.low;
    scale.high = std::max(content.scene.high, scale.low + 1.0);
    const bool hasTitleRow = !content.scene.title.empty() || !LegendOf(content).empty();
    const double above = (hasTitleRow ? PlotFurniture::kTitleHeight : 6.0) + kCameraBandHeight;
    const int tickRows = content.cameras.pixelPitchMm > 0.0 ? 2 : 1;
    scale.left = LeftMargin(scale.low, scale.high);
    // Whole units keep the frame, the grid and the columns of a raster on device pixels.
    scale.top = std::floor(above);
    scale.width = std::max(std::floor(size.width() - scale.left - kRightMargin), 1.0);
    scale.height = std::max(std::floor(size.height() - above - PlotFurniture::kTickLength
                                - tickRows * PlotFurniture::kRowHeight - 2.0),
        1.0);
    return scale;
}

void DrawProfilePlot(QPainter& painter, QSizeF size, const ProfilePlotContent& content)
{
    PlotDrawing(painter, size, content).Draw();
}

} // namespace vireo
