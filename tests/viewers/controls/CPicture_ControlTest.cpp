#include "tests/viewers/Waiting.h"
#include "tests/viewers/WidgetTest.h"
#include "tests/viewers/controls/MemoryPicture.h"
#include "viewers/controls/CPicture_Control.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vireo {
namespace {

int Pattern(std::int64_t x, std::int64_t y)
{
    return static_cast<int>((3 * x + 7 * y) % 250);
}

class CPicture_ControlTest : public testing::Test {
protected:
    CPicture_ControlTest()
    {
        control.resize(400, 300);
        control.SetScrollBars(&horizontal, &vertical);
        control.show();
        Show(2000, 1500);
    }

    void Show(std::int64_t width, std::int64_t height)
    {
        control.SetPicture(std::make_shared<MemoryPicture>(width, height, Pattern));
        ASSERT_TRUE(Becomes([this] { return !control.grab().isNull(); }));
    }

    void Click(Qt::MouseButton button, QPoint point)
    {
        QTest::mouseClick(&control, button, {}, point);
    }
    std::int64_t Left() const { return control.View().x.First(control.View().zoom); }
    std::int64_t Top() const { return control.View().y.First(control.View().zoom); }

    QScrollBar horizontal{Qt::Horizontal};
    QScrollBar vertical{Qt::Vertical};
    CPicture_Control control;
};

TEST_F(CPicture_ControlTest, ShowsThePicturesPixels)
{
    EXPECT_EQ(Left(), 800);
    EXPECT_EQ(Top(), 350);
    for (const double zoom : {1.0, 4.0}) {
        control.SetView(control.View().ZoomedAt(200, 150, zoom));
        const QImage image = control.grab().toImage();
        for (const QPoint point :
            {QPoint(0, 0), QPoint(399, 0), QPoint(57, 123), QPoint(399, 299)}) {
            const auto pixel = control.PixelAt(point);
            ASSERT_TRUE(pixel);
            EXPECT_EQ(qGray(image.pixel(point)), Pattern(pixel->x, pixel->y)) << zoom;
        }
    }
    const QPointF middle = control.PointOf({1000, 500});
    EXPECT_EQ(control.PixelAt(middle)->x, 1000);
    EXPECT_EQ(control.PixelAt(middle)->y, 500);
}

TEST_F(CPicture_ControlTest, AClickZoomsAndADragMoves)
{
    Click(Qt::LeftButton, {300, 150});
    EXPECT_EQ(control.View().zoom, 2.0);
    EXPECT_EQ(control.View().x.centre, 1100);
    EXPECT_EQ(control.View().y.centre, 500);
    QTest::mouseDClick(&control, Qt::LeftButton, {}, {200, 150});
    QTest::mouseRelease(&control, Qt::LeftButton, {}, {200, 150});
    EXPECT_EQ(control.View().zoom, 3.0);
    Click(Qt::RightButton, {10, 10});
    Click(Qt::RightButton, {10, 10});
    Click(Qt::RightButton, {10, 10});
    EXPECT_EQ(control.View().zoom, 1.0);

    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
        const std::int64_t left = Left();
        const std::int64_t top = Top();
        QTest::mousePress(&control, button, {}, {200, 150});
        QTest::mouseMove(&control, {180, 160});
        QTest::mouseMove(&control, {90, 171});
        QTest::mouseRelease(&control, button, {}, {90, 171});
        EXPECT_EQ(control.View().zoom, 1.0);
        EXPECT_EQ(Left(), left + 110);
        EXPECT_EQ(Top(), top - 21);
    }
}

TEST_F(CPicture_ControlTest, TheWheelZoomsAtThePointerAndMovesSideways)
{
    const auto before = *control.PixelAt(QPoint(300, 50));
    TurnWheel(control, {300, 50}, {0, 60});
    EXPECT_EQ(control.View().zoom, 1.0) << "half a step";
    TurnWheel(control, {300, 50}, {0, 180});
    EXPECT_EQ(control.View().zoom, 3.0);
    EXPECT_EQ(control.PixelAt(QPoint(300, 50))->x, before.x);
    EXPECT_EQ(control.PixelAt(QPoint(300, 50))->y, before.y);
    TurnWheel(control, {300, 50}, {0, -480});
    EXPECT_DOUBLE_EQ(control.View().zoom, 1.0 / 3.0);
    control.OneToOne();
    TurnWheel(control, {5, 5}, {0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(Left(), 840);
    TurnWheel(control, {5, 5}, {120, 0});
    EXPECT_EQ(Left(), 800);
}

TEST_F(CPicture_ControlTest, KeysMoveAndZoom)
{
    const auto press = [this](Qt::Key key) { QTest::keyClick(&control, key); };
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(Left(), 840);
    EXPECT_EQ(Top(), 380);
    press(Qt::Key_PageDown);
    EXPECT_EQ(Top(), 680);
    press(Qt::Key_Home);
    EXPECT_EQ(Left(), 0);
    EXPECT_EQ(Top(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(Left(), 1600);
    EXPECT_EQ(Top(), 1200);
    press(Qt::Key_Plus);
    EXPECT_EQ(control.View().zoom, 2.0);
    press(Qt::Key_Minus);
    press(Qt::Key_Minus);
    EXPECT_EQ(control.View().zoom, 0.5);
}

TEST_F(CPicture_ControlTest, ScrollBarsFollowAndMove)
{
    EXPECT_EQ(horizontal.pageStep(), 2000);
    EXPECT_EQ(horizontal.maximum(), 8000);
    EXPECT_EQ(horizontal.value(), 4000);
    horizontal.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(Left(), 840);
    horizontal.triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(Left(), 440);
    vertical.triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(Top(), 1200);
    horizontal.setSliderDown(true);
    horizontal.setSliderPosition(1000);
    EXPECT_EQ(Left(), 200);
    EXPECT_EQ(horizontal.value(), 1000);
    horizontal.setSliderDown(false);
    control.Fit();
    EXPECT_FALSE(horizontal.isEnabled());
}

TEST_F(CPicture_ControlTest, TellsThePixelUnderThePointer)
{
    std::optional<CPicture_Control::Pixel> told;
    QObject::connect(&control, &CPicture_Control::PointerMoved,
        [&told](std::optional<CPicture_Control::Pixel> pixel) { told = pixel; });
    QTest::mouseMove(&control, {10, 20});
    ASSERT_TRUE(told);
    EXPECT_EQ(told->x, 810);
    EXPECT_EQ(told->y, 370);
    control.SetView(control.View().MovedBy(5, 0));
    EXPECT_EQ(told->x, 815) << "another pixel lies under the resting pointer";
    Show(100, 80);
    QTest::mouseMove(&control, {99, 79});
    EXPECT_TRUE(told);
    QTest::mouseMove(&control, {100, 79});
    EXPECT_FALSE(told);
}

TEST_F(CPicture_ControlTest, ALargePictureIsShownWhileItsLevelsAreBuilt)
{
    control.Fit();
    ASSERT_TRUE(Becomes(
        [this] { return control.Content().pyramid && control.Content().pyramid->IsComplete(); }));
    ASSERT_TRUE(Becomes([this] { return control.grab().toImage().pixel(10, 290) != 0xFFFFFFFF; }));
    // Another picture, or the end, drops what is being built.
    Show(3000, 3000);
    control.SetPicture(nullptr);
    EXPECT_EQ(control.grab().toImage().pixel(10, 290), 0xFFFFFFFF);
}

TEST_F(CPicture_ControlTest, StaysAtTheStartUntilMoved)
{
    control.resize(200, 100);
    EXPECT_EQ(Left(), 900);
    EXPECT_EQ(Top(), 450);
    control.SetView(control.View().MovedBy(1, 0));
    control.resize(300, 100);
    EXPECT_EQ(Left(), 851);
}

} // namespace
} // namespace vireo
