#include "viewers/controls/PrintCommand.h"

#include "platform/Message.h"
#include "viewers/controls/PumpMessages.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace vireo {

namespace {
/// Windows has no print dialog without a printer; the one of Linux offers a PDF then.
bool CanAskForPrinter([[maybe_unused]] const QPrinter& printer)
{
#ifdef _WIN32
    return printer.outputFormat() == QPrinter::NativeFormat;
#else
    return true;
#endif
}
} // namespace

bool AskForPrinter(QPrinter& printer, QWidget* parent)
{
    if (!CanAskForPrinter(printer)) {
        ShowMessage("No printer is set up on this computer.\n"
                    "File, Print Preview... saves the page as a PDF.",
            "No printer", MessageIcon::Information);
        return false;
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies);
    dialog.setMinMax(1, 1);
    dialog.setFromTo(1, 1);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    // The screen is whole again before a long print begins.
    PumpMessages();
    return true;
}

bool PrintOnePage(QPrinter& printer, const char* documentName,
    const std::function<void(QPainter& painter, const QRectF& page)>& draw)
{
    printer.setDocName(QLatin1String(documentName));
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    draw(painter, QRectF(0.0, 0.0, printer.width(), printer.height()));
    return painter.end();
}

void ShowPrintPreview(
    QPrinter& printer, QWidget* parent, const std::function<void(QPrinter&)>& print)
{
    QPrintPreviewDialog dialog(&printer, parent, Qt::Window);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
        [&print](QPrinter* target) { print(*target); });
    dialog.exec();
}

void ShowPrintFailure()
{
    ShowMessage("Unable to print section", "Printer section", MessageIcon::Exclamation);
}

} // namespace vireo
