#include "bench/MeasuredPlot.h"
#include "platform/Path.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/PicturePlot.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace vireo {

namespace {

/// The first page, over which the view moves from its upper left to its lower right corner. The
/// extent is counted in columns; those of a tall picture are as many as the view needs to show it
/// all.
class TiffBenchPlot : public MeasuredPlot {
public:
    std::string Load(const BenchSettings& settings)
    {
        m_threads = settings.Threads();
        ImageResult result = m_data.Open(PathFromUtf8(settings.file));
        if (result == ImageResult::Ok) {
            WorkProgress progress;
            m_data.Load(progress);
            result = m_data.RowsResult();
        }
        if (result != ImageResult::Ok)
            return std::string(Describe(result));
        m_content.picture = m_data.Content();
        m_content.coveredRows = m_data.CoveredRows();
        if (m_data.Cameras())
            m_boundaries = CameraBoundaries(*m_data.Cameras(), m_data.Page().width);
        m_content.boundaries = m_boundaries;
        return {};
    }

    void PrepareFirst() override
    {
        if (m_data.Holding() == PictureHolding::Reduced)
            return; // Its reduced sizes are all there is of it.
        m_pyramid = std::make_unique<PicturePyramid>(*m_content.picture.rows);
        m_pyramid->Build(m_threads);
        m_content.picture.pyramid = m_pyramid.get();
    }

    void Draw(QPainter& painter, const QSize& size, double first, double length) override
    {
        const double columns = length / Extent() * WholeColumns(size);
        const double share = length < Extent() ? first / (Extent() - length) : 0.0;
        m_content.view = ViewOf(size, size.width() / columns, share);
        const QRectF target(QPointF(0.0, 0.0), QSizeF(size));
        DrawPicturePlot(painter, target, m_content, m_canvas, PictureQuality::Fast);
    }

    double Extent() const override { return m_data.Page().width; }
    std::int64_t Points() const override
    {
        return std::int64_t{m_data.Page().width} * m_data.Page().height;
    }

private:
    /// Columns as wide as the view when the whole picture is in it.
    double WholeColumns(const QSize& size) const
    {
        const TifPage& page = m_data.Page();
        const double ofHeight = static_cast<double>(page.height) * size.width() / size.height();
        return std::max(static_cast<double>(page.width), ofHeight);
    }

    PictureView ViewOf(const QSize& size, double zoom, double share) const
    {
        const TifPage& page = m_data.Page();
        PictureView view = PictureView::Start(page.width, page.height, size.width(), size.height());
        view.zoom = zoom >= 1.0 ? std::floor(zoom) : zoom;
        for (PictureAxis* const axis : {&view.x, &view.y}) {
            const std::int64_t hidden = axis->picture - axis->Shown(view.zoom);
            axis->centre =
                axis->Half(view.zoom) + std::llround(share * static_cast<double>(hidden));
        }
        return view.MovedBy(0, 0);
    }

    PictureData m_data;
    unsigned m_threads = 1;
    std::unique_ptr<PicturePyramid> m_pyramid;
    std::vector<CameraBoundary> m_boundaries;
    PicturePlotContent m_content;
    QImage m_canvas;
};

} // namespace

LoadedPlot LoadTiffPlot(const BenchSettings& settings)
{
    auto plot = std::make_unique<TiffBenchPlot>();
    if (std::string failure = plot->Load(settings); !failure.empty())
        return {nullptr, std::move(failure)};
    return {std::move(plot), {}};
}

} // namespace vireo
