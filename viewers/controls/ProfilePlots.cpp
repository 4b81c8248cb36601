#include "viewers/controls/ProfilePlots.h"

#include "platform/AtomicFile.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/CWidthCenter_Control.h"
#include "viewers/controls/TargetDeviation.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>

#include <limits>
#include <utility>

namespace vireo {

ProfilePlots::ProfilePlots(
    CLPFControle& overview, CLPFControle& left, CLPFControle& right, CWidthCenter_Control* gauge)
    : m_plots{&overview, &left, &right},
      m_gauge(gauge)
{
    overview.SetDetails({&left, &right});
}

void ProfilePlots::Fit(const Layout& layout)
{
    m_cameras = layout.cameras;
    m_shown = layout.shown;
    m_iCamera = layout.camera;
    m_detail = ProfileMode::Camera;
    m_bShowsGauge = m_gauge && layout.showsGauge;
    if (m_gauge)
        m_gauge->setVisible(m_bShowsGauge);
    for (CLPFControle* plot : m_plots)
        plot->SetCameras(m_cameras);
    ZoomAll();
    FitDetails();
}

bool ProfilePlots::ShowLine(const std::function<bool(ProfileLine&)>& read)
{
    const bool complete = read(m_line);
    for (CLPFControle* plot : m_plots)
        plot->SetLine(&m_line, m_shown);
    ShowDeviation();
    return complete;
}

void ProfilePlots::SetUnit(const ProfileUnit& unit)
{
    for (CLPFControle* plot : m_plots)
        plot->SetUnit(unit);
}

void ProfilePlots::ShowColour(ShownColour shown)
{
    m_shown = shown;
    for (CLPFControle* plot : m_plots)
        plot->SetShownColour(shown);
    ShowDeviation();
}

void ProfilePlots::ShowCamera(int camera)
{
    m_iCamera = camera;
    FitDetails();
}

void ProfilePlots::ShowDetail(ProfileMode mode)
{
    m_detail = mode;
    FitDetails();
}

void ProfilePlots::ZoomAll()
{
    m_plots[0]->ZoomAll();
}

void ProfilePlots::FitDetails()
{
    constexpr int kZoomStep = 16;
    for (const ProfileSide side : {ProfileSide::Left, ProfileSide::Right}) {
        CLPFControle& plot = *m_plots[side == ProfileSide::Left ? 1 : 2];
        switch (m_detail) {
        case ProfileMode::Overview:
        case ProfileMode::Camera:
            plot.ShowCamera(m_iCamera, side, kZoomStep);
            break;
        case ProfileMode::LightProfile:
            plot.ShowLightProfile(m_iCamera, side);
            break;
        case ProfileMode::ScanWidth:
            plot.ShowScanWidth(m_iCamera, side);
            break;
        case ProfileMode::VerticalPositioning:
            plot.ShowVerticalPositioning(m_iCamera, side);
            break;
        }
    }
}

void ProfilePlots::ShowDeviation()
{
    if (!m_bShowsGauge)
        return;
    constexpr double kFullScaleMm = 100.0;
    // The gauge shows a value that is not a number as not known.
    constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
    const auto deviation = MeasureTargetDeviation(m_line, m_cameras, m_shown)
                               .value_or(TargetDeviation{kUnknown, kUnknown});
    m_gauge->SetLeft(kFullScaleMm, deviation.leftMm);
    m_gauge->SetRight(kFullScaleMm, deviation.rightMm);
}

void ProfilePlots::Print(std::vector<std::string> headerLines)
{
    m_plots[0]->SetHeader(std::move(headerLines));
    m_plots[0]->Print({m_plots[1], m_plots[2]});
}

void ProfilePlots::PrintPreview(std::vector<std::string> headerLines)
{
    m_plots[0]->SetHeader(std::move(headerLines));
    m_plots[0]->PrintPreview({m_plots[1], m_plots[2]});
}

FileStatus ProfilePlots::SavePicture(
    const std::filesystem::path& target, std::vector<std::string> headerLines)
{
    m_plots[0]->SetHeader(std::move(headerLines));
    const ProfilePage page = m_plots[0]->Page({m_plots[1], m_plots[2]});

    // A landscape page at twice the resolution of a screen, so that it can be enlarged.
    constexpr QSize kSize(2376, 1680);
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    DrawProfilePage(painter, QRectF(QPointF(0.0, 0.0), kSize), page);
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG"))
        return FileStatus::Failed;
    return WriteFileAtomically(target, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace vireo
