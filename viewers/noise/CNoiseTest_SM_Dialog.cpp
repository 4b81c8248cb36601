#include "viewers/noise/CNoiseTest_SM_Dialog.h"

#include "ui_CNoiseTest_SM_Dialog.h"
#include "viewers/controls/PrintCommand.h"
#include "viewers/controls/QtText.h"
#include "viewers/noise/NoiseText.h"

namespace vireo {

namespace {

constexpr PositionUnit kUnits[] = {
    PositionUnit::ScanUnit, PositionUnit::Inch, PositionUnit::Centimetre};

} // namespace

CNoiseTest_SM_Dialog::CNoiseTest_SM_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CNoiseBase_Dialog(parent),
      m_ui(std::make_unique<Ui::CNoiseTest_SM_Dialog>())
{
    m_ui->setupUi(this);
    SetUpWidgets({m_ui->plot, m_ui->scrollBar, m_ui->fileText, m_ui->redButton, m_ui->greenButton,
        m_ui->blueButton, m_ui->grayButton});
    // Wide enough for any position, so that the plot does not change its width with the cursor.
    m_ui->cursorText->setMinimumWidth(
        m_ui->cursorText->fontMetrics().horizontalAdvance(QStringLiteral("Position:  0000.00")));
    SetUpCommands();
    OnInitDialog();
    if (file.empty())
        ShowFigures();
    else
        ReadFile(file);
}

CNoiseTest_SM_Dialog::~CNoiseTest_SM_Dialog() = default;

void CNoiseTest_SM_Dialog::OnInitDialog()
{
    CNoiseBase_Dialog::OnInitDialog();
    // Saving is left to the menu, and a rescan needs a scanner.
    m_ui->saveButton->hide();
    m_ui->rescanButton->hide();
    NeedsContent(m_ui->printButton);
    const PositionUnit unit = ReadUnitSetting();
    UnitButton(unit).setChecked(true);
    m_ui->plot->SetUnit(unit);
}

void CNoiseTest_SM_Dialog::SetUpCommands()
{
    for (const PositionUnit unit : kUnits)
        connect(&UnitButton(unit), &QRadioButton::clicked, this, [this, unit] { OnUnit(unit); });
    connect(m_ui->zoomAllButton, &QAbstractButton::clicked, this, &CNoiseTest_SM_Dialog::OnZoomAll);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &CNoiseTest_SM_Dialog::OnPrint);
    connect(m_ui->loadButton, &QAbstractButton::clicked, this, &CNoiseTest_SM_Dialog::OnLoad);
    connect(m_ui->saveButton, &QAbstractButton::clicked, this, &CNoiseTest_SM_Dialog::OnSave);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
}

QRadioButton& CNoiseTest_SM_Dialog::UnitButton(PositionUnit unit) const
{
    switch (unit) {
    case PositionUnit::ScanUnit:
        return *m_ui->scanUnitButton;
    case PositionUnit::Inch:
        return *m_ui->inchButton;
    case PositionUnit::Centimetre:
        break;
    }
    return *m_ui->centimetreButton;
}

void CNoiseTest_SM_Dialog::OnUnit(PositionUnit unit)
{
    if (!HasFile()) {
        UnitButton(m_ui->plot->Content().unit).setChecked(true);
        return;
    }
    WriteUnitSetting(unit);
    m_ui->plot->SetUnit(unit);
    ShowFigures();
}

/// Does nothing, as it always has in this dialog: the right mouse button zooms out.
void CNoiseTest_SM_Dialog::OnZoomAll() { }

int CNoiseTest_SM_Dialog::Limit() const
{
    return LimitPercent(Data(), NoiseData::kDefaultLimitPercent);
}

void CNoiseTest_SM_Dialog::ShowFigures()
{
    m_ui->averageText->setText(QStringFromText(AverageText(Data())));
    m_ui->limitText->setText(QStringFromText(LimitText(Limit())));
}

void CNoiseTest_SM_Dialog::ShowCursor(std::optional<std::int64_t> pixel)
{
    if (!pixel)
        return; // The last position stays to be noted down.
    const double position = m_ui->plot->Content().Ruler().PositionOf(static_cast<double>(*pixel));
    m_ui->cursorText->setText(QStringFromText(CursorPositionText(position)));
}

std::vector<std::string> CNoiseTest_SM_Dialog::HeaderLines() const
{
    return TestHeaderLines(Data());
}

const char* CNoiseTest_SM_Dialog::DocumentName() const
{
    return kPrintDocumentName;
}

} // namespace vireo
