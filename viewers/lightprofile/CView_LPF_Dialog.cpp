#include "viewers/lightprofile/CView_LPF_Dialog.h"

#include "ui_CView_LPF_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/SampleExport.h"
#include "viewers/lightprofile/LightProfileText.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QRadioButton>

#include <algorithm>
#include <limits>
#include <utility>

namespace vireo {

namespace {

QString ProfileFilter()
{
    return QStringLiteral("Light profile (*.con *.CON);;All Files (*)");
}

} // namespace

CView_LPF_Dialog::CView_LPF_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CView_LPF_Dialog>())
{
    m_ui->setupUi(this);
    m_plots =
        std::make_unique<ProfilePlots>(*m_ui->overviewPlot, *m_ui->leftPlot, *m_ui->rightPlot);
    SetUpControls();
    SetUpChoices();
    OnInitDialog();
    if (file.empty())
        FitDialogToFile();
    else
        ReadFile(file);
}

CView_LPF_Dialog::~CView_LPF_Dialog()
{
    // A field that loses the focus reports its value: while there is somebody to hear it.
    hide();
}

void CView_LPF_Dialog::SetUpControls()
{
    using Dialog = CView_LPF_Dialog;
    m_ui->overviewPlot->SetScrollBar(m_ui->overviewScroll);
    m_ui->leftPlot->SetScrollBar(m_ui->leftScroll);
    m_ui->rightPlot->SetScrollBar(m_ui->rightScroll);
    // The keys belong to the plots until somebody walks to another control.
    m_ui->overviewPlot->setFocusPolicy(Qt::StrongFocus);
    m_ui->overviewPlot->setFocus();
    for (CLPFControle* plot : m_plots->All())
        connect(plot, &CLPFControle::CursorMoved, this,
            [this, plot](const auto& reading) { ShowCursor(reading, plot == m_ui->overviewPlot); });
    connect(m_ui->zoomAllButton, &QAbstractButton::clicked, this, [this] { m_plots->ZoomAll(); });
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &Dialog::OnPrint);
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &Dialog::OnLoad);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(m_ui->lineSpin, &QSpinBox::valueChanged, this, &Dialog::OnLine);
}

void CView_LPF_Dialog::SetUpChoices()
{
    using Dialog = CView_LPF_Dialog;
    const auto colour = [this](ShownColour shown, const char* name, const QString& text) {
        m_ui->colorGroup->Add(static_cast<int>(shown), QLatin1String(name), text);
    };
    m_ui->colorGroup->SetColumns(2);
    colour(ShownColour::Red, "redButton", tr("&Red"));
    colour(ShownColour::Green, "greenButton", tr("&Green"));
    colour(ShownColour::Blue, "blueButton", tr("B&lue"));
    colour(ShownColour::All, "allButton", tr("&All"));
    colour(ShownColour::Gray, "grayButton", tr("Gra&y"));
    connect(m_ui->colorGroup, &ChoiceGroup::ChosenByUser, this, &Dialog::OnColour);

    m_ui->cameraGroup->SetColumns(4);
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera) {
        const QString letter(QLatin1Char(ProfileCameras::Letter(camera)));
        m_ui->cameraGroup->Add(camera, QStringLiteral("camera%1Button").arg(letter), letter,
            tr("Show camera %1 in the detail views (%1)").arg(letter));
    }
    connect(m_ui->cameraGroup, &ChoiceGroup::ChosenByUser, this,
        [this](int camera) { m_plots->ShowCamera(camera); });

    m_ui->detailGroup->Add(static_cast<int>(ProfileMode::Camera), QStringLiteral("normalButton"),
        tr("&Normal"), tr("Beginning and end of the camera"));
    m_ui->detailGroup->Add(static_cast<int>(ProfileMode::LightProfile),
        QStringLiteral("boundaryButton"), tr("&Boundary"),
        tr("Both sides of the camera's boundary on one scale"));
    connect(m_ui->detailGroup, &ChoiceGroup::ChosenByUser, this,
        [this](int mode) { m_plots->ShowDetail(static_cast<ProfileMode>(mode)); });

    m_ui->unitGroup->SetColumns(3);
    const auto unit = [this](PositionUnit number, const char* name, const QString& text) {
        m_ui->unitGroup->Add(static_cast<int>(number), QLatin1String(name), text);
    };
    unit(PositionUnit::Inch, "inchButton", tr("&Inch"));
    unit(PositionUnit::Centimetre, "centimetreButton", tr("c&m"));
    unit(PositionUnit::ScanUnit, "scanUnitButton", tr("S&U"));
    connect(m_ui->unitGroup, &ChoiceGroup::ChosenByUser, this, &Dialog::OnUnit);
}

void CView_LPF_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
    const PositionUnit unit = ReadUnitSetting();
    m_ui->unitGroup->Choose(static_cast<int>(unit));
    m_unit = ProfileUnitOf(unit);
    m_plots->SetUnit(m_unit);
}

void CView_LPF_Dialog::SetUpMenus()
{
    using Dialog = CView_LPF_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { ReadFile(file); });
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Line..."), tr("Ctrl+E"), this, &Dialog::OnExportLine);
    AddContentCommand(tr("&Save Picture..."), tr("Ctrl+Shift+S"), this, &Dialog::OnSavePicture);
    NeedsContent(m_ui->printButton);
    AddHeaderToFileMenu();
    ViewMenu().addAction(MakeAction(tr("Zoom &In"), tr("Ctrl++"), this, [this] { OnZoom(1); }));
    ViewMenu().addAction(MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), this, [this] { OnZoom(-1); }));
    ViewMenu().addAction(
        MakeAction(tr("&Whole Line"), tr("Ctrl+0"), this, [this] { m_plots->ZoomAll(); }));
}

// Files.

void CView_LPF_Dialog::ReadFile(const std::filesystem::path& path)
{
    LightProfileData read;
    const LightProfileResult result = read.Read(path);
    const bool isRead = result == LightProfileResult::Ok;
    const std::string reason = read.DescribeFailure(result);
    // A file that is refused leaves the one before on view.
    if (isRead || !m_bLoaded) {
        m_data = std::move(read);
        m_bLoaded = isRead;
        m_line = 0;
        FitDialogToFile();
        ShownFileChanged();
    }
    if (!isRead)
        RefuseFile(path, reason);
    else if (!m_data.Complaint().empty())
        TellFileFault(path, m_data.Complaint());
}

std::filesystem::path CView_LPF_Dialog::ShownFile() const
{
    return m_bLoaded ? m_data.Path() : std::filesystem::path();
}

void CView_LPF_Dialog::FitDialogToFile()
{
    const ProfileCameras cameras = m_data.Cameras();
    FitColours();
    FitCameras(cameras);
    m_plots->Fit({cameras, m_data.FirstShown(), std::max(m_ui->cameraGroup->Chosen(), 0)});
    ShowFileName();
    const std::int64_t lines = m_data.Lines().LineCount();
    m_ui->linesGroup->setVisible(lines > 1);
    const QSignalBlocker quiet(m_ui->lineSpin);
    m_ui->lineSpin->setMaximum(
        static_cast<int>(std::clamp<std::int64_t>(lines, 1, std::numeric_limits<int>::max())));
    m_ui->lineSpin->setValue(1);
    m_ui->lineText->setText(QStringFromText(LineCountText(lines)));
    ShowLine();
}

void CView_LPF_Dialog::FitColours()
{
    const ShownColour first = m_data.FirstShown();
    for (const ShownColour shown : {ShownColour::Red, ShownColour::Green, ShownColour::Blue,
             ShownColour::All, ShownColour::Gray}) {
        const bool isOfColours = shown != ShownColour::Gray;
        m_ui->colorGroup->Offer(
            static_cast<int>(shown), m_data.HasColour() ? isOfColours : shown == first);
    }
    m_ui->colorGroup->Choose(static_cast<int>(first));
}

void CView_LPF_Dialog::FitCameras(const ProfileCameras& cameras)
{
    const std::vector<int> offered = CamerasToChoose(cameras);
    const int before = m_ui->cameraGroup->Chosen();
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera)
        m_ui->cameraGroup->Offer(camera, std::ranges::find(offered, camera) != offered.end());
    if (!offered.empty() && !m_ui->cameraGroup->Offers(before))
        m_ui->cameraGroup->Choose(offered.front());
    const bool hasBoundary = cameras.Count() > 1;
    m_ui->detailGroup->Offer(static_cast<int>(ProfileMode::LightProfile), hasBoundary);
    m_ui->detailGroup->setVisible(hasBoundary);
    m_ui->detailGroup->Choose(static_cast<int>(ProfileMode::Camera));
}

void CView_LPF_Dialog::ShowFileName()
{
    const QString name = QStringFromPath(m_data.Path().filename());
    const QString scanner = QStringFromText(m_data.Record().scannerName);
    m_ui->fileText->setText(scanner.isEmpty() ? name : name + QStringLiteral(" \u2013 ") + scanner);
    m_ui->fileText->setToolTip(QStringFromPath(m_data.Path()));
}

void CView_LPF_Dialog::ShowLine()
{
    const bool complete = m_plots->ShowLine(
        [this](ProfileLine& line) { return m_data.Lines().ReadLine(m_line, line); });
    ShowFigures();
    m_ui->cursorText->setText(
        complete ? QString() : tr("This line can no longer be read from the file."));
}

void CView_LPF_Dialog::ShowFigures()
{
    std::string text = m_plots->Shown() == ShownColour::All ? "Green\n" : "";
    text += FiguresText(FiguresOf(m_plots->Line(), m_plots->Shown()));
    if (m_data.Lines().LineCount() > 0)
        text += '\n' + LightProfileKindText(m_data);
    m_ui->valuesText->setText(QStringFromText(text));
}

void CView_LPF_Dialog::ShowCursor(const std::optional<CursorReading>& reading, bool isOverview)
{
    m_ui->positionText->setText(
        reading && isOverview ? QStringFromText(PositionText(*reading)) : QString());
    m_ui->cursorText->setText(reading
            ? QStringFromText(CursorText(*reading, m_plots->Line(), m_plots->Shown(), m_unit))
            : QString());
}

// Commands.

void CView_LPF_Dialog::OnColour(int shown)
{
    m_plots->ShowColour(static_cast<ShownColour>(shown));
    ShowFigures();
}

void CView_LPF_Dialog::OnUnit(int unit)
{
    const auto chosen = static_cast<PositionUnit>(unit);
    WriteUnitSetting(chosen);
    m_unit = ProfileUnitOf(chosen);
    m_plots->SetUnit(m_unit);
}

void CView_LPF_Dialog::OnLine(int number)
{
    m_line = number - 1;
    ShowLine();
}

void CView_LPF_Dialog::OnLoad()
{
    const std::filesystem::path file =
        AskForFileToOpen(this, {tr("Load"), ProfileFilter()}, m_data.Path());
    if (!file.empty())
        ReadFile(file);
}

std::vector<std::string> CView_LPF_Dialog::HeaderLines() const
{
    return LightProfileHeaderLines(m_data, m_plots->Shown(), m_line);
}

void CView_LPF_Dialog::OnPrint()
{
    m_plots->Print(HeaderLines());
}

void CView_LPF_Dialog::OnPrintPreview()
{
    m_plots->PrintPreview(HeaderLines());
}

/// A file that the user names, beginning with that of the profile's own file; empty when cancelled.
std::filesystem::path CView_LPF_Dialog::AskForTarget(
    const QString& title, const QString& filter, const QString& extension)
{
    std::filesystem::path proposed = m_data.Path();
    proposed.replace_extension(extension.toStdString());
    return AskForFileToSave(this, {title, filter, extension}, proposed);
}

void CView_LPF_Dialog::OnExportLine()
{
    const std::filesystem::path target =
        AskForTarget(tr("Export Line"), tr("Table (*.csv)"), QStringLiteral("csv"));
    if (!target.empty())
        TellCannotSave(target,
            ExportSamplesAsCsv(
                target, m_data.Lines(), m_data.Cameras(), m_data.FirstShown(), m_line));
}

void CView_LPF_Dialog::OnSavePicture()
{
    const std::filesystem::path target =
        AskForTarget(tr("Save Picture"), tr("Picture (*.png)"), QStringLiteral("png"));
    if (!target.empty())
        TellCannotSave(target, m_plots->SavePicture(target, HeaderLines()));
}

/// Zooms the overview about the middle of what it shows.
void CView_LPF_Dialog::OnZoom(int steps)
{
    m_ui->overviewPlot->OnMouseWheel(m_ui->overviewPlot->rect().center(), steps);
}

void CView_LPF_Dialog::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier) || !OnKey(event->key()))
        CViewerDialog::keyPressEvent(event);
}

/// The keys that no control has taken; false for a key without a meaning here.
bool CView_LPF_Dialog::OnKey(int key)
{
    if (key >= Qt::Key_A && key < Qt::Key_A + ProfileCameras::kCameras) {
        const int camera = key - Qt::Key_A;
        if (m_ui->cameraGroup->Offers(camera)) {
            m_ui->cameraGroup->Choose(camera);
            m_plots->ShowCamera(camera);
        }
        return true;
    }
    switch (key) {
    case Qt::Key_PageUp:
        m_ui->lineSpin->stepDown();
        return true;
    case Qt::Key_PageDown:
        m_ui->lineSpin->stepUp();
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
        m_plots->ZoomAll();
        return true;
    default:
        return false;
    }
}

} // namespace vireo
