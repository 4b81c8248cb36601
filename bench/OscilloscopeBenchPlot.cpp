#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/controls/ProfilePlot.h"
#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <QPainter>

namespace vireo {

namespace {

/// The overview of the first line.
class OscilloscopePlot : public MeasuredPlot {
public:
    std::string Load(const std::string& file)
    {
        OscilloscopeData data;
        const OscilloscopeResult result = data.Read(PathFromUtf8(file));
        if (result != OscilloscopeResult::Ok)
            return data.DescribeFailure(result);
        if (!data.ReadLine(0, m_line) || m_line.Length() == 0)
            return "There is nothing to plot";
        m_content.line = &m_line;
        m_content.shown = ChoicesFor(data, 0).shown;
        m_content.cameras = data.Cameras();
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

} // namespace

LoadedPlot LoadOscilloscopePlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<OscilloscopePlot>();
    if (std::string failure = plot->Load(settings.file); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
