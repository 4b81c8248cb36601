#include "viewers/startest/CStarTest_Dialog.h"

#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/WorkProgress.h"
#include "ui_CStarTest_Dialog.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/startest/StarTestCurves.h"
#include "viewers/startest/StarTestExport.h"
#include "viewers/startest/StarTestPictures.h"
#include "viewers/startest/StarTestText.h"

#include <QMenu>
#include <QSignalBlocker>
#include <QTimer>

#include <utility>

namespace vireo {

namespace {

constexpr DialogPlace kPlace{"F24", "StarTest"};

QString StarTestFilter()
{
    return QStringLiteral("Star test file (*.con *.CON);;All Files (*)");
}

} // namespace

CStarTest_Dialog::CStarTest_Dialog(
    const std::filesystem::path& file, ViewerHost& host, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CStarTest_Dialog>()),
      m_fileToRead(file),
      m_host(host)
{
    m_ui->setupUi(this);
    SetUpCommands();
    OnInitDialog();
    // The window is there before a long file is read.
    QTimer::singleShot(0, this, &CStarTest_Dialog::OnTimer);
}

CStarTest_Dialog::~CStarTest_Dialog() = default;

void CStarTest_Dialog::OnInitDialog()
{
    Log_Msg("BOOL CStarTest_Dialog::OnInitDialog()");
    CViewerDialog::OnInitDialog();
    SetUpMenus();
    m_ui->okButton->hide();
    m_data.m_bSavePictures = StationSavesStarTestPictures();
    m_ui->plot->SetScrollBar(m_ui->scrollBar);
    m_ui->plot->SetData(&m_data);
    m_ui->plot->Initialise();
    m_ui->plot->setFocus();
    ShowSweep();
}

void CStarTest_Dialog::SetUpCommands()
{
    using Dialog = CStarTest_Dialog;
    using Plot = CA2_StarTest_Control;
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &Dialog::OnLoad);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &Dialog::OnPrint);
    connect(m_ui->pictureButton, &QAbstractButton::clicked, this, &Dialog::OnPicture);
    connect(m_ui->zoomAllButton, &QAbstractButton::clicked, m_ui->plot, &Plot::ZoomAll);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(m_ui->okButton, &QAbstractButton::clicked, this, &QDialog::accept);
    connect(m_ui->automaticCheck, &QAbstractButton::clicked, m_ui->plot, &Plot::SetAutomaticScale);
    connect(m_ui->topSpin, &QDoubleSpinBox::valueChanged, this, &Dialog::OnScaleEdited);
    connect(m_ui->bottomSpin, &QDoubleSpinBox::valueChanged, this, &Dialog::OnScaleEdited);
    connect(m_ui->resetScaleButton, &QAbstractButton::clicked, this, &Dialog::OnResetScale);
    connect(m_ui->keepCurvesCheck, &QAbstractButton::toggled, m_ui->plot, &Plot::KeepVisibility);
    connect(m_ui->plot, &Plot::ViewChanged, this, &Dialog::ShowScale);
    connect(m_ui->plot, &Plot::SweepSelected, this, &Dialog::ShowSweep);
}

void CStarTest_Dialog::SetUpMenus()
{
    using Dialog = CStarTest_Dialog;
    using Plot = CA2_StarTest_Control;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { ReadFile(file); });
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Sweep..."), tr("Ctrl+E"), this, &Dialog::OnExportSweep);
    NeedsContent(m_ui->printButton);
    AddHeaderToFileMenu();
    ViewMenu().addAction(MakeAction(tr("Zoom &In"), tr("Ctrl++"), m_ui->plot, &Plot::ZoomIn));
    ViewMenu().addAction(MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), m_ui->plot, &Plot::ZoomOut));
    ViewMenu().addAction(MakeAction(tr("&Whole Sweep"), tr("Ctrl+0"), m_ui->plot, &Plot::ZoomAll));
    ViewMenu().addSeparator();
    const auto views = StarTestViews();
    for (std::size_t i = 0; i < views.size(); ++i)
        ViewMenu().addAction(MakeAction(QStringFromText(views[i].name),
            QStringLiteral("Ctrl+%1").arg(i + 1), this, [this, i] { OnShowView(i); }));
}

void CStarTest_Dialog::OnTimer()
{
    if (!m_fileToRead.empty())
        ReadFile(std::exchange(m_fileToRead, {}));
}

void CStarTest_Dialog::ReadFile(const std::filesystem::path& path)
{
    // On another thread, and so not into what the plot is showing meanwhile.
    StarTestData read = m_data.WithoutSweeps();
    StarTestResult result = StarTestResult::Ok;
    CWait_Dialog wait(
        tr("Star Test"), tr("Reading the star test..."), CWait_Dialog::Cancelling::Offered, this);
    const bool isComplete =
        wait.Run([&](WorkProgress& progress) { result = read.Read(path, &progress); });
    if (!isComplete)
        return;
    if (result != StarTestResult::Ok) {
        RefuseFile(path, read.DescribeFailure(result));
        return;
    }
    m_data = std::move(read);
    ShowData();
    if (!m_data.HasLines())
        TellFileFault(path, "No sweep of the star test has any lines");
}

void CStarTest_Dialog::ShowData()
{
    m_ui->plot->ShowData();
    m_ui->fileText->setText(QStringFromPath(m_data.Path().filename()));
    m_ui->fileText->setToolTip(QStringFromPath(m_data.Path()));
    ShownFileChanged();
    ShowSweep();
}

void CStarTest_Dialog::ShowLimits(const std::vector<Limit>& limits)
{
    m_ui->plot->SetLimits(limits);
}

void CStarTest_Dialog::ShowSweep()
{
    m_ui->sweepText->setText(QStringFromText(SweepDescription(m_data)));
    m_ui->pictureButton->setEnabled(m_data.SelectedSweep() != nullptr);
    ShowScale();
}

void CStarTest_Dialog::ShowScale()
{
    const VerticalScale& scale = m_ui->plot->Scale();
    const QSignalBlocker quietTop(m_ui->topSpin);
    const QSignalBlocker quietBottom(m_ui->bottomSpin);
    for (QDoubleSpinBox* const spin : {m_ui->topSpin, m_ui->bottomSpin})
        spin->setSingleStep(scale.gridStep / 2.0);
    m_ui->topSpin->setValue(scale.top);
    m_ui->bottomSpin->setValue(scale.bottom);
    m_ui->automaticCheck->setChecked(m_ui->plot->HasAutomaticScale());
}

void CStarTest_Dialog::OnScaleEdited()
{
    // One that cannot be drawn, upside down, waits for the other limit.
    m_ui->plot->SetVerticalScale(
        VerticalScale::Between(m_ui->bottomSpin->value(), m_ui->topSpin->value()));
}

void CStarTest_Dialog::OnResetScale()
{
    m_ui->plot->SetVerticalScale({});
}

void CStarTest_Dialog::OnShowView(std::size_t view)
{
    if (ShowCurves(StarTestViews()[view], m_ui->plot->Curves()))
        m_ui->plot->OnCurvesFilled();
}

void CStarTest_Dialog::OnLoad()
{
    const std::filesystem::path file = AskForFileToOpen(
        this, {tr("Load"), StarTestFilter(), QStringLiteral("con"), kPlace}, m_data.Path());
    if (!file.empty())
        ReadFile(file);
}

void CStarTest_Dialog::OnExportSweep()
{
    const StarTestSweep* const sweep = m_data.SelectedSweep();
    if (!sweep)
        return;
    std::filesystem::path proposed = m_data.Path();
    proposed.replace_extension(".csv");
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Export Sweep"), tr("Table (*.csv)"), QStringLiteral("csv"), kPlace}, proposed);
    if (!target.empty())
        TellCannotSave(target, ExportSweepAsCsv(target, *sweep));
}

void CStarTest_Dialog::PrepareToPrint()
{
    m_ui->plot->SetHeaderLines(StarTestHeaderLines(m_data));
}

void CStarTest_Dialog::OnPrint()
{
    PrepareToPrint();
    m_ui->plot->Print();
}

void CStarTest_Dialog::OnPrintPreview()
{
    PrepareToPrint();
    m_ui->plot->PrintPreview();
}

void CStarTest_Dialog::OnPicture()
{
    if (const auto picture = FindRawPicture(m_data))
        m_host.OpenPicture(MarkPicture(m_data, *picture, m_ui->plot->LastCursorLine()), this);
    else
        ShowMessage(DescribeMissingPicture(m_data), {}, MessageIcon::Information);
}

} // namespace vireo
