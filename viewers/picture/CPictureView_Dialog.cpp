#include "viewers/picture/CPictureView_Dialog.h"

#include "platform/Message.h"
#include "ui_CPictureView_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/picture/PictureData.h"
#include "viewers/picture/PictureText.h"

#include <QAction>
#include <QLayout>
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

void CPictureView_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
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
    const bool canSave =
        hasPicture && (m_loader.IsRunning() || Picture().RowsResult() == ImageResult::Ok);
    m_ui->saveButton->setEnabled(canSave);
    m_saveAs->setEnabled(canSave);
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

} // namespace vireo
