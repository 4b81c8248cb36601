#include "cli/render/OscilloscopePicture.h"

#include "cli/Output.h"
#include "cli/json/OscilloscopeJson.h"
#include "cli/render/PictureFile.h"
#include "viewers/controls/ProfilePage.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"
#include "viewers/oscilloscope/OscilloscopeText.h"

#include <QPainter>

namespace vireo {

namespace {

/// What is drawn of a file: one line, with the choices that the settings make.
struct Content {
    ProfileLine line;
    ProfileCameras cameras;
    ShownColour shown = ShownColour::Green;
    int camera = 0;
};

bool Offers(const OscilloscopeChoices& offered, ShownColour wanted)
{
    // A file of one plane shows it, whoever asks for all.
    if (wanted == ShownColour::All)
        return true;
    if (offered.isGray)
        return wanted == ShownColour::Gray;
    return wanted == ShownColour::Green || (offered.hasEveryPlane && wanted != ShownColour::Gray);
}

/// Takes the choices of the settings; gives the reason when the file has not got them.
std::string TakeChoices(
    const OscilloscopeChoices& offered, const Settings& settings, Content& content)
{
    content.camera = settings.camera.value_or(offered.camera);
    if (settings.camera && content.cameras.pixels[static_cast<std::size_t>(content.camera)] <= 0)
        return std::string("There is no camera ") + ProfileCameras::Letter(content.camera);
    content.shown = settings.colour.value_or(offered.shown);
    if (!Offers(offered, content.shown))
        return "There is no plane " + std::string(ColourName(content.shown));
    if (content.shown == ShownColour::All && !offered.hasEveryPlane)
        content.shown = offered.shown;
    return {};
}

std::string ReadContent(
    const Subject& subject, const Settings& settings, OscilloscopeData& data, Content& content)
{
    if (std::string failure = OpenOscilloscope(subject, settings.line, data); !failure.empty())
        return failure;
    constexpr int kNoCameraBefore = 0;
    content.cameras = data.Cameras();
    std::string refusal = TakeChoices(ChoicesFor(data, kNoCameraBefore), settings, content);
    if (refusal.empty() && !data.ReadLine(settings.line, content.line))
        return "The data cannot be read to their end";
    return refusal;
}

ProfilePlotContent PlotOf(const Content& content, const ProfileRequest& request)
{
    return {&content.line, content.shown, content.cameras,
        ComposeScene(request, content.line, content.shown, content.cameras), {}};
}

/// The whole line, or the part of it that the zoom leaves in view about its middle.
ProfilePlotContent WholeLine(const Content& content, const Settings& settings)
{
    ProfilePlotContent plot = PlotOf(content, {});
    ProfileView& view = plot.scene.view;
    view = view.CentredOn(view.first + view.length / 2.0, settings.zoom, content.line.Length());
    return plot;
}

/// One camera from its first pixel to its last, or what the zoom leaves of it about its middle.
ProfilePlotContent OneCamera(const Content& content, const Settings& settings)
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
ProfilePage PageOf(
    const Content& content, const Settings& settings, std::vector<std::string> header)
{
    ProfilePage page;
    page.header = std::move(header);
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

std::string RenderOscilloscope(const Subject& subject, const Settings& settings)
{
    OscilloscopeData data;
    Content content;
    if (std::string failure = ReadContent(subject, settings, data, content); !failure.empty())
        return failure;

    const DrawingSession session;
    Drawing drawing;
    drawing.title = subject.name;
    drawing.drawPlot = [&](QPainter& painter) {
        DrawProfilePlot(painter, SizeOf(settings),
            settings.camera ? OneCamera(content, settings) : WholeLine(content, settings));
    };
    drawing.drawPage = [&](QPainter& painter, const QRectF& page) {
        DrawProfilePage(
            painter, page, PageOf(content, settings, PrintedHeaderLines(data, content.shown)));
    };
    return DescribeOutput(settings.output, WritePicture(drawing, settings));
}

} // namespace vireo
