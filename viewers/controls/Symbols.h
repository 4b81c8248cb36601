#pragma once

#include <QColor>
#include <QPointF>

class QPainter;

namespace vireo {

/// What a plot marks points with. Results: Pass a check mark, Warning an exclamation mark in a
/// triangle, Fail a cross in a disc. Markers: plain shapes.
enum class Symbol {
    Pass,
    Warning,
    Fail,
    TriangleUp,
    TriangleDown,
    Cross, ///< Two diagonals.
    Plus,  ///< Two lines along the axes.
    Circle,
    Square,
    Diamond,
};

/// The colours in which results are drawn unless a colour is asked for.
QColor ResultColour(Symbol result);

/// Draws a symbol centred at a point. It reaches `extent` units of the painter from there to each
/// side, whatever the resolution; lines get thicker with it. Leaves the painter as it was.
void DrawSymbol(QPainter& dc, Symbol symbol, QPointF centre, double extent, const QColor& colour);

} // namespace vireo
