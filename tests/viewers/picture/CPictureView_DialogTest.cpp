#include "tests/viewers/DialogTest.h"
#include "tests/viewers/WidgetTest.h"
#include "tests/viewers/picture/TiffFile.h"
#include "viewers/picture/CPictureView_Control.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/picture/PictureData.h"

#include <QAction>
#include <QCheckBox>
#include <QInputDialog>
#include <QProgressBar>
#include <QScrollBar>
#include <QSpinBox>

#include <cmath>

namespace vireo {
namespace {

constexpr std::uint16_t kPackBits = 32773;

class CPictureView_DialogTest : public DialogTest<CPictureView_Dialog> {
protected:
    void Open(const std::string& bytes)
    {
        OpenView(std::make_unique<CPictureView_Dialog>(folder.Write("picture.tif", bytes)));
    }
    void Open(const TiffPageBytes& page, ByteOrder order = ByteOrder::Little)
    {
        Open(TiffFile(order).Add(page).Bytes());
    }
    void OpenView(std::unique_ptr<CPictureView_Dialog> opened)
    {
        Show(std::move(opened), {1000, 700});
        WaitUntilLoaded();
    }
    void WaitUntilLoaded()
    {
        EXPECT_TRUE(Becomes([this] {
            return !dialog->Loader().IsRunning() && !Find<QWidget>("loadingRow").isVisible();
        }));
        LetPass(1); // Messages come behind it.
    }
    CPictureView_Control& Plot() const { return Find<CPictureView_Control>("plot"); }

    bool IsOffered(const char* command) const
    {
        for (const QAction* const action : dialog->findChildren<QAction*>())
            if (action->text() == QLatin1String(command))
                return action->isEnabled();
        ADD_FAILURE() << command;
        return false;
    }

    /// A point of the plot that shows a pixel, well inside of it at large zooms.
    QPoint PointOf(std::int64_t column, std::int64_t row) const
    {
        return Plot().Navigation().PointOf({column, row}).toPoint();
    }
    QColor ColourOf(std::int64_t column, std::int64_t row) const
    {
        return Plot().grab().toImage().pixelColor(PointOf(column, row));
    }
    void PointAt(std::int64_t column, std::int64_t row) const
    {
        QTest::mouseMove(&Plot(), QPoint(1, 1)); // Only a move is told.
        QTest::mouseMove(&Plot(), PointOf(column, row));
        LetPass(1);
    }
};

TEST_F(CPictureView_DialogTest, ShowsABilevelPicture)
{
    TiffPageBytes page;
    page.depth = ColorDepth::Bilevel;
    page.width = 8;
    page.height = 2;
    page.pixels = "\x80\x01";
    Open(page);
    EXPECT_EQ(ColourOf(0, 0), QColor(Qt::white));
    EXPECT_EQ(ColourOf(1, 0), QColor(Qt::black));
    EXPECT_EQ(ColourOf(7, 1), QColor(Qt::white));
    PointAt(0, 0);
    EXPECT_EQ(Text("valueText"), "1 (white)");
    EXPECT_EQ(Text("positionText"), "x 0  y 0   0.00, 0.00 mm");
    PointAt(6, 1);
    EXPECT_EQ(Text("valueText"), "0 (black)");
    EXPECT_EQ(Text("pixelsText"), "bilevel");
}

TEST_F(CPictureView_DialogTest, ShowsAPaletteInItsColours)
{
    TiffPageBytes page;
    page.width = 2;
    page.height = 1;
    page.pixels = std::string("\x05\xF0", 2);
    page.colorMap.assign(768, 0);
    page.colorMap[0x05] = 0xFFFF;       // Red of index 5,
    page.colorMap[512 + 0xF0] = 0xFFFF; // blue of index 240,
    page.colorMap[256 + 0xF0] = 0x8000; // and half of its green.
    Open(page);
    EXPECT_EQ(ColourOf(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(ColourOf(1, 0), QColor(0, 127, 255));
    PointAt(1, 0);
    EXPECT_EQ(Text("valueText"), "index 240: R 0  G 127  B 255");
    EXPECT_TRUE(Find<QLabel>("swatch").isVisible());
    EXPECT_EQ(Find<QLabel>("swatch").pixmap().toImage().pixelColor(2, 2), QColor(0, 127, 255));
}

TEST_F(CPictureView_DialogTest, SamplesOf16BitsAreTakenInTheFilesOrder)
{
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        TiffPageBytes page;
        page.depth = ColorDepth::Gray16;
        page.width = 1;
        page.height = 1;
        page.pixels = order == ByteOrder::Little ? "\x34\x92" : "\x92\x34";
        Open(page, order);
        EXPECT_EQ(ColourOf(0, 0), QColor(0x92, 0x92, 0x92));
        PointAt(0, 0);
        EXPECT_EQ(Text("valueText"), "Gray 37428");
    }
}

/// Gray, as two cameras saw it.
TiffPageBytes CameraPage()
{
    TiffPageBytes page;
    page.width = 60;
    page.height = 40;
    page.pixels = std::string(60 * 40, '\x40');
    page.description = "TQX\nm_iA=20\nm_iB=40\nm_iC=0\nm_iD=0\nm_iE=0\nm_iF=0\nm_iG=0\nm_iH=0";
    return page;
}

TEST_F(CPictureView_DialogTest, TellsWhichCameraSawAPixel)
{
    Open(CameraPage());
    PointAt(19, 30);
    EXPECT_EQ(Text("cameraText"), "Camera A");
    EXPECT_EQ(Text("positionText"), "x 19  y 30   1.61, 2.54 mm");
    PointAt(20, 30);
    EXPECT_EQ(Text("cameraText"), "Camera B");
    QTest::mouseMove(dialog.get(), QPoint(990, 690));
    LeaveWidget(Plot());
    EXPECT_EQ(Text("positionText"), "");
}

TEST_F(CPictureView_DialogTest, DrawsTheCameraBoundariesUnlessToldNot)
{
    Open(CameraPage());
    const QColor gray(0x40, 0x40, 0x40);
    const auto colourAtBoundary = [this] {
        const PictureNavigation& navigation = Plot().Navigation();
        const QPointF edge = (navigation.PointOf({19, 30}) + navigation.PointOf({20, 30})) / 2.0;
        return Plot().grab().toImage().pixelColor(edge.toPoint());
    };
    EXPECT_NE(colourAtBoundary(), gray);
    EXPECT_EQ(ColourOf(10, 30), gray);
    Click("boundariesCheck");
    EXPECT_EQ(colourAtBoundary(), gray);
}

TEST_F(CPictureView_DialogTest, GoesThroughThePages)
{
    TiffFile file;
    for (const char* const value : {"\x10", "\x80", "\xF0"}) {
        TiffPageBytes page;
        page.width = 30;
        page.height = 20;
        page.pixels = std::string(600, value[0]);
        file.Add(page);
    }
    Open(file.Bytes());
    EXPECT_EQ(Text("pagesText"), "of 3");
    EXPECT_FALSE(Button("previousPageButton").isEnabled());
    EXPECT_FALSE(IsOffered("&Previous Page"));
    EXPECT_TRUE(IsOffered("&Next Page"));
    Plot().Navigation().ZoomIn();
    const double zoom = Plot().View().zoom;
    Click("nextPageButton");
    WaitUntilLoaded();
    EXPECT_EQ(ColourOf(15, 10), QColor(0x80, 0x80, 0x80));
    EXPECT_EQ(Plot().View().zoom, zoom) << "pages of one size are compared with each other";
    QTest::keyClick(&Find<QSpinBox>("pageSpin"), Qt::Key_Up);
    WaitUntilLoaded();
    EXPECT_EQ(ColourOf(15, 10), QColor(0xF0, 0xF0, 0xF0));
    EXPECT_FALSE(Button("nextPageButton").isEnabled());
    Key(Qt::Key_PageUp, Qt::ControlModifier);
    WaitUntilLoaded();
    EXPECT_EQ(Find<QSpinBox>("pageSpin").value(), 2);
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(CPictureView_DialogTest, ShowsWhatADamagedFileStillHas)
{
    TiffPageBytes page;
    page.width = 40;
    page.height = 40;
    page.pixels = std::string(1600, '\x60');
    const std::string bytes = TiffFile().Add(page).Bytes();
    Open(bytes.substr(0, bytes.size() - 20 * 40));
    ExpectMessage("\nCan't read tif-file");
    EXPECT_EQ(ColourOf(20, 19), QColor(0x60, 0x60, 0x60));
    EXPECT_NE(ColourOf(20, 20), QColor(0x60, 0x60, 0x60));
    EXPECT_EQ(Text("noteText"), "Rows 20 to 39 are not in the file.");
    EXPECT_FALSE(Button("saveButton").isEnabled());
    EXPECT_FALSE(IsOffered("&Save As..."));
    dialog->resize(1, 1);
    LetPass(1);
    for (const QLabel* const label : Find<QWidget>("sidePanel").findChildren<QLabel*>())
        EXPECT_TRUE(!label->isVisible() || label->height() >= label->heightForWidth(label->width()))
            << label->text().toStdString();
    PointAt(20, 30);
    EXPECT_EQ(Text("valueText"), "");
}

TEST_F(CPictureView_DialogTest, RefusesWithOneMessage)
{
    struct Row {
        std::string bytes;
        const char* text;
    };
    TiffFile looping = TiffFile().Add(CameraPage());
    looping.LinkTo(8); // The first page, behind the header.
    for (const Row& row : {Row{"no picture", "\nTif format error"},
             Row{"", "\nCan't read tif-file"}, Row{looping.Bytes(), "\nTif format error"}}) {
        Open(row.bytes);
        ExpectMessage(row.text);
        EXPECT_FALSE(Button("saveButton").isEnabled());
        EXPECT_FALSE(IsOffered("&Save As..."));
        EXPECT_EQ(Text("sizeText"), "");
        PointAt(0, 0);
        EXPECT_EQ(Text("positionText"), "");
    }
}

TEST_F(CPictureView_DialogTest, SavesThePageInAnotherForm)
{
    TiffPageBytes page = CameraPage();
    page.pixels = VariedBytes(page.pixels.size());
    Open(page);
    const std::filesystem::path target = folder.Path() / "saved.tif";
    InNextWindow<QInputDialog>([&target](QInputDialog& forms) {
        EXPECT_EQ(forms.textValue(), "Uncompressed") << "as it is, unless another is chosen";
        forms.setTextValue(QStringLiteral("LZW with horizontal differencing"));
        NameInNextFileDialog(target);
        forms.accept();
    });
    Click("saveButton");
    PictureData saved;
    ASSERT_EQ(saved.Open(target), ImageResult::Ok);
    EXPECT_EQ(saved.Page().compression, TifCompression::kLzw);
    EXPECT_EQ(saved.Page().predictor, TifPage::kHorizontalDifferencing);
    EXPECT_EQ(saved.Page().resolution, 300U);
    EXPECT_EQ(saved.Cameras(), dialog->Loader().Picture().Cameras());
    WorkProgress progress;
    saved.Load(progress);
    for (std::int64_t row = 0; row < 40; ++row)
        EXPECT_EQ(saved.SamplesAt(row, row), dialog->Loader().Picture().SamplesAt(row, row));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(CPictureView_DialogTest, BeginsAtAMarkedPixel)
{
    TiffPageBytes page;
    page.width = 3000;
    page.height = 2000;
    page.rowsPerStrip = 1;
    page.pixels = std::string(3000, '\x70');
    const MarkedPicture picture{
        folder.Write("raw.tif", TiffFile().Add(page).Bytes()), {{1000, 700}}, {1010, 720}};
    OpenView(std::make_unique<CPictureView_Dialog>(picture));
    EXPECT_EQ(Plot().View().zoom, 1.0);
    EXPECT_EQ(Plot().View().x.centre, 1010);
    EXPECT_EQ(Plot().View().y.centre, 720);
    const QColor gray(0x70, 0x70, 0x70);
    EXPECT_NE(ColourOf(1000, 700), gray);
    EXPECT_EQ(ColourOf(1004, 700), gray);
    EXPECT_NE(ColourOf(1010 + 10, 720), gray) << "a stroke that points at the middle";
    Click("marksCheck");
    EXPECT_EQ(ColourOf(1000, 700), gray);
}

TEST_F(CPictureView_DialogTest, APictureSmallerThanTheWindowLiesInItsMiddle)
{
    TiffPageBytes page;
    page.width = 10;
    page.height = 4;
    page.pixels = VariedBytes(40);
    Open(page);
    const QPointF middle = Plot().Navigation().PointOf({5, 2});
    EXPECT_LT(std::abs(middle.y() - Plot().height() / 2.0), Plot().View().zoom);
    QTest::mouseClick(&Plot(), Qt::RightButton, {}, PointOf(8, 1));
    const double zoom = Plot().View().zoom;
    for (const int step : {1, 1, 1}) {
        const QPoint point = PointOf(8, 1);
        QTest::mouseClick(&Plot(), Qt::LeftButton, {}, point);
        const auto pixel = Plot().Navigation().PixelAt(point);
        ASSERT_TRUE(pixel) << step;
        EXPECT_EQ(pixel->x, 8);
    }
    EXPECT_GT(Plot().View().zoom, zoom);
    Click("fitButton");
    EXPECT_TRUE(Plot().Navigation().IsAtStart());
}

class LoadingTest : public CPictureView_DialogTest {
protected:
    /// Shows a picture of so many pixels, in a small file, that not half of it is loaded when its
    /// first rows are on view, however fast the machine is.
    void OpenAndSeeItLoad()
    {
        for (rows = 20'000; rows <= 640'000; rows *= 2) {
            TiffPageBytes page;
            page.depth = ColorDepth::Bilevel;
            page.width = 120'000;
            page.height = rows;
            page.rowsPerStrip = 1;
            page.pixels = std::string(page.width / 8, '\x33');
            page.compression = kPackBits;
            Show(std::make_unique<CPictureView_Dialog>(
                folder.Write("long.tif", TiffFile().Add(page).Bytes())));
            const PictureLoader& loader = dialog->Loader();
            EXPECT_TRUE(Becomes([&] {
                return !loader.IsRunning()
                    || (Find<QProgressBar>("progressBar").value() > 0
                        && Plot().Content().coveredRows > 0);
            }));
            if (loader.IsRunning() && loader.Fraction() < 0.5)
                return;
        }
        FAIL() << "nothing takes long enough";
    }

    std::uint32_t rows = 0;
};

TEST_F(LoadingTest, CanBeCancelled)
{
    OpenAndSeeItLoad();
    EXPECT_TRUE(IsVisible("loadingRow"));
    Click("cancelButton");
    EXPECT_FALSE(dialog->Loader().IsRunning());
    EXPECT_FALSE(dialog->Loader().Picture().IsLoaded());
    const std::string end = " to " + std::to_string(rows - 1) + " are not loaded.";
    EXPECT_TRUE(Text("noteText").ends_with(end)) << Text("noteText");
    EXPECT_FALSE(IsVisible("loadingRow"));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(LoadingTest, EndsWithItsDialog)
{
    OpenAndSeeItLoad();
    dialog.reset();
    EXPECT_TRUE(messages.Messages().empty());
}

} // namespace
} // namespace vireo
