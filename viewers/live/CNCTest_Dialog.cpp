#include "viewers/live/CNCTest_Dialog.h"

#include "platform/Message.h"
#include "ui_CNCTest_Dialog.h"
#include "viewers/controls/QtText.h"
#include "viewers/live/CLiveBar.h"
#include "viewers/live/CLiveScanner.h"
#include "viewers/live/LiveText.h"
#include "viewers/noise/CNoiseTestControl.h"
#include "viewers/noise/NoiseText.h"
#include "viewers/noise/NoiseVerdict.h"
#include "viewers/noise/StationLimit.h"

#include <algorithm>
#include <utility>

namespace vireo {

CNCTest_Dialog::CNCTest_Dialog(QWidget* parent, std::unique_ptr<Ui::CNCTest_Dialog> ui)
    : CNoiseBase_Dialog(parent),
      m_ui(std::move(ui))
{
    SetUp();
}

CNCTest_Dialog::CNCTest_Dialog(const std::filesystem::path& file, QWidget* parent)
    : CNCTest_Dialog(parent, std::make_unique<Ui::CNCTest_Dialog>())
{
    m_ui->correctedCheck->hide();
    m_ui->saveButton->hide();
    ReadFile(file);
    if (HasFile() && !Data().m_iNoiseLimit)
        ReadStationLimit();
}

CNCTest_Dialog::CNCTest_Dialog(OpenScanner scanner, QWidget* parent)
    : CNCTest_Dialog(parent, std::make_unique<Ui::CNCTest_Dialog>())
{
    m_scanner = std::make_unique<CLiveScanner>(std::move(scanner), *this);
    SetUpScanner();
    ReadStationLimit();
    m_scanner->Start();
}

CNCTest_Dialog::~CNCTest_Dialog()
{
    if (m_iCorrectionBefore)
        m_scanner->ChangeValue(ScannerSetting::Correction, {}, *m_iCorrectionBefore);
}

void CNCTest_Dialog::SetUp()
{
    m_ui->setupUi(this);
    SetUpWidgets({m_ui->plot, m_ui->scrollBar, m_ui->fileText, m_ui->redButton, m_ui->greenButton,
        m_ui->blueButton, nullptr});
    m_ui->plot->SetUnit(ReadUnitSetting());
    connect(
        m_ui->zoomAllButton, &QAbstractButton::clicked, m_ui->plot, &CNoiseTestControl::ZoomAll);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(m_ui->saveButton, &QAbstractButton::clicked, this, &CNCTest_Dialog::OnSave);
    OnInitDialog();
}

void CNCTest_Dialog::SetUpScanner()
{
    m_ui->barLayout->addWidget(new CLiveBar(*m_scanner, this));
    connect(m_scanner.get(), &CLiveScanner::LineTaken, this, &CNCTest_Dialog::OnLine);
    connect(m_scanner.get(), &CLiveScanner::ValuesChanged, this, &CNCTest_Dialog::OnValues);
    connect(m_scanner.get(), &CLiveScanner::RunningChanged, this, &CNCTest_Dialog::OnRunning);
    connect(m_ui->correctedCheck, &QCheckBox::clicked, this, [this](bool checked) {
        m_scanner->ChangeValue(ScannerSetting::Correction, {}, checked ? 1 : 0);
    });
    const ScannerValues& values = m_scanner->Values();
    const auto& correction = values.Of(ScannerSetting::Correction);
    m_ui->correctedCheck->setVisible(correction.has_value());
    m_ui->correctedCheck->setEnabled(correction && correction->range.canSet);
    // The light profile itself leaves the band: the noise is that of corrected lines.
    if (correction && correction->range.canSet) {
        m_iCorrectionBefore = values.ValueOf(ScannerSetting::Correction, {});
        m_scanner->ChangeValue(ScannerSetting::Correction, {}, 1);
    }
}

void CNCTest_Dialog::OnRunning()
{
    if (m_scanner->IsRunning() && !std::exchange(m_bShowsScanner, true))
        ForgetFile();
}

void CNCTest_Dialog::OnValues()
{
    m_ui->correctedCheck->setChecked(
        m_scanner->Values().ValueOf(ScannerSetting::Correction, {}).value_or(0) != 0);
}

void CNCTest_Dialog::OnLine()
{
    if (!m_bShowsScanner)
        return;
    const ScannerIdentity& identity = m_scanner->Identity();
    const auto& planes = m_scanner->Line().line.planes;
    NoiseData& record = Record();
    record.TakeLine({planes.data(), static_cast<std::size_t>(identity.Planes())});
    record.SetScanWidth(identity.widthPer1200);
    record.m_ScannerName = identity.name;
    record.m_ScannerID = identity.id;
    const CDateTime now = CDateTime::Now();
    record.m_Date = FileDate(now);
    record.m_Time = FileTime(now);
    record.m_iNoiseLimit = m_iStationLimit;
    m_ui->fileText->setText(QStringFromText(AverageNote(m_scanner->Line())));
    ShowRecord();
}

void CNCTest_Dialog::LoadFile(const std::filesystem::path& path)
{
    CNoiseBase_Dialog::LoadFile(path);
    if (!m_scanner)
        return;
    // The file is looked at until the scanner is started again.
    m_bShowsScanner = false;
    m_scanner->Stop();
}

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
    ShowVerdict();
}

void CNCTest_Dialog::ShowVerdict()
{
    constexpr const char* kStyle =
        "QLabel { background: %1; color: white; font-weight: bold; padding: 6px; }";
    const bool lacksSheet =
        m_bShowsScanner && m_scanner->HasLine() && m_scanner->Line().paper == PaperStatus::None;
    const NoiseVerdict verdict = JudgeNoise(Data(), Limit());
    const char* colour = verdict == NoiseVerdict::Pass ? "#1e7d32" : "#b3261e";
    QString text = QStringFromText(NoiseVerdictText(Data(), Limit()));
    if (lacksSheet) {
        colour = "#5f6368";
        text = QStringFromText(PaperText(PaperStatus::None));
    }
    m_ui->verdictText->setVisible(!text.isEmpty());
    m_ui->verdictText->setText(text);
    if (const QString style = QString::fromLatin1(kStyle).arg(QLatin1String(colour));
        m_ui->verdictText->styleSheet() != style)
        m_ui->verdictText->setStyleSheet(style);
    // A window does not ask wrapped text in a panel how high it gets.
    const int width = std::max(m_ui->verdictText->width(), m_ui->verdictText->minimumWidth());
    m_ui->verdictText->setMinimumHeight(m_ui->verdictText->heightForWidth(width));
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
