#pragma once

#include "limits/LimitLevels.h"
#include "viewers/controls/AxisTicks.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/controls/StraightLine.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QSizeF>

#include <span>
#include <string>

class QPainter;

namespace vireo {

/// Colours that all plots share.
namespace PlotColour {
inline constexpr QColor kInk(30, 34, 38);
inline constexpr QColor kSoftInk(105, 112, 120);
inline constexpr QColor kFrame(90, 96, 104);
inline constexpr QColor kGrid(228, 231, 235);
inline constexpr QColor kLimit(140, 0, 160);
} // namespace PlotColour

/// One row of positions below a plot.
struct PositionAxis {
    std::string unit;      ///< Stands left of the row; ASCII.
    double perPixel = 1.0; ///< Width of a pixel in the unit; above 0.
    int row = 0;           ///< 0 is the row next to the plot; it also draws the grid.
    double unitLeft = 2.0; ///< Where the unit begins.
};

/// The frame, axes and texts of a plot of one line, in the font of all plots. Texts are ASCII;
/// their places are those of the baseline. Distances are logical units.
class PlotFurniture {
public:
    enum class Align { Left, Centre, Right };

    static constexpr int kFontHeight = 12;
    static constexpr double kLeftMargin = 40.0; ///< Room of the value axis.
    static constexpr double kTitleHeight = 20.0;
    static constexpr double kTickLength = 4.0;
    static constexpr double kRowHeight = 16.0; ///< Of a row of positions.

    /// For a plot of a size drawn from the painter's origin. Both must outlive this.
    PlotFurniture(QPainter& painter, QSizeF size, const ProfileScale& scale);

    const QFont& Font() const { return m_font; }
    const QFontMetricsF& Metrics() const { return m_metrics; }
    const QRectF& Area() const { return m_area; }
    double WidthOf(const std::string& text) const;

    void DrawFrame() const;
    /// Values from the scale's lowest up to `highest`, with a grid.
    void DrawValueAxis(double highest) const;
    /// A tick of the value axis with its line of the grid, and its text on the outside of the plot.
    void DrawValueTick(double value) const;
    void DrawValueText(const AxisTick& tick) const;
    void DrawPositionAxis(const PositionAxis& axis) const;
    /// A text above the plot, cut where it does not fit.
    void DrawTitle(const std::string& title) const;

    /// Limits of figures: a dashed line at each level that is in view. Its label stands at the
    /// left on the side that is outside of the limit, where it covers no other label.
    void DrawLimits(std::span<const LimitLevel> levels) const;

    void DrawText(double x, double baseline, const std::string& text, Align align,
        const QColor& colour) const;
    /// A text on a ground that lets a little of the curve shine through.
    void DrawBoxedText(double x, double baseline, const std::string& text, Align align,
        const QColor& colour) const;
    /// A line as thin as the device draws it well.
    void DrawLine(double x1, double y1, double x2, double y2, const QColor& colour,
        LineStyle style = LineStyle::Solid) const;

private:
    void DrawTickText(double x, double baseline, const AxisTick& tick, const QColor& colour) const;
    double AlignedLeft(double x, double width, Align align) const;

    QPainter& m_painter;
    QSizeF m_size;
    const ProfileScale& m_scale;
    QRectF m_area;
    QFont m_font;
    QFontMetricsF m_metrics;
};

} // namespace vireo
