#include "viewers/live/ScannerOpening.h"

#include "resources/StringTable.h"
#include "scanner/ScannerChoice.h"
#include "scanner/ScannerReport.h"
#include "viewers/controls/QtText.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace vireo {

namespace {

enum class Answer { TryAgain, Simulate, Leave };

Answer AskAboutFailure(const std::string& reason, bool offersSimulation, QWidget* parent)
{
    QMessageBox box(QMessageBox::Warning,
        QStringFromText(LoadStringResource(StringId::kApplicationTitle)), QStringFromText(reason),
        QMessageBox::Cancel, parent);
    box.setObjectName(QStringLiteral("noScannerBox"));
    box.setTextFormat(Qt::PlainText);
    const QPushButton* again = box.addButton(QObject::tr("&Try Again"), QMessageBox::AcceptRole);
    const QPushButton* simulate = nullptr;
    if (offersSimulation) {
        box.setInformativeText(
            QObject::tr("Without a scanner the test can be tried on a simulated one."));
        simulate = box.addButton(QObject::tr("Use &Simulated Scanner"), QMessageBox::AcceptRole);
    }
    box.exec();
    if (simulate != nullptr && box.clickedButton() == simulate)
        return Answer::Simulate;
    return box.clickedButton() == again ? Answer::TryAgain : Answer::Leave;
}

ScannerFailure OpenByChoice(const ScannerChoice& choice, OpenScanner& opened)
{
    // A scanner may take its time to answer.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ScannerFailure failure = OpenDevice(MakeScanner(choice), opened);
    QApplication::restoreOverrideCursor();
    return failure;
}

} // namespace

std::optional<OpenScanner> OpenChosenScanner(const std::filesystem::path& settings, QWidget* parent)
{
    ScannerChoice choice = ReadScannerChoice(settings);
    for (;;) {
        OpenScanner opened;
        const ScannerFailure failure = OpenByChoice(choice, opened);
        if (!failure)
            return opened;
        const std::string reason = ReportScannerFailure(failure);
        switch (AskAboutFailure(reason, !choice.isSimulated, parent)) {
        case Answer::TryAgain:
            break;
        case Answer::Simulate:
            choice.isSimulated = true;
            KeepSimulated(settings, true);
            break;
        case Answer::Leave:
            return std::nullopt;
        }
    }
}

} // namespace vireo
