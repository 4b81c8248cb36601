#pragma once

#include <cstdint>
#include <string>

namespace vireo {

/// What moves the view along one axis.
enum class PictureStep { LineBack, LineForward, PageBack, PageForward };

/// One axis of a view of a picture: picture pixels, and the view's size in device pixels. `zoom` is
/// device pixels a picture pixel; divisions round to zero.
struct PictureAxis {
    /// Scroll bars run from 0 to this.
    static constexpr std::int64_t kScrollRange = 10'000;

    std::int64_t picture = 0; ///< Pixels of the picture.
    std::int64_t view = 0;    ///< Device pixels of the view.
    std::int64_t centre = 0;  ///< Picture pixel in the middle of the view.

    /// Picture pixels that the view is long.
    std::int64_t Shown(double zoom) const;
    std::int64_t Half(double zoom) const;
    /// Picture pixel at the view's start; negative only while the picture has not been clamped.
    std::int64_t First(double zoom) const { return centre - Half(zoom); }

    /// Keeps the view on the picture. A picture shorter than the view starts with it.
    void Clamp(double zoom);

    std::int64_t ScrollPage(double zoom) const;
    std::int64_t ScrollPosition(double zoom) const;
    /// Picture pixels that a step moves the view; negative ones go left or up. A line is a tenth of
    /// what is shown, at least 1.
    std::int64_t StepOf(PictureStep step, double zoom) const;
    /// Picture pixels to move so that the scroll bar stands at a position.
    std::int64_t StepTo(std::int64_t position, double zoom) const;
};

/// A pixel of a picture, 0-based from its upper left corner.
struct PicturePixel {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

struct PlacedPicture;

/// Which part of a picture a view shows, and how large: the mapping between view and picture, and
/// every way to move it. Plain arithmetic that asks no window.
///
/// The zoom is a whole number from 1 up, and then every picture pixel is so many device pixels
/// wide; below 1 several picture pixels share one, and the zoom may be any number.
struct PictureView {
    static constexpr double kLargestZoom = 256.0;
    /// No view shows more picture pixels than this along an axis; only damaged files have them.
    static constexpr std::int64_t kMostShown = std::int64_t{1} << 22;

    PictureAxis x;
    PictureAxis y;
    double zoom = 1.0;

    /// The start: zoom 1, the middle of the picture's width and a third of its height.
    static PictureView Start(std::int64_t pictureWidth, std::int64_t pictureHeight,
        std::int64_t viewWidth, std::int64_t viewHeight);

    PictureView OneToOne() const;
    /// The whole picture, as large as the view has room for.
    PictureView Fitted() const;
    PictureView Resized(std::int64_t viewWidth, std::int64_t viewHeight) const;

    /// A click: the picture under a point of the view moves towards the middle, and the zoom grows
    /// by 1, or by one step below 1.
    PictureView ZoomedIn(std::int64_t viewX, std::int64_t viewY) const;
    /// One less. At 1 nothing changes: what lies below is reached by ZoomedAt and Fitted.
    PictureView ZoomedOut() const;
    /// Another zoom, with the same picture pixel under a point of the view.
    PictureView ZoomedAt(std::int64_t viewX, std::int64_t viewY, double newZoom) const;
    /// The next zoom of a wheel or key: 1, 2, 3, 4, 6, 8 ..., or 1/2, 1/3, 1/4, 1/6 ... down to the
    /// fitting one.
    double NextZoom(bool in) const;

    PictureView MovedBy(std::int64_t pixelsX, std::int64_t pixelsY) const;

    /// The zoom at which the whole picture is in view; more only above kMostShown.
    double FittingZoom() const;

    /// The picture pixel under a point of the view; it may lie outside the picture.
    std::int64_t PixelAtX(std::int64_t viewX) const { return PixelAt(x, viewX); }
    std::int64_t PixelAtY(std::int64_t viewY) const { return PixelAt(y, viewY); }

    /// Below 1, drawn pixels are counted from the picture's corner and each always stands for the
    /// same picture pixels, so that nothing flickers when the view moves. The number of the first
    /// one in view; from zoom 1 up, the picture pixel there.
    std::int64_t FirstDrawn(const PictureAxis& axis) const;

    /// Where the left or upper edge of a picture pixel is in the view.
    double PlaceOfX(std::int64_t pixel) const { return PlaceOf(x, pixel); }
    double PlaceOfY(std::int64_t pixel) const { return PlaceOf(y, pixel); }

    /// With a picture that is smaller than the view in the middle of it.
    PlacedPicture Placed() const;

private:
    double PlaceOf(const PictureAxis& axis, std::int64_t pixel) const;
    std::int64_t PixelAt(const PictureAxis& axis, std::int64_t at) const;
    PictureView Clamped() const;
};

/// A view of no more than the picture, and where that begins in the view it was made from.
struct PlacedPicture {
    PictureView view;
    std::int64_t left = 0;
    std::int64_t top = 0;
};

/// "Zoom 3:1", "Zoom 1:1", "Zoom 1:12.5".
std::string ZoomText(double zoom);

} // namespace vireo
