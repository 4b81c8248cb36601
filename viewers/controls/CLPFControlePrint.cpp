// Printing of CLPFControle.

#include "platform/Message.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/PumpMessages.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace vireo {

namespace {

constexpr const char* kDocumentName = "Printing Tqx Test Document";

/// One job of one page; false when the printer cannot take it.
bool PrintJob(QPrinter& printer, const ProfilePage& page)
{
    printer.setDocName(QLatin1String(kDocumentName));
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    DrawProfilePage(painter, QRectF(0.0, 0.0, printer.width(), printer.height()), page);
    return painter.end();
}

} // namespace

void CLPFControle::Print(const std::vector<const CLPFControle*>& companions)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies);
    dialog.setMinMax(1, 1);
    dialog.setFromTo(1, 1);
    if (dialog.exec() != QDialog::Accepted)
        return;
    PumpMessages();
    if (!PrintJob(printer, Page(companions)))
        ShowMessage("Unable to print section", "Printer section", MessageIcon::Exclamation);
}

void CLPFControle::PrintPreview(const std::vector<const CLPFControle*>& companions)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(&printer, this, Qt::Window);
    const ProfilePage page = Page(companions);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
        [&page](QPrinter* target) { PrintJob(*target, page); });
    dialog.exec();
}

} // namespace vireo
