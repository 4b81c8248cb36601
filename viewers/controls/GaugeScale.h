#pragma once

namespace vireo {

/// The signed logarithmic scale of a gauge: zero in the middle, positive values above it. Within
/// +-1 the scale is linear; beyond, each factor of ten takes as much room as those first units.
struct GaugeScale {
    int centre = 0;      ///< Where zero lies; y grows downwards.
    int halfExtent = 0;  ///< From the centre to either end of the gauge.
    double full = 100.0; ///< The full-scale value, which lies half-way to an end.

    /// Where a value lies: centre - round(v x h / 2 / (log10(m) + 1)) for |v| < 1, and otherwise
    /// centre - round(sign(v) x (log10(|v|) + 1) x h / 2 / (log10(m) + 1)), with h the half extent
    /// and m the full-scale value. A value that is not a number lies at the centre; no position is
    /// farther than the half extent from it.
    int PositionOf(double value) const;

    /// The value at a position, the way back.
    double ValueAt(int position) const;
};

} // namespace vireo
