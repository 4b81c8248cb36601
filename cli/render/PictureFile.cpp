#include "cli/render/PictureFile.h"

#include "figures/LimitsCheck.h"
#include "platform/AtomicFile.h"
#include "viewers/controls/OffscreenPlatform.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <array>

namespace vireo {

std::vector<Limit> LimitsToMark(const Subject& subject, const Settings& settings)
{
    std::vector<Limit> limits;
    if (settings.limitsFile)
        for (const Limit* limit : LimitsFor(subject, *settings.limitsFile))
            limits.push_back(*limit);
    return limits;
}

struct DrawingSession::State {
    std::string name = "vireo-cli";
    std::array<char*, 2> arguments{name.data(), nullptr};
    int count = 1;
    QGuiApplication application{count, arguments.data()};
};

DrawingSession::DrawingSession()
{
    // Pictures are drawn on machines without a display, and never look different for having one.
    UseOffscreenPlatform();
    if (!QCoreApplication::instance())
        m_state = std::make_unique<State>();
}

DrawingSession::~DrawingSession() = default;

namespace {

QSize QSizeOf(PictureSize size)
{
    return {size.width, size.height};
}

bool DrawPng(const Drawing& drawing, const Settings& settings, QBuffer& buffer)
{
    QImage picture(QSizeOf(settings.PlotSize()), QImage::Format_RGB32);
    if (picture.isNull())
        return false;
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing.drawPlot(painter);
    painter.end();
    return picture.save(&buffer, "PNG");
}

bool DrawSvg(const Drawing& drawing, const Settings& settings, QBuffer& buffer)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    // One unit of the plot is one pixel of a browser.
    constexpr int kBrowserDotsPerInch = 96;
    generator.setResolution(kBrowserDotsPerInch);
    generator.setSize(QSizeOf(settings.PlotSize()));
    generator.setViewBox(QRect(QPoint(0, 0), generator.size()));
    generator.setTitle(QString::fromStdString(drawing.title));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    drawing.drawPlot(painter);
    return painter.end();
}

QPageSize::PageSizeId PageSizeOf(PaperSize paper)
{
    switch (paper) {
    case PaperSize::A4:
        return QPageSize::A4;
    case PaperSize::A3:
        return QPageSize::A3;
    case PaperSize::Letter:
        return QPageSize::Letter;
    }
    return QPageSize::A4;
}

} // namespace

void SetUpPdf(QPdfWriter& writer, const Settings& settings, const std::string& title)
{
    writer.setPageSize(QPageSize(PageSizeOf(settings.paper)));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Vireo " VIREO_VERSION));
}

namespace {

bool DrawPdf(const Drawing& drawing, const Settings& settings, QBuffer& buffer)
{
    QPdfWriter writer(&buffer);
    SetUpPdf(writer, settings, drawing.title);
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    drawing.drawPage(painter, QRectF(0.0, 0.0, writer.width(), writer.height()));
    return painter.end();
}

bool Draw(const Drawing& drawing, const Settings& settings, QBuffer& buffer)
{
    switch (settings.format) {
    case PictureFormat::Png:
        return DrawPng(drawing, settings, buffer);
    case PictureFormat::Svg:
        return DrawSvg(drawing, settings, buffer);
    case PictureFormat::Pdf:
        return DrawPdf(drawing, settings, buffer);
    }
    return false;
}

} // namespace

FileStatus WritePicture(const Drawing& drawing, const Settings& settings)
{
    if (settings.target)
        return settings.target->Take(drawing);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !Draw(drawing, settings, buffer))
        return FileStatus::Failed;
    return WriteFileAtomically(
        settings.output, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace vireo
