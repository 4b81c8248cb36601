#include "viewers/tonal/TonalCanvas.h"

#include "viewers/controls/Colours.h"
#include "viewers/controls/Fonts.h"
#include "viewers/controls/Symbols.h"
#include "viewers/tonal/TonalFileText.h"

#include <QPainter>

#include <algorithm>
#include <optional>

namespace vireo {

namespace {

using Align = PlotFurniture::Align;

constexpr double kTitleFontHeight = 15.0;

} // namespace

TonalCanvas::TonalCanvas(QPainter& painter, QSize size, const TonalPlotContent& content)
    : m_painter(painter),
      m_size(size),
      m_content(content),
      m_scale(TonalScaleOf(content.view, size.width(), size.height())),
      m_furniture(painter, size, m_scale),
      m_channels(content.Channels())
{
}

QColor TonalCanvas::ChannelColour(std::size_t channel)
{
    return ToQColor(ColourOfIndex(static_cast<int>(channel)));
}

const char* TonalCanvas::ChannelName(std::size_t channel)
{
    constexpr const char* kNames[kTonalChannels] = {"Red", "Green", "Blue"};
    return kNames[channel];
}

void TonalCanvas::DrawTitle()
{
    const QFont font = FontOfHeight(kSansFace, kTitleFontHeight, kBoldWeight);
    const std::string title(TonalTitle(m_content.view));
    m_dTitleWidth = QFontMetricsF(font).horizontalAdvance(QString::fromStdString(title));
    m_painter.setFont(font);
    m_furniture.DrawText(
        Area().left(), Area().top() - 2.0 * kGap, title, Align::Left, PlotColour::kInk);
    m_painter.setFont(m_furniture.Font());
}

/// The ends have their numbers always; what lies between them has where there is a row for them and
/// one for the caption.
void TonalCanvas::DrawLightnessAxis()
{
    constexpr int kStep = 10;
    constexpr int kEnd = 100;
    const QRectF& area = Area();
    const double baseline = area.bottom() + PlotFurniture::kTickLength + kRow - 4.0;
    const bool hasTwoRows = baseline + kRow <= m_size.height() - 2.0;
    for (int lightness = 0; lightness <= kEnd; lightness += kStep) {
        const double x = m_scale.XAt(lightness);
        m_furniture.DrawLine(x, area.top(), x, area.bottom(), PlotColour::kGrid);
        m_furniture.DrawLine(
            x, area.bottom(), x, area.bottom() + PlotFurniture::kTickLength, PlotColour::kFrame);
        if (hasTwoRows || lightness % kEnd == 0)
            m_furniture.DrawText(
                x, baseline, std::to_string(lightness), Align::Centre, PlotColour::kInk);
    }
    m_furniture.DrawText(area.center().x(), hasTwoRows ? baseline + kRow : baseline,
        std::string(kTonalLightnessCaption), Align::Centre, PlotColour::kSoftInk);
}

void TonalCanvas::DrawValueAxis()
{
    const QRectF& area = Area();
    const double capHeight = m_furniture.Metrics().capHeight();
    const double tickLeft = area.left() - PlotFurniture::kTickLength;
    double widest = 0.0;
    for (const AxisTick& tick : TonalValueTicks(m_content.view, area.height())) {
        const double y = m_scale.YAt(tick.value);
        m_furniture.DrawLine(area.left(), y, area.right(), y, PlotColour::kGrid);
        m_furniture.DrawLine(tickLeft, y, area.left(), y, PlotColour::kFrame);
        m_furniture.DrawText(
            tickLeft - kGap, y + capHeight / 2.0, tick.text, Align::Right, PlotColour::kInk);
        widest = std::max(widest, m_furniture.WidthOf(tick.text));
    }
    m_painter.save();
    // Clear of the frame, brackets and all.
    m_painter.translate(
        std::max(tickLeft - 3.0 * kGap - widest, m_furniture.Metrics().ascent() + 1.0),
        area.center().y());
    m_painter.rotate(-90.0);
    m_furniture.DrawText(0.0, 0.0, std::string(TonalValueCaption(m_content.view)), Align::Centre,
        PlotColour::kSoftInk);
    m_painter.restore();
}

void TonalCanvas::DrawNotice(const char* text)
{
    m_painter.setFont(FontOfHeight(kSansFace, kTitleFontHeight));
    m_painter.setPen(ToQColor(Colour::kRed));
    m_painter.drawText(Area(), Qt::AlignCenter, QLatin1String(text));
    m_painter.setFont(m_furniture.Font());
}

void TonalCanvas::DrawCurve(const QPolygonF& points, const QColor& colour)
{
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    m_painter.setPen(QPen(colour, 1.0));
    m_painter.drawPolyline(points);
    m_painter.restore();
}

void TonalCanvas::DrawNames()
{
    const QRectF& area = Area();
    double freeTo = area.right();
    for (std::size_t i = 0; i < TonalResolutionData::kPatches; ++i) {
        const std::string name = TonalPatchName(i);
        const double x = m_scale.XAt(Data().m_patches[i].lightness);
        const double half = m_furniture.WidthOf(name) / 2.0;
        m_furniture.DrawLine(x, area.top(), x, area.top() + 2.0 * kGap, PlotColour::kSoftInk);
        if (x + half > freeTo || x - half < area.left())
            continue;
        m_furniture.DrawText(
            x, area.top() + kRow + kGap, name, Align::Centre, PlotColour::kSoftInk);
        freeTo = x - half - kGap;
    }
}

namespace {

struct LegendItem {
    std::string text;
    QColor colour;
    std::optional<Symbol> symbol; ///< Else a line.
};

std::vector<LegendItem> LegendItems(const TonalCanvas& canvas)
{
    const TonalPlotContent& content = canvas.Content();
    const auto cross =
        content.Shows(TonalShowCrosses) ? std::optional(Symbol::Cross) : std::nullopt;
    std::vector<LegendItem> items;
    if (content.view == TonalView::DynamicRange) {
        items.push_back({"target", PlotColour::kInk, cross});
        items.push_back({"limits of the scanner", ToQColor(Colour::kRed), Symbol::Square});
        return items;
    }
    for (const std::size_t channel : canvas.Channels())
        items.push_back(
            {TonalCanvas::ChannelName(channel), TonalCanvas::ChannelColour(channel), cross});
    if (content.Shows(TonalShowLines) && canvas.IsOneLine())
        items.push_back({"fitted lines", TonalCanvas::kCommonLine, std::nullopt});
    return items;
}

constexpr double kSample = 12.0;
constexpr double kBetween = 14.0;

double WidthOf(const LegendItem& item, const PlotFurniture& furniture)
{
    return kBetween + kSample + TonalCanvas::kGap + furniture.WidthOf(item.text);
}

} // namespace

/// Where the title leaves too little room, the last items are left out: the channels come first.
void TonalCanvas::DrawLegend()
{
    const double baseline = Area().top() - 2.0 * kGap;
    const double middle = baseline - m_furniture.Metrics().capHeight() / 2.0;
    const QPointF half(kSample / 2.0, 0.0);
    std::vector<LegendItem> items = LegendItems(*this);
    double width = 0.0;
    for (const LegendItem& item : items)
        width += WidthOf(item, m_furniture);
    while (!items.empty() && width > Area().width() - m_dTitleWidth) {
        width -= WidthOf(items.back(), m_furniture);
        items.pop_back();
    }
    double left = Area().right() - width;
    for (const LegendItem& item : items) {
        const QPointF centre(left + kBetween + half.x(), middle);
        if (item.symbol)
            DrawSymbol(m_painter, *item.symbol, centre, kCrossExtent, item.colour);
        else
            DrawCurve({centre - half, centre + half}, item.colour);
        left += WidthOf(item, m_furniture);
        m_furniture.DrawText(left, baseline, item.text, Align::Right, PlotColour::kInk);
    }
}

} // namespace vireo
