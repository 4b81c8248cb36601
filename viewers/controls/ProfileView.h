#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vireo {

/// The stretch of a line in view: pixels first <= p < first + length, pixel i covering i to i + 1.
/// Plain arithmetic, so that it can be tested without a window.
struct ProfileView {
    /// Nobody needs fewer pixels than this across a plot.
    static constexpr double kShortest = 8.0;

    double first = 0.0;
    double length = 0.0;

    double End() const { return first + length; }

    /// The whole of a line of `lineLength` pixels.
    static ProfileView Whole(std::int64_t lineLength);
    /// Moved and shortened, if need be, to lie within the line.
    ProfileView Within(std::int64_t lineLength) const;
    /// Shorter by `factor` (longer when below 1), with `pixel` staying where it is on the screen.
    ProfileView ZoomedAt(double pixel, double factor, std::int64_t lineLength) const;
    /// Shorter by `factor` with `pixel` in the middle.
    ProfileView CentredOn(double pixel, double factor, std::int64_t lineLength) const;
    ProfileView MovedBy(double pixels, std::int64_t lineLength) const;

    bool operator==(const ProfileView&) const = default;
};

/// The unit in which positions along a line are written.
struct ProfileUnit {
    std::string symbol = "mm"; ///< ASCII.
    double millimetres = 1.0;  ///< In one of the unit; above 0.
    int decimals = 2;          ///< Of a position under the cursor.
};

/// What lies under the cursor.
struct CursorReading {
    std::int64_t pixel = 0;           ///< 0-based in the line.
    std::optional<double> positionMm; ///< From the line's start, where the pixel pitch is known.
    std::optional<int> camera;        ///< 0 for A.
    int value = 0;                    ///< Of the shown plane; of green when all are shown.
};

/// The mapping between pixels and values of a line and points of a drawing, in both directions. y
/// grows downwards.
struct ProfileScale {
    ProfileView view;
    double low = 0.0;    ///< Value at the bottom of the plot area.
    double high = 255.0; ///< Value at its top.
    double left = 0.0;   ///< The plot area in the drawing's coordinates.
    double top = 0.0;
    double width = 1.0;
    double height = 1.0;

    double XAt(double pixel) const { return left + (pixel - view.first) / view.length * width; }
    double PixelAt(double x) const { return view.first + (x - left) / width * view.length; }
    double YAt(double value) const { return top + (high - value) / (high - low) * height; }
    double ValueAt(double y) const { return high - (y - top) / height * (high - low); }
    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
    bool Contains(double x, double y) const
    {
        return x >= left && x < Right() && y >= top && y < Bottom();
    }
};

} // namespace vireo
