// Printing of CBasicTestControl.

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/PrintCommand.h"
#include "viewers/controls/PrintPageLayout.h"

#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <QScopedValueRollback>

namespace vireo {

namespace {

/// What a device of pages says of itself: the printable area in its pixels.
QSizeF PrintableSize(const QPaintDevice& device)
{
    return {static_cast<double>(device.width()), static_cast<double>(device.height())};
}

} // namespace

void CBasicTestControl::Print()
{
    const QScopedValueRollback printing(m_bPrinting, true);
    MeasureText();
    QPrinter printer(QPrinter::HighResolution);
    if (AskForPrinter(printer, this) && !PrintPages(printer))
        ShowPrintFailure();
}

void CBasicTestControl::PrintPreview()
{
    const QScopedValueRollback printing(m_bPrinting, true);
    MeasureText();
    QPrinter printer(QPrinter::HighResolution);
    ShowPrintPreview(printer, this, [this](QPrinter& target) { PrintDocument(target); });
}

bool CBasicTestControl::PrintPages(QPrinter& printer)
{
    const QScopedValueRollback printing(m_bPrinting, true);
    const QFileInfo file(printer.outputFileName());
    bool isPrinted = true;
    for (int page = PageCount() - 1; page >= 0; --page) {
        if (!printer.outputFileName().isEmpty() && page > 0) {
            printer.setOutputFileName(QStringLiteral("%1/%2-%3.%4")
                                          .arg(file.path(), file.completeBaseName())
                                          .arg(page + 1)
                                          .arg(file.suffix()));
        } else if (!printer.outputFileName().isEmpty()) {
            printer.setOutputFileName(file.filePath());
        }
        isPrinted = PrintJob(printer, page) && isPrinted;
    }
    return isPrinted;
}

bool CBasicTestControl::PrintJob(QPrinter& printer, int pageIndex)
{
    printer.setDocName(QLatin1String(kPrintDocumentName));
    QPainter dc;
    if (!dc.begin(&printer))
        return false;
    PrintPage(dc, PrintableSize(printer), pageIndex);
    return dc.end();
}

bool CBasicTestControl::PrintDocument(QPagedPaintDevice& device)
{
    const QScopedValueRollback printing(m_bPrinting, true);
    QPainter dc;
    if (!dc.begin(&device))
        return false;
    for (int page = PageCount() - 1; page >= 0; --page) {
        PrintPage(dc, PrintableSize(device), page);
        if (page > 0 && !device.newPage())
            return false;
    }
    return dc.end();
}

void CBasicTestControl::PrintPage(QPainter& dc, QSizeF printable, int)
{
    const PrintPageLayout layout(printable);
    const double textBottom = DrawHeaderLines(dc, layout, m_headerLines, ToQColor(m_textColour));
    const QRectF plot = layout.PlotRect(textBottom, QSizeF(m_iWidth, m_iHeight));
    if (plot.isEmpty())
        return;
    // Laid out as on the screen, but drawn with the printer's own lines and characters.
    dc.save();
    dc.translate(plot.topLeft());
    dc.scale(plot.width() / m_iWidth, plot.height() / m_iHeight);
    dc.setClipRect(QRectF(0.0, 0.0, m_iWidth, m_iHeight));
    dc.setFont(font());
    RenderTo(dc, m_iWidth, m_iHeight);
    dc.restore();
}

} // namespace vireo
