#include "tests/viewers/DialogTest.h"
#include "tests/viewers/stitch/StitchFiles.h"
#include "viewers/stitch/CView_Stitch_Dialog.h"

#include <QScrollBar>

#include <algorithm>

namespace vireo {
namespace {

constexpr int kWidth = 3000;
constexpr int kHeight = 2400;
constexpr const char* kSizes =
    "m_iMemoryDC_Height=2400\nm_iMemoryDC_Width=3000\nm_iPhysicalResolution=600\n";

int ValueAt(std::int64_t x, std::int64_t y)
{
    return static_cast<int>((x * 7 + y * 3) % 251);
}

std::string Pixels()
{
    std::string pixels;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x)
            pixels += static_cast<char>(ValueAt(x, y));
    }
    return pixels;
}

class CView_Stitch_DialogTest : public DialogTest<CView_Stitch_Dialog> {
protected:
    void Open(const std::string& bytes)
    {
        Show(std::make_unique<CView_Stitch_Dialog>(folder.Write("a.con", bytes)), {900, 600});
    }
    CPicture_Control& Picture() const { return Find<CPicture_Control>("picture"); }
    const PictureView& View() const { return Picture().View(); }
    /// The points of the picture all around show the pixels that the file has there.
    void ExpectPixels() const
    {
        const QImage shown = Picture().grab().toImage();
        for (const QPoint point : {QPoint(3, 3), QPoint(400, 200), QPoint(700, 431)}) {
            const auto pixel = Picture().PixelAt(point);
            ASSERT_TRUE(pixel);
            EXPECT_EQ(qRed(shown.pixel(point)), ValueAt(pixel->x, pixel->y))
                << pixel->x << ", " << pixel->y;
        }
    }
};

TEST_F(CView_Stitch_DialogTest, BeginsInTheMiddleAThirdDown)
{
    Open(TextStitchFile(kSizes, Pixels()));
    EXPECT_EQ(dialog->windowTitle(), "View Stitching File");
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(View().zoom, 1.0);
    EXPECT_EQ(View().x.centre, kWidth / 2);
    EXPECT_EQ(View().y.centre, kHeight / 3);
    EXPECT_EQ(Text("fileText"), "a.con    3000 x 2400 pixels, 600 dpi, gray");
    ExpectPixels();

    QTest::mouseMove(&Picture(), QPoint(1, 1));
    QTest::mouseMove(&Picture(), QPoint(100, 50));
    LetPass(1);
    const auto pixel = Picture().PixelAt(QPoint(100, 50));
    EXPECT_EQ(pixel->x, kWidth / 2 - Picture().width() / 2 + 100);
    const QString value = QStringLiteral("value %1").arg(ValueAt(pixel->x, pixel->y));
    EXPECT_TRUE(Find<QLabel>("pixelText").text().contains(value)) << Text("pixelText");
}

TEST_F(CView_Stitch_DialogTest, ZoomsWithClicks)
{
    Open(TextStitchFile(kSizes, Pixels()));
    const QPoint point(700, 100);
    const int width = Picture().width();
    const int height = Picture().height();
    // centre - (view / 2 - point) / zoom, with the zoom before the click, then one more.
    const std::int64_t x = kWidth / 2 - (width / 2 - point.x());
    const std::int64_t y = kHeight / 3 - (height / 2 - point.y());
    QTest::mouseClick(&Picture(), Qt::LeftButton, {}, point);
    EXPECT_EQ(View().zoom, 2.0);
    EXPECT_EQ(View().x.centre, x);
    EXPECT_EQ(View().y.centre, y);
    ExpectPixels();
    QTest::mouseDClick(&Picture(), Qt::LeftButton, {}, point);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, point);
    EXPECT_EQ(View().zoom, 3.0) << "the second press of a double click counts, too";
    ExpectPixels();
    for (int i = 0; i < 6; ++i)
        QTest::mouseClick(&Picture(), Qt::RightButton, {}, point);
    EXPECT_EQ(View().zoom, 1.0) << "never below 1";

    QTest::mouseClick(&Picture(), Qt::LeftButton, {}, point);
    EXPECT_EQ(Text("zoomText"), "Zoom 2:1");
    Click("oneToOneButton");
    EXPECT_EQ(View().zoom, 1.0);
    EXPECT_EQ(View().x.centre, kWidth / 2);
    EXPECT_EQ(View().y.centre, kHeight / 3);
}

TEST_F(CView_Stitch_DialogTest, MovesWithScrollBars)
{
    Open(TextStitchFile(kSizes, Pixels()));
    auto& bar = Find<QScrollBar>("horizontalScroll");
    const int width = Picture().width();
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.pageStep(), width * 10000 / kWidth);
    EXPECT_EQ(bar.value(), (kWidth / 2 - width / 2) * 10000 / kWidth);
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(View().x.centre, kWidth / 2 + width / 10);
    bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(View().x.centre, kWidth / 2 + width / 10 - width);
    for (int i = 0; i < 10; ++i)
        bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(View().x.centre, width / 2) << "the left edge";
    ExpectPixels();
}

TEST_F(CView_Stitch_DialogTest, TellsWhatIsMissingAndShowsTheRestWhite)
{
    Open(TextStitchFile("m_iMemoryDC_Height=300\nm_iMemoryDC_Width=800\n", std::string(800, '\7')));
    ASSERT_EQ(messages.Messages().size(), 2U);
    EXPECT_EQ(messages.Messages()[0].text, "m_iPhysicalResolution");
    EXPECT_EQ(messages.Messages()[1].text,
        "Error Picture Length\nm_iDataLength = 800\nm_iMemoryDC_Width = 800\n"
        "m_iMemoryDC_Height = 300");
    const QImage shown = Picture().grab().toImage();
    EXPECT_EQ(qRed(shown.pixel(20, 0)), 7);
    EXPECT_EQ(qRed(shown.pixel(20, 1)), 255);
}

TEST_F(CView_Stitch_DialogTest, KeepsThinLinesWhenTheWholeIsInView)
{
    // 3000 x 2400 codes: white rows, and one black pixel in each of a diagonal line's.
    std::string codes;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = y; x > 0; x -= std::min(x, 127))
            codes += static_cast<char>(0x80 + std::min(x, 127));
        codes += '\1';
        codes += '\0';
    }
    Open(OldStitchFile(kRunLengthStitchType, kWidth, kHeight, codes));
    EXPECT_TRUE(dialog->Data().m_bRunLength);
    Click("fitButton");
    EXPECT_LT(View().zoom, 0.3);
    const auto darkestNear = [this](int y) {
        const QImage shown = Picture().grab().toImage();
        const QPoint point = Picture().PointOf({y, y}).toPoint();
        int darkest = 255;
        for (int dx = -1; dx <= 1; ++dx)
            darkest = std::min(darkest, qGray(shown.pixel(point.x() + dx, point.y())));
        return darkest;
    };
    // The small views are built behind the scenes, from the top on.
    EXPECT_TRUE(Becomes([&] { return darkestNear(kHeight - 10) < 200; }));
    for (int y = 10; y < kHeight; y += 33)
        EXPECT_LT(darkestNear(y), 200) << y;
}

TEST_F(CView_Stitch_DialogTest, OldFilesHaveNoHeaderToShow)
{
    Open(OldStitchFile(kGrayStitchType, 300, 20, std::string(6000, 'x')));
    QTest::keyClick(dialog.get(), Qt::Key_H, Qt::ControlModifier);
    ExpectMessage("Old Con-file.\nNo Header Information available");
}

TEST_F(CView_Stitch_DialogTest, IsNotOpenedWithoutAFile)
{
    EXPECT_FALSE(CView_Stitch_Dialog(folder.Path() / "none.con").HasPicture());
    EXPECT_EQ(messages.Messages().size(), 1U);
    EXPECT_FALSE(CView_Stitch_Dialog(folder.Write("short.con", "abc")).HasPicture());
    EXPECT_EQ(messages.Messages().size(), 2U);
}

} // namespace
} // namespace vireo
