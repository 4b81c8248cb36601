#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoisePlot.h"

#include <QPainter>

namespace vireo {

namespace {

/// The line of the plane that the viewer begins with.
class NoiseBenchPlot : public MeasuredPlot {
public:
    std::string Load(const std::string& file)
    {
        const NoiseResult result = m_data.Read(PathFromUtf8(file));
        if (result != NoiseResult::Ok)
            return m_data.DescribeFailure(result);
        if (!m_data.ShownPlane())
            return kNothingToPlot;
        m_content.data = &m_data;
        PrepareFirst();
        return {};
    }

    void PrepareFirst() override { m_data.Summarise(); }

    void Draw(QPainter& painter, const QSize& size, double first, double length) override
    {
        m_content.view = {first, length};
        DrawNoisePlot(painter, size, m_content);
    }

    double Extent() const override { return m_data.m_iLineLength; }
    std::int64_t Points() const override { return m_data.m_iLineLength; }

private:
    NoiseData m_data;
    NoisePlotContent m_content;
};

} // namespace

LoadedPlot LoadNoisePlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<NoiseBenchPlot>();
    if (std::string failure = plot->Load(settings.file); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
