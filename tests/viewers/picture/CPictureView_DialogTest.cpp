#include "platform/Message.h"
#include "tests/TempFolder.h"
#include "tests/viewers/picture/TiffFile.h"
#include "viewers/picture/CPictureView_Control.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/picture/PictureData.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace vireo {
namespace {

constexpr std::uint16_t kPackBits = 32773;

class CPictureView_DialogTest : public testing::Test {
protected:
    void Open(const std::string& bytes)
    {
        Show(std::make_unique<CPictureView_Dialog>(folder.Write("picture.tif", bytes)));
    }
    void Open(const TiffPageBytes& page, ByteOrder order = ByteOrder::Little)
    {
        Open(TiffFile(order).Add(page).Bytes());
    }
    void Show(std::unique_ptr<CPictureView_Dialog> opened)
    {
        dialog = std::move(opened);
        dialog->resize(1000, 700);
        dialog->show();
        WaitUntilLoaded();
    }
    void WaitUntilLoaded()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !dialog->Loader().IsRunning(); }, 60'000));
        QTest::qWait(100); // The dialog has looked at it since.
    }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void Click(const char* name) const
    {
        QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton);
    }
    std::string Text(const char* label) const { return Find<QLabel>(label).text().toStdString(); }
    CPictureView_Control& Plot() const { return Find<CPictureView_Control>("plot"); }

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
        QTest::qWait(1);
    }

    TempFolder folder;
    MessageRecorder messages;
    std::unique_ptr<CPictureView_Dialog> dialog;
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

} // namespace
} // namespace vireo
