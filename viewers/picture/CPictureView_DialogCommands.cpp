#include "imagefile/TifConversion.h"
#include "platform/Message.h"
#include "resources/ControlIds.h"
#include "ui_CPictureView_Dialog.h"
#include "viewers/controls/CHeaderText_Dialog.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/PictureExport.h"
#include "viewers/picture/PictureForms.h"
#include "viewers/picture/PictureText.h"

#include <QAction>
#include <QInputDialog>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

QString TiffFilter()
{
    return QStringLiteral("TIFF picture (*.tif *.tiff *.TIF *.TIFF);;All Files (*)");
}

} // namespace

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

void CPictureView_Dialog::SetUpMenus()
{
    using Dialog = CPictureView_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { LoadFile(file); });
    m_saveAs = MakeAction(tr("&Save As..."), tr("Ctrl+S"), this, &Dialog::OnSave);
    AddToFileMenu(m_saveAs);
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
