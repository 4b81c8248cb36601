#include "viewers/controls/PrintCommand.h"

#include "platform/Message.h"
#include "viewers/controls/PumpMessages.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace vireo {

bool AskForPrinter(QPrinter& printer, QWidget* parent)
{
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
