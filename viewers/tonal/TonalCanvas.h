#pragma once

#include "viewers/controls/PlotFurniture.h"
#include "viewers/tonal/TonalView.h"

#include <QColor>
#include <QPolygonF>
#include <QSize>

#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// What the steps of drawing one tonal resolution plot share, and the steps that all views have.
class TonalCanvas {
public:
    static constexpr double kCrossExtent = 3.0;
    static constexpr double kGap = 3.0; ///< Between texts and what they stand beside.
    static constexpr double kRow = PlotFurniture::kRowHeight;
    /// Of the one line that stands for several.
    static constexpr QColor kCommonLine{0xFF, 0x7F, 0x7F};

    TonalCanvas(QPainter& painter, QSize size, const TonalPlotContent& content);

    static QColor ChannelColour(std::size_t channel);
    static const char* ChannelName(std::size_t channel);

    QPainter& Painter() { return m_painter; }
    const PlotFurniture& Furniture() const { return m_furniture; }
    const QRectF& Area() const { return m_furniture.Area(); }
    const ProfileScale& Scale() const { return m_scale; }
    const TonalPlotContent& Content() const { return m_content; }
    const TonalResolutionData& Data() const { return *m_content.data; }
    const std::vector<std::size_t>& Channels() const { return m_channels; }
    bool IsOneLine() const
    {
        return TonalLinesCoincide(Data(), m_content.view, m_channels, m_scale);
    }

    void DrawTitle();
    void DrawLightnessAxis();
    void DrawValueAxis();
    /// In the row of the title, right of it.
    void DrawLegend();
    /// The patches' names along the upper edge, from the lightest on; where two would touch, the
    /// first stays.
    void DrawNames();
    /// A text in the middle instead of a plot.
    void DrawNotice(const char* text);
    void DrawCurve(const QPolygonF& points, const QColor& colour);

private:
    QPainter& m_painter;
    QSize m_size;
    const TonalPlotContent& m_content;
    ProfileScale m_scale;
    PlotFurniture m_furniture;
    std::vector<std::size_t> m_channels;
    double m_dTitleWidth = 0.0;
};

} // namespace vireo
