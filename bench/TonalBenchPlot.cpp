#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/tonal/TonalResolutionPlot.h"

#include <QPainter>

namespace vireo {

namespace {

/// The view that the viewer begins with. It has no zoom: whatever stretch is asked for, the plot is
/// the whole one.
class TonalBenchPlot : public MeasuredPlot {
public:
    std::string Load(const std::string& file)
    {
        const TonalResult result = m_data.Read(PathFromUtf8(file));
        m_content.data = &m_data;
        return m_data.DescribeFailure(result);
    }

    void PrepareFirst() override { }

    void Draw(QPainter& painter, const QSize& size, double, double) override
    {
        painter.fillRect(QRect({0, 0}, size), Qt::white);
        DrawTonalPlot(painter, size, m_content);
    }

    double Extent() const override { return TonalResolutionData::kPatches; }
    std::int64_t Points() const override
    {
        return std::int64_t{TonalResolutionData::kPatches * kTonalChannels};
    }

private:
    TonalResolutionData m_data;
    TonalPlotContent m_content;
};

} // namespace

LoadedPlot LoadTonalPlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<TonalBenchPlot>();
    if (std::string failure = plot->Load(settings.file); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
