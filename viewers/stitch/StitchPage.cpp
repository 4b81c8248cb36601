#include "viewers/stitch/StitchPage.h"

#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PrintPageLayout.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

QRectF PlaceOnStitchPage(const QRectF& page, const PictureView& view)
{
    constexpr double kWidthShare = 0.8;
    if (view.x.view <= 0 || view.y.view <= 0)
        return {};
    QSizeF size(static_cast<double>(view.x.view), static_cast<double>(view.y.view));
    size.scale(kWidthShare * page.width(), page.height(), Qt::KeepAspectRatio);
    QRectF place(QPointF(), size);
    place.moveCenter(page.center());
    return place;
}

namespace {

/// A view of the same part of the picture, with as many pixels as are worth drawing on a device:
/// no more than the part has, than the device has, and than memory should be spent on.
PictureView ViewForDevice(const PictureView& view, QSizeF device)
{
    constexpr double kMostPixels = 4096.0; // On each side.
    PictureView best = view;
    const double width = static_cast<double>(std::max<std::int64_t>(view.x.Shown(view.zoom), 1));
    const double height = static_cast<double>(std::max<std::int64_t>(view.y.Shown(view.zoom), 1));
    const double onDevice = std::min(std::min(device.width(), kMostPixels) / width,
        std::min(device.height(), kMostPixels) / height);
    best.zoom = std::min(1.0, onDevice);
    best.x.view = static_cast<std::int64_t>(std::ceil(width * best.zoom));
    best.y.view = static_cast<std::int64_t>(std::ceil(height * best.zoom));
    // The part begins where it began, whatever rounding there is in its middle.
    best.x.centre = view.x.First(view.zoom) + best.x.Half(best.zoom);
    best.y.centre = view.y.First(view.zoom) + best.y.Half(best.zoom);
    return best;
}

void DrawHeader(
    QPainter& painter, const QRectF& page, double pictureTop, std::vector<std::string> lines)
{
    const PrintPageLayout layout(page.size());
    const double room = pictureTop - page.top() - layout.topMargin;
    const auto fitting = static_cast<std::size_t>(
        layout.fontHeight > 0.0 ? std::max(room / layout.fontHeight, 0.0) : 0.0);
    lines.resize(std::min(lines.size(), fitting));
    painter.save();
    painter.translate(page.topLeft());
    DrawHeaderLines(painter, layout, lines);
    painter.restore();
}

} // namespace

void DrawStitchPage(QPainter& painter, const QRectF& page, const StitchPage& content)
{
    const QRectF place = PlaceOnStitchPage(page, content.view);
    if (place.isEmpty())
        return;
    const PictureView view = ViewForDevice(content.view, place.size());
    QImage image(
        static_cast<int>(view.x.view), static_cast<int>(view.y.view), QImage::Format_RGB32);
    if (image.isNull())
        return;
    DrawPicture(content.content, view, image);
    if (content.content.rows && content.content.rows->Channels() == PictureRows::kGray)
        image = image.convertToFormat(QImage::Format_Grayscale8);
    painter.save();
    // Files keep the very pixels, and squares stay squares.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(place, image);
    painter.restore();
    DrawHeader(painter, page, place.top(), content.header);
}

} // namespace vireo
