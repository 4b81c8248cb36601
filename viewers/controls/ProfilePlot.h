#pragma once

#include "limits/LimitsFile.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileScene.h"
#include "viewers/controls/ProfileView.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <span>
#include <vector>

class QPainter;
class QString;

namespace vireo {

/// A stretch of the line that the overview tints, because a detail view shows it.
struct ProfileStretch {
    ProfileView view;
    ProfileSide side = ProfileSide::Left;
};

/// Everything one profile plot shows. Nothing is owned; `line` may be null for an empty plot.
struct ProfilePlotContent {
    const ProfileLine* line = nullptr;
    ShownColour shown = ShownColour::Green;
    ProfileCameras cameras;
    ProfileScene scene; ///< Its view is the stretch drawn.
    std::vector<ProfileStretch> stretches;
    ProfileUnit unit = {}; ///< Of the second row of positions, where a pixel's width is known.
    /// Those of the shown planes' lowest, highest and mean value are marked; not owned.
    std::span<const Limit> limits = {};
};

/// The colour in which a plane (or a gray line) is drawn on white.
QColor TraceColour(ShownColour shown);

/// Where a plot of a size has its plot area, and the mapping of its contents.
ProfileScale ScaleOf(const ProfilePlotContent& content, QSizeF size);

/// Draws a profile plot of a size, in logical units, with its top left corner at the painter's
/// origin: frame, grid, stretches, cameras, curve, marks, axes and labels. Asks no window, clock or
/// setting: screen, paper and files get the same plot, each at its device's resolution.
void DrawProfilePlot(QPainter& painter, QSizeF size, const ProfilePlotContent& content);

/// Draws the cursor's hairline and reading over a plot drawn before.
void DrawProfileCursor(QPainter& painter, QSizeF size, const ProfilePlotContent& content,
    const CursorReading& reading);

} // namespace vireo
