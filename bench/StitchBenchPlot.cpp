#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PicturePyramid.h"
#include "viewers/stitch/StitchData.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <thread>

namespace vireo {

namespace {

/// The picture, along its diagonal: the extent is the width of a view that shows all of it.
class StitchBenchPlot : public MeasuredPlot {
public:
    std::string Load(const BenchSettings& settings)
    {
        m_threads = settings.threads > 0 ? static_cast<unsigned>(settings.threads)
                                         : std::max(std::thread::hardware_concurrency(), 1U);
        const StitchResult result = m_data.Read(PathFromUtf8(settings.file));
        if (result != StitchResult::Ok)
            return m_data.DescribeFailure(result);
        if (Points() == 0)
            return "There is nothing to plot";
        return {};
    }

    void SetSize(const QSize& size) override
    {
        m_view = PictureView::Start(Rows().Width(), Rows().Height(), size.width(), size.height());
        m_image = QImage(size, QImage::Format_RGB32);
        PrepareFirst();
    }

    void PrepareFirst() override
    {
        m_pyramid.reset();
        m_pyramid = std::make_unique<PicturePyramid>(Rows());
        m_pyramid->Build(m_threads);
    }

    void Draw(QPainter& painter, const QSize& size, double first, double length) override
    {
        const double zoom = static_cast<double>(size.width()) / length;
        PictureView view = m_view;
        view.zoom = zoom >= 1.0 ? std::floor(zoom) : zoom;
        const double place = (first + length / 2.0) / Extent();
        view.x.centre = static_cast<std::int64_t>(place * static_cast<double>(view.x.picture));
        view.y.centre = static_cast<std::int64_t>(place * static_cast<double>(view.y.picture));
        DrawPicture({&Rows(), m_pyramid.get()}, view.MovedBy(0, 0), m_image, PictureQuality::Fast);
        painter.drawImage(QPoint(0, 0), m_image);
    }

    double Extent() const override
    {
        return static_cast<double>(m_view.x.view) / std::min(m_view.FittingZoom(), 1.0);
    }
    std::int64_t Points() const override { return Rows().Width() * Rows().Height(); }

private:
    const PictureRows& Rows() const { return *m_data.Picture(); }

    StitchData m_data;
    std::unique_ptr<PicturePyramid> m_pyramid;
    unsigned m_threads = 1;
    PictureView m_view;
    QImage m_image; ///< Kept, as the viewer keeps it.
};

} // namespace

LoadedPlot LoadStitchPlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<StitchBenchPlot>();
    if (std::string failure = plot->Load(settings); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
