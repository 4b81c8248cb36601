#pragma once

#include "viewers/controls/CurvePlot.h"

#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

class StarTestData;

/// Everything that a star-test plot shows: the selected sweep's curves, and what stands about them.
/// Data and curves are not owned; without data an empty plot is drawn.
struct StarTestPlotContent {
    const StarTestData* data = nullptr;
    CurvePlotContent plot;
    std::vector<std::int32_t> markers; ///< Lines of points that have not passed.
};

/// The curve slots of the selected sweep, to be summarised; and the marks of its points. A curve
/// has gaps outside of the lines that it was worked out for.
void FillCurves(const StarTestData& data, CurveSlots& curves);
std::vector<std::int32_t> MarkersOf(const StarTestData& data);
/// The texts of the plot that depend on the selected sweep and on the stretch in view.
void DescribePlot(const StarTestData& data, CurvePlotContent& plot);

/// Draws the plot of a size, in logical units, from the painter's origin onto a white ground: the
/// curves with their axes, the list of the sweeps, the application factor, the centimetre scale and
/// the result symbols. Asks no window, clock or setting.
void DrawStarTestPlot(QPainter& painter, QSizeF size, const StarTestPlotContent& content);

/// The same on its own white ground with a frame, as a control shows it.
void DrawStarTestPicture(QPainter& painter, QSizeF size, const StarTestPlotContent& content);

/// Draws the cursor at a line over a plot drawn before: the line's number and distance, and the
/// values of the visible curves.
void DrawStarTestCursor(
    QPainter& painter, QSizeF size, const StarTestPlotContent& content, std::int64_t line);

/// Draws a printed page into its printable rectangle: the header lines (Windows-1252) and below
/// them the plot, laid out at `plotSize`.
void DrawStarTestPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const StarTestPlotContent& content);

/// The list of the sweeps at the left edge: which rows it has and where. A list that is too long
/// shows the stretch about the selected sweep.
struct SweepList {
    std::size_t first = 0; ///< The sweep in the first row.
    std::size_t count = 0; ///< Rows.
    double top = 0.0;
    double rowHeight = 1.0;

    static SweepList Of(const StarTestData& data, QSizeF size);
    double RowTop(std::size_t sweep) const
    {
        return top + static_cast<double>(sweep - first) * rowHeight;
    }
    /// The sweep of the row at a height; nothing above and below the rows.
    std::optional<std::size_t> SweepAt(double y) const;
};

} // namespace vireo
