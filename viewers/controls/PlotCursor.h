#pragma once

#include "viewers/controls/ProfileView.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;

namespace vireo {

// The cursor of plots, drawn over a plot drawn before. Each of these leaves the painter as it was.

/// A vertical line over the plot's height.
void DrawHairline(QPainter& painter, const ProfileScale& scale, double x);

/// A ring about a point of a curve; nothing above or below the plot.
void DrawCursorPoint(
    QPainter& painter, const ProfileScale& scale, QPointF point, const QColor& colour);

/// The ground of a reading of a size, beside a hairline: on its right, or on its left where it
/// would leave the plot. Gives its place.
QRectF DrawCursorBox(QPainter& painter, const ProfileScale& scale, double x, QSizeF size);

/// All of it for one curve: a hairline through a point, and the text of its reading in a box.
/// Nothing outside the scale's plot area.
void DrawPlotCursor(
    QPainter& painter, const ProfileScale& scale, QPointF point, const QString& text);

} // namespace vireo
