#include "bench/BenchCommand.h"
#include "bench/MeasuredPlot.h"
#include "bench/Timing.h"
#include "figures/Json.h"
#include "viewers/controls/OffscreenPlatform.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace vireo {

namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
constexpr int kZoomSteps = 32;
constexpr int kScrollSteps = 64;

/// A kind whose plot can be measured.
struct PlotRow {
    FileKind kind;
    PictureSize size; ///< When none is given.
    LoadedPlot (*load)(const BenchSettings& settings);
};

constexpr PlotRow kPlots[] = {
    {FileKind::Oscilloscope, {1600, 500}, LoadOscilloscopePlot},
    {FileKind::Mtf, {1600, 500}, LoadOscilloscopePlot},
    {FileKind::Noise, {1600, 500}, LoadNoisePlot},
    {FileKind::LightProfile, {1600, 500}, LoadLightProfilePlot},
    {FileKind::AdjustCenterCcd, {1600, 500}, LoadAdjustCenterPlot},
    {FileKind::VerticalCameraVerification, {1600, 500}, LoadVerticalCameraPlot},
    {FileKind::Tiff, {1600, 1000}, LoadTiffPlot},
    {FileKind::TonalResolution, {1600, 500}, LoadTonalPlot},
    {FileKind::StarTest, {1600, 500}, LoadStarTestPlot},
    {FileKind::Stitch, {1600, 1000}, LoadStitchPlot},
};

/// Draws into a new picture each time, as a control does whose kept picture was dropped.
class Canvas {
public:
    Canvas(MeasuredPlot& plot, PictureSize size) : m_plot(plot), m_size(size.width, size.height) { }

    void Draw(double first, double length) const
    {
        QImage picture(m_size, QImage::Format_RGB32);
        QPainter painter(&picture);
        m_plot.Draw(painter, m_size, first, length);
    }
    void DrawWhole() const { Draw(0.0, m_plot.Extent()); }

    /// Length of the stretch in view at a zoom step: from the whole extent to one unit a pixel, or
    /// the whole extent where it has fewer units; each step zooms by the same factor.
    double LengthAt(int step) const
    {
        const double whole = m_plot.Extent();
        const double closest = std::min(whole, static_cast<double>(m_size.width()));
        return whole * std::pow(closest / whole, step / (kZoomSteps - 1.0));
    }

    double SlowestZoom() const
    {
        std::vector<double> times;
        for (int step = 0; step < kZoomSteps; ++step) {
            const double length = LengthAt(step);
            times.push_back(TimeOf([&] { Draw((m_plot.Extent() - length) / 2.0, length); }));
        }
        return Largest(times);
    }

    double SlowestScroll() const
    {
        const double length = LengthAt(kZoomSteps / 2);
        std::vector<double> times;
        for (int step = 0; step < kScrollSteps; ++step) {
            const double first = (m_plot.Extent() - length) * step / (kScrollSteps - 1.0);
            times.push_back(TimeOf([&] { Draw(first, length); }));
        }
        return Largest(times);
    }

private:
    MeasuredPlot& m_plot;
    QSize m_size;
};

/// The median over the repetitions of a walk's slowest drawing: one hiccup of the machine is not
/// the plot's.
double MedianOfWalks(int repeat, const std::function<double()>& walk)
{
    std::vector<double> slowest;
    for (int i = 0; i < repeat; ++i)
        slowest.push_back(walk());
    return kMillisecondsPerSecond * Median(slowest);
}

FileResult Measure(MeasuredPlot& plot, PictureSize size, int repeat)
{
    UseOffscreenPlatform();
    std::string name = kBenchProgram;
    char* arguments[] = {name.data(), nullptr};
    int count = 1;
    const QGuiApplication application(count, arguments);
    plot.SetSize({size.width, size.height});
    const Canvas canvas(plot, size);
    const auto drawFirst = [&] {
        plot.PrepareFirst();
        canvas.DrawWhole();
    };
    Json object;
    object["first_ms"] = kMillisecondsPerSecond * Median(TimesOf(repeat, drawFirst));
    object["redraw_ms"] =
        kMillisecondsPerSecond * Median(TimesOf(repeat, [&] { canvas.DrawWhole(); }));
    object["zoom_ms"] = MedianOfWalks(repeat, [&] { return canvas.SlowestZoom(); });
    object["scroll_ms"] = MedianOfWalks(repeat, [&] { return canvas.SlowestScroll(); });
    object["points"] = plot.Points();
    object["width"] = size.width;
    object["height"] = size.height;
    return {ToLine(object), {}};
}

FileResult Run(const BenchSettings& settings)
{
    const auto row = std::find_if(std::begin(kPlots), std::end(kPlots),
        [&](const PlotRow& candidate) { return candidate.kind == settings.kind; });
    if (row == std::end(kPlots))
        return {{}, "There is no plot of files of kind " + std::string(KindId(settings.kind))};
    LoadedPlot loaded = row->load(settings);
    if (!loaded.plot)
        return {{}, std::move(loaded.failure)};
    return Measure(*loaded.plot, settings.size.value_or(row->size), settings.repeat);
}

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    command.AddText({"KIND", Presence::Required}, "The kind that the file is read as",
        [&settings](const std::string& id) {
            const auto kind = KindFromId(id);
            settings.kind = kind.value_or(FileKind::Unknown);
            return kind ? "" : "There is no kind " + id;
        });
    AddBenchOptions(command, settings, Presence::Required);
    AddSizeOption(command, "The picture's size in pixels", settings.size);
}

} // namespace

BenchCommand PlotBench()
{
    return {"plot", "The viewer's plot of a file, drawn into a picture", AddOptions, Run};
}

} // namespace vireo
