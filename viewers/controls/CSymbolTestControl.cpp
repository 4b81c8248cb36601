#include "viewers/controls/CSymbolTestControl.h"

namespace vireo {

namespace {

void DrawResult(
    QPainter& dc, Symbol result, QPointF centre, double size, std::optional<ColourValue> colour)
{
    DrawSymbol(dc, result, centre, size * CSymbolTestControl::kUnitsPerSize,
        colour ? ToQColor(*colour) : ResultColour(result));
}

} // namespace

void CSymbolTestControl::DrawPassSymbol(
    QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour) const
{
    DrawResult(dc, Symbol::Pass, centre, size, colour);
}

void CSymbolTestControl::DrawWarningSymbol(
    QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour) const
{
    DrawResult(dc, Symbol::Warning, centre, size, colour);
}

void CSymbolTestControl::DrawFailSymbol(
    QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour) const
{
    DrawResult(dc, Symbol::Fail, centre, size, colour);
}

void CSymbolTestControl::DrawMarker(
    QPainter& dc, Symbol marker, QPointF point, double extent, ColourValue colour) const
{
    DrawSymbol(dc, marker, point, extent, ToQColor(colour));
}

} // namespace vireo
