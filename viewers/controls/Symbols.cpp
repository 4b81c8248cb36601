#include "viewers/controls/Symbols.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace vireo {

namespace {

// Shapes in units of the symbol's extent, from -1 to 1 on both axes, y downwards.

QPolygonF Triangle(double direction)
{
    return QPolygonF({QPointF(0, -direction), QPointF(1, direction), QPointF(-1, direction)});
}

void DrawLines(QPainter& dc, std::initializer_list<QLineF> lines)
{
    for (const QLineF& line : lines)
        dc.drawLine(line);
}

void DrawPass(QPainter& dc, const QColor& colour)
{
    dc.setPen(QPen(colour, 0.42, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    dc.drawPolyline(QPolygonF({QPointF(-0.78, 0.1), QPointF(-0.22, 0.68), QPointF(0.78, -0.68)}));
}

void DrawWarning(QPainter& dc, const QColor& colour)
{
    dc.setPen(QPen(colour, 0.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    dc.setBrush(colour);
    dc.drawPolygon(QPolygonF({QPointF(0, -0.85), QPointF(0.9, 0.8), QPointF(-0.9, 0.8)}));
    dc.setPen(QPen(Qt::white, 0.24, Qt::SolidLine, Qt::RoundCap));
    DrawLines(dc, {QLineF(0, -0.3, 0, 0.2), QLineF(0, 0.56, 0, 0.57)});
}

void DrawFail(QPainter& dc, const QColor& colour)
{
    dc.setPen(Qt::NoPen);
    dc.setBrush(colour);
    dc.drawEllipse(QPointF(0, 0), 1, 1);
    dc.setPen(QPen(Qt::white, 0.3, Qt::SolidLine, Qt::RoundCap));
    DrawLines(dc, {QLineF(-0.42, -0.42, 0.42, 0.42), QLineF(-0.42, 0.42, 0.42, -0.42)});
}

void DrawMarker(QPainter& dc, Symbol symbol)
{
    switch (symbol) {
    case Symbol::TriangleUp:
        return dc.drawPolygon(Triangle(1.0));
    case Symbol::TriangleDown:
        return dc.drawPolygon(Triangle(-1.0));
    case Symbol::Cross:
        return DrawLines(dc, {QLineF(-1, -1, 1, 1), QLineF(-1, 1, 1, -1)});
    case Symbol::Plus:
        return DrawLines(dc, {QLineF(-1, 0, 1, 0), QLineF(0, -1, 0, 1)});
    case Symbol::Circle:
        return dc.drawEllipse(QPointF(0, 0), 1, 1);
    case Symbol::Square:
        return dc.drawRect(QRectF(-1, -1, 2, 2));
    case Symbol::Diamond:
        return dc.drawPolygon(
            QPolygonF({QPointF(0, -1), QPointF(1, 0), QPointF(0, 1), QPointF(-1, 0)}));
    case Symbol::Pass:
    case Symbol::Warning:
    case Symbol::Fail:
        break;
    }
}

} // namespace

QColor ResultColour(Symbol result)
{
    switch (result) {
    case Symbol::Pass:
        return {0, 150, 40};
    case Symbol::Warning:
        return {225, 140, 0};
    case Symbol::Fail:
        return {205, 30, 30};
    default:
        return Qt::black;
    }
}

void DrawSymbol(QPainter& dc, Symbol symbol, QPointF centre, double extent, const QColor& colour)
{
    if (extent <= 0.0)
        return;
    dc.save();
    dc.setRenderHint(QPainter::Antialiasing, true);
    dc.translate(centre);
    dc.scale(extent, extent);
    switch (symbol) {
    case Symbol::Pass:
        DrawPass(dc, colour);
        break;
    case Symbol::Warning:
        DrawWarning(dc, colour);
        break;
    case Symbol::Fail:
        DrawFail(dc, colour);
        break;
    default:
        // Small markers keep a line that is seen, big ones do not become blots.
        dc.setPen(QPen(colour, std::clamp(1.2 / extent, 0.08, 0.5)));
        dc.setBrush(colour);
        DrawMarker(dc, symbol);
    }
    dc.restore();
}

} // namespace vireo
