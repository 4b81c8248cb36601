#include "bench/MeasuredPlot.h"
#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PicturePyramid.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

/// A picture, along its diagonal: the extent is the width of a view that shows all of it.
class PictureBenchPlot : public MeasuredPlot {
public:
    PictureBenchPlot(std::shared_ptr<const PictureRows> rows, unsigned threads)
        : m_rows(std::move(rows)),
          m_threads(threads)
    {
    }

    void SetSize(const QSize& size) override
    {
        m_view = PictureView::Start(m_rows->Width(), m_rows->Height(), size.width(), size.height());
        m_image = QImage(size, QImage::Format_RGB32);
        PrepareFirst();
    }

    void PrepareFirst() override
    {
        m_pyramid.reset();
        m_pyramid = std::make_unique<PicturePyramid>(*m_rows);
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
        DrawPicture(
            {m_rows.get(), m_pyramid.get()}, view.MovedBy(0, 0), m_image, PictureQuality::Fast);
        painter.drawImage(QPoint(0, 0), m_image);
    }

    double Extent() const override
    {
        return static_cast<double>(m_view.x.view) / std::min(m_view.FittingZoom(), 1.0);
    }
    std::int64_t Points() const override { return m_rows->Width() * m_rows->Height(); }

private:
    std::shared_ptr<const PictureRows> m_rows;
    std::unique_ptr<PicturePyramid> m_pyramid;
    unsigned m_threads;
    PictureView m_view;
    QImage m_image; ///< Kept, as the viewer keeps it.
};

} // namespace

LoadedPlot PicturePlotOf(std::shared_ptr<const PictureRows> rows, const BenchSettings& settings)
{
    if (!rows || rows->Width() == 0 || rows->Height() == 0)
        return {nullptr, kNothingToPlot};
    return {std::make_unique<PictureBenchPlot>(std::move(rows), settings.Threads()), {}};
}

} // namespace vireo
