#include "app/UnpackBeside.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"
#include "tests/viewers/oscilloscope/OscilloscopeFile.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/oscilloscope/PauseSpinBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vireo {
namespace {

/// Notes what it is asked to open; dumps it unpacks as the program does.
class HostRecorder : public ViewerHost {
public:
    bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) override
    {
        m_opened.push_back(std::string(viewer) + " " + file.filename().string());
        m_bParentWasHidden = !parent || !parent->isVisible();
        return true;
    }
    bool OpenPicture(const MarkedPicture&, QWidget*) override { return false; }
    bool UnpackDump(const std::filesystem::path& dump, QWidget* parent) override
    {
        m_bParentWasHidden = !parent || !parent->isVisible();
        return UnpackBeside(dump, parent);
    }

    std::vector<std::string> m_opened;
    bool m_bParentWasHidden = false;
};

class COscilloscope_DialogTest : public testing::Test {
protected:
    // Each test has its own log, and leaves no lines to the next.
    COscilloscope_DialogTest() { log_Init("Test", ".log", m_folder.Path()); }
    ~COscilloscope_DialogTest() override
    {
        m_dialog.reset();
        log_Close();
    }

    /// Opens the dialog as the program does, but without waiting for its end; false when it closed
    /// by itself at once.
    bool Open(const std::filesystem::path& path, bool isFolder = false)
    {
        m_dialog = std::make_unique<COscilloscope_Dialog>(path, isFolder, m_host);
        if (m_dialog->HasHandedOver())
            return false;
        m_dialog->resize(1100, 700);
        m_dialog->show();
        return QTest::qWaitForWindowExposed(m_dialog.get());
    }
    bool Open(const OscilloscopeFile& file) { return Open(m_folder.Write("a.con", file.Bytes())); }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* const widget = m_dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    QAbstractButton& Button(const char* name) const { return Find<QAbstractButton>(name); }
    /// Clicks at the left end, where a radio button has its circle.
    void Click(const char* name) const
    {
        QAbstractButton& button = Button(name);
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(10, button.height() / 2));
    }
    void Key(Qt::Key key) const { QTest::keyClick(m_dialog->focusWidget(), key); }

    CLPFControle& Plot(const char* name) const { return Find<CLPFControle>(name); }
    const ProfilePlotContent& Overview() const { return Plot("overviewPlot").Content(); }
    std::string Title(const char* plot) const { return Plot(plot).Content().scene.title; }
    std::string Text(const char* label) const { return Find<QLabel>(label).text().toStdString(); }

    /// Letters of the cameras that can be chosen.
    std::string OfferedCameras() const
    {
        std::string letters;
        for (char letter = 'A'; letter <= 'H'; ++letter) {
            const std::string name = std::string("camera") + letter + "Button";
            if (Button(name.c_str()).isVisible())
                letters += letter;
        }
        return letters;
    }

    TempFolder m_folder;
    HostRecorder m_host;
    MessageRecorder m_messages;
    std::unique_ptr<COscilloscope_Dialog> m_dialog;
};

TEST_F(COscilloscope_DialogTest, AColourFileOffersItsPlanesAndCameras)
{
    OscilloscopeFile file;
    file.isCorrected = true;
    file.cameraPixels = {200, 9, 10};
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(m_dialog->windowTitle(), "Software Oscilloscope");
    EXPECT_TRUE(m_messages.Messages().empty());
    for (const char* button : {"redButton", "greenButton", "blueButton"})
        EXPECT_TRUE(Button(button).isVisible() && Button(button).isEnabled()) << button;
    EXPECT_TRUE(Button("blueButton").isChecked()) << "corrected colour data begin with blue";
    EXPECT_EQ(Overview().shown, ShownColour::Blue);
    EXPECT_EQ(OfferedCameras(), "AC");
    EXPECT_TRUE(Button("correctedCheck").isChecked());
    EXPECT_FALSE(Button("uncorrectedCheck").isChecked());
    EXPECT_FALSE(Button("correctedCheck").isEnabled());
    EXPECT_FALSE(Button("loadButton").isVisible());
    EXPECT_FALSE(Find<QWidget>("folderGroup").isVisible());
}

TEST_F(COscilloscope_DialogTest, ItsStartIsLogged)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    log_Close();
    const std::string log = TempFolder::Read(m_folder.Path() / "Test.log");
    std::size_t from = 0;
    for (const std::string step :
        {"OnInitDialog() \n", "OnInitDialog() 6\n", "bool COscilloscope_Dialog::ReadFile()\n",
            "a.con\n", "OnInitDialog() 7\n", "OnInitDialog() 8\n", "OnInitDialog() 9\n"}) {
        from = log.find(step, from);
        EXPECT_NE(from, std::string::npos) << step << log;
    }
}

TEST_F(COscilloscope_DialogTest, AGrayFileHasOneColourNamedGray)
{
    OscilloscopeFile file;
    file.color = TestFileHeader::kColorGray;
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(Button("greenButton").text(), "Gray");
    EXPECT_TRUE(Button("greenButton").isChecked());
    for (const char* button : {"redButton", "blueButton", "allButton"})
        EXPECT_FALSE(Button(button).isVisible()) << button;
    Click("greenButton");
    EXPECT_EQ(Overview().shown, ShownColour::Gray);
}

TEST_F(COscilloscope_DialogTest, AChosenColourIsShownByEveryPlot)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    const std::pair<const char*, ShownColour> choices[] = {{"redButton", ShownColour::Red},
        {"allButton", ShownColour::All}, {"blueButton", ShownColour::Blue},
        {"greenButton", ShownColour::Green}};
    for (const auto& [button, shown] : choices) {
        Click(button);
        for (const char* plot : {"overviewPlot", "leftPlot", "rightPlot"})
            EXPECT_EQ(Plot(plot).Content().shown, shown) << button << " " << plot;
    }
}

TEST_F(COscilloscope_DialogTest, BeforeTheFirstPaintNothingHappens)
{
    m_dialog = std::make_unique<COscilloscope_Dialog>(
        m_folder.Write("a.con", OscilloscopeFile().Bytes()), false, m_host);
    const ShownColour before = Overview().shown;
    Button("redButton").click();
    Button("cameraBButton").click();
    Button("lightProfileButton").click();
    EXPECT_EQ(Overview().shown, before);
    EXPECT_EQ(Title("leftPlot").substr(0, 15), "Camera A, first");
}

TEST_F(COscilloscope_DialogTest, EachMissingItemIsTold)
{
    TestFileHeader header;
    header.WriteOscilloscopeTag();
    header.WriteCameraCount(2);
    header.WriteCameraPixels(1, 40);
    header.FixUpDataOffset();
    ASSERT_TRUE(Open(m_folder.Write("bare.con", header.Text() + std::string(100, 'x'))));
    std::vector<std::string> told;
    for (const auto& message : m_messages.Messages())
        told.push_back(message.text);
    const std::vector<std::string> expected{"Missing Information:\nIs Color or B/W Scanner",
        "Missing Information:\nColor", "Missing Information:\nCamera Used",
        "Missing Information:\nIs Corrected/Uncorrected", "Missing Information:\nDate",
        "Missing Information:\nTime", "Missing Information:\nScanner Name",
        "Missing Information:\nGet Camera A Pix", "Missing Information:\nMagnification",
        "Missing Information:\nCenter Lines"};
    EXPECT_EQ(told, expected);
    EXPECT_EQ(OfferedCameras(), "B");
    EXPECT_TRUE(Button("cameraBButton").isChecked());
}

TEST_F(COscilloscope_DialogTest, FilesOfOtherKindsGoToTheirViewers)
{
    EXPECT_FALSE(Open(m_folder.Write("n.con", "[Noise Test]\nDataPointer=1\n")));
    EXPECT_TRUE(m_host.m_bParentWasHidden);
    EXPECT_FALSE(Open(m_folder.Write("l.con", "[G3 Light Profile]\n[Light Profile]\n")));
    const std::vector<std::string> expected{"CNCTest_Dialog n.con", "CView_LPF_Dialog l.con"};
    EXPECT_EQ(m_host.m_opened, expected);
    EXPECT_TRUE(m_messages.Messages().empty());
}

struct UnreadableCase {
    const char* name;
    const char* bytes; ///< Null for a file that is not there.
    const char* firstMessage;
    std::size_t messages;
};

class UnreadableFileTest : public COscilloscope_DialogTest,
                           public testing::WithParamInterface<UnreadableCase> { };

TEST_P(UnreadableFileTest, IsToldAndLeavesAnEmptyPlot)
{
    const auto path = m_folder.Path() / "a.con";
    if (GetParam().bytes)
        m_folder.Write("a.con", GetParam().bytes);
    ASSERT_TRUE(Open(path));
    ASSERT_EQ(m_messages.Messages().size(), GetParam().messages);
    EXPECT_NE(m_messages.Messages()[0].text.find(GetParam().firstMessage), std::string::npos)
        << m_messages.Messages()[0].text;
    EXPECT_EQ(OfferedCameras(), "");
    EXPECT_EQ(Overview().line->Length(), 0);
    for (const char* button : {"cameraAButton", "redButton", "scanWidthButton", "zoomAllButton"})
        Button(button).click();
}

INSTANTIATE_TEST_SUITE_P(All, UnreadableFileTest,
    testing::Values(UnreadableCase{"Missing", nullptr, "a.con\n", 1},
        UnreadableCase{"Empty", "", "Not an oscilloscope file", 1},
        UnreadableCase{"OtherKind", "[StarTest]\nDataPointer=3\n", "Not an oscilloscope file", 1},
        UnreadableCase{
            "DataBehindTheEnd", "[Oscilloscope]\nDataPointer=      9999\n", "a.con\n", 1}),
    [](const auto& test) { return test.param.name; });

TEST_F(COscilloscope_DialogTest, AnotherCameraRefitsTheDetailViews)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Plot("leftPlot").SetView({20.0, 10.0});
    Click("cameraCButton");
    EXPECT_EQ(Plot("leftPlot").View().first, 400.0);
    EXPECT_EQ(Plot("rightPlot").View().End(), 600.0);
    EXPECT_EQ(Plot("overviewPlot").View(), (ProfileView{0.0, 600.0}));
    EXPECT_EQ(
        Find<QScrollBar>("rightScroll").value() + Find<QScrollBar>("rightScroll").pageStep(), 600);
    Key(Qt::Key_B);
    EXPECT_TRUE(Button("cameraBButton").isChecked());
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0);
    Key(Qt::Key_H);
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0) << "there is no camera H";
}

TEST_F(COscilloscope_DialogTest, DetailModesShowTheirFigures)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Click("cameraCButton");
    Click("lightProfileButton");
    EXPECT_NE(Title("leftPlot").find("B | C"), std::string::npos)
        << "the last camera is shown with its left neighbour: " << Title("leftPlot");
    Click("scanWidthButton");
    EXPECT_NE(Title("leftPlot").find("edge"), std::string::npos) << Title("leftPlot");
    Click("verticalPositioningButton");
    EXPECT_NE(Title("leftPlot").find("ransition"), std::string::npos) << Title("leftPlot");
    Click("normalButton");
    EXPECT_EQ(Title("leftPlot").substr(0, 15), "Camera C, first");
}

TEST_F(COscilloscope_DialogTest, OneCameraHasNoLightProfile)
{
    OscilloscopeFile file;
    file.cameraPixels = {600};
    ASSERT_TRUE(Open(file));
    Click("verticalPositioningButton");
    const std::string vertical = Title("leftPlot");
    Click("normalButton");
    Click("lightProfileButton");
    EXPECT_EQ(Title("leftPlot"), vertical);
}

TEST_F(COscilloscope_DialogTest, CameraAdjustmentHasItsOwnLayout)
{
    OscilloscopeFile file;
    file.generation = 9;
    file.cameraPixels = {100, 100, 100, 100, 100};
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(Button("lightProfileButton").text(), "Camera Adjustment");
    EXPECT_FALSE(Button("scanWidthButton").isVisible());
    EXPECT_FALSE(Button("verticalPositioningButton").isVisible());
    const auto place = [this](const char* name) {
        const auto& widget = Find<QWidget>(name);
        return QRect(widget.mapTo(m_dialog.get(), QPoint()), widget.size());
    };
    const QRect gauge = place("widthGauge");
    ASSERT_TRUE(Find<QWidget>("widthGauge").isVisible());
    EXPECT_GT(gauge.left(), place("leftPlot").right());
    EXPECT_LT(gauge.right(), place("rightPlot").left());
    const double details = place("leftPlot").width() + place("rightPlot").width();
    EXPECT_NEAR(details / place("overviewPlot").width(), 0.9, 0.03);
}

TEST_F(COscilloscope_DialogTest, OneLineHasNothingToAnimate)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    EXPECT_FALSE(Find<QWidget>("linesGroup").isVisible());
    Key(Qt::Key_PageDown);
    QTest::qWait(250);
    EXPECT_EQ(Text("lineText"), "Line 1 of 1");
}

class AnimationTest : public COscilloscope_DialogTest {
protected:
    void SetUp() override
    {
        OscilloscopeFile file;
        file.lines = 3;
        ASSERT_TRUE(Open(file));
    }
    int FirstValue() const { return Overview().line->Of(Plane::Green).samples.at(0); }
    void TypePause(const char* text) const
    {
        auto& edit = Find<PauseSpinBox>("pauseSpin");
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(text));
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    int TimerInterval() const { return m_dialog->findChild<QTimer*>("lineTimer")->interval(); }
};

TEST_F(AnimationTest, LinesFollowEachOtherAround)
{
    EXPECT_TRUE(Find<QWidget>("linesGroup").isVisible());
    EXPECT_EQ(TimerInterval(), 100);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text("lineText") == "Line 3 of 3"; }));
    EXPECT_EQ(FirstValue(), OscilloscopeFile::Value(1, 2, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text("lineText") == "Line 1 of 3"; }));
    EXPECT_EQ(FirstValue(), OscilloscopeFile::Value(1, 0, 0));
}

TEST_F(AnimationTest, SpaceHoldsAndKeysStep)
{
    Key(Qt::Key_Space);
    EXPECT_TRUE(Button("holdButton").isChecked());
    const std::string held = Text("lineText");
    QTest::qWait(250);
    EXPECT_EQ(Text("lineText"), held);
    Key(Qt::Key_Right);
    EXPECT_NE(Text("lineText"), held);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Text("lineText"), held);
    Key(Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text("lineText") != held; }));
}

TEST_F(AnimationTest, APauseOutsideTheRangeIsIgnored)
{
    TypePause("2500");
    EXPECT_EQ(TimerInterval(), 2500);
    for (const char* refused : {"50", "10001", "99999", ""}) {
        TypePause(refused);
        EXPECT_EQ(TimerInterval(), 2500) << refused;
        EXPECT_EQ(Find<PauseSpinBox>("pauseSpin").value(), 2500) << refused;
    }
}

TEST_F(AnimationTest, APauseBeingTypedCountsFromTheNextLineOn)
{
    auto& edit = Find<PauseSpinBox>("pauseSpin");
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, "40000");
    QTest::qWait(250);
    EXPECT_EQ(TimerInterval(), 100);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_TRUE(QTest::qWaitFor([&] { return TimerInterval() == 4000; }));
}

TEST_F(AnimationTest, FocusIsShownForEachCamera)
{
    EXPECT_FALSE(Find<QLabel>("focusText").isVisible());
    Click("showFocusCheck");
    ASSERT_TRUE(Find<QLabel>("focusText").isVisible());
    EXPECT_EQ(Text("focusText").substr(0, 10), "Focus   A ");
    EXPECT_NE(Text("focusText").find("   C "), std::string::npos);
}

TEST_F(AnimationTest, LettersTypedIntoTheFieldChooseNoCamera)
{
    auto& edit = Find<PauseSpinBox>("pauseSpin");
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_B);
    EXPECT_TRUE(Button("cameraAButton").isChecked());
}

TEST_F(COscilloscope_DialogTest, TheCursorOverTheOverviewIsTold)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    CLPFControle& overview = Plot("overviewPlot");
    QTest::mouseMove(&overview, overview.rect().center());
    const auto reading = overview.PositionAt(overview.rect().center());
    ASSERT_TRUE(reading);
    const int value = OscilloscopeFile::Value(1, 0, static_cast<int>(reading->pixel));
    EXPECT_EQ(
        Text("positionText"), std::to_string(reading->pixel) + " (" + std::to_string(value) + ")");
    EXPECT_NE(Text("cursorText").find("Camera B"), std::string::npos) << Text("cursorText");
    CLPFControle& left = Plot("leftPlot");
    QTest::mouseMove(&left, left.rect().center());
    EXPECT_EQ(Text("positionText"), "");
    EXPECT_NE(Text("cursorText").find("Camera A"), std::string::npos) << Text("cursorText");
}

TEST_F(COscilloscope_DialogTest, ZoomedInTheOverviewComesBackToTheWholeLine)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    CLPFControle& overview = Plot("overviewPlot");
    QTest::mouseClick(&overview, Qt::LeftButton, Qt::NoModifier, overview.rect().center());
    EXPECT_LT(overview.View().length, 600.0);
    Click("zoomAllButton");
    EXPECT_EQ(overview.View(), (ProfileView{0.0, 600.0}));
    Key(Qt::Key_Plus);
    EXPECT_LT(overview.View().length, 600.0);
    Key(Qt::Key_Home);
    EXPECT_EQ(overview.View(), (ProfileView{0.0, 600.0}));
}

class FileDialogTest : public COscilloscope_DialogTest {
protected:
    /// Presses keys that open a file dialog, and answers it with a file of the test's folder.
    void Answer(const char* keys, const char* fileName) const
    {
        // Window managers give the focus back after a dialog; there is none here.
        m_dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
        const QString path = QString::fromStdString((m_folder.Path() / fileName).string());
        QTimer::singleShot(0, [path] {
            auto* const dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* const name = dialog->findChild<QLineEdit*>();
            ASSERT_NE(name, nullptr);
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
        const QKeyCombination combination = QKeySequence(QString::fromLatin1(keys))[0];
        QTest::keyClick(m_dialog.get(), combination.key(), combination.keyboardModifiers());
    }
};

TEST_F(FileDialogTest, LoadShowsAnotherFile)
{
    OscilloscopeFile other;
    other.color = TestFileHeader::kColorGray;
    other.lines = 2;
    m_folder.Write("other.con", other.Bytes());
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Click("cameraBButton");
    Answer("Ctrl+O", "other.con");
    EXPECT_EQ(Overview().shown, ShownColour::Gray);
    EXPECT_TRUE(Find<QWidget>("linesGroup").isVisible());
    EXPECT_TRUE(Button("cameraBButton").isChecked()) << "the camera stays where there is one";
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0);
}

TEST_F(FileDialogTest, LoadingANoiseFileHandsItOnAndCloses)
{
    m_folder.Write("noise.con", "[Noise Test]\nDataPointer=1\n");
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "noise.con");
    EXPECT_EQ(m_host.m_opened, std::vector<std::string>{"CNCTest_Dialog noise.con"});
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(FileDialogTest, TheLineAndThePictureAreSaved)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+E", "line");
    EXPECT_EQ(TempFolder::Read(m_folder.Path() / "line.csv").substr(0, 6), "pixel,");
    Answer("Ctrl+Shift+S", "plots.png");
    const QImage picture(QString::fromStdString((m_folder.Path() / "plots.png").string()));
    EXPECT_GT(picture.width(), picture.height());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(COscilloscope_DialogTest, TheSamplesOpen)
{
    const std::filesystem::path samples(VIREO_SAMPLES);
    ASSERT_TRUE(Open(samples / "oscilloscope-set", true));
    EXPECT_EQ(Text("folderText"), "300dpi Color Adjusted");
    ASSERT_TRUE(Open(samples / "mtf.con"));
    EXPECT_EQ(Overview().line->extras.size(), 5u);
    EXPECT_TRUE(m_messages.Messages().empty());
    ASSERT_TRUE(Open(samples / "oscilloscope-missing-items.con"));
    EXPECT_FALSE(m_messages.Messages().empty());
}

class FolderTest : public COscilloscope_DialogTest {
protected:
    void Fill()
    {
        OscilloscopeFile file;
        m_folder.Write("Oscil_Adjusted_600.con", file.Bytes());
        file.color = TestFileHeader::kColorGray;
        file.cameraPixels = {300, 300};
        m_folder.Write("Oscil_Gray_Unadjusted_300.con", file.Bytes());
    }
    /// What the user does in the list that Change opens.
    void ChangeTo(int row) const
    {
        QTimer::singleShot(0, [row] {
            auto* const list = QApplication::activeModalWidget()->findChild<QListWidget*>();
            list->setCurrentRow(row);
            QTest::keyClick(list, Qt::Key_Return);
        });
        Click("changeButton");
    }
};

TEST_F(FolderTest, ShowsItsFirstFileAndChangesToAnother)
{
    Fill();
    ASSERT_TRUE(Open(m_folder.Path(), true));
    EXPECT_EQ(Text("folderText"), "600dpi Color Adjusted");
    EXPECT_EQ(OfferedCameras(), "ABC");
    EXPECT_FALSE(Find<QWidget>("lightProfileGroup").isVisible());
    EXPECT_FALSE(Button("loadButton").isEnabled());
    Click("cameraBButton");
    ChangeTo(1);
    EXPECT_EQ(Text("folderText"), "300dpi Gray Unadjusted");
    EXPECT_EQ(OfferedCameras(), "AB");
    EXPECT_TRUE(Button("cameraAButton").isChecked()) << "another file begins with its first camera";
    EXPECT_EQ(Overview().shown, ShownColour::Gray);
}

TEST_F(FolderTest, AFolderWithoutFilesShowsNothing)
{
    ASSERT_TRUE(Open(m_folder.Path(), true));
    EXPECT_EQ(Text("folderText"), "No oscilloscope files");
    EXPECT_FALSE(Button("changeButton").isEnabled());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(OfferedCameras(), "");
}

TEST_F(FolderTest, ADumpInAFolderIsNotUnpackedAgain)
{
    m_folder.Write("Oscil_1.con", DumpFile{{{"a.con", ""}}}.Bytes());
    ASSERT_TRUE(Open(m_folder.Path(), true));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_NE(m_messages.Messages()[0].text.find("A packed dump"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(m_folder.Path() / "a.con"));
}

class DumpTest : public FileDialogTest {
protected:
    /// Two oscilloscope files, and one that is refused.
    void WriteDump() const
    {
        OscilloscopeFile gray;
        gray.color = TestFileHeader::kColorGray;
        m_folder.Write("dump.con",
            DumpFile{{{"Oscil_600.con", OscilloscopeFile().Bytes()}, {"../a.con", ""},
                         {"Oscil_Gray_300.con", gray.Bytes()}}}
                .Bytes());
    }
    void ExpectItsFolder() const
    {
        ASSERT_EQ(m_messages.Messages().size(), 2U);
        EXPECT_EQ(m_messages.Messages()[0].text,
            "This is a Kitbag packed file,\nand it will now be unpacked.");
        EXPECT_NE(m_messages.Messages()[1].text.find("1 of 3 files left out"), std::string::npos);
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_TRUE(Find<QWidget>("folderGroup").isVisible());
        EXPECT_EQ(Text("folderText"), "600dpi Color Adjusted");
        EXPECT_EQ(OfferedCameras(), "ABC");
    }
};

TEST_F(DumpTest, IsUnpackedAndItsFolderShown)
{
    WriteDump();
    ASSERT_TRUE(Open(m_folder.Path() / "dump.con"));
    ExpectItsFolder();
    EXPECT_FALSE(Find<QWidget>("lightProfileGroup").isVisible());
}

TEST_F(DumpTest, TheSameThroughLoadWhichIsNotOfferedAfterwards)
{
    WriteDump();
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "dump.con");
    EXPECT_TRUE(m_host.m_bParentWasHidden);
    ExpectItsFolder();
    QTest::keyClick(m_dialog.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(DumpTest, ThatCannotBeUnpackedShowsNothing)
{
    m_folder.Write("bad.con", "[Kitbag]\nDataPointer=        99\n");
    EXPECT_FALSE(Open(m_folder.Path() / "bad.con"));
    ASSERT_EQ(m_messages.Messages().size(), 2U);
    EXPECT_NE(m_messages.Messages()[1].text.find("lies behind the end"), std::string::npos);
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "bad.con");
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(OfferedCameras(), "");
}

} // namespace
} // namespace vireo
