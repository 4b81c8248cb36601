#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestPlot.h"

#include <QPainter>

namespace vireo {

namespace {

/// The sweep that the viewer begins with, with every curve that it has.
class StarTestPlot : public MeasuredPlot {
public:
    std::string Load(const std::string& file)
    {
        const StarTestResult result = m_data.Read(PathFromUtf8(file));
        if (result != StarTestResult::Ok)
            return m_data.DescribeFailure(result);
        FillCurves(m_data, m_curves);
        if (m_curves.Points() == 0)
            return "There is nothing to plot";
        m_content.data = &m_data;
        m_content.plot.curves = &m_curves;
        CurveSlots::Visibility all;
        all.fill(true);
        m_curves.SetVisible(all);
        PrepareFirst();
        return {};
    }

    void PrepareFirst() override
    {
        m_curves.Summarise();
        m_content.plot.scale =
            VerticalScale::Fitting(m_curves.RangeIn(ProfileView::Whole(m_curves.Points())));
    }

    void Draw(QPainter& painter, const QSize& size, double first, double length) override
    {
        m_content.plot.view = {first, length};
        DescribePlot(m_data, m_content.plot);
        DrawStarTestPicture(painter, size, m_content);
    }

    double Extent() const override { return static_cast<double>(m_curves.Points()); }

    std::int64_t Points() const override
    {
        std::int64_t points = 0;
        for (const CurveSlot& slot : m_curves.All())
            points += std::ssize(slot.values);
        return points;
    }

private:
    StarTestData m_data;
    CurveSlots m_curves;
    StarTestPlotContent m_content;
};

} // namespace

LoadedPlot LoadStarTestPlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<StarTestPlot>();
    if (std::string failure = plot->Load(settings.file); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
