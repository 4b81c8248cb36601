#include "platform/Message.h"
#include "ui_COscilloscope_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/oscilloscope/CSelectionList_Dialog.h"
#include "viewers/oscilloscope/OscilloscopeExport.h"
#include "viewers/oscilloscope/OscilloscopeText.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <utility>

// The commands of the oscilloscope viewer. What leads to them is connected here, too.

namespace vireo {

void COscilloscope_Dialog::SetUpCommands()
{
    for (const ShownColour shown :
        {ShownColour::Red, ShownColour::Green, ShownColour::Blue, ShownColour::All})
        connect(
            &ColourButton(shown), &QRadioButton::clicked, this, [this, shown] { OnColour(shown); });
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera)
        connect(&CameraButton(camera), &QRadioButton::clicked, this,
            [this, camera] { OnCamera(camera); });
    const std::pair<QRadioButton*, ProfileMode> modes[] = {
        {m_ui->normalButton, ProfileMode::Camera},
        {m_ui->lightProfileButton, ProfileMode::LightProfile},
        {m_ui->scanWidthButton, ProfileMode::ScanWidth},
        {m_ui->verticalPositioningButton, ProfileMode::VerticalPositioning}};
    for (const auto& [button, mode] : modes)
        connect(button, &QRadioButton::clicked, this, [this, mode = mode] { OnDetail(mode); });

    const std::pair<QAbstractButton*, Command> commands[] = {
        {m_ui->zoomAllButton, &COscilloscope_Dialog::OnZoomAll},
        {m_ui->printButton, &COscilloscope_Dialog::OnPrint},
        {m_ui->loadButton, &COscilloscope_Dialog::OnLoad},
        {m_ui->changeButton, &COscilloscope_Dialog::OnChange},
        {m_ui->showFocusCheck, &COscilloscope_Dialog::OnShowFocus},
        {m_ui->holdButton, &COscilloscope_Dialog::OnHold}};
    for (const auto& [button, command] : commands)
        connect(button, &QAbstractButton::clicked, this, command);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(m_ui->previousButton, &QAbstractButton::clicked, this, [this] { OnStep(-1); });
    connect(m_ui->nextButton, &QAbstractButton::clicked, this, [this] { OnStep(1); });
    connect(m_ui->pauseSpin, &QSpinBox::valueChanged, this, &COscilloscope_Dialog::OnPauseEdited);
    connect(&m_timer, &QTimer::timeout, this, &COscilloscope_Dialog::OnTimer);

    for (CLPFControle* plot : m_plots->All())
        connect(plot, &CLPFControle::CursorMoved, this,
            [this, plot](const auto& reading) { ShowCursor(reading, plot == m_ui->overviewPlot); });
}

void COscilloscope_Dialog::SetUpMenus()
{
    using Dialog = COscilloscope_Dialog;
    m_loadAction = MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad);
    AddToFileMenu(m_loadAction);
    TakeDroppedFiles([this](const std::filesystem::path& file) { LoadFile(file); });
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Line..."), tr("Ctrl+E"), this, &Dialog::OnExportLine);
    AddContentCommand(tr("&Save Picture..."), tr("Ctrl+Shift+S"), this, &Dialog::OnSavePicture);
    NeedsContent(m_ui->printButton);
    AddHeaderToFileMenu();
    ViewMenu().addAction(MakeAction(tr("Zoom &In"), tr("Ctrl++"), this, [this] { OnZoom(1); }));
    ViewMenu().addAction(MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), this, [this] { OnZoom(-1); }));
    ViewMenu().addAction(MakeAction(tr("&Whole Line"), tr("Ctrl+0"), this, &Dialog::OnZoomAll));
    // Alt+H has always been the light profile's, and Alt+V the vertical positioning's.
    SetMenuTitles(tr("Vie&w"), tr("H&elp"));
}

void COscilloscope_Dialog::OnAcceleratorCommand(int command)
{
    if (m_bDrawingReady)
        CViewerDialog::OnAcceleratorCommand(command);
}

void COscilloscope_Dialog::OnColour(ShownColour shown)
{
    if (!m_bDrawingReady)
        return;
    m_plots->ShowColour(m_plots->Shown() == ShownColour::Gray ? ShownColour::Gray : shown);
    ShowFocus();
}

void COscilloscope_Dialog::OnCamera(int camera)
{
    if (m_bDrawingReady)
        m_plots->ShowCamera(camera);
}

void COscilloscope_Dialog::OnDetail(ProfileMode mode)
{
    if (m_bDrawingReady)
        m_plots->ShowDetail(mode);
}

void COscilloscope_Dialog::OnZoomAll()
{
    if (m_bDrawingReady)
        m_plots->ZoomAll();
}

/// Zooms the overview about the middle of what it shows.
void COscilloscope_Dialog::OnZoom(int steps)
{
    if (m_bDrawingReady)
        m_ui->overviewPlot->OnMouseWheel(m_ui->overviewPlot->rect().center(), steps);
}

void COscilloscope_Dialog::OnPrint()
{
    if (!m_bDrawingReady)
        return;
    // The line that the user saw when asking is the one to print.
    m_timer.stop();
    m_plots->Print(PrintedHeaderLines(m_data, m_plots->Shown()));
    RunTimer();
}

void COscilloscope_Dialog::OnPrintPreview()
{
    if (!m_bDrawingReady)
        return;
    m_timer.stop();
    m_plots->PrintPreview(PrintedHeaderLines(m_data, m_plots->Shown()));
    RunTimer();
}

void COscilloscope_Dialog::OnLoad()
{
    if (!m_bDrawingReady || m_bUseHPDirectory)
        return;
    // Every viewer's Load offers these, the oscilloscope's too.
    const FileQuestion question{
        tr("Load"), QStringLiteral("Stitch file (*.con);;*_STI.CON) (*_sti.con);;All Files (*)")};
    const std::filesystem::path file = AskForFileToOpen(this, question, m_path);
    if (!file.empty())
        LoadFile(file);
}

void COscilloscope_Dialog::LoadFile(const std::filesystem::path& file)
{
    // The files of a folder are gone through with the list.
    if (!m_bDrawingReady || m_bUseHPDirectory)
        return;
    m_path = file;
    ReadFile();
    FitDialogToFile();
}

void COscilloscope_Dialog::OnChange()
{
    if (!m_bDrawingReady)
        return;
    std::vector<std::string> descriptions;
    for (const OscilloscopeFolderEntry& entry : m_entries)
        descriptions.push_back(entry.Description());
    CSelectionList_Dialog selection(descriptions, static_cast<int>(m_entry), this);
    if (selection.exec() != QDialog::Accepted)
        return;
    if (const auto selected = selection.Selected()) {
        ReadEntry(static_cast<std::size_t>(*selected));
        FitDialogToFile();
    }
}

void COscilloscope_Dialog::OnShowFocus()
{
    if (m_bDrawingReady)
        ShowFocus();
}

void COscilloscope_Dialog::OnStep(int lines)
{
    if (!m_bDrawingReady || !m_animation.HasSeveralLines())
        return;
    // Who steps wants to look at the line: it stays until the animation is let go on.
    Hold(true);
    m_animation.Step(lines);
    ShowLine();
}

void COscilloscope_Dialog::OnHold()
{
    if (m_bDrawingReady)
        Hold(m_ui->holdButton->isChecked());
}

void COscilloscope_Dialog::OnPauseEdited()
{
    if (m_bDrawingReady && m_animation.SetPause(m_ui->pauseSpin->value()))
        RunTimer();
}

void COscilloscope_Dialog::OnTimer()
{
    m_animation.Advance();
    // A number that is still being typed counts as soon as it lies in the range.
    if (m_animation.SetPause(m_ui->pauseSpin->TypedValue())
        && m_animation.PauseMs() != m_timer.interval())
        RunTimer();
    ShowLine();
}

void COscilloscope_Dialog::OnExportLine()
{
    if (!m_bDrawingReady)
        return;
    m_timer.stop();
    const std::filesystem::path target =
        AskForTarget(tr("Export Line"), tr("Table (*.csv)"), QStringLiteral("csv"));
    if (!target.empty())
        TellCannotSave(target, ExportLineAsCsv(target, m_data, m_animation.CurrentLine()));
    RunTimer();
}

void COscilloscope_Dialog::OnSavePicture()
{
    if (!m_bDrawingReady)
        return;
    m_timer.stop();
    const std::filesystem::path target =
        AskForTarget(tr("Save Picture"), tr("Picture (*.png)"), QStringLiteral("png"));
    if (!target.empty())
        TellCannotSave(
            target, m_plots->SavePicture(target, PrintedHeaderLines(m_data, m_plots->Shown())));
    RunTimer();
}

/// A file that the user names, beginning with that of the line's own file; empty when cancelled.
std::filesystem::path COscilloscope_Dialog::AskForTarget(
    const QString& title, const QString& filter, const QString& extension)
{
    std::filesystem::path proposed = m_data.Path();
    proposed.replace_extension(extension.toStdString());
    return AskForFileToSave(this, {title, filter, extension}, proposed);
}

void COscilloscope_Dialog::Hold(bool hold)
{
    m_animation.Hold(hold);
    m_ui->holdButton->setChecked(hold);
    RunTimer();
}

/// Lets the timer follow the animation: its pause, or no ticks while it does not run.
void COscilloscope_Dialog::RunTimer()
{
    if (m_animation.IsRunning())
        m_timer.start(m_animation.PauseMs());
    else
        m_timer.stop();
}

void COscilloscope_Dialog::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier) || !OnKey(event->key()))
        CViewerDialog::keyPressEvent(event);
}

/// The keys that no control has taken; false for a key without a meaning here.
bool COscilloscope_Dialog::OnKey(int key)
{
    if (key >= Qt::Key_A && key < Qt::Key_A + ProfileCameras::kCameras) {
        if (QRadioButton& button = CameraButton(key - Qt::Key_A); button.isVisible())
            button.click();
        return true;
    }
    switch (key) {
    case Qt::Key_Space:
        if (m_ui->holdButton->isVisible())
            m_ui->holdButton->click();
        return true;
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        OnStep(-1);
        return true;
    case Qt::Key_Right:
    case Qt::Key_PageDown:
        OnStep(1);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        OnZoom(1);
        return true;
    case Qt::Key_Minus:
        OnZoom(-1);
        return true;
    case Qt::Key_0:
    case Qt::Key_Home:
        OnZoomAll();
        return true;
    default:
        return false;
    }
}

} // namespace vireo
