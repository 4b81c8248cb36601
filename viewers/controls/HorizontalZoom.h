#pragma once

#include "viewers/controls/ProfileView.h"

#include <cstdint>

namespace vireo {

/// The stretch of a number of points in view: so many points about a centre, as many times closer
/// as the factor says. Point i lies at place i of the plot, not between i and i + 1. Plain
/// arithmetic.
struct HorizontalZoom {
    /// Nobody needs fewer points than this across a plot.
    static constexpr double kFewestPoints = 8.0;

    std::int64_t centre = 0;  ///< The point in the middle of the plot.
    std::int64_t visible = 0; ///< Points in view at factor 1: all of them.
    double factor = 1.0;      ///< At least 1.

    static HorizontalZoom Whole(std::int64_t points) { return {points / 2, points, 1.0}; }

    /// Points across the plot.
    double Span() const { return static_cast<double>(visible) / factor; }
    ProfileView View() const { return {static_cast<double>(centre) - Span() / 2.0, Span()}; }

    /// `times` as close (wider when below 1), with `point` staying where it is on the screen.
    HorizontalZoom ZoomedAt(double point, double times) const;
    /// `times` as close with `point` in the middle.
    HorizontalZoom CentredOn(double point, double times) const;
    HorizontalZoom MovedBy(double points) const;
    /// The same view of another number of points, as far as they reach.
    HorizontalZoom Over(std::int64_t points) const;

    /// The point under `x` of a drawing `width` wide, of which a tenth is free on either side; the
    /// result may lie outside of the points.
    std::int64_t PointAt(int x, int width) const;

    bool operator==(const HorizontalZoom&) const = default;

private:
    HorizontalZoom About(double middle, double newFactor) const;
};

} // namespace vireo
