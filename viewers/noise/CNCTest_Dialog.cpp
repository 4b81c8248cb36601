#include "viewers/noise/CNCTest_Dialog.h"

#include "platform/Message.h"
#include "ui_CNCTest_Dialog.h"
#include "viewers/controls/QtText.h"
#include "viewers/noise/CNoiseTestControl.h"
#include "viewers/noise/NoiseText.h"
#include "viewers/noise/StationLimit.h"

namespace vireo {

CNCTest_Dialog::CNCTest_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CNoiseBase_Dialog(parent),
      m_ui(std::make_unique<Ui::CNCTest_Dialog>())
{
    m_ui->setupUi(this);
    SetUpWidgets({m_ui->plot, m_ui->scrollBar, m_ui->fileText, m_ui->redButton, m_ui->greenButton,
        m_ui->blueButton, nullptr});
    m_ui->plot->SetUnit(ReadUnitSetting());
    connect(
        m_ui->zoomAllButton, &QAbstractButton::clicked, m_ui->plot, &CNoiseTestControl::ZoomAll);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    OnInitDialog();
    ReadFile(file);
    if (HasFile() && !Data().m_iNoiseLimit)
        ReadStationLimit();
}

CNCTest_Dialog::~CNCTest_Dialog() = default;

void CNCTest_Dialog::ReadStationLimit()
{
    if (const std::optional<int> limit = StationNoiseLimit()) {
        m_iStationLimit = *limit;
        ShowFigures();
    } else {
        ShowMessage("Noise Test Value not found in Fct_Tst6.INI.");
    }
}

int CNCTest_Dialog::Limit() const
{
    return LimitPercent(Data(), m_iStationLimit);
}

void CNCTest_Dialog::ShowFigures()
{
    m_ui->averageText->setText(QStringFromText(CheckAverageText(Data())));
    m_ui->limitText->setText(QStringFromText(CheckLimitText(Limit())));
}

void CNCTest_Dialog::ShowCursor(std::optional<std::int64_t> pixel)
{
    if (!pixel)
        return; // The last position stays to be noted down.
    const double position = m_ui->plot->Content().Ruler().PositionOf(static_cast<double>(*pixel));
    m_ui->positionText->setText(QString::number(position, 'f', 2));
}

std::vector<std::string> CNCTest_Dialog::HeaderLines() const
{
    return PrintedHeaderLines(Data(), Limit(), NoiseDateToday());
}

const char* CNCTest_Dialog::DocumentName() const
{
    return "Printing Noise Check";
}

} // namespace vireo
