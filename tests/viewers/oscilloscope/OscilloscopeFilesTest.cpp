#include "tests/DumpFile.h"
#include "tests/viewers/oscilloscope/OscilloscopeDialogTest.h"

#include <QImage>
#include <QListWidget>

namespace vireo {
namespace {

class FileDialogTest : public COscilloscope_DialogTest {
protected:
    /// Presses keys that open a file dialog, and answers it with a file of the test's folder.
    void Answer(const char* keys, const char* fileName) const
    {
        // Window managers give the focus back after a dialog; there is none here.
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        NameInNextFileDialog(folder.Path() / fileName);
        const QKeyCombination combination = QKeySequence(QString::fromLatin1(keys))[0];
        QTest::keyClick(dialog.get(), combination.key(), combination.keyboardModifiers());
    }
};

TEST_F(FileDialogTest, LoadShowsAnotherFile)
{
    OscilloscopeFile other;
    other.color = TestFileHeader::kColorGray;
    other.lines = 2;
    folder.Write("other.con", other.Bytes());
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Click("cameraBButton");
    Answer("Ctrl+O", "other.con");
    EXPECT_EQ(Overview().shown, ShownColour::Gray);
    EXPECT_TRUE(IsVisible("linesGroup"));
    EXPECT_TRUE(Button("cameraBButton").isChecked()) << "the camera stays where there is one";
    EXPECT_EQ(Plot("leftPlot").View().first, 200.0);
}

TEST_F(FileDialogTest, TheViewMenuZoomsByItsKeys)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    const double whole = Plot("overviewPlot").View().length;
    Key(Qt::Key_Plus, Qt::ControlModifier);
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_LT(Plot("overviewPlot").View().length, whole);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(Plot("overviewPlot").View().length, whole);
    Key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Plot("overviewPlot").View().length, whole);
}

TEST_F(FileDialogTest, LoadingANoiseFileHandsItOnAndCloses)
{
    folder.Write("noise.con", "[Noise Test]\nDataPointer=1\n");
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "noise.con");
    EXPECT_EQ(host.m_opened, std::vector<std::string>{"CNCTest_Dialog noise.con"});
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(FileDialogTest, TheLineAndThePictureAreSaved)
{
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+E", "line");
    EXPECT_EQ(TempFolder::Read(folder.Path() / "line.csv").substr(0, 6), "pixel,");
    Answer("Ctrl+Shift+S", "plots.png");
    const QImage picture(QString::fromStdString((folder.Path() / "plots.png").string()));
    EXPECT_GT(picture.width(), picture.height());
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(COscilloscope_DialogTest, TheSamplesOpen)
{
    const std::filesystem::path samples(VIREO_SAMPLES);
    ASSERT_TRUE(Open(samples / "oscilloscope-set", true));
    EXPECT_EQ(Text("folderText"), "300dpi Color Adjusted");
    ASSERT_TRUE(Open(samples / "mtf.con"));
    EXPECT_EQ(Overview().line->extras.size(), 5u);
    EXPECT_TRUE(messages.Messages().empty());
    ASSERT_TRUE(Open(samples / "oscilloscope-missing-items.con"));
    EXPECT_FALSE(messages.Messages().empty());
}

class FolderTest : public COscilloscope_DialogTest {
protected:
    void Fill()
    {
        OscilloscopeFile file;
        folder.Write("Oscil_Adjusted_600.con", file.Bytes());
        file.color = TestFileHeader::kColorGray;
        file.cameraPixels = {300, 300};
        folder.Write("Oscil_Gray_Unadjusted_300.con", file.Bytes());
    }
    /// What the user does in the list that Change opens.
    void ChangeTo(int row) const
    {
        InNextWindow<QDialog>([row](QDialog& choice) {
            auto* const list = choice.findChild<QListWidget*>();
            list->setCurrentRow(row);
            QTest::keyClick(list, Qt::Key_Return);
        });
        Click("changeButton");
    }
};

TEST_F(FolderTest, ShowsItsFirstFileAndChangesToAnother)
{
    Fill();
    ASSERT_TRUE(Open(folder.Path(), true));
    EXPECT_EQ(Text("folderText"), "600dpi Color Adjusted");
    EXPECT_EQ(OfferedCameras(), "ABC");
    EXPECT_FALSE(IsVisible("lightProfileGroup"));
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
    ASSERT_TRUE(Open(folder.Path(), true));
    EXPECT_EQ(Text("folderText"), "No oscilloscope files");
    EXPECT_FALSE(Button("changeButton").isEnabled());
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(OfferedCameras(), "");
}

TEST_F(FolderTest, ADumpInAFolderIsNotUnpackedAgain)
{
    folder.Write("Oscil_1.con", DumpFile{{{"a.con", ""}}}.Bytes());
    ASSERT_TRUE(Open(folder.Path(), true));
    ExpectMessage("A packed dump");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.con"));
}

class DumpTest : public FileDialogTest {
protected:
    /// Two oscilloscope files, and one that is refused.
    void WriteDump() const
    {
        OscilloscopeFile gray;
        gray.color = TestFileHeader::kColorGray;
        folder.Write("dump.con",
            DumpFile{{{"Oscil_600.con", OscilloscopeFile().Bytes()}, {"../a.con", ""},
                         {"Oscil_Gray_300.con", gray.Bytes()}}}
                .Bytes());
    }
    void ExpectItsFolder()
    {
        ExpectMessages({"This is a Kitbag packed file,\nand it will now be unpacked.",
            "1 of 3 files left out"});
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(IsVisible("folderGroup"));
        EXPECT_EQ(Text("folderText"), "600dpi Color Adjusted");
        EXPECT_EQ(OfferedCameras(), "ABC");
    }
};

TEST_F(DumpTest, IsUnpackedAndItsFolderShown)
{
    WriteDump();
    ASSERT_TRUE(Open(folder.Path() / "dump.con"));
    ExpectItsFolder();
    EXPECT_FALSE(IsVisible("lightProfileGroup"));
}

TEST_F(DumpTest, TheSameThroughLoadWhichIsNotOfferedAfterwards)
{
    WriteDump();
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "dump.con");
    EXPECT_TRUE(host.m_bParentWasHidden);
    ExpectItsFolder();
    Key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(DumpTest, ThatCannotBeUnpackedShowsNothing)
{
    folder.Write("bad.con", "[Kitbag]\nDataPointer=        99\n");
    EXPECT_FALSE(Open(folder.Path() / "bad.con"));
    ExpectMessages({"Kitbag packed file", "lies behind the end"});
    ASSERT_TRUE(Open(OscilloscopeFile()));
    Answer("Ctrl+O", "bad.con");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(OfferedCameras(), "");
}

} // namespace
} // namespace vireo
