#include "cli/render/ProfileDrawing.h"

#include "cli/FileParts.h"
#include "cli/render/PictureFile.h"
#include "figures/Subject.h"
#include "viewers/controls/ProfilePage.h"
#include "viewers/controls/ProfilePlot.h"

#include <QPainter>

namespace vireo {

namespace {

bool Offers(ShownColour first, bool hasEveryPlane, ShownColour wanted)
{
    // A file of one plane shows it, whoever asks for all.
    if (wanted == ShownColour::All || wanted == first)
        return true;
    return hasEveryPlane && wanted != ShownColour::Gray;
}

} // namespace

std::string TakeProfileChoices(
    const Settings& settings, bool hasEveryPlane, ProfileDrawing& drawing)
{
    FileParts parts;
    parts.lines.reset(); // It was found when the file was opened.
    parts.cameraPixels = drawing.cameras.pixels;
    parts.planes.reset();
    if (std::string refusal = RefuseMissing(settings, parts); !refusal.empty())
        return refusal;
    drawing.camera = settings.camera.value_or(drawing.camera);
    const ShownColour wanted = settings.colour.value_or(drawing.shown);
    if (!Offers(drawing.shown, hasEveryPlane, wanted))
        return "There is no plane " + std::string(ColourName(wanted));
    if (wanted != ShownColour::All || hasEveryPlane)
        drawing.shown = wanted;
    return {};
}

namespace {

ProfilePlotContent PlotOf(const ProfileDrawing& content, const ProfileRequest& request)
{
    return {&content.line, content.shown, content.cameras,
        ComposeScene(request, content.line, content.shown, content.cameras), {}, content.unit};
}

/// The whole line, or the part of it that the zoom leaves in view about its middle.
ProfilePlotContent WholeLine(const ProfileDrawing& content, const Settings& settings)
{
    ProfilePlotContent plot = PlotOf(content, {});
    plot.limits = content.limits;
    ProfileView& view = plot.scene.view;
    view = view.CentredOn(view.first + view.length / 2.0, settings.zoom, content.line.Length());
    return plot;
}

/// One camera from its first pixel to its last, or what the zoom leaves of it about its middle.
ProfilePlotContent OneCamera(const ProfileDrawing& content, const Settings& settings)
{
    ProfilePlotContent plot = PlotOf(content, {});
    const auto start = static_cast<double>(content.cameras.Start(content.camera));
    const auto end = static_cast<double>(content.cameras.End(content.camera));
    const std::int64_t length = content.line.Length();
    plot.scene.view = ProfileView{start, end - start}.Within(length).CentredOn(
        (start + end) / 2.0, settings.zoom, length);
    plot.scene.title = std::string("Camera ") + ProfileCameras::Letter(content.camera);
    return plot;
}

QSizeF SizeOf(const Settings& settings)
{
    const PictureSize size = settings.PlotSize();
    return {static_cast<double>(size.width), static_cast<double>(size.height)};
}

/// The page that the viewer prints.
ProfilePage PageOf(const ProfileDrawing& content, const Settings& settings)
{
    ProfilePage page;
    page.header = content.header;
    page.main = {WholeLine(content, settings), SizeOf(settings)};
    const QSizeF detailSize(SizeOf(settings).width() / 2.0, SizeOf(settings).height());
    for (const ProfileSide side : {ProfileSide::Left, ProfileSide::Right}) {
        ProfilePlotContent detail = PlotOf(content, {ProfileMode::Camera, side, content.camera});
        page.main.content.stretches.push_back({detail.scene.view, side});
        page.companions.push_back({std::move(detail), detailSize});
    }
    return page;
}

} // namespace

std::string WriteProfileDrawing(
    const Subject& subject, const Settings& settings, const ProfileDrawing& content)
{
    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.list = content.header;
    drawing.drawPlot = [&](QPainter& painter) {
        DrawProfilePlot(painter, SizeOf(settings),
            settings.camera ? OneCamera(content, settings) : WholeLine(content, settings));
    };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawProfilePage(painter, page, PageOf(content, settings));
    };
    return WritePicture(drawing, settings);
}

} // namespace vireo
