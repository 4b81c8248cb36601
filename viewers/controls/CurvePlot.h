#pragma once

#include "limits/LimitLevels.h"
#include "viewers/controls/CurveSlots.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/controls/VerticalScale.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// Everything that a plot of several curves over the same points shows. The curves are not owned
/// and must be summarised; null draws an empty plot.
struct CurvePlotContent {
    /// On a screen the plot can be operated: it has the zoom button and offers hidden curves.
    enum class Target { Screen, Paper };

    const CurveSlots* curves = nullptr;
    ProfileView view; ///< The stretch drawn; point i lies at i.
    VerticalScale scale;
    Target target = Target::Screen;
    bool isZoomMode = false;   ///< The button is pressed.
    std::string title;         ///< ASCII; above the plot, where there is room.
    std::string valueUnit;     ///< ASCII.
    std::string pointName;     ///< Of the axis of points, ASCII.
    int pointAxisRow = 0;      ///< The row below the plot that the points' numbers stand in.
    int gridParts = 0;         ///< Parts of the width between upright grid lines.
    double leftReserved = 0.0; ///< Of the left margin, for somebody else's texts.
    std::vector<LimitLevel> limits = {};
};

/// Where a plot of a size has its plot area: a tenth is free on each side.
ProfileScale CurvePlotScale(const CurvePlotContent& content, QSizeF size);

/// Draws the plot of a size, in logical units, from the painter's origin onto a white ground: grid,
/// axes, the visible curves, the legend with the names of the curves, and the zoom button. Asks no
/// window, clock or setting: screen, paper and files get the same plot.
void DrawCurvePlot(QPainter& painter, QSizeF size, const CurvePlotContent& content);

/// Draws a hairline at a point over a plot drawn before, and beside it the value of each visible
/// curve there. Nothing when the point is not in view.
void DrawCurveCursor(
    QPainter& painter, QSizeF size, const CurvePlotContent& content, std::int64_t point);

/// The slot whose name in the legend lies at a place.
std::optional<std::size_t> LegendSlotAt(
    const CurvePlotContent& content, QSizeF size, QPointF place);

/// The button in the upper left corner that switches between zooming and choosing.
QRectF ZoomButtonRect(QSizeF size);

/// Whether a place lies on the values' axis, left of the plot.
bool IsOnValueAxis(const CurvePlotContent& content, QSizeF size, QPointF place);

} // namespace vireo
