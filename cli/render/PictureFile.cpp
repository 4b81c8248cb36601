#include "cli/render/PictureFile.h"

#include "cli/Output.h"
#include "cli/render/SvgDevice.h"
#include "figures/LimitsCheck.h"
#include "platform/AtomicFile.h"
#include "viewers/adjustment/AdjustmentPage.h"
#include "viewers/controls/OffscreenPlatform.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
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
    QImage picture(QSizeOf(settings.ScaledSize()), QImage::Format_RGB32);
    if (picture.isNull())
        return false;
    picture.setDevicePixelRatio(settings.scale);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing.drawPlot(painter);
    painter.end();
    return picture.save(&buffer, "PNG");
}

bool DrawSvg(const Drawing& drawing, const Settings& settings, QBuffer& buffer)
{
    SvgDevice device(QSizeOf(settings.PlotSize()), QString::fromStdString(drawing.title));
    QPainter painter(&device);
    painter.fillRect(QRect(QPoint(), QSizeOf(settings.PlotSize())), Qt::white);
    drawing.drawPlot(painter);
    painter.end();
    const QByteArray bytes = device.Bytes();
    return buffer.write(bytes) == bytes.size();
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

std::string Write(const Drawing& drawing, const Settings& settings)
{
    if (settings.target)
        return DescribeOutput(settings.output, settings.target->Take(drawing));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    FileStatus status = FileStatus::Failed;
    if (buffer.open(QIODevice::WriteOnly) && Draw(drawing, settings, buffer))
        status = WriteFileAtomically(
            settings.output, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return DescribeOutput(settings.output, status);
}

constexpr double kListMargin = 48.0; ///< Of lists on paper: half an inch.

/// The room for a list in units of the plot's texts: that of the picture, or of the paper within
/// its margins.
QSizeF ListSize(const Settings& settings)
{
    if (settings.format != PictureFormat::Pdf)
        return QSizeOf(settings.PlotSize());
    constexpr double kUnitsPerPoint = 96.0 / 72.0;
    const QSizeF paper = QPageSize::size(PageSizeOf(settings.paper), QPageSize::Point);
    return paper * kUnitsPerPoint - QSizeF(2.0 * kListMargin, 2.0 * kListMargin);
}

/// Writes one page of the drawing's list.
std::string WriteList(const Drawing& drawing, const Settings& settings, int page)
{
    const QSizeF size = ListSize(settings);
    const auto perPage = static_cast<std::size_t>(std::max(TextLinesOf(size), 1));
    const std::size_t pages =
        std::max((drawing.list.size() + perPage - 1) / perPage, std::size_t{1});
    const auto first = static_cast<std::size_t>(page - 1) * perPage;
    if (static_cast<std::size_t>(page) > pages)
        return "The list has " + std::to_string(pages) + (pages == 1 ? " page" : " pages");
    const auto from = drawing.list.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(perPage, drawing.list.size() - first);
    const std::vector<std::string> lines(from, from + static_cast<std::ptrdiff_t>(count));

    Drawing list;
    list.title = drawing.title;
    list.drawPlot = [&](QPainter& painter) { DrawTextLines(painter, size, lines); };
    list.drawPage = [&](QPainter& painter, const QRectF& paper) {
        const double unit = paper.width() / (size.width() + 2.0 * kListMargin);
        painter.scale(unit, unit);
        painter.translate(kListMargin, kListMargin);
        DrawTextLines(painter, size, lines);
    };
    return Write(list, settings);
}

} // namespace

std::string WritePicture(const Drawing& drawing, const Settings& settings)
{
    return settings.listPage ? WriteList(drawing, settings, *settings.listPage)
                             : Write(drawing, settings);
}

} // namespace vireo
