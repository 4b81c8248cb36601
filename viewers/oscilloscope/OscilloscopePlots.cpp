#include "viewers/oscilloscope/OscilloscopePlots.h"

#include "platform/AtomicFile.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/CWidthCenter_Control.h"
#include "viewers/oscilloscope/CameraAdjustment.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>

#include <limits>
#include <utility>

namespace vireo {

OscilloscopePlots::OscilloscopePlots(
    CLPFControle& overview, CLPFControle& left, CLPFControle& right, CWidthCenter_Control& gauge)
    : m_plots{&overview, &left, &right},
      m_gauge(gauge)
{
    overview.SetDetails({&left, &right});
}

void OscilloscopePlots::Fit(const OscilloscopeData& data, const OscilloscopeChoices& choices)
{
    m_cameras = data.Cameras();
    m_shown = choices.shown;
    m_iCamera = choices.camera;
    m_detail = ProfileMode::Camera;
    m_bShowsGauge = choices.usesCameraAdjustment;
    m_gauge.setVisible(m_bShowsGauge);
    for (CLPFControle* plot : m_plots)
        plot->SetCameras(m_cameras);
    ZoomAll();
    FitDetails();
}

bool OscilloscopePlots::ShowLine(const OscilloscopeData& data, std::int64_t line)
{
    const bool complete = data.ReadLine(line, m_line);
    for (CLPFControle* plot : m_plots)
        plot->SetLine(&m_line, m_shown);
    ShowDeviation();
    return complete;
}

void OscilloscopePlots::ShowColour(ShownColour shown)
{
    m_shown = shown;
    for (CLPFControle* plot : m_plots)
        plot->SetShownColour(shown);
    ShowDeviation();
}

void OscilloscopePlots::ShowCamera(int camera)
{
    m_iCamera = camera;
    FitDetails();
}

void OscilloscopePlots::ShowDetail(ProfileMode mode)
{
    m_detail = mode;
    FitDetails();
}

void OscilloscopePlots::ZoomAll()
{
    m_plots[0]->ZoomAll();
}

void OscilloscopePlots::FitDetails()
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

void OscilloscopePlots::ShowDeviation()
{
    if (!m_bShowsGauge)
        return;
    constexpr double kFullScaleMm = 100.0;
    // The gauge shows a value that is not a number as not known.
    constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
    const auto deviation = MeasureTargetDeviation(m_line, m_cameras, m_shown)
                               .value_or(TargetDeviation{kUnknown, kUnknown});
    m_gauge.SetLeft(kFullScaleMm, deviation.leftMm);
    m_gauge.SetRight(kFullScaleMm, deviation.rightMm);
}

void OscilloscopePlots::Print(std::vector<std::string> headerLines)
{
    m_plots[0]->SetHeader(std::move(headerLines));
    m_plots[0]->Print({m_plots[1], m_plots[2]});
}

void OscilloscopePlots::PrintPreview(std::vector<std::string> headerLines)
{
    m_plots[0]->SetHeader(std::move(headerLines));
    m_plots[0]->PrintPreview({m_plots[1], m_plots[2]});
}

FileStatus OscilloscopePlots::SavePicture(
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
