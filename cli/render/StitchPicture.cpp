#include "cli/render/StitchPicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/Subject.h"
#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PicturePyramid.h"
#include "viewers/stitch/StitchData.h"
#include "viewers/stitch/StitchPage.h"
#include "viewers/stitch/StitchText.h"

#include <QPainter>

#include <algorithm>
#include <thread>

namespace vireo {

namespace {

PictureView ViewOf(const PictureRows& rows, PictureSize size, const Settings& settings)
{
    const PictureView start =
        PictureView::Start(rows.Width(), rows.Height(), size.width, size.height);
    if (settings.isWhole)
        return start.Fitted();
    // About the point that the viewer begins with, not about what the edges have made of it.
    PictureView view = start;
    view.zoom = std::min<double>(settings.zoom, PictureView::kLargestZoom);
    view.x.centre = rows.Width() / 2;
    view.y.centre = rows.Height() / 3;
    return view.MovedBy(0, 0);
}

/// Draws into a rectangle of the size in the painter's units.
void DrawView(
    QPainter& painter, PictureSize size, const PictureContent& content, const PictureView& view)
{
    QImage image(
        static_cast<int>(view.x.view), static_cast<int>(view.y.view), QImage::Format_RGB32);
    if (image.isNull())
        return;
    DrawPicture(content, view, image);
    painter.drawImage(QRectF(0.0, 0.0, size.width, size.height), image);
}

} // namespace

std::string RenderStitch(const Subject& subject, const Settings& settings)
{
    StitchData data;
    if (const StitchResult result = data.Read(subject.path); result != StitchResult::Ok)
        return data.DescribeFailure(result);
    FileParts parts;
    parts.lines = data.Picture()->Height();
    parts.planes = {ShownColour::Gray};
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    constexpr PictureSize kDefaultSize{1600, 1000};
    Settings sized = settings;
    sized.givenSize = settings.givenSize.value_or(kDefaultSize);
    const PictureView view = ViewOf(*data.Picture(), sized.ScaledSize(), settings);

    PicturePyramid pyramid(*data.Picture());
    // Zooms of whole numbers are drawn from the picture itself, unless paper has fewer dots.
    if (view.zoom < 1.0)
        pyramid.Build(std::max(std::thread::hardware_concurrency(), 1U));
    const PictureContent content{data.Picture().get(), &pyramid};

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = StitchHeaderLines(data);
    drawing.drawPlot = [&](QPainter& painter) {
        DrawView(painter, *sized.givenSize, content, view);
    };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawStitchPage(painter, page, {content, view, StitchHeaderLines(data)});
    };
    return WritePicture(drawing, sized);
}

} // namespace vireo
