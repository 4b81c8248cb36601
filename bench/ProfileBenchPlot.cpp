#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/adjustment/AdjustmentData.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/lightprofile/LightProfileData.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <QPainter>

namespace vireo {

namespace {

/// The overview of a file's first line.
class ProfileMeasuredPlot : public MeasuredPlot {
public:
    /// Takes a line that is read by `read`; gives the reason when there is nothing in it.
    template <typename Read>
    std::string Take(const Read& read, ShownColour shown, const ProfileCameras& cameras)
    {
        if (!read(m_line) || m_line.Length() == 0)
            return kNothingToPlot;
        m_content.line = &m_line;
        m_content.shown = shown;
        m_content.cameras = cameras;
        PrepareFirst();
        return {};
    }

    void PrepareFirst() override
    {
        m_line.Summarise();
        m_content.scene = ComposeScene({}, m_line, m_content.shown, m_content.cameras);
    }

    void Draw(QPainter& painter, const QSize& size, double first, double length) override
    {
        m_content.scene.view = {first, length};
        DrawProfilePlot(painter, size, m_content);
    }

    double Extent() const override { return static_cast<double>(m_line.Length()); }
    std::int64_t Points() const override { return m_line.Length(); }

private:
    ProfileLine m_line;
    ProfilePlotContent m_content;
};

LoadedPlot Loaded(std::unique_ptr<ProfileMeasuredPlot> plot, std::string failure)
{
    if (!failure.empty())
        plot.reset();
    return {std::move(plot), std::move(failure)};
}

LoadedPlot LoadAdjustmentPlot(const BenchSettings& settings, AdjustmentKind kind)
{
    AdjustmentData data;
    const AdjustmentResult result = data.Read(PathFromUtf8(settings.file), kind, true);
    if (result != AdjustmentResult::Ok)
        return {nullptr, data.DescribeFailure(result)};
    if (data.DataForm() == AdjustmentData::Form::Picture)
        return PicturePlotOf(data.Picture(), settings);
    if (data.DataForm() != AdjustmentData::Form::Profile)
        return {nullptr, kNothingToPlot};
    auto plot = std::make_unique<ProfileMeasuredPlot>();
    std::string failure =
        plot->Take([&](ProfileLine& line) { return data.Lines().ReadLine(0, line); },
            data.FirstShown(), data.Cameras());
    return Loaded(std::move(plot), std::move(failure));
}

} // namespace

LoadedPlot LoadOscilloscopePlot(const BenchSettings& settings)
{
    OscilloscopeData data;
    const OscilloscopeResult result = data.Read(PathFromUtf8(settings.file));
    if (result != OscilloscopeResult::Ok)
        return {nullptr, data.DescribeFailure(result)};
    auto plot = std::make_unique<ProfileMeasuredPlot>();
    std::string failure = plot->Take([&](ProfileLine& line) { return data.ReadLine(0, line); },
        ChoicesFor(data, 0).shown, data.Cameras());
    return Loaded(std::move(plot), std::move(failure));
}

LoadedPlot LoadAdjustCenterPlot(const BenchSettings& settings)
{
    return LoadAdjustmentPlot(settings, AdjustmentKind::AdjustCenterCcd);
}

LoadedPlot LoadVerticalCameraPlot(const BenchSettings& settings)
{
    return LoadAdjustmentPlot(settings, AdjustmentKind::VerticalCameraVerification);
}

LoadedPlot LoadLightProfilePlot(const BenchSettings& settings)
{
    LightProfileData data;
    const LightProfileResult result = data.Read(PathFromUtf8(settings.file));
    if (result != LightProfileResult::Ok)
        return {nullptr, data.DescribeFailure(result)};
    auto plot = std::make_unique<ProfileMeasuredPlot>();
    std::string failure =
        plot->Take([&](ProfileLine& line) { return data.Lines().ReadLine(0, line); },
            data.FirstShown(), data.Cameras());
    return Loaded(std::move(plot), std::move(failure));
}

} // namespace vireo
