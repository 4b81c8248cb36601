#pragma once

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/Symbols.h"

#include <optional>

namespace vireo {

/// The base of the plots that mark points and results with symbols.
class CSymbolTestControl : public CBasicTestControl {
    Q_OBJECT

public:
    using CBasicTestControl::CBasicTestControl;

    /// A symbol of size 1 reaches this far to each side: size 3 stands beside a line of text.
    static constexpr double kUnitsPerSize = 2.0;

protected:
    /// Result symbols in their own colours, or in the one given.
    void DrawPassSymbol(
        QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour = {}) const;
    void DrawWarningSymbol(
        QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour = {}) const;
    void DrawFailSymbol(
        QPainter& dc, QPointF centre, double size, std::optional<ColourValue> colour = {}) const;

    /// Any symbol, reaching `extent` pixels from its point to each side.
    void DrawMarker(
        QPainter& dc, Symbol marker, QPointF point, double extent, ColourValue colour) const;
};

} // namespace vireo
