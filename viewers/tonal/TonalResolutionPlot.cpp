#include "viewers/tonal/TonalResolutionPlot.h"

#include "platform/Text.h"
#include "viewers/controls/Colours.h"
#include "viewers/controls/PlotCursor.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/controls/Symbols.h"
#include "viewers/tonal/TonalCanvas.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalLimits.h"

#include <QPainter>

#include <algorithm>
#include <string>
#include <vector>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;

constexpr double kGap = TonalCanvas::kGap;

const QColor kLimitColour = ToQColor(Colour::kRed);
const QColor kLimitInk(190, 0, 0);
/// Texts in pure green or blue are hard to read.
const QColor kChannelInk[kTonalChannels] = {
    QColor(190, 0, 0), QColor(0, 120, 0), QColor(0, 0, 200)};

/// A point that a painter can take: odd files have values far beyond every paper.
QPointF Bounded(double x, double y)
{
    constexpr double kFarthest = 1e6;
    return {std::clamp(x, -kFarthest, kFarthest), std::clamp(y, -kFarthest, kFarthest)};
}

/// What lies within the frame of one plot.
class TonalCurves {
public:
    explicit TonalCurves(TonalCanvas& canvas)
        : m_canvas(canvas),
          m_painter(canvas.Painter()),
          m_furniture(canvas.Furniture()),
          m_content(canvas.Content()),
          m_data(canvas.Data()),
          m_scale(canvas.Scale()),
          m_area(canvas.Area())
    {
    }

    void Draw()
    {
        m_painter.save();
        m_painter.setClipRect(m_area.toAlignedRect());
        if (m_content.Shows(TonalShowNames))
            m_canvas.DrawNames();
        if (m_content.view == TonalView::DynamicRange)
            DrawRange();
        else
            DrawChannels();
        DrawLimits();
        m_painter.restore();
    }

    void DrawPointed(std::size_t patch)
    {
        const auto& channels = m_canvas.Channels();
        QPointF point = PointOf(patch, channels.empty() ? TonalRed : channels.front());
        // Without a channel there is no point to mark, but still a patch to name.
        if (channels.empty() && m_content.view != TonalView::DynamicRange)
            point.setY(m_area.top() - 1.0);
        DrawPlotCursor(m_painter, m_scale, point,
            QString::fromStdString(TonalPatchText(m_data, m_content.view, patch)));
    }

private:
    double ValueOf(std::size_t patch, std::size_t channel) const
    {
        return TonalValueOf(m_data, m_content.view, patch, channel);
    }

    QPointF PointOf(std::size_t patch, std::size_t channel) const
    {
        return {
            m_scale.XAt(m_data.m_patches[patch].lightness), m_scale.YAt(ValueOf(patch, channel))};
    }

    QPolygonF PointsOf(std::size_t channel) const
    {
        QPolygonF points;
        for (std::size_t i = 0; i < TonalResolutionData::kPatches; ++i)
            points << PointOf(i, channel);
        return points;
    }

    void DrawChannels()
    {
        const bool isDifference = m_content.view == TonalView::Difference;
        if (m_content.Shows(TonalShowLines))
            DrawFittedLines();
        for (const std::size_t channel : m_canvas.Channels()) {
            if (!m_content.Shows(TonalShowCrosses))
                break;
            if (isDifference)
                DrawTrack(channel);
            DrawCrosses(channel, TonalCanvas::ChannelColour(channel));
        }
        if (isDifference)
            DrawDarkBorder();
        else if (m_content.Shows(TonalShowLines))
            DrawFitTexts();
    }

    void DrawFittedLines()
    {
        const bool isOne = m_canvas.IsOneLine();
        for (const std::size_t channel : m_canvas.Channels()) {
            DrawFittedLine(m_data.m_fit[channel],
                isOne ? TonalCanvas::kCommonLine : TonalCanvas::ChannelColour(channel));
            if (isOne)
                return;
        }
    }

    void DrawFittedLine(const LineFit& fit, const QColor& colour)
    {
        const double y = m_scale.YAt(0.0);
        if (m_content.view == TonalView::Difference)
            return m_furniture.DrawLine(m_area.left(), y, m_area.right(), y, colour);
        const auto at = [&](double lightness) {
            return Bounded(m_scale.XAt(lightness), m_scale.YAt(fit.At(lightness)));
        };
        m_canvas.DrawCurve({at(0.0), at(100.0)}, colour);
    }

    /// Differences jump from patch to patch: without a line the eye loses the channel.
    void DrawTrack(std::size_t channel)
    {
        QColor pale = TonalCanvas::ChannelColour(channel);
        pale.setAlphaF(0.35F);
        m_canvas.DrawCurve(PointsOf(channel), pale);
    }

    /// A value beyond the axis has a triangle at the edge instead of its cross.
    void DrawCrosses(std::size_t channel, const QColor& colour)
    {
        constexpr double kExtent = TonalCanvas::kCrossExtent;
        for (std::size_t i = 0; i < TonalResolutionData::kPatches; ++i) {
            QPointF point = PointOf(i, channel);
            Symbol symbol = Symbol::Cross;
            if (point.y() < m_area.top()) {
                symbol = Symbol::TriangleUp;
                point.setY(m_area.top() + kExtent + 1.0);
            } else if (point.y() > m_area.bottom()) {
                symbol = Symbol::TriangleDown;
                point.setY(m_area.bottom() - kExtent);
            }
            DrawSymbol(m_painter, symbol, point, kExtent, colour);
        }
    }

    /// Where the dark ends, with the largest deviations on both sides.
    void DrawDarkBorder()
    {
        const double x = m_scale.XAt(TonalDarkLightness());
        const double baseline = m_area.bottom() - 4.0 * kGap;
        const QColor& ink = PlotColour::kSoftInk;
        const std::string dark = Format("dark max %.2f", m_data.m_dMaxDarkDeviation);
        const double width = m_furniture.WidthOf(dark);
        // In a narrow plot the dark's text is wider than its side, and both move on.
        const double left = std::max(x - 2.0 * kGap - width, m_area.left() + 2.0 * kGap);
        m_furniture.DrawLine(x, m_area.top(), x, m_area.bottom(), ink, LineStyle::Dashed);
        m_furniture.DrawBoxedText(left, baseline, dark, Align::Left, ink);
        m_furniture.DrawBoxedText(std::max(x, left + width + 2.0 * kGap) + 2.0 * kGap, baseline,
            Format("light max %.2f", m_data.m_dMaxLightDeviation), Align::Left, ink);
    }

    /// In the corner that a rising line is farthest from, and that no patch's name is in.
    void DrawFitTexts()
    {
        std::vector<std::string> texts;
        double width = 0.0;
        for (const std::size_t channel : m_canvas.Channels()) {
            const LineFit& fit = m_data.m_fit[channel];
            texts.push_back(Format("%s  slope %.2f  offset %.2f  correlation %.5f",
                TonalCanvas::ChannelName(channel), fit.slope, fit.offset, fit.correlation));
            width = std::max(width, m_furniture.WidthOf(texts.back()));
        }
        double baseline = m_area.bottom() + TonalCanvas::kRow - 2.0 * kGap
            - static_cast<double>(texts.size()) * TonalCanvas::kRow;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            m_furniture.DrawBoxedText(m_area.right() - 2.0 * kGap - width, baseline, texts[i],
                Align::Left, kChannelInk[m_canvas.Channels()[i]]);
            baseline += TonalCanvas::kRow;
        }
    }

    /// The densities over L*, and in red between which of them the scanner tells patches apart.
    void DrawRange()
    {
        const QPointF light = LimitPoint(m_data.m_iIndexMinDynamicRange);
        const QPointF dark = LimitPoint(m_data.m_iIndexMaxDynamicRange);
        m_canvas.DrawCurve(PointsOf(TonalRed), PlotColour::kInk);
        if (m_content.Shows(TonalShowCrosses))
            DrawCrosses(TonalRed, PlotColour::kInk);
        for (const QPointF& limit : {light, dark}) {
            m_furniture.DrawLine(m_area.left(), limit.y(), m_area.right(), limit.y(), kLimitColour,
                LineStyle::Dashed);
            DrawSymbol(m_painter, Symbol::Square, limit, TonalCanvas::kCrossExtent, kLimitColour);
        }
        // Each text on the side where the curve is far from its limit.
        m_furniture.DrawText(m_area.left() + 3.0 * kGap, light.y() - kGap,
            "light limit " + LimitText(m_data.m_iIndexMinDynamicRange), Align::Left, kLimitInk);
        m_furniture.DrawText(m_area.right() - 3.0 * kGap, dark.y() - kGap,
            "dark limit " + LimitText(m_data.m_iIndexMaxDynamicRange), Align::Right, kLimitInk);
        DrawRangeText(std::min(light.y(), dark.y()), std::max(light.y(), dark.y()));
    }

    QPointF LimitPoint(std::int32_t index) const
    {
        return PointOf(static_cast<std::size_t>(index), TonalRed);
    }

    std::string LimitText(std::int32_t index) const
    {
        const auto patch = static_cast<std::size_t>(index);
        return TonalPatchName(patch) + Format(", density %.2f", ValueOf(patch, TonalRed));
    }

    /// The scanner's range beside a line from limit to limit, right of all patches.
    void DrawRangeText(double top, double bottom)
    {
        constexpr double kLightness = 97.0;
        const double x = m_scale.XAt(kLightness);
        m_furniture.DrawLine(x, top, x, bottom, kLimitColour);
        m_furniture.DrawText(x - 2.0 * kGap,
            (top + bottom + m_furniture.Metrics().capHeight()) / 2.0,
            Format("scanner %.2f of the target's %.2f", m_data.m_dScannerDynamicRange,
                m_data.m_dIT8DynamicRange),
            Align::Right, kLimitInk);
    }

    void DrawLimits()
    {
        for (const TonalLimitMark& mark :
            TonalLimitMarks(m_data, m_content.view, m_content.limits)) {
            const double y = m_scale.YAt(mark.level.value);
            // Not of a value that is no number, either.
            if (!(y >= m_area.top() && y <= m_area.bottom()))
                continue;
            m_furniture.DrawLine(m_scale.XAt(mark.fromLightness), y, m_scale.XAt(mark.toLightness),
                y, PlotColour::kLimit, LineStyle::Dashed);
            if (!mark.level.label.empty())
                DrawLimitText(mark, y);
        }
    }

    /// At the outer end of a mark that ends at the border of the dark; else between the texts of
    /// the scanner's own limits, where the curve is far away.
    void DrawLimitText(const TonalLimitMark& mark, double y)
    {
        constexpr double kBetween = 33.0;
        double x = m_scale.XAt(kBetween);
        Align align = Align::Centre;
        if (mark.toLightness <= TonalDarkLightness()) {
            x = m_area.left() + 3.0 * kGap;
            align = Align::Left;
        } else if (mark.fromLightness >= TonalDarkLightness()) {
            x = m_area.right() - 3.0 * kGap;
            align = Align::Right;
        }
        m_furniture.DrawBoxedText(x, y - kGap, mark.level.label, align, PlotColour::kLimit);
    }

    TonalCanvas& m_canvas;
    QPainter& m_painter;
    const PlotFurniture& m_furniture;
    const TonalPlotContent& m_content;
    const TonalResolutionData& m_data;
    const ProfileScale& m_scale;
    const QRectF& m_area;
};

} // namespace

void DrawTonalPlot(QPainter& painter, QSize size, const TonalPlotContent& content)
{
    TonalCanvas canvas(painter, size, content);
    painter.save();
    painter.setFont(canvas.Furniture().Font());
    canvas.DrawTitle();
    canvas.DrawLightnessAxis();
    canvas.DrawValueAxis();
    if (content.HasData()) {
        TonalCurves curves(canvas);
        curves.Draw();
        canvas.DrawLegend();
        canvas.Furniture().DrawFrame();
        if (content.pointed)
            curves.DrawPointed(*content.pointed);
    } else {
        canvas.Furniture().DrawFrame();
        canvas.DrawNotice(content.isLoading ? "Please Wait" : "No data to display");
    }
    painter.restore();
}

void DrawTonalPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSize plotSize, const TonalPlotContent& content)
{
    DrawPlotPage(painter, page, header, plotSize,
        [&](QPainter& plot) { DrawTonalPlot(plot, plotSize, content); });
}

} // namespace vireo
