#include "viewers/adjustment/CAdjustment_Dialog.h"

#include "platform/Text.h"
#include "ui_CAdjustment_Dialog.h"
#include "viewers/adjustment/AdjustmentExport.h"
#include "viewers/adjustment/AdjustmentPage.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/HeaderTable.h"
#include "viewers/controls/PositionUnit.h"
#include "viewers/controls/PrintCommand.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/controls/QtText.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QPrinter>
#include <QTimer>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace vireo {

using Form = AdjustmentData::Form;

CAdjustment_Dialog::CAdjustment_Dialog(
    AdjustmentKind kind, const std::filesystem::path& file, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CAdjustment_Dialog>()),
      m_kind(kind)
{
    m_ui->setupUi(this);
    SetUpControls();
    OnInitDialog();
    if (file.empty())
        ShowFile();
    else
        ReadFile(file);
}

CAdjustment_Dialog::~CAdjustment_Dialog()
{
    // A field that loses the focus reports its value: while there is somebody to hear it.
    hide();
}

void CAdjustment_Dialog::SetUpControls()
{
    using Dialog = CAdjustment_Dialog;
    m_ui->splitter->setStretchFactor(1, 1);
    m_ui->splitter->setSizes({480, 620});
    m_ui->profilePlot->SetScrollBar(m_ui->profileScroll);
    m_ui->picture->SetScrollBars(m_ui->horizontalScroll, m_ui->verticalScroll);
    m_unit = ProfileUnitOf(ReadUnitSetting());
    m_ui->profilePlot->SetUnit(m_unit);
    connect(m_ui->profilePlot, &CLPFControle::CursorMoved, this, [this](const auto& reading) {
        m_ui->cursorText->setText(reading
                ? QStringFromText(CursorText(*reading, m_line, m_data.FirstShown(), m_unit))
                : QString());
    });
    connect(m_ui->picture, &CPicture_Control::PointerMoved, this, &Dialog::ShowPixel);
    connect(m_ui->lineSpin, &QSpinBox::valueChanged, this, [this](int number) {
        m_iLine = number - 1;
        ShowLine();
    });
    connect(m_ui->zoomAllButton, &QAbstractButton::clicked, this, &Dialog::OnZoomAll);
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &Dialog::OnLoad);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &Dialog::OnPrint);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
}

void CAdjustment_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
}

void CAdjustment_Dialog::SetUpMenus()
{
    using Dialog = CAdjustment_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { ReadFile(file); });
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("Export &Table..."), tr("Ctrl+Shift+E"), this, &Dialog::OnExportHeader);
    NeedsContent(m_ui->printButton);
    m_exportLine = MakeAction(tr("&Export Line..."), tr("Ctrl+E"), this, &Dialog::OnExportLine);
    AddToFileMenu(m_exportLine);
    AddHeaderToFileMenu();
    ViewMenu().addAction(MakeAction(tr("Zoom &In"), tr("Ctrl++"), this, [this] { OnZoom(1); }));
    ViewMenu().addAction(MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), this, [this] { OnZoom(-1); }));
    ViewMenu().addAction(MakeAction(tr("&Whole Data"), tr("Ctrl+0"), this, &Dialog::OnZoomAll));
}

// Files.

void CAdjustment_Dialog::ReadFile(const std::filesystem::path& path)
{
    AdjustmentData read;
    const AdjustmentResult result = read.Read(path, m_kind);
    const bool isRead = result == AdjustmentResult::Ok;
    const std::string reason = read.DescribeFailure(result);
    // A file that is refused leaves the one before on view.
    if (isRead || !m_bLoaded) {
        m_data = std::move(read);
        m_bLoaded = isRead;
        m_iLine = 0;
        ShowFile();
        ShownFileChanged();
    }
    if (!isRead)
        RefuseFile(path, reason);
}

std::filesystem::path CAdjustment_Dialog::ShownFile() const
{
    return m_bLoaded ? m_data.Path() : std::filesystem::path();
}

std::string_view CAdjustment_Dialog::ShownKind() const
{
    return m_kind == AdjustmentKind::AdjustCenterCcd ? "adjust-center-ccd"
                                                     : "vertical-camera-verification";
}

void CAdjustment_Dialog::ShowFile()
{
    const bool isProfile = m_data.DataForm() == Form::Profile;
    const bool isPicture = m_data.DataForm() == Form::Picture;
    setWindowTitle(QStringFromText(std::string(m_data.Title())));
    m_ui->headerTable->clear();
    FillHeaderTable(*m_ui->headerTable, m_data.Rows());
    m_ui->fileText->setText(QStringFromPath(m_data.Path().filename()));
    m_ui->fileText->setToolTip(QStringFromPath(m_data.Path()));
    m_ui->dataText->setText(isProfile || isPicture ? QStringFromText(m_data.Explanation()) : "");
    m_ui->messageText->setText(QStringFromText(m_data.Explanation()));
    m_ui->cursorText->clear();
    m_ui->picture->SetPicture(m_data.Picture());
    // As soon as the control knows how large it is.
    if (isPicture)
        QTimer::singleShot(0, m_ui->picture, &CPicture_Control::Fit);
    QWidget* const page = isProfile ? m_ui->profilePage
        : isPicture                 ? m_ui->picturePage
                                    : m_ui->messagePage;
    m_ui->dataPages->setCurrentWidget(page);
    (isPicture ? static_cast<QWidget*>(m_ui->picture) : m_ui->profilePlot)->setFocus();
    m_ui->zoomAllButton->setEnabled(isProfile || isPicture);
    m_exportLine->setEnabled(isProfile || isPicture);

    const std::int64_t lines = isProfile ? m_data.Lines().LineCount() : 1;
    m_ui->lineLabel->setVisible(lines > 1);
    m_ui->lineSpin->setVisible(lines > 1);
    const QSignalBlocker quiet(m_ui->lineSpin);
    m_ui->lineSpin->setMaximum(
        static_cast<int>(std::clamp<std::int64_t>(lines, 1, std::numeric_limits<int>::max())));
    m_ui->lineSpin->setValue(1);
    m_ui->profilePlot->SetCameras(m_data.Cameras());
    m_ui->profilePlot->ZoomAll();
    ShowLine();
}

void CAdjustment_Dialog::ShowLine()
{
    m_line = ProfileLine();
    const bool isProfile = m_data.DataForm() == Form::Profile;
    const bool complete = !isProfile || m_data.Lines().ReadLine(m_iLine, m_line);
    m_ui->profilePlot->SetLine(isProfile ? &m_line : nullptr, m_data.FirstShown());
    if (!complete)
        m_ui->cursorText->setText(tr("This line can no longer be read from the file."));
}

void CAdjustment_Dialog::ShowPixel(std::optional<PicturePixel> pixel)
{
    if (!pixel || !m_data.Picture())
        return m_ui->cursorText->clear();
    std::array<std::uint8_t, PictureRows::kRgb> bytes{};
    const auto channels = static_cast<std::size_t>(m_data.Picture()->Channels());
    m_data.Picture()->Read({pixel->x, pixel->y, 1, 1}, std::span(bytes).first(channels));
    std::string text = Format("x %lld  y %lld    value", static_cast<long long>(pixel->x),
        static_cast<long long>(pixel->y));
    for (std::size_t i = 0; i < channels; ++i)
        text += Format(" %d", bytes[i]);
    m_ui->cursorText->setText(QStringFromText(text));
}

// Commands.

void CAdjustment_Dialog::OnZoom(int steps)
{
    if (m_data.DataForm() == Form::Profile)
        m_ui->profilePlot->OnMouseWheel(m_ui->profilePlot->rect().center(), steps);
    else if (steps > 0)
        m_ui->picture->ZoomIn();
    else
        m_ui->picture->ZoomOut();
}

void CAdjustment_Dialog::OnZoomAll()
{
    m_ui->profilePlot->ZoomAll();
    m_ui->picture->Fit();
}

void CAdjustment_Dialog::OnLoad()
{
    const std::filesystem::path file = AskForFileToOpen(this,
        {tr("Load"), QStringLiteral("Adjustment test (*.con *.CON);;All Files (*)")},
        m_data.Path());
    if (!file.empty())
        ReadFile(file);
}

AdjustmentPage CAdjustment_Dialog::Page() const
{
    AdjustmentPage page;
    page.header = AdjustmentHeaderLines(m_data);
    if (m_data.DataForm() == Form::Profile) {
        page.profile = m_ui->profilePlot->Content();
        page.plotSize = m_ui->profilePlot->size();
    } else if (m_data.DataForm() == Form::Picture) {
        page.picture = m_ui->picture->Content();
    }
    return page;
}

namespace {

bool PrintOn(QPrinter& printer, const AdjustmentPage& page)
{
    return PrintOnePage(
        printer, kPrintDocumentName, [&page](QPainter& painter, const QRectF& printable) {
            DrawAdjustmentPage(painter, printable, page);
        });
}

} // namespace

void CAdjustment_Dialog::OnPrint()
{
    QPrinter printer(QPrinter::HighResolution);
    if (AskForPrinter(printer, this) && !PrintOn(printer, Page()))
        ShowPrintFailure();
}

void CAdjustment_Dialog::OnPrintPreview()
{
    QPrinter printer(QPrinter::HighResolution);
    const AdjustmentPage page = Page();
    ShowPrintPreview(printer, this, [&page](QPrinter& target) { PrintOn(target, page); });
}

std::filesystem::path CAdjustment_Dialog::AskForTable(const QString& title)
{
    std::filesystem::path proposed = m_data.Path();
    proposed.replace_extension(".csv");
    return AskForFileToSave(this, {title, tr("Table (*.csv)"), QStringLiteral("csv")}, proposed);
}

void CAdjustment_Dialog::OnExportHeader()
{
    const std::filesystem::path target = AskForTable(tr("Export Table"));
    if (!target.empty())
        TellCannotSave(target, ExportHeaderAsCsv(target, m_data.Rows()));
}

/// The line shown; of a picture, the one in the middle of the view.
std::int64_t CAdjustment_Dialog::LineToExport() const
{
    if (m_data.DataForm() == Form::Profile)
        return m_iLine;
    return std::clamp<std::int64_t>(
        m_ui->picture->View().y.centre, 0, m_data.Lines().LineCount() - 1);
}

void CAdjustment_Dialog::OnExportLine()
{
    const std::filesystem::path target = AskForTable(tr("Export Line"));
    if (!target.empty())
        TellCannotSave(target, ExportAdjustmentAsCsv(target, m_data, LineToExport()));
}

} // namespace vireo
