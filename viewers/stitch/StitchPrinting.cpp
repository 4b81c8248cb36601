#include "viewers/stitch/StitchPrinting.h"

#include "platform/Message.h"
#include "viewers/controls/CPicture_Control.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/PrintCommand.h"
#include "viewers/controls/PumpMessages.h"
#include "viewers/stitch/StitchPage.h"

#include <QPainter>
#include <QPrinter>

#include <chrono>
#include <thread>

namespace vireo {

namespace {

constexpr const char* kSection = "Printer Section";

QString WaitText()
{
    return CWait_Dialog::tr("Printing.\nPlease wait.");
}

/// Waits until the picture can be drawn small; false when the user does not want to.
bool WaitForLevels(const CPicture_Control& picture, QWidget* parent)
{
    CWait_Dialog wait(
        QLatin1String(kSection), WaitText(), CWait_Dialog::Cancelling::Offered, parent);
    return wait.Run([&picture](WorkProgress& progress) {
        constexpr std::uint64_t kSteps = 1000;
        progress.SetTotal(kSteps);
        while (const auto built = picture.BuildFraction()) {
            if (progress.IsCancelled())
                return;
            progress.SetDone(static_cast<std::uint64_t>(*built * kSteps));
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
}

bool PrintOn(QPrinter& printer, const CPicture_Control& picture,
    const std::vector<std::string>& header, const char* documentName)
{
    return PrintOnePage(printer, documentName, [&](QPainter& painter, const QRectF& page) {
        DrawStitchPage(painter, page, {picture.Content(), picture.View(), header});
    });
}

} // namespace

void PrintStitch(
    CPicture_Control& picture, const std::vector<std::string>& header, const char* documentName)
{
    QPrinter printer(QPrinter::HighResolution);
    if (!AskForPrinter(printer, &picture) || !WaitForLevels(picture, &picture))
        return;
    CWait_Dialog wait(
        QLatin1String(kSection), WaitText(), CWait_Dialog::Cancelling::NotOffered, &picture);
    wait.show();
    PumpMessages();
    const bool isPrinted = PrintOn(printer, picture, header, documentName);
    wait.hide();
    if (!isPrinted)
        ShowMessage("Unable to print the document", kSection, MessageIcon::Exclamation);
}

void PreviewStitch(
    CPicture_Control& picture, const std::vector<std::string>& header, const char* documentName)
{
    if (!WaitForLevels(picture, &picture))
        return;
    QPrinter printer(QPrinter::HighResolution);
    ShowPrintPreview(printer, &picture,
        [&](QPrinter& target) { PrintOn(target, picture, header, documentName); });
}

} // namespace vireo
