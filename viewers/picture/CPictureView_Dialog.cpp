#include "viewers/picture/CPictureView_Dialog.h"

#include "imagefile/TifConversion.h"
#include "platform/Message.h"
#include "resources/ControlIds.h"
#include "ui_CPictureView_Dialog.h"
#include "viewers/controls/CHeaderText_Dialog.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/PictureExport.h"
#include "viewers/picture/PictureForms.h"
#include "viewers/picture/PictureText.h"

#include <QAction>
#include <QInputDialog>
#include <QLayout>
#include <QMenu>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>
#include <tuple>
#include <utility>

namespace vireo {

namespace {

constexpr int kFollowMilliseconds = 60;
/// A picture that is loaded so soon is shown at once, without the sight of its loading.
constexpr std::chrono::milliseconds kShownAtOnce(30);

QString TiffFilter()
{
    return QStringLiteral("TIFF picture (*.tif *.tiff *.TIF *.TIFF);;All Files (*)");
}

} // namespace

CPictureView_Dialog::CPictureView_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CPictureView_Dialog>())
{
    m_ui->setupUi(this);
    SetUpControls();
    SetUpCommands();
    OnInitDialog();
    if (file.empty())
        ShowFacts();
    else
        ReadFile(file, 1);
}

CPictureView_Dialog::CPictureView_Dialog(const MarkedPicture& picture, QWidget* parent)
    : CPictureView_Dialog(picture.file, parent)
{
    if (Picture().Holding() == PictureHolding::Nowhere)
        return;
    m_ui->plot->SetMarks(picture.marks);
    m_ui->plot->PointAt(picture.middle);
    ShowFacts();
}

CPictureView_Dialog::~CPictureView_Dialog() = default;

void CPictureView_Dialog::SetUpControls()
{
    m_ui->plot->Navigation().SetScrollBars(m_ui->horizontalScrollBar, m_ui->verticalScrollBar);
    m_ui->plot->Initialise();
    m_ui->plot->setFocus();
    m_ui->loadingRow->hide();
    m_ui->swatch->hide();
    m_loadingTimer.setInterval(kFollowMilliseconds);
    const int buttonWidth = 2 * m_ui->nextPageButton->fontMetrics().horizontalAdvance(u'M');
    for (QPushButton* const button : {m_ui->previousPageButton, m_ui->nextPageButton})
        button->setMaximumWidth(buttonWidth);
}

void CPictureView_Dialog::SetUpCommands()
{
    using Dialog = CPictureView_Dialog;
    const std::pair<QPushButton*, Command> commands[] = {{m_ui->loadButton, &Dialog::OnLoad},
        {m_ui->saveButton, &Dialog::OnSave}, {m_ui->printButton, &Dialog::OnPrint},
        {m_ui->cancelButton, &Dialog::OnCancel}, {m_ui->nextPageButton, &Dialog::OnNextPage},
        {m_ui->previousPageButton, &Dialog::OnPreviousPage}};
    for (const auto& [button, command] : commands)
        connect(button, &QPushButton::clicked, this, command);
    connect(m_ui->exitButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->pageSpin, &QSpinBox::valueChanged, this, &Dialog::OnPage);
    connect(&m_loadingTimer, &QTimer::timeout, this, &Dialog::FollowLoading);

    using Plot = CPictureView_Control;
    Plot* const plot = m_ui->plot;
    connect(m_ui->fitButton, &QPushButton::clicked, plot, &Plot::Fit);
    connect(m_ui->oneToOneButton, &QPushButton::clicked, plot, &Plot::ShowOneToOne);
    connect(m_ui->boundariesCheck, &QCheckBox::toggled, plot, &Plot::ShowBoundaries);
    connect(m_ui->marksCheck, &QCheckBox::toggled, plot, &Plot::ShowMarks);
    connect(&plot->Navigation(), &PictureNavigation::ViewChanged, this, &Dialog::ShowZoom);
    connect(&plot->Navigation(), &PictureNavigation::PointerMoved, this,
        [this](const std::optional<PicturePixel>& pixel) { ShowPixel(pixel); });
}

void CPictureView_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
}

void CPictureView_Dialog::SetUpMenus()
{
    using Dialog = CPictureView_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { LoadFile(file); });
    AddContentCommand(tr("&Save As..."), tr("Ctrl+S"), this, &Dialog::OnSave);
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Row..."), tr("Ctrl+E"), this, &Dialog::OnExportRow);
    NeedsContent(m_ui->printButton);
    if (QAction* const header = AcceleratorAction(CommandId::kShowHeader)) {
        header->setText(tr("Picture &Information"));
        header->setEnabled(HasHeader());
        AddToFileMenu(header);
    }
    using Plot = CPictureView_Control;
    QMenu& view = ViewMenu();
    PictureNavigation* const navigation = &m_ui->plot->Navigation();
    view.addAction(
        MakeAction(tr("Zoom &In"), tr("Ctrl++"), navigation, &PictureNavigation::ZoomIn));
    view.addAction(
        MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), navigation, &PictureNavigation::ZoomOut));
    view.addAction(MakeAction(tr("&Fit"), tr("Ctrl+0"), m_ui->plot, &Plot::Fit));
    view.addAction(MakeAction(tr("Zoom &1:1"), tr("Ctrl+1"), m_ui->plot, &Plot::ShowOneToOne));
    view.addSeparator();
    m_nextPage = MakeAction(tr("&Next Page"), tr("Ctrl+PgDown"), this, &Dialog::OnNextPage);
    m_previousPage =
        MakeAction(tr("&Previous Page"), tr("Ctrl+PgUp"), this, &Dialog::OnPreviousPage);
    view.addActions({m_nextPage, m_previousPage});
}

void CPictureView_Dialog::OnAcceleratorCommand(int command)
{
    if (command != CommandId::kShowHeader || Picture().Path().empty())
        return;
    CHeaderText_Dialog information(PageReport(Picture()), this);
    information.setWindowTitle(tr("Picture Information"));
    information.exec();
}

std::filesystem::path CPictureView_Dialog::ShownFile() const
{
    const bool hasPicture = Picture().Holding() != PictureHolding::Nowhere;
    return hasPicture ? Picture().Path() : std::filesystem::path();
}

// Files.

void CPictureView_Dialog::ReadFile(const std::filesystem::path& path, std::uint32_t page)
{
    auto picture = std::make_unique<PictureData>();
    const ImageResult result = picture->Open(path, page);
    ShowPicture(std::move(picture), result);
}

void CPictureView_Dialog::ShowPicture(std::unique_ptr<PictureData> picture, ImageResult result)
{
    m_loadingTimer.stop();
    m_ui->plot->SetPicture(nullptr);
    m_loader.Start(std::move(picture));
    m_ui->plot->SetPicture(&Picture());
    m_ui->fileText->setText(QStringFromPath(Picture().Path().filename()));
    m_ui->fileText->setToolTip(QStringFromPath(Picture().Path()));
    ShowFacts();
    ShownFileChanged();
    if (result != ImageResult::Ok) {
        NoteRefusal(Picture().Path(), std::string(Describe(result)));
        ShowLoading(false);
        TellLater([path = Picture().Path(), result] { TellCannotOpen(path, Describe(result)); });
    } else if (m_loader.Wait(kShownAtOnce)) {
        OnLoaded();
    } else {
        ShowLoading(true);
        m_loadingTimer.start();
    }
}

void CPictureView_Dialog::FollowLoading()
{
    if (!m_loader.IsRunning())
        return OnLoaded();
    m_ui->progressBar->setValue(
        static_cast<int>(m_loader.Fraction() * m_ui->progressBar->maximum()));
    m_ui->plot->PictureGrew();
}

void CPictureView_Dialog::OnLoaded()
{
    m_loadingTimer.stop();
    ShowLoading(false);
    m_ui->plot->PictureGrew();
    ShowFacts();
    if (!Picture().IsLoaded())
        return;
    Tell(Picture().RowsResult());
    const std::string note = HoldingNote(Picture());
    if (!note.empty())
        TellLater([note] { ShowMessage(note, {}, MessageIcon::Information); });
}

void CPictureView_Dialog::Tell(ImageResult result)
{
    if (result != ImageResult::Ok)
        TellLater([path = Picture().Path(), result] { TellFileFault(path, Describe(result)); });
}

/// Messages come over the window that shows what there is, even when it is being opened only now.
void CPictureView_Dialog::TellLater(const std::function<void()>& tell)
{
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

// Display.

void CPictureView_Dialog::ShowFacts()
{
    const bool hasPicture = Picture().Holding() != PictureHolding::Nowhere;
    const TifPage& page = Picture().Page();
    const auto show = [hasPicture](QLabel* label, std::string_view text) {
        label->setText(hasPicture ? QStringFromText(text) : QString());
    };
    show(m_ui->sizeText, SizeText(page));
    show(m_ui->lengthText, LengthText(page));
    show(m_ui->resolutionText, ResolutionText(page));
    show(m_ui->pixelsText, DepthText(page));
    show(m_ui->compressionText, CompressionText(page));
    show(m_ui->fileSizeText, BytesText(Picture().FileBytes()));
    m_ui->pictureLayout->setRowVisible(m_ui->lengthText, page.resolution != 0);
    m_ui->pictureGroup->setVisible(hasPicture);
    show(m_ui->noteText, LoadingNote(Picture(), m_loader.IsRunning()));
    ShowPages();
    m_ui->boundariesCheck->setVisible(m_ui->plot->HasBoundaries());
    m_ui->marksCheck->setVisible(m_ui->plot->HasMarks());
    m_ui->showGroup->setVisible(m_ui->plot->HasBoundaries() || m_ui->plot->HasMarks());
    // A file that lacks rows would only come to the same fault.
    m_ui->saveButton->setEnabled(
        hasPicture && (m_loader.IsRunning() || Picture().RowsResult() == ImageResult::Ok));
    // A layout does not count wrapped lines into its smallest height.
    m_ui->pictureGroup->updateGeometry();
    QWidget& panel = *m_ui->sidePanel;
    panel.setMinimumHeight(std::max(panel.layout()->totalHeightForWidth(panel.maximumWidth()), 0));
}

void CPictureView_Dialog::ShowPages()
{
    const auto pages = static_cast<int>(Picture().Pages());
    const auto page = static_cast<int>(Picture().PageNumber());
    const QSignalBlocker quiet(m_ui->pageSpin);
    m_ui->pageSpin->setMaximum(std::max(pages, 1));
    m_ui->pageSpin->setValue(page);
    m_ui->pageGroup->setVisible(pages > 1);
    m_ui->pagesText->setText(tr("of %1").arg(std::max(pages, 1)));
    for (const auto& [button, action, isThere] :
        {std::tuple(m_ui->previousPageButton, m_previousPage, page > 1),
            std::tuple(m_ui->nextPageButton, m_nextPage, page < pages)}) {
        button->setEnabled(isThere);
        action->setEnabled(isThere);
    }
}

void CPictureView_Dialog::ShowLoading(bool isLoading)
{
    m_ui->progressBar->setValue(0);
    m_ui->loadingRow->setVisible(isLoading);
}

void CPictureView_Dialog::ShowZoom()
{
    constexpr double kPercent = 100.0;
    const double zoom = m_ui->plot->View().zoom * kPercent;
    m_ui->zoomText->setText(tr("%1 %").arg(zoom, 0, 'f', zoom < 10.0 ? 2 : 0));
}

void CPictureView_Dialog::ShowPixel(const std::optional<PicturePixel>& pixel)
{
    const PixelReading reading = pixel ? ReadPixel(Picture(), pixel->x, pixel->y) : PixelReading();
    m_ui->positionText->setText(QStringFromText(reading.position));
    m_ui->valueText->setText(QStringFromText(reading.value));
    m_ui->cameraText->setText(QStringFromText(reading.camera));
    ShowPalette(pixel);
}

/// A palette index says little without its colour.
void CPictureView_Dialog::ShowPalette(const std::optional<PicturePixel>& pixel)
{
    const auto samples = pixel && Picture().Page().depth == ColorDepth::Palette8
        ? Picture().SamplesAt(pixel->x, pixel->y)
        : std::nullopt;
    m_ui->swatch->setVisible(samples.has_value());
    if (!samples)
        return;
    const auto color = Picture().PaletteColor(static_cast<std::uint8_t>(samples->values[0]));
    const int side = m_ui->valueText->fontMetrics().ascent();
    QPixmap swatch(side, side);
    swatch.fill(QColor(color.red, color.green, color.blue));
    m_ui->swatch->setPixmap(swatch);
}

// Commands.

void CPictureView_Dialog::OnLoad()
{
    const std::filesystem::path file =
        AskForFileToOpen(this, {tr("Load"), TiffFilter(), QStringLiteral("tif")}, Picture().Path());
    if (!file.empty())
        LoadFile(file);
}

void CPictureView_Dialog::LoadFile(const std::filesystem::path& file)
{
    auto picture = std::make_unique<PictureData>();
    const ImageResult result = picture->Open(file);
    // A file that is refused leaves the one before on view.
    if (result != ImageResult::Ok && !ShownFile().empty())
        return RefuseFile(file, std::string(Describe(result)));
    m_ui->plot->SetMarks({});
    ShowPicture(std::move(picture), result);
}

void CPictureView_Dialog::OnSave()
{
    if (!m_ui->saveButton->isEnabled())
        return;
    const std::optional<PictureForm> form = AskForForm();
    if (!form)
        return;
    TifConversion conversion;
    conversion.input = Picture().Path();
    conversion.page = Picture().PageNumber();
    conversion.compression = form->compression;
    conversion.predictor = form->predictor;
    conversion.output = AskForFileToSave(
        this, {tr("Save As"), TiffFilter(), QStringLiteral("tif")}, Picture().Path());
    if (!conversion.output.empty()) {
        WaitFor(tr("Save As"), tr("Please wait while saving"),
            [&](WorkProgress& progress) { return ConvertTif(conversion, &progress); });
    }
}

/// How the picture is to be stored, at first as it is; nothing when cancelled.
std::optional<PictureForm> CPictureView_Dialog::AskForForm()
{
    const std::vector<PictureForm> forms = PictureForms(Picture().Page().depth);
    QStringList names;
    int present = 0;
    for (const PictureForm& form : forms) {
        if (form.compression == Picture().Page().compression
            && form.predictor == Picture().Page().predictor)
            present = static_cast<int>(names.size());
        names.append(QStringFromText(form.name));
    }
    bool isChosen = false;
    const QString name = QInputDialog::getItem(
        this, tr("Save As"), tr("&Compression:"), names, present, false, &isChosen);
    const auto index = names.indexOf(name);
    return isChosen && index >= 0 ? std::optional(forms[static_cast<std::size_t>(index)])
                                  : std::nullopt;
}

/// Does work that takes long and tells why it failed, if it gives a reason (UTF-8).
void CPictureView_Dialog::WaitFor(const QString& title, const QString& text,
    const std::function<std::string(WorkProgress&)>& work)
{
    std::string failure;
    CWait_Dialog wait(title, text, CWait_Dialog::Cancelling::Offered, this);
    wait.Run([&](WorkProgress& progress) { failure = work(progress); });
    if (!failure.empty())
        ShowMessageInUtf8(failure);
}

void CPictureView_Dialog::OnPrint()
{
    m_ui->plot->SetHeaderLines(PictureHeaderLines(Picture()));
    m_ui->plot->Print();
}

void CPictureView_Dialog::OnPrintPreview()
{
    m_ui->plot->SetHeaderLines(PictureHeaderLines(Picture()));
    m_ui->plot->PrintPreview();
}

/// The row in the middle of the view is the one that is exported.
void CPictureView_Dialog::OnExportRow()
{
    if (Picture().Holding() == PictureHolding::Nowhere)
        return;
    std::filesystem::path proposed = Picture().Path();
    proposed.replace_extension(".csv");
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Export Row"), tr("Table (*.csv)"), QStringLiteral("csv")}, proposed);
    if (target.empty())
        return;
    const std::int64_t row =
        std::clamp<std::int64_t>(m_ui->plot->View().y.centre, 0, Picture().Page().height - 1);
    WaitFor(tr("Export Row"), tr("Please wait while exporting"), [&](WorkProgress& progress) {
        return ExportPictureRow({Picture().Path(), Picture().PageNumber(), row, target}, progress);
    });
}

void CPictureView_Dialog::OnCancel()
{
    m_loader.Cancel();
    OnLoaded();
}

void CPictureView_Dialog::OnPage(int page)
{
    if (page >= 1 && page <= static_cast<int>(Picture().Pages())) {
        m_ui->plot->SetMarks({});
        ReadFile(Picture().Path(), static_cast<std::uint32_t>(page));
    }
}

void CPictureView_Dialog::OnNextPage()
{
    OnPage(static_cast<int>(Picture().PageNumber()) + 1);
}

void CPictureView_Dialog::OnPreviousPage()
{
    OnPage(static_cast<int>(Picture().PageNumber()) - 1);
}

} // namespace vireo
