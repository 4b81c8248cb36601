#include "viewers/stitch/CView_Stitch_Dialog.h"

#include "platform/Message.h"
#include "ui_CView_Stitch_Dialog.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/stitch/StitchExport.h"
#include "viewers/stitch/StitchPrinting.h"
#include "viewers/stitch/StitchText.h"

#include <QMenu>

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

constexpr const char* kDocumentName = "Printing Stitching Picture";

QString StitchFilter()
{
    return QStringLiteral("Stitch file (*.con *.CON);;*_STI.CON) (*_sti.con *_STI.CON);;"
                          "All Files (*)");
}

} // namespace

CView_Stitch_Dialog::CView_Stitch_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CView_Stitch_Dialog>())
{
    m_ui->setupUi(this);
    SetUpControls();
    OnInitDialog();
    if (file.empty())
        OnLoad();
    else
        ReadFile(file);
}

CView_Stitch_Dialog::~CView_Stitch_Dialog() = default;

void CView_Stitch_Dialog::SetUpControls()
{
    using Dialog = CView_Stitch_Dialog;
    CPicture_Control* const picture = m_ui->picture;
    picture->SetScrollBars(m_ui->horizontalScroll, m_ui->verticalScroll);
    picture->setFocus();
    connect(picture, &CPicture_Control::PointerMoved, this, &Dialog::OnPointer);
    connect(picture, &CPicture_Control::ViewChanged, this, &Dialog::OnView);
    connect(picture, &CPicture_Control::BuildAdvanced, this, &Dialog::OnBuild);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(m_ui->oneToOneButton, &QAbstractButton::clicked, this, &Dialog::OnZoomOneToOne);
    connect(m_ui->fitButton, &QAbstractButton::clicked, picture, &CPicture_Control::Fit);
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &Dialog::OnLoad);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &Dialog::OnPrint);
}

void CView_Stitch_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
}

void CView_Stitch_Dialog::SetUpMenus()
{
    using Dialog = CView_Stitch_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { ReadFile(file); });
    AddToFileMenu(MakeAction(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint));
    AddToFileMenu(
        MakeAction(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview));
    AddToFileMenu(
        MakeAction(tr("&Export Columns..."), tr("Ctrl+E"), this, &Dialog::OnExportColumns));
    AddHeaderToFileMenu();
    CPicture_Control* const picture = m_ui->picture;
    ViewMenu().addAction(
        MakeAction(tr("Zoom &In"), tr("Ctrl++"), picture, &CPicture_Control::ZoomIn));
    ViewMenu().addAction(
        MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), picture, &CPicture_Control::ZoomOut));
    ViewMenu().addAction(MakeAction(tr("Zoom &1:1"), tr("Ctrl+1"), this, &Dialog::OnZoomOneToOne));
    ViewMenu().addAction(
        MakeAction(tr("&Whole Picture"), tr("Ctrl+0"), picture, &CPicture_Control::Fit));
}

bool CView_Stitch_Dialog::ReadFile(const std::filesystem::path& path)
{
    StitchData read;
    StitchResult result = StitchResult::Ok;
    CWait_Dialog wait(tr("View Stitching Picture"), tr("Please wait while loading"),
        CWait_Dialog::Cancelling::Offered, this);
    wait.Run([&](WorkProgress& progress) { result = read.Read(path, progress); });
    if (result != StitchResult::Ok) {
        if (result != StitchResult::Cancelled)
            RefuseFile(path, read.DescribeFailure(result));
        return false;
    }
    for (const std::string& complaint : read.Complaints())
        ShowMessage(complaint);
    m_data = std::move(read);
    ShowFile();
    return true;
}

void CView_Stitch_Dialog::ShowFile()
{
    m_ui->picture->SetPicture(m_data.Picture());
    m_ui->fileText->setText(QStringFromPath(m_data.Path().filename()) + QStringLiteral("    ")
        + QStringFromText(PictureText(m_data)));
    m_ui->fileText->setToolTip(QStringFromPath(m_data.Path()));
    ShownFileChanged();
}

bool CView_Stitch_Dialog::OnLoad()
{
    const std::filesystem::path file =
        AskForFileToOpen(this, {tr("Load"), StitchFilter()}, m_data.Path());
    return !file.empty() && ReadFile(file);
}

void CView_Stitch_Dialog::OnZoomOneToOne()
{
    if (m_ui->picture->View().zoom != 1.0)
        m_ui->picture->OneToOne();
}

void CView_Stitch_Dialog::OnPrint()
{
    PrintStitch(*m_ui->picture, StitchHeaderLines(m_data), kDocumentName);
}

void CView_Stitch_Dialog::OnPrintPreview()
{
    PreviewStitch(*m_ui->picture, StitchHeaderLines(m_data), kDocumentName);
}

void CView_Stitch_Dialog::OnExportColumns()
{
    if (!m_data.IsWorkable() || m_data.Picture()->Height() == 0)
        return TellFileFault(m_data.Path(), kNotWorkable);
    std::filesystem::path proposed = m_data.Path();
    proposed.replace_extension(".csv");
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Export Columns"), tr("Table (*.csv)"), QStringLiteral("csv")}, proposed);
    if (target.empty())
        return;
    // The row in the middle of the view is the one that is exported by its values.
    const std::int64_t row =
        std::clamp<std::int64_t>(m_ui->picture->View().y.centre, 0, m_data.Picture()->Height() - 1);
    FileStatus status = FileStatus::Ok;
    CWait_Dialog wait(tr("Export Columns"), tr("Please wait while exporting"),
        CWait_Dialog::Cancelling::NotOffered, this);
    wait.Run([&](WorkProgress&) { status = ExportStitchAsCsv(target, m_data, row); });
    TellCannotSave(target, status);
}

void CView_Stitch_Dialog::OnPointer(std::optional<PicturePixel> pixel)
{
    if (!pixel)
        return m_ui->pixelText->clear();
    std::uint8_t value = 0;
    m_data.Picture()->Read({pixel->x, pixel->y, 1, 1}, {&value, 1});
    m_ui->pixelText->setText(QStringFromText(PixelText(m_data, pixel->x, pixel->y, value)));
}

void CView_Stitch_Dialog::OnView()
{
    m_ui->zoomText->setText(QStringFromText(ZoomText(m_ui->picture->View().zoom)));
    m_ui->oneToOneButton->setEnabled(m_ui->picture->View().zoom != 1.0);
}

void CView_Stitch_Dialog::OnBuild()
{
    const std::optional<double> built = m_ui->picture->BuildFraction();
    constexpr double kPercent = 100.0;
    m_ui->buildText->setText(built
            ? tr("Preparing small views: %1 %").arg(static_cast<int>(*built * kPercent))
            : QString());
}

} // namespace vireo
