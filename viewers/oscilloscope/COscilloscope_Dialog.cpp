#include "viewers/oscilloscope/COscilloscope_Dialog.h"

#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "ui_COscilloscope_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/oscilloscope/OscilloscopeText.h"

#include <QPaintEvent>
#include <QStyle>

#include <array>

namespace vireo {

COscilloscope_Dialog::COscilloscope_Dialog(const std::filesystem::path& fileOrFolder,
    bool bUseHPDirectory, ViewerHost& host, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::COscilloscope_Dialog>()),
      m_host(host),
      m_path(fileOrFolder),
      m_bUseHPDirectory(bUseHPDirectory),
      m_timer(this)
{
    m_timer.setObjectName(QStringLiteral("lineTimer"));
    m_ui->setupUi(this);
    m_plots = std::make_unique<ProfilePlots>(
        *m_ui->overviewPlot, *m_ui->leftPlot, *m_ui->rightPlot, m_ui->widthGauge);
    SetUpControls();
    SetUpCommands();
    OnInitDialog();
}

COscilloscope_Dialog::~COscilloscope_Dialog()
{
    // A field that loses the focus reports its value: while there is somebody to hear it.
    hide();
}

void COscilloscope_Dialog::SetUpControls()
{
    m_ui->overviewPlot->SetScrollBar(m_ui->overviewScroll);
    m_ui->leftPlot->SetScrollBar(m_ui->leftScroll);
    m_ui->rightPlot->SetScrollBar(m_ui->rightScroll);
    // The keys belong to the plots until somebody walks to another control.
    m_ui->overviewPlot->setFocusPolicy(Qt::StrongFocus);
    m_ui->overviewPlot->setFocus();
    m_ui->widthGauge->Initialise();
    m_ui->widthGauge->setToolTip(
        tr("Margins beside the target, compared with those of a target in the middle (mm)"));
    m_ui->saveButton->hide();
    m_ui->focusText->hide();
    const QStyle& icons = *style();
    m_ui->previousButton->setIcon(icons.standardIcon(QStyle::SP_MediaSkipBackward));
    m_ui->holdButton->setIcon(icons.standardIcon(QStyle::SP_MediaPause));
    m_ui->nextButton->setIcon(icons.standardIcon(QStyle::SP_MediaSkipForward));
}

void COscilloscope_Dialog::OnInitDialog()
{
    Log_Msg("COscilloscope_Dialog::OnInitDialog() ");
    CViewerDialog::OnInitDialog();
    SetUpMenus();
    Log_Msg("COscilloscope_Dialog::OnInitDialog() 6");
    if (m_bUseHPDirectory) {
        Log_Msg("COscilloscope_Dialog::OnInitDialog() m_bUseHPDirectory==true");
        ReadFolder();
    } else {
        m_ui->folderGroup->hide();
        ReadFile();
    }
    Log_Msg("COscilloscope_Dialog::OnInitDialog() 7");
    FitDialogToFile();
    Log_Msg("COscilloscope_Dialog::OnInitDialog() 8");
    // Loading is left to the menu.
    m_ui->loadButton->hide();
    Log_Msg("COscilloscope_Dialog::OnInitDialog() 9");
}

int COscilloscope_Dialog::exec()
{
    return m_bHandedOver ? static_cast<int>(Rejected) : CViewerDialog::exec();
}

void COscilloscope_Dialog::setVisible(bool visible)
{
    CViewerDialog::setVisible(visible && !m_bHandedOver);
}

void COscilloscope_Dialog::ReadFolder()
{
    m_loadAction->setEnabled(false);
    m_ui->loadButton->setEnabled(false);
    m_ui->lightProfileGroup->hide();
    m_ui->folderGroup->show();
    m_entries = ListOscilloscopeFolder(m_path);
    m_ui->changeButton->setEnabled(!m_entries.empty());
    m_ui->folderText->setText(tr("No oscilloscope files"));
    if (!m_entries.empty())
        ReadEntry(0);
}

void COscilloscope_Dialog::ReadEntry(std::size_t index)
{
    m_entry = index;
    m_path = m_entries[index].path;
    m_ui->folderText->setText(QStringFromText(m_entries[index].Description()));
    ReadFile();
}

/// Reads m_path and tells what it lacks. What cannot be read leaves an empty plot.
void COscilloscope_Dialog::ReadFile()
{
    Log_Msg("bool COscilloscope_Dialog::ReadFile()");
    Log_Msg(TextFromQString(QStringFromPath(m_path)));
    m_timer.stop();
    const OscilloscopeResult result = m_data.Read(m_path);
    m_bLoaded = result == OscilloscopeResult::Ok;
    switch (result) {
    case OscilloscopeResult::Ok:
        TellMissingItems();
        break;
    case OscilloscopeResult::IsNoiseTest:
        HandOver("CNCTest_Dialog");
        break;
    case OscilloscopeResult::IsLightProfile:
        HandOver("CView_LPF_Dialog");
        break;
    case OscilloscopeResult::IsKitbag:
        // In a folder it is one that has been unpacked, or came out of another.
        if (m_bUseHPDirectory)
            TellFailure(result);
        else
            OpenKitbag();
        break;
    case OscilloscopeResult::CantOpen:
    case OscilloscopeResult::WrongKind:
    case OscilloscopeResult::BadHeader:
        TellFailure(result);
        break;
    }
}

void COscilloscope_Dialog::HandOver(std::string_view viewer)
{
    hide();
    m_host.OpenViewer(viewer, m_path, parentWidget());
    Close();
}

/// There is nothing to show: a dialog that still is to be run ends at once.
void COscilloscope_Dialog::Close()
{
    m_bHandedOver = true;
    reject();
}

void COscilloscope_Dialog::TellMissingItems()
{
    for (const std::string& item : m_data.MissingItems())
        ShowMessage(MissingInformation(item));
}

void COscilloscope_Dialog::TellFailure(OscilloscopeResult result)
{
    RefuseFile(m_path, m_data.DescribeFailure(result));
}

std::filesystem::path COscilloscope_Dialog::ShownFile() const
{
    return m_bLoaded ? m_data.Path() : std::filesystem::path();
}

/// Unpacks m_path and goes over to the files of its folder.
void COscilloscope_Dialog::OpenKitbag()
{
    // A hidden QDialog would end its modal run; this one goes on after the message.
    QWidget::setVisible(false);
    ShowMessage("This is a Kitbag packed file,\nand it will now be unpacked.");
    const bool unpacked = m_host.UnpackDump(m_path, parentWidget());
    if (unpacked) {
        m_bUseHPDirectory = true;
        m_path = FolderOf(m_path);
        ReadFolder();
    } else if (!m_bDrawingReady) {
        Close();
    }
    if (m_bDrawingReady && !m_bHandedOver)
        QWidget::setVisible(true);
}

void COscilloscope_Dialog::FitDialogToFile()
{
    const OscilloscopeChoices choices =
        ChoicesFor(m_data, m_bUseHPDirectory ? 0 : m_plots->Camera());
    FitColours(choices);
    FitCameras(choices);
    FitDetailModes(choices);
    m_ui->uncorrectedCheck->setChecked(!m_data.m_bCorrected);
    m_ui->correctedCheck->setChecked(m_data.m_bCorrected);
    m_plots->Fit({m_data.Cameras(), choices.shown, choices.camera, choices.usesCameraAdjustment});
    ShowFileName();
    StartAnimation();
    ShowLine();
}

void COscilloscope_Dialog::ShowFileName()
{
    const QString scanner = QStringFromText(m_data.m_ScannerName);
    const QString name = QStringFromPath(m_data.Path().filename());
    m_ui->fileText->setText(scanner.isEmpty() ? name : name + QStringLiteral(" \u2013 ") + scanner);
    m_ui->fileText->setToolTip(QStringFromPath(m_data.Path()));
}

QRadioButton& COscilloscope_Dialog::ColourButton(ShownColour shown) const
{
    switch (shown) {
    case ShownColour::Red:
        return *m_ui->redButton;
    case ShownColour::Blue:
        return *m_ui->blueButton;
    case ShownColour::All:
        return *m_ui->allButton;
    case ShownColour::Green:
    case ShownColour::Gray:
        break;
    }
    return *m_ui->greenButton;
}

void COscilloscope_Dialog::FitColours(const OscilloscopeChoices& choices)
{
    m_ui->greenButton->setText(choices.isGray ? tr("Gray") : tr("&Green"));
    for (const ShownColour shown : {ShownColour::Red, ShownColour::Blue, ShownColour::All}) {
        ColourButton(shown).setVisible(!choices.isGray);
        ColourButton(shown).setEnabled(choices.hasEveryPlane);
    }
    ColourButton(choices.shown).setChecked(true);
}

QRadioButton& COscilloscope_Dialog::CameraButton(int camera) const
{
    const std::array<QRadioButton*, ProfileCameras::kCameras> buttons{m_ui->cameraAButton,
        m_ui->cameraBButton, m_ui->cameraCButton, m_ui->cameraDButton, m_ui->cameraEButton,
        m_ui->cameraFButton, m_ui->cameraGButton, m_ui->cameraHButton};
    return *buttons[static_cast<std::size_t>(camera)];
}

void COscilloscope_Dialog::FitCameras(const OscilloscopeChoices& choices)
{
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera)
        CameraButton(camera).setVisible(choices.cameras[static_cast<std::size_t>(camera)]);
    m_ui->cameraGroup->setVisible(choices.hasCameras);
    CameraButton(choices.camera).setChecked(true);
}

void COscilloscope_Dialog::FitDetailModes(const OscilloscopeChoices& choices)
{
    m_ui->lightProfileButton->setText(
        choices.usesCameraAdjustment ? tr("Camera Adjustment") : tr("Lig&ht Profile"));
    m_ui->scanWidthButton->setVisible(!choices.usesCameraAdjustment);
    m_ui->verticalPositioningButton->setVisible(!choices.usesCameraAdjustment);
    m_ui->normalButton->setChecked(true);
}

void COscilloscope_Dialog::StartAnimation()
{
    m_animation.Restart(m_data.LineCount());
    const bool hasSeveralLines = m_animation.HasSeveralLines();
    m_ui->linesGroup->setVisible(hasSeveralLines);
    m_ui->holdButton->setChecked(false);
    m_ui->showFocusCheck->setChecked(false);
    if (hasSeveralLines)
        m_timer.start(m_animation.PauseMs());
    else
        m_timer.stop();
}

void COscilloscope_Dialog::ShowLine()
{
    const bool complete = m_plots->ShowLine(
        [this](ProfileLine& line) { return m_data.ReadLine(m_animation.CurrentLine(), line); });
    m_ui->lineText->setText(
        QStringFromText(LineText(m_animation.CurrentLine(), m_animation.LineCount())));
    ShowFocus();
    ShownFileChanged(m_animation.CurrentLine());
    if (complete)
        return;
    // Somebody has shortened the file; told where it does not stop the user every 100 ms.
    m_timer.stop();
    m_ui->cursorText->setText(tr("This line can no longer be read from the file."));
}

void COscilloscope_Dialog::ShowLimits(const std::vector<Limit>& limits)
{
    m_ui->overviewPlot->SetLimits(limits);
}

void COscilloscope_Dialog::ShowFocus()
{
    const bool shows = m_animation.HasSeveralLines() && m_ui->showFocusCheck->isChecked();
    m_ui->focusText->setVisible(shows);
    if (shows)
        m_ui->focusText->setText(
            QStringFromText(FocusText(m_plots->Line(), m_plots->Cameras(), m_plots->Shown())));
}

void COscilloscope_Dialog::ShowCursor(const std::optional<CursorReading>& reading, bool isOverview)
{
    m_ui->positionText->setText(
        reading && isOverview ? QStringFromText(PositionText(*reading)) : QString());
    m_ui->cursorText->setText(reading
            ? QStringFromText(CursorText(*reading, m_plots->Line(), m_plots->Shown()))
            : QString());
}

void COscilloscope_Dialog::paintEvent(QPaintEvent* event)
{
    m_bDrawingReady = true;
    CViewerDialog::paintEvent(event);
}

} // namespace vireo
