#include "platform/Log.h"
#include "ui_CLPF_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/lightprofile/LightProfileWriter.h"
#include "viewers/live/CLPF_Dialog.h"
#include "viewers/live/CLiveScanner.h"
#include "viewers/live/LiveLine.h"
#include "viewers/live/LiveRecord.h"
#include "viewers/live/LiveText.h"

#include <QAction>
#include <QMenu>

namespace vireo {

void CLPF_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    using Dialog = CLPF_Dialog;
    AddToFileMenu(MakeAction(tr("&Save As..."), tr("Ctrl+S"), this, &Dialog::OnSave));
    AddToFileMenu(MakeAction(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint));
    AddToFileMenu(
        MakeAction(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview));
    ViewMenu().addAction(
        MakeAction(tr("&Whole Line"), tr("Ctrl+0"), m_ui->overviewPlot, &CLPFControle::ZoomAll));
    // Alt+H is the light profile's, as in the oscilloscope.
    SetMenuTitles(tr("&View"), tr("H&elp"));
}

void CLPF_Dialog::SetUpColours()
{
    struct Choice {
        QAbstractButton* button;
        ShownColour shown;
    };
    const Choice choices[] = {{m_ui->redButton, ShownColour::Red},
        {m_ui->greenButton, ShownColour::Green}, {m_ui->blueButton, ShownColour::Blue},
        {m_ui->allButton, ShownColour::All}, {m_ui->grayButton, ShownColour::Gray}};
    for (const auto& [button, shown] : choices) {
        // A black-and-white scanner has gray only, and a colour scanner no gray.
        button->setVisible((shown != ShownColour::Gray) == m_scanner->Identity().isColour);
        button->setChecked(shown == m_shown);
        connect(
            button, &QAbstractButton::clicked, this, [this, chosen = shown] { OnColour(chosen); });
    }
}

void CLPF_Dialog::SetUpCameras()
{
    const int cameras = m_scanner->Identity().cameras;
    for (int camera = 0; camera < cameras; ++camera)
        m_ui->cameraBox->addItem(QString(QLatin1Char(ProfileCameras::Letter(camera))));
    m_ui->boundaryButton->setEnabled(cameras > 1);
    connect(m_ui->cameraBox, &QComboBox::currentIndexChanged, this, &CLPF_Dialog::OnDetail);
    connect(m_ui->normalButton, &QAbstractButton::clicked, this, &CLPF_Dialog::OnDetail);
    connect(m_ui->boundaryButton, &QAbstractButton::clicked, this, &CLPF_Dialog::OnDetail);
}

void CLPF_Dialog::SetUpSpin(QSpinBox& spin, ScannerSetting setting)
{
    connect(&spin, &QSpinBox::valueChanged, this,
        [this, setting](int value) { m_scanner->ChangeValue(setting, PlaceOf(setting), value); });
}

void CLPF_Dialog::SetUpSettings()
{
    SetUpSpin(*m_ui->gainSpin, ScannerSetting::Gain);
    SetUpSpin(*m_ui->offsetSpin, ScannerSetting::Offset);
    SetUpSpin(*m_ui->stitchSpin, ScannerSetting::Stitch);
    connect(m_ui->correctedCheck, &QCheckBox::clicked, this, [this](bool checked) {
        m_scanner->ChangeValue(ScannerSetting::Correction, {}, checked ? 1 : 0);
    });
}

void CLPF_Dialog::SetUpCommands()
{
    connect(m_ui->averageSpin, &QSpinBox::valueChanged, this,
        [this](int lines) { m_scanner->SetAverage(lines); });
    connect(m_ui->holdCheck, &QCheckBox::clicked, this, &CLPF_Dialog::ShowLine);
    connect(
        m_ui->restartButton, &QAbstractButton::clicked, this, [this] { m_scanner->RestartHold(); });
    connect(
        m_ui->zoomAllButton, &QAbstractButton::clicked, m_ui->overviewPlot, &CLPFControle::ZoomAll);
    connect(m_ui->saveButton, &QAbstractButton::clicked, this, &CLPF_Dialog::OnSave);
    connect(m_ui->printButton, &QAbstractButton::clicked, this, &CLPF_Dialog::OnPrint);
    connect(m_ui->exitButton, &QAbstractButton::clicked, this, &QDialog::reject);
}

void CLPF_Dialog::OnSave()
{
    const FileQuestion question{
        tr("Save"), QStringLiteral("Light profile (*.con *.CON);;All Files (*)")};
    const std::filesystem::path target = AskForFileToSave(this, question, "LightProfile.con");
    if (target.empty())
        return;
    const LightProfileRecord record =
        LiveRecord(m_scanner->Identity(), m_scanner->Values(), CDateTime::Now());
    TellCannotSave(target, WriteLightProfile(target, record, {&m_line, 1}));
}

std::vector<std::string> CLPF_Dialog::HeaderLines() const
{
    return LiveHeaderLines(
        m_scanner->Identity(), m_shown, CDateTime::Now(), m_scanner->IsSimulated());
}

void CLPF_Dialog::OnPrint()
{
    m_ui->overviewPlot->SetHeader(HeaderLines());
    m_ui->overviewPlot->Print({m_ui->leftPlot, m_ui->rightPlot});
}

void CLPF_Dialog::OnPrintPreview()
{
    m_ui->overviewPlot->SetHeader(HeaderLines());
    m_ui->overviewPlot->PrintPreview({m_ui->leftPlot, m_ui->rightPlot});
}

} // namespace vireo
