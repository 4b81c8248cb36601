#include "cli/render/TiffPicture.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/Subject.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/PicturePlot.h"
#include "viewers/picture/PictureText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <thread>

namespace vireo {

namespace {

FileParts PartsOf(const PictureData& data)
{
    using enum ShownColour;
    FileParts parts;
    parts.lines = data.Page().height;
    std::ranges::copy(data.Cameras().value_or(CameraCounts{}), parts.cameraPixels.begin());
    const ColorDepth depth = data.Page().depth;
    const bool isGray =
        depth == ColorDepth::Bilevel || depth == ColorDepth::Gray8 || depth == ColorDepth::Gray16;
    parts.planes = isGray ? std::vector{Gray} : std::vector{Red, Green, Blue};
    return parts;
}

std::string LoadPicture(const Subject& subject, const Settings& settings, PictureData& data)
{
    if (const ImageResult result = data.Open(subject.path); result != ImageResult::Ok)
        return std::string(Describe(result));
    if (std::string refusal = RefuseMissing(settings, PartsOf(data)); !refusal.empty())
        return refusal;
    WorkProgress progress;
    data.Load(progress, std::max(std::thread::hardware_concurrency(), 1U));
    return std::string(Describe(data.RowsResult()));
}

/// The whole picture, so many times as large about its middle.
PictureView ViewOf(const TifPage& page, PictureSize size, int times)
{
    PictureView view =
        PictureView::Start(page.width, page.height, size.width, size.height).Fitted();
    const double zoom = std::min(view.zoom * times, PictureView::kLargestZoom);
    view.zoom = zoom >= 1.0 ? std::round(zoom) : zoom;
    view.x.centre = page.width / 2;
    view.y.centre = page.height / 2;
    return view.MovedBy(0, 0);
}

} // namespace

std::string RenderTiff(const Subject& subject, const Settings& settings)
{
    PictureData data;
    if (std::string failure = LoadPicture(subject, settings, data); !failure.empty())
        return failure;
    std::vector<CameraBoundary> boundaries;
    if (data.Cameras())
        boundaries = CameraBoundaries(*data.Cameras(), data.Page().width);
    constexpr PictureSize kDefaultSize{1600, 1000};
    Settings sized = settings;
    sized.givenSize = settings.givenSize.value_or(kDefaultSize);
    const PictureSize size = *sized.givenSize;
    PicturePlotContent content;
    content.picture = data.Content();
    content.view = ViewOf(data.Page(), sized.ScaledSize(), settings.zoom);
    content.unit = static_cast<double>(content.view.x.view) / size.width;
    content.coveredRows = data.CoveredRows();
    content.boundaries = boundaries;

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = PictureHeaderLines(data);
    drawing.drawPlot = [&](QPainter& painter) {
        QImage canvas;
        DrawPicturePlot(painter, QRectF(0.0, 0.0, size.width, size.height), content, canvas);
    };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawPicturePage(painter, page, PictureHeaderLines(data), content);
    };
    return WritePicture(drawing, sized);
}

} // namespace vireo
