#include "tests/viewers/Waiting.h"
#include "tests/viewers/WidgetTest.h"
#include "viewers/controls/CLPFControle.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace vireo {
namespace {

/// A line of 20,000 pixels at 128 with one spike of 240 at pixel 12,345, seen by two cameras.
ProfileLine SpikedLine()
{
    ProfileLine line;
    for (ProfileLine::Trace& plane : line.planes)
        plane.samples.assign(20000, 128);
    line.Of(Plane::Green).samples[12345] = 240;
    line.Of(Plane::Red).samples.assign(20000, 60);
    line.Summarise();
    return line;
}

ProfileCameras TwoCameras()
{
    ProfileCameras cameras;
    cameras.pixels = {8000, 12000};
    cameras.pixelPitchMm = 0.05;
    return cameras;
}

class ProfilePlotTest : public testing::Test {
protected:
    ProfilePlotTest()
    {
        content.line = &line;
        content.cameras = TwoCameras();
        content.scene.view = ProfileView::Whole(line.Length());
    }

    QImage Draw(QSize size, double ratio = 1.0)
    {
        return Drawn(
            size, ratio, [&](QPainter& painter) { DrawProfilePlot(painter, size, content); });
    }

    /// The device pixel at a place of the line and a value.
    static QColor ColourAt(
        const QImage& image, const ProfileScale& scale, double pixel, double value)
    {
        const double ratio = image.devicePixelRatio();
        return image.pixelColor(static_cast<int>(scale.XAt(pixel) * ratio),
            static_cast<int>(std::lround(scale.YAt(value) * ratio)));
    }

    ProfileLine line = SpikedLine();
    ProfilePlotContent content;
};

TEST_F(ProfilePlotTest, DrawsTheCurveWhereItsScaleSays)
{
    for (const double ratio : {1.0, 2.0}) {
        const QImage image = Draw({900, 300}, ratio);
        const ProfileScale scale = ScaleOf(content, {900, 300});
        const QColor green = TraceColour(ShownColour::Green);
        EXPECT_EQ(ColourAt(image, scale, 3000, 128), green);
        EXPECT_EQ(ColourAt(image, scale, 3333, 70), QColor(Qt::white));
        EXPECT_EQ(ColourAt(image, scale, 12345.5, 200), green) << "the spike, at ratio " << ratio;
        EXPECT_FALSE(image.pixelColor(899, 299) == QColor(Qt::magenta)) << "background to the edge";
    }
}

TEST_F(ProfilePlotTest, KeepsTheSpikeAtEveryZoom)
{
    for (double length = 20000.0; length >= 10.0; length /= 1.7) {
        content.scene.view = ProfileView{12345.5 - 0.37 * length, length}.Within(line.Length());
        const QImage image = Draw({700, 250});
        const ProfileScale scale = ScaleOf(content, {700, 250});
        const int x = static_cast<int>(scale.XAt(12345.5));
        const int y = static_cast<int>(scale.YAt(236));
        bool seen = false;
        for (int column = x - 2; column <= x + 2; ++column)
            seen = seen
                || image.pixelColor(column, y).green() > image.pixelColor(column, y).red() + 30;
        EXPECT_TRUE(seen) << length;
    }
}

TEST_F(ProfilePlotTest, DrawsThePlaneOrPlanesShown)
{
    const ProfileScale scale = ScaleOf(content, {900, 300});
    content.shown = ShownColour::Red;
    EXPECT_EQ(ColourAt(Draw({900, 300}), scale, 3000, 60), TraceColour(ShownColour::Red));
    content.shown = ShownColour::All;
    const QImage all = Draw({900, 300});
    const ProfileScale withLegend = ScaleOf(content, {900, 300});
    EXPECT_GT(withLegend.top, scale.top) << "a row for the names of the planes";
    EXPECT_GT(ColourAt(all, withLegend, 3000, 60).red(), 150);
    EXPECT_NE(ColourAt(all, withLegend, 3000, 128), QColor(Qt::white));
}

TEST_F(ProfilePlotTest, MarksStretchesAndBoundaries)
{
    content.stretches = {{{2000.0, 1000.0}, ProfileSide::Left}};
    const QImage image = Draw({900, 300});
    const ProfileScale scale = ScaleOf(content, {900, 300});
    EXPECT_NE(ColourAt(image, scale, 2600, 33), QColor(Qt::white));
    EXPECT_EQ(ColourAt(image, scale, 3600, 33), QColor(Qt::white));
    int boundaryPixels = 0;
    for (int value = 5; value < 250; ++value)
        boundaryPixels += ColourAt(image, scale, 8000, value) == QColor(Qt::white) ? 0 : 1;
    EXPECT_GT(boundaryPixels, 80);
}

TEST_F(ProfilePlotTest, DrawsNothingWrongWithoutDataOrRoom)
{
    content.line = nullptr;
    EXPECT_EQ(Draw({300, 200}).pixelColor(150, 100), QColor(Qt::white));
    content.line = &line;
    for (const QSize size : {QSize(1, 1), QSize(60, 20), QSize(10, 300), QSize(300, 10)})
        Draw(size);
    content.scene.view = {0.0, 0.0};
    Draw({300, 200});
}

class CLPFControleTest : public testing::Test {
protected:
    CLPFControleTest()
    {
        control.resize(900, 300);
        control.SetScrollBar(&scrollBar);
        control.SetCameras(TwoCameras());
        control.SetLine(&line, ShownColour::Green);
        control.ZoomAll();
        control.show();
        LetPass(1);
    }

    ProfileScale Scale() const { return ScaleOf(control.Content(), control.size()); }

    QPoint PointAt(double pixel) const
    {
        return {static_cast<int>(std::lround(Scale().XAt(pixel))), 150};
    }

    ProfileLine line = SpikedLine();
    QScrollBar scrollBar{Qt::Horizontal};
    CLPFControle control;
};

TEST_F(CLPFControleTest, ClicksZoomAtThePointer)
{
    const QPoint point = PointAt(5000.0);
    const double pixel = Scale().PixelAt(point.x());
    QTest::mouseClick(&control, Qt::LeftButton, {}, point);
    EXPECT_DOUBLE_EQ(control.View().length, 10000.0);
    EXPECT_NEAR(Scale().XAt(pixel), point.x(), 1e-6);
    QTest::mouseClick(&control, Qt::RightButton, {}, point);
    EXPECT_DOUBLE_EQ(control.View().length, 20000.0);
    QTest::mouseClick(&control, Qt::RightButton, {}, point);
    EXPECT_EQ(control.View(), ProfileView::Whole(20000));
}

TEST_F(CLPFControleTest, TheWheelZoomsAtThePointerAndSumsUpFineSteps)
{
    const QPoint point = PointAt(15000.0);
    const double pixel = Scale().PixelAt(point.x());
    TurnWheel(control, point, {0, 120});
    EXPECT_DOUBLE_EQ(control.View().length, 16000.0);
    EXPECT_NEAR(Scale().XAt(pixel), point.x(), 1e-6);
    TurnWheel(control, point, {0, 60});
    EXPECT_DOUBLE_EQ(control.View().length, 16000.0);
    TurnWheel(control, point, {0, 60});
    EXPECT_DOUBLE_EQ(control.View().length, 12800.0);
    TurnWheel(control, point, {0, -1200});
    EXPECT_EQ(control.View(), ProfileView::Whole(20000));
}

TEST_F(CLPFControleTest, DraggingPans)
{
    control.SetView({8000.0, 4000.0});
    struct Row {
        Qt::MouseButton button;
        Qt::KeyboardModifier modifier;
    };
    for (const Row row :
        {Row{Qt::MiddleButton, Qt::NoModifier}, Row{Qt::LeftButton, Qt::ShiftModifier}}) {
        const double before = control.View().first;
        QTest::mousePress(&control, row.button, row.modifier, {400, 100});
        QMouseEvent move(QEvent::MouseMove, QPointF(300, 100), QPointF(300, 100), row.button,
            row.button, row.modifier);
        QApplication::sendEvent(&control, &move);
        QTest::mouseRelease(&control, row.button, row.modifier, {300, 100});
        EXPECT_DOUBLE_EQ(control.View().length, 4000.0);
        EXPECT_NEAR(control.View().first - before, 100.0 * 4000.0 / 846.0, 1.0);
    }
}

TEST_F(CLPFControleTest, ScrollBarAndViewFollowEachOther)
{
    EXPECT_FALSE(scrollBar.isEnabled());
    control.SetView({8000.0, 4000.0});
    EXPECT_EQ(scrollBar.maximum(), 16000);
    EXPECT_EQ(scrollBar.pageStep(), 4000);
    EXPECT_EQ(scrollBar.value(), 8000);
    scrollBar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_DOUBLE_EQ(control.View().first, 12000.0);
    scrollBar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_DOUBLE_EQ(control.View().first, 11600.0);
}

TEST_F(CLPFControleTest, ReadsWhatLiesUnderThePointer)
{
    control.SetView({12340.0, 12.0});
    const auto reading = control.PositionAt(PointAt(12345.5));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->pixel, 12345);
    EXPECT_EQ(reading->value, 240);
    EXPECT_EQ(reading->camera, 1);
    EXPECT_DOUBLE_EQ(reading->positionMm.value_or(0.0), 12345 * 0.05);
    EXPECT_FALSE(control.PositionAt({3, 150})) << "left of the axis";

    std::optional<CursorReading> told;
    QObject::connect(&control, &CLPFControle::CursorMoved, &control,
        [&](const std::optional<CursorReading>& now) { told = now; });
    QTest::mouseMove(&control, PointAt(12345.5));
    ASSERT_TRUE(told);
    EXPECT_EQ(told->value, 240);

    // Another line under a resting pointer is read anew, as in an animation.
    ProfileLine next = SpikedLine();
    next.Of(Plane::Green).samples[12345] = 99;
    next.Summarise();
    control.SetLine(&next, ShownColour::Green);
    EXPECT_EQ(told->value, 99);
    control.SetLine(&line, ShownColour::Green);
}

TEST_F(CLPFControleTest, ANewLineKeepsTheViewOfTheUserAndRefitsTheOthers)
{
    ProfileLine shorter = SpikedLine();
    for (ProfileLine::Trace& plane : shorter.planes)
        plane.samples.resize(10000);
    shorter.Summarise();
    control.SetLine(&shorter, ShownColour::Green);
    EXPECT_EQ(control.View(), ProfileView::Whole(10000));
    control.SetView({2000.0, 500.0});
    control.SetLine(&line, ShownColour::Green);
    EXPECT_EQ(control.View(), (ProfileView{2000.0, 500.0}));
}

TEST_F(CLPFControleTest, TheOverviewMarksWhatTheDetailsShow)
{
    CLPFControle detail;
    detail.SetCameras(TwoCameras());
    detail.SetLine(&line, ShownColour::Green);
    detail.ShowCamera(1, ProfileSide::Left);
    control.SetDetails({&detail});
    ASSERT_EQ(control.Content().stretches.size(), 1U);
    EXPECT_EQ(control.Content().stretches[0].view, (ProfileView{8000.0, 1250.0}));
    detail.SetView({500.0, 100.0});
    EXPECT_EQ(control.Content().stretches[0].view, (ProfileView{500.0, 100.0}));
}

TEST_F(CLPFControleTest, ThePageKeepsItsMarginsAndProportions)
{
    CLPFControle detail;
    detail.resize(400, 200);
    detail.SetLine(&line, ShownColour::Green);
    control.SetHeader({"Scanner Name:  Heron 36", "Time:          13:05"});
    for (const QSize size : {QSize(1000, 1400), QSize(1400, 500)}) {
        const QRect ink = InkOf(Drawn(size, 1.0, [&](QPainter& painter) {
            painter.fillRect(QRect({}, size), Qt::white);
            DrawProfilePage(painter, QRectF({0, 0}, size), control.Page({&detail, &detail}));
        }));
        EXPECT_GE(ink.left(), size.width() / 10 - 1);
        EXPECT_LE(ink.right(), size.width() - size.width() / 10);
        EXPECT_GE(ink.top(), size.height() / 20 - 1);
        EXPECT_LE(ink.bottom(), size.height() - size.height() / 20);
        // Something fills the page as far as its limiting side lets it.
        EXPECT_TRUE(ink.width() > size.width() * 7 / 10 || ink.height() > size.height() * 8 / 10);
    }
}

} // namespace
} // namespace vireo
