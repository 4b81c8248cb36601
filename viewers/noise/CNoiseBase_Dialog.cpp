#include "viewers/noise/CNoiseBase_Dialog.h"

#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"
#include "viewers/noise/CNoiseTestControl.h"
#include "viewers/noise/NoiseExport.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>

#include <utility>

namespace vireo {

namespace {

constexpr ShownColour kPlanes[] = {
    ShownColour::Red, ShownColour::Green, ShownColour::Blue, ShownColour::Gray};

QString NoiseFilter()
{
    return QStringLiteral("Noise file (*.con *.CON);;*_STI.CON) (*_sti.con *_STI.CON);;"
                          "All Files (*)");
}

} // namespace

CNoiseBase_Dialog::CNoiseBase_Dialog(QWidget* parent) : CViewerDialog(parent) { }

void CNoiseBase_Dialog::SetUpWidgets(const Widgets& widgets)
{
    m_widgets = widgets;
    m_widgets.plot->SetScrollBar(m_widgets.scrollBar);
    m_widgets.plot->setFocus();
    connect(m_widgets.plot, &CNoiseTestControl::CursorMoved, this,
        [this](std::optional<std::int64_t> pixel) { ShowCursor(pixel); });
    for (const ShownColour shown : kPlanes)
        if (QAbstractButton* const button = PlaneButton(shown))
            connect(button, &QAbstractButton::clicked, this, [this, shown] { OnPlane(shown); });
}

QAbstractButton* CNoiseBase_Dialog::PlaneButton(ShownColour shown) const
{
    switch (shown) {
    case ShownColour::Red:
        return m_widgets.red;
    case ShownColour::Blue:
        return m_widgets.blue;
    case ShownColour::Gray:
        return m_widgets.gray;
    case ShownColour::Green:
    case ShownColour::All:
        break;
    }
    return m_widgets.green;
}

void CNoiseBase_Dialog::OnInitDialog()
{
    CViewerDialog::OnInitDialog();
    SetUpMenus();
}

void CNoiseBase_Dialog::SetUpMenus()
{
    using Dialog = CNoiseBase_Dialog;
    AddToFileMenu(MakeAction(tr("&Load..."), tr("Ctrl+O"), this, &Dialog::OnLoad));
    TakeDroppedFiles([this](const std::filesystem::path& file) { LoadFile(file); });
    AddContentCommand(tr("&Save As..."), tr("Ctrl+S"), this, &Dialog::OnSave);
    AddContentCommand(tr("&Print..."), tr("Ctrl+P"), this, &Dialog::OnPrint);
    AddContentCommand(tr("Print Pre&view..."), tr("Ctrl+Shift+P"), this, &Dialog::OnPrintPreview);
    AddContentCommand(tr("&Export Line..."), tr("Ctrl+E"), this, &Dialog::OnExportLine);
    AddHeaderToFileMenu();
    CNoiseTestControl* const plot = m_widgets.plot;
    ViewMenu().addAction(
        MakeAction(tr("Zoom &In"), tr("Ctrl++"), plot, &CNoiseTestControl::ZoomIn));
    ViewMenu().addAction(
        MakeAction(tr("Zoom &Out"), tr("Ctrl+-"), plot, &CNoiseTestControl::ZoomOut));
    ViewMenu().addAction(
        MakeAction(tr("&Whole Line"), tr("Ctrl+0"), plot, &CNoiseTestControl::ZoomAll));
}

void CNoiseBase_Dialog::ReadFile(const std::filesystem::path& path)
{
    const NoiseResult result = m_data.Read(path);
    m_bLoaded = result == NoiseResult::Ok;
    m_iShownPixels = -1;
    ShowRecord();
    m_widgets.fileText->setText(QStringFromPath(path.filename()));
    m_widgets.fileText->setToolTip(QStringFromPath(path));
    if (m_bLoaded)
        ShownFileChanged();
    else
        RefuseFile(path, m_data.DescribeFailure(result));
}

std::filesystem::path CNoiseBase_Dialog::ShownFile() const
{
    return m_bLoaded ? m_data.Path() : std::filesystem::path();
}

void CNoiseBase_Dialog::ShowLimits(const std::vector<Limit>& limits)
{
    m_widgets.plot->SetLimits(limits);
}

void CNoiseBase_Dialog::ForgetFile()
{
    m_data = NoiseData();
    m_bLoaded = false;
    m_iShownPixels = -1;
    m_widgets.fileText->setToolTip({});
}

void CNoiseBase_Dialog::ShowRecord()
{
    m_data.Summarise();
    if (std::exchange(m_iShownPixels, m_data.m_iLineLength) == m_data.m_iLineLength) {
        m_widgets.plot->Redraw();
    } else {
        m_widgets.plot->SetData(&m_data);
        FitPlanes();
        FitCommands();
    }
    ShowFigures();
}

void CNoiseBase_Dialog::FitPlanes()
{
    for (const ShownColour shown : kPlanes) {
        QAbstractButton* const button = PlaneButton(shown);
        if (!button)
            continue;
        // The one plane of a gray file is offered as gray where there is such a button.
        const bool isOther = !m_data.m_bHasColour && m_widgets.gray && shown != ShownColour::Gray;
        button->setEnabled(m_data.PlaneOf(shown) && !isOther);
        button->setChecked(shown == m_data.m_shown);
    }
    if (!m_data.m_bHasColour && !m_widgets.gray)
        m_widgets.green->setChecked(true);
}

void CNoiseBase_Dialog::OnPlane(ShownColour shown)
{
    m_data.m_shown = m_data.m_bHasColour ? shown : ShownColour::Gray;
    m_widgets.plot->Redraw();
    ShowFigures();
}

void CNoiseBase_Dialog::OnLoad()
{
    const std::filesystem::path file =
        AskForFileToOpen(this, {tr("Load"), NoiseFilter()}, m_data.Path());
    if (!file.empty())
        LoadFile(file);
}

void CNoiseBase_Dialog::OnSave()
{
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Save"), NoiseFilter()}, m_data.Path().parent_path() / "Noise.con");
    if (!target.empty())
        TellCannotSave(target, m_data.Save(target));
}

void CNoiseBase_Dialog::OnExportLine()
{
    // A line that was not read from a file has no name yet.
    std::filesystem::path proposed = m_data.Path().empty() ? "Noise" : m_data.Path();
    proposed.replace_extension(".csv");
    const std::filesystem::path target = AskForFileToSave(
        this, {tr("Export Line"), tr("Table (*.csv)"), QStringLiteral("csv")}, proposed);
    if (!target.empty())
        TellCannotSave(target, ExportNoiseAsCsv(target, m_data));
}

void CNoiseBase_Dialog::OnPrint()
{
    m_widgets.plot->Print(HeaderLines(), DocumentName());
}

void CNoiseBase_Dialog::OnPrintPreview()
{
    m_widgets.plot->PrintPreview(HeaderLines(), DocumentName());
}

} // namespace vireo
