#include "viewers/live/CLPF_Dialog.h"

#include "ui_CLPF_Dialog.h"
#include "viewers/controls/QtText.h"
#include "viewers/live/CLiveBar.h"
#include "viewers/live/CLiveScanner.h"
#include "viewers/live/LiveLine.h"
#include "viewers/live/LiveText.h"

#include <QSignalBlocker>

#include <utility>

namespace vireo {

CLPF_Dialog::CLPF_Dialog(OpenScanner scanner, QWidget* parent)
    : CViewerDialog(parent),
      m_ui(std::make_unique<Ui::CLPF_Dialog>()),
      m_scanner(std::make_unique<CLiveScanner>(std::move(scanner), *this)),
      m_shown(FirstShown(m_scanner->Identity()))
{
    m_ui->setupUi(this);
    m_ui->barLayout->addWidget(new CLiveBar(*m_scanner, this));
    SetUpPlots();
    SetUpColours();
    SetUpCameras();
    SetUpSettings();
    SetUpCommands();
    OnInitDialog();
    connect(m_scanner.get(), &CLiveScanner::LineTaken, this, &CLPF_Dialog::OnLine);
    connect(m_scanner.get(), &CLiveScanner::ValuesChanged, this, &CLPF_Dialog::OnValues);
    OnValues();
    OnDetail();
    m_scanner->Start();
}

CLPF_Dialog::~CLPF_Dialog()
{
    // A field that loses the focus reports its value: while there is somebody to hear it.
    hide();
}

void CLPF_Dialog::SetUpPlots()
{
    m_plots = {m_ui->overviewPlot, m_ui->leftPlot, m_ui->rightPlot};
    m_ui->overviewPlot->SetScrollBar(m_ui->overviewScroll);
    m_ui->leftPlot->SetScrollBar(m_ui->leftScroll);
    m_ui->rightPlot->SetScrollBar(m_ui->rightScroll);
    m_ui->overviewPlot->SetDetails({m_ui->leftPlot, m_ui->rightPlot});
    m_ui->overviewPlot->setFocusPolicy(Qt::StrongFocus);
    const ProfileCameras cameras = CamerasOf(m_scanner->Identity());
    for (CLPFControle* plot : m_plots) {
        plot->SetCameras(cameras);
        connect(plot, &CLPFControle::CursorMoved, this, &CLPF_Dialog::OnCursor);
    }
    m_ui->overviewPlot->ZoomAll();
}

void CLPF_Dialog::OnLine()
{
    ShowLine();
}

void CLPF_Dialog::ShowLine()
{
    const AcquiredLine& acquired = m_scanner->Line();
    FillProfileLine(acquired, m_scanner->Identity(), m_shown, m_ui->holdCheck->isChecked(), m_line);
    for (CLPFControle* plot : m_plots)
        plot->SetLine(&m_line, m_shown);
    ShowNote();
}

void CLPF_Dialog::OnCursor(const std::optional<CursorReading>& reading)
{
    m_cursor = reading;
    ShowNote();
}

void CLPF_Dialog::ShowNote()
{
    std::string text = AverageNote(m_scanner->Line());
    if (m_cursor)
        text += "   " + CursorNote(*m_cursor);
    m_ui->noteText->setText(QStringFromText(text));
}

int CLPF_Dialog::Camera() const
{
    return std::max(m_ui->cameraBox->currentIndex(), 0);
}

SettingPlace CLPF_Dialog::PlaceOf(ScannerSetting setting) const
{
    switch (setting) {
    case ScannerSetting::Stitch:
        // The last camera is shown with its left neighbour.
        return {BoundaryOf(Camera(), m_scanner->Identity().cameras).value_or(0), 0};
    case ScannerSetting::Gain:
    case ScannerSetting::Offset:
        return {Camera(), ScannerPlane(m_scanner->Identity(), m_shown)};
    case ScannerSetting::Correction:
        break;
    }
    return {};
}

void CLPF_Dialog::ShowValue(QSpinBox& spin, ScannerSetting setting)
{
    const auto& found = m_scanner->Values().Of(setting);
    const SettingPlace place = PlaceOf(setting);
    const bool isThere = found && HasPlace(setting, place, m_scanner->Identity());
    // Which plane's gain and offset it would be cannot be seen when all are shown.
    const bool isPlain = setting == ScannerSetting::Stitch || m_shown != ShownColour::All;
    spin.setEnabled(isThere && isPlain && found->range.canSet);
    if (!isThere)
        return;
    const QSignalBlocker quiet(&spin);
    spin.setRange(found->range.lowest, found->range.highest);
    spin.setValue(m_scanner->Values().ValueOf(setting, place).value_or(0));
}

void CLPF_Dialog::OnValues()
{
    ShowValue(*m_ui->gainSpin, ScannerSetting::Gain);
    ShowValue(*m_ui->offsetSpin, ScannerSetting::Offset);
    ShowValue(*m_ui->stitchSpin, ScannerSetting::Stitch);
    const auto& correction = m_scanner->Values().Of(ScannerSetting::Correction);
    m_ui->correctedCheck->setEnabled(correction && correction->range.canSet);
    m_ui->correctedCheck->setChecked(
        m_scanner->Values().ValueOf(ScannerSetting::Correction, {}).value_or(0) != 0);
}

void CLPF_Dialog::OnColour(ShownColour shown)
{
    m_shown = shown;
    ShowLine();
    OnValues();
}

void CLPF_Dialog::OnDetail()
{
    using Side = CLPFControle::Side;
    for (const Side side : {Side::Left, Side::Right}) {
        CLPFControle& plot = *m_plots[side == Side::Left ? 1 : 2];
        if (m_ui->boundaryButton->isChecked())
            plot.ShowLightProfile(Camera(), side);
        else
            plot.ShowCamera(Camera(), side);
    }
    OnValues();
}

} // namespace vireo
