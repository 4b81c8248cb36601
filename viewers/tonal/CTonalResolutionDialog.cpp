#include "viewers/tonal/CTonalResolutionDialog.h"

#include "platform/Message.h"
#include "platform/Path.h"
#include "resources/ControlIds.h"
#include "ui_CTonalResolutionDialog.h"
#include "viewers/controls/CHeaderText_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/tonal/TonalExport.h"
#include "viewers/tonal/TonalOpening.h"
#include "viewers/tonal/TonalReport.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

constexpr const char* kTonalAcceleratorTable = "IDR_ACCELERATOR_TONAL";

constexpr TonalView kViews[] = {TonalView::BestFit, TonalView::Difference, TonalView::DynamicRange};
constexpr TonalFlag kFlags[] = {
    TonalShowRed, TonalShowGreen, TonalShowBlue, TonalShowLines, TonalShowCrosses, TonalShowNames};

FileQuestion QuestionOf(const QString& title)
{
    return {title, QStringLiteral("Tonal resolution file (*.con *.CON *.txt *.TXT);;All Files (*)"),
        QStringLiteral("con"), {"F20", "Tonal Resolution"}};
}

} // namespace

CTonalResolutionDialog::CTonalResolutionDialog(const std::filesystem::path& file, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CTonalResolutionDialog>())
{
    m_ui->setupUi(this);
    SetUpControls();
    OnInitDialog();
    OnShowReport(false);
    if (file.empty())
        ShowFile();
    else
        ReadFile(file);
}

CTonalResolutionDialog::~CTonalResolutionDialog() = default;

QRadioButton& CTonalResolutionDialog::ViewButton(TonalView view) const
{
    QRadioButton* const buttons[] = {
        m_ui->bestFitButton, m_ui->differenceButton, m_ui->dynamicRangeButton};
    return *buttons[static_cast<std::size_t>(view)];
}

QCheckBox& CTonalResolutionDialog::FlagCheck(TonalFlag flag) const
{
    QCheckBox* const checks[] = {m_ui->redCheck, m_ui->greenCheck, m_ui->blueCheck,
        m_ui->linesCheck, m_ui->crossesCheck, m_ui->namesCheck};
    return *checks[flag];
}

void CTonalResolutionDialog::SetUpControls()
{
    using Dialog = CTonalResolutionDialog;
    for (const TonalView view : kViews)
        connect(&ViewButton(view), &QRadioButton::clicked, this, [this, view] { OnView(view); });
    for (const TonalFlag flag : kFlags)
        connect(&FlagCheck(flag), &QCheckBox::toggled, m_ui->plot,
            [this, flag](bool checked) { m_ui->plot->SetFlag(flag, checked); });
    connect(m_ui->reportCheck, &QCheckBox::toggled, this, &Dialog::OnShowReport);
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &Dialog::OnLoad);
    connect(m_ui->saveButton, &QAbstractButton::clicked, this, &Dialog::OnSave);
    connect(m_ui->copyButton, &QAbstractButton::clicked, this, &Dialog::OnCopy);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &Dialog::OnPrint);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);

    QPalette palette = m_ui->noticeText->palette();
    palette.setColor(QPalette::Window, QColor(255, 244, 206));
    palette.setColor(QPalette::WindowText, QColor(70, 50, 0));
    m_ui->noticeText->setPalette(palette);
    m_ui->noticeText->hide();
}

void CTonalResolutionDialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    LoadAcceleratorTable(kTonalAcceleratorTable);
    SetUpMenus();
    m_ui->plot->Initialise();
    m_ui->reportText->Initialise();
    m_ui->patchText->Initialise();
    m_ui->plot->setFocus();
}

void CTonalResolutionDialog::SetUpMenus()
{
    using Dialog = CTonalResolutionDialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { ReadFile(file); });
    AddContentCommand(tr("&Save As..."), tr("Ctrl+S"), this, &Dialog::OnSave);
    AddContentCommand(tr("&Copy"), tr("Ctrl+C"), this, &Dialog::OnCopy);
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Values..."), tr("Ctrl+E"), this, &Dialog::OnExport);
    for (QAbstractButton* const button : {m_ui->saveButton, m_ui->copyButton, m_ui->printButton})
        NeedsContent(button);
    struct Row {
        int command;
        QString text;
    };
    const auto name = [this](int command, const QString& text) {
        QAction* const action = AcceleratorAction(command);
        if (action)
            action->setText(text);
        return action;
    };
    AddHeaderToFileMenu();
    for (const Row& row : {Row{TonalResolutionId::kBestFit, tr("Best &Fit")},
             Row{TonalResolutionId::kDifference, tr("&Difference")},
             Row{TonalResolutionId::kDynamicRange, tr("D&ynamic Range")},
             Row{TonalResolutionId::kReportCommand, tr("&Report")}})
        if (QAction* const action = name(row.command, row.text))
            ViewMenu().addAction(action);
}

void CTonalResolutionDialog::OnAcceleratorCommand(int command)
{
    switch (command) {
    case TonalResolutionId::kBestFit:
        return OnView(TonalView::BestFit);
    case TonalResolutionId::kDifference:
        return OnView(TonalView::Difference);
    case TonalResolutionId::kDynamicRange:
        return OnView(TonalView::DynamicRange);
    case TonalResolutionId::kReportCommand:
        return m_ui->reportCheck->toggle();
    case CommandId::kShowHeader:
        return OnShowHeader();
    default:
        break;
    }
}

/// A view asked for is shown, even where the report hid it.
void CTonalResolutionDialog::OnView(TonalView view)
{
    ViewButton(view).setChecked(true);
    m_ui->plot->SetView(view);
    m_ui->reportCheck->setChecked(false);
    // The dynamic range has neither channels nor lines.
    for (const TonalFlag flag : {TonalShowRed, TonalShowGreen, TonalShowBlue, TonalShowLines})
        FlagCheck(flag).setEnabled(view != TonalView::DynamicRange);
}

void CTonalResolutionDialog::OnShowReport(bool shown)
{
    m_ui->plot->setVisible(!shown);
    m_ui->reportText->setVisible(shown);
    m_ui->patchText->setVisible(shown);
    m_ui->showGroup->setEnabled(!shown);
}

bool CTonalResolutionDialog::IsReportShown() const
{
    return m_ui->reportCheck->isChecked();
}

void CTonalResolutionDialog::ReadFile(const std::filesystem::path& path)
{
    m_ui->plot->SetLoading(true);
    m_ui->plot->repaint();
    TonalResolutionData read;
    const TonalOpening opening = OpenTonalFile(path, read);
    const bool isRefused = opening.result != TonalResult::Ok;
    const std::string reason = read.DescribeFailure(opening.result);
    // A file that is refused leaves the one before on view.
    if (!isRefused || !m_data.IsLoaded())
        m_data = std::move(read);
    m_ui->plot->SetLoading(false);
    ShowFile();
    ShowNotice(opening.notice);
    if (isRefused && !opening.notice.empty()) {
        NoteRefusal(path, opening.notice);
        ShowMessageInUtf8(ShownPath(path) + '\n' + opening.notice);
    } else if (isRefused) {
        RefuseFile(path, reason);
    }
}

std::filesystem::path CTonalResolutionDialog::ShownFile() const
{
    return m_data.IsLoaded() ? m_data.m_FileName : std::filesystem::path();
}

void CTonalResolutionDialog::ShowFile()
{
    m_ui->plot->SetData(&m_data);
    m_ui->reportText->SetText(TonalReport(m_data));
    m_ui->patchText->SetText(TonalPatchTable(m_data));
    const bool isLoaded = m_data.IsLoaded();
    const std::string identity =
        "   " + m_data.m_ScannerName + "   " + m_data.m_Date + "  " + m_data.m_Time;
    m_ui->fileText->setText(isLoaded
            ? QStringFromPath(m_data.m_FileName.filename()) + QStringFromText(identity)
            : QString());
    m_ui->fileText->setToolTip(isLoaded ? QStringFromPath(m_data.m_FileName) : QString());
    ShownFileChanged();
}

void CTonalResolutionDialog::ShowLimits(const std::vector<Limit>& limits)
{
    m_ui->plot->SetLimits(limits);
}

void CTonalResolutionDialog::ShowNotice(const std::string& utf8)
{
    m_ui->noticeText->setText(QString::fromStdString(utf8));
    m_ui->noticeText->setVisible(!utf8.empty());
}

void CTonalResolutionDialog::OnLoad()
{
    m_ui->loadButton->setEnabled(false);
    const std::filesystem::path current =
        m_data.IsLoaded() ? m_data.m_FileName : std::filesystem::path();
    const std::filesystem::path file = AskForFileToOpen(this, QuestionOf(tr("Load")), current);
    if (!file.empty())
        ReadFile(file);
    m_ui->loadButton->setEnabled(true);
}

void CTonalResolutionDialog::OnSave()
{
    const std::filesystem::path proposed =
        m_data.IsLoaded() ? m_data.m_FileName : std::filesystem::path("Tonal.con");
    const std::filesystem::path target = AskForFileToSave(this, QuestionOf(tr("Save")), proposed);
    if (target.empty())
        return;
    const FileStatus status = m_data.Write(target);
    ShowFile();
    // No box: the notice waits until somebody looks.
    ShowNotice(status == FileStatus::Ok
            ? std::string()
            : ShownPath(target) + ": not saved. " + std::string(Describe(status)) + ".");
}

void CTonalResolutionDialog::OnCopy()
{
    if (m_ui->patchText->hasFocus() && IsReportShown())
        return m_ui->patchText->Copy();
    if (IsReportShown())
        return m_ui->reportText->Copy();
    constexpr double kSharpEnough = 2.0;
    QGuiApplication::clipboard()->setImage(
        m_ui->plot->Picture(std::max(devicePixelRatioF(), kSharpEnough)));
}

std::unique_ptr<CScrollTextControl> CTonalResolutionDialog::PrintedReport()
{
    auto printed = std::make_unique<CScrollTextControl>(this);
    printed->SetText(TonalReport(m_data) + "\n" + TonalPatchTable(m_data));
    std::vector<std::string> header = TonalHeaderLines(m_data);
    header.emplace_back(" ");
    printed->SetHeaderLines(std::move(header));
    return printed;
}

void CTonalResolutionDialog::OnPrint()
{
    m_ui->plot->SetHeaderLines(TonalPlotHeaderLines(m_data));
    if (IsReportShown())
        PrintedReport()->Print();
    else
        m_ui->plot->Print();
}

void CTonalResolutionDialog::OnPrintPreview()
{
    m_ui->plot->SetHeaderLines(TonalPlotHeaderLines(m_data));
    if (IsReportShown())
        PrintedReport()->PrintPreview();
    else
        m_ui->plot->PrintPreview();
}

void CTonalResolutionDialog::OnExport()
{
    std::filesystem::path proposed =
        m_data.IsLoaded() ? m_data.m_FileName : std::filesystem::path("Tonal.csv");
    proposed.replace_extension(".csv");
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Export Values"), tr("Table (*.csv)"), QStringLiteral("csv")}, proposed);
    if (!target.empty())
        TellCannotSave(target, ExportTonalAsCsv(target, m_data));
}

void CTonalResolutionDialog::OnShowHeader()
{
    // Opening the file may have deleted it: its text is what there is of it.
    TestFileHeader header;
    header.SetText(m_data.FileText());
    CHeaderText_Dialog(header.Text(), this, ListHeaderRows(header)).exec();
}

} // namespace vireo
