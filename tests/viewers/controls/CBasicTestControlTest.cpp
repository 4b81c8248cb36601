#include "platform/Message.h"
#include "tests/viewers/WidgetTest.h"
#include "viewers/controls/CBasicTestControl.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// A plot with a red disc in its middle, that remembers what it was told.
class TestControl : public CBasicTestControl {
public:
    using CBasicTestControl::CBasicTestControl;
    using CBasicTestControl::ReleasePen;
    using CBasicTestControl::SetFont;
    using CBasicTestControl::SetPen;
    using CBasicTestControl::SetPenByColourIndex;

    std::vector<std::string> events;
    int drawn = 0;

    void OnLButtonDown(unsigned buttons, QPoint point) override { Note("L down", buttons, point); }
    void OnLButtonUp(unsigned buttons, QPoint point) override { Note("L up", buttons, point); }
    void OnRButtonDown(unsigned buttons, QPoint point) override { Note("R down", buttons, point); }
    void OnRButtonUp(unsigned buttons, QPoint point) override { Note("R up", buttons, point); }
    void OnMouseMove(unsigned buttons, QPoint point) override { Note("move", buttons, point); }
    void OnSpareMouse(unsigned buttons, QPoint point) override { Note("spare", buttons, point); }
    void OnMouseLeave(unsigned buttons, QPoint point) override { Note("leave", buttons, point); }
    void OnSize(unsigned type, int width, int height) override
    {
        Note("size", type, {width, height});
        CBasicTestControl::OnSize(type, width, height);
    }
    bool DrawContent(QPainter& dc, int width, int height) override
    {
        ++drawn;
        SetBrush(dc, Colour::kRed);
        dc.drawEllipse(QPoint(width / 2, height / 2), 10, 10);
        return true;
    }

private:
    void Note(const char* what, unsigned flags, QPoint point)
    {
        events.push_back(std::string(what) + ' ' + std::to_string(flags) + ' '
            + std::to_string(point.x()) + ',' + std::to_string(point.y()));
    }
};

/// A control in a window, shown and initialised.
class ShownControl : public testing::Test {
protected:
    ShownControl() : control(&owner)
    {
        owner.resize(500, 400);
        control.setGeometry(30, 40, 301, 201);
        owner.show();
        control.Initialise();
        control.events.clear();
    }

    QColor PixelAt(int x, int y) { return control.grab().toImage().pixelColor(x, y); }

    QWidget owner;
    TestControl control;
};

TEST_F(ShownControl, IsOnePixelSmallerThanItsWindow)
{
    EXPECT_EQ(control.ClientWidth(), 300);
    EXPECT_EQ(control.ClientHeight(), 200);
    EXPECT_EQ(control.PlotLeft(), 30);
    EXPECT_EQ(control.PlotTop(), 20);
    EXPECT_EQ(control.PlotRight(), 270);
    EXPECT_EQ(control.PlotBottom(), 180);
    EXPECT_EQ(control.TenthWidth(), 30);
}

TEST_F(ShownControl, DrawsAFramedWhiteAreaAndItsContent)
{
    EXPECT_EQ(PixelAt(0, 0), QColor(Qt::black));
    EXPECT_EQ(PixelAt(299, 199), QColor(Qt::black));
    EXPECT_EQ(PixelAt(1, 1), QColor(Qt::white));
    EXPECT_EQ(PixelAt(298, 198), QColor(Qt::white));
    EXPECT_EQ(PixelAt(150, 100), QColor(Qt::red));
}

TEST_F(ShownControl, PaintsFromTheSurfaceUntilRedrawn)
{
    const int before = control.drawn;
    PixelAt(0, 0);
    PixelAt(0, 0);
    EXPECT_EQ(control.drawn, before);
    EXPECT_TRUE(control.Redraw());
    EXPECT_EQ(control.drawn, before + 1);
}

TEST_F(ShownControl, PaintsNothingWhileDisabled)
{
    control.EnablePaint(false);
    EXPECT_NE(PixelAt(150, 100), QColor(Qt::red));
}

TEST_F(ShownControl, HandlersGetTheButtonsOfAllControls)
{
    QTest::mousePress(&control, Qt::LeftButton, {}, {10, 11});
    QTest::mousePress(&control, Qt::RightButton, {}, {12, 13});
    EXPECT_EQ(CBasicTestControl::MouseButtons(), 3u);
    QTest::mouseRelease(&control, Qt::LeftButton, {}, {14, 15});
    QTest::mouseRelease(&control, Qt::RightButton, {}, {16, 17});
    EXPECT_EQ(control.events,
        (std::vector<std::string>{
            "L down 1 10,11", "R down 3 12,13", "L up 2 14,15", "R up 0 16,17"}));
}

TEST_F(ShownControl, LeftDoubleClickIsAPressAndTheRightOneNothing)
{
    QTest::mouseDClick(&control, Qt::LeftButton, {}, {5, 6});
    EXPECT_EQ(control.events, std::vector<std::string>{"L down 0 5,6"});
    control.events.clear();
    QTest::mouseDClick(&control, Qt::RightButton, {}, {5, 6});
    EXPECT_TRUE(control.events.empty());
}

TEST_F(ShownControl, MovesReachTheOwnerAfterwards)
{
    std::vector<QPoint> seen;
    QObject::connect(&control, &CBasicTestControl::MouseMoved, &owner,
        [&seen](unsigned, QPoint point) { seen.push_back(point); });
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 21), control.mapToGlobal(QPointF(20, 21)),
        Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &move);
    EXPECT_EQ(control.events, std::vector<std::string>{"move 0 20,21"});
    EXPECT_TRUE(seen.empty());
    QApplication::processEvents();
    EXPECT_EQ(seen, std::vector<QPoint>{QPoint(20, 21)});
}

TEST_F(ShownControl, LeavingMouseSetsASizeOfNothingAndThePlotStays)
{
    LeaveWidget(control);
    EXPECT_EQ(control.events, (std::vector<std::string>{"leave 0 0,0", "size 0 0,0"}));
    EXPECT_EQ(control.ClientWidth(), 300);
    EXPECT_EQ(control.ClientHeight(), 200);
    EXPECT_EQ(PixelAt(150, 100), QColor(Qt::red));
    EXPECT_EQ(PixelAt(299, 199), QColor(Qt::black));
}

TEST_F(ShownControl, NewSizesDrawAnew)
{
    control.resize(201, 101);
    EXPECT_EQ(control.events, std::vector<std::string>{"size 0 200,100"});
    EXPECT_EQ(PixelAt(199, 99), QColor(Qt::black));
    EXPECT_EQ(PixelAt(100, 50), QColor(Qt::red));
    const int before = control.drawn;
    control.OnSize(0, 200, 100);
    EXPECT_EQ(control.drawn, before);
}

TEST_F(ShownControl, UnknownSizeIsReportedOnceAndPaintsNothing)
{
    MessageRecorder recorder;
    control.OnSize(0, -1, -1);
    ASSERT_EQ(recorder.Messages().size(), 2u);
    EXPECT_EQ(recorder.Messages()[0].text, "m_iWidth == -1");
    EXPECT_EQ(recorder.Messages()[1].text, "m_iHeight == -1");
    EXPECT_FALSE(control.Redraw());
    EXPECT_NE(PixelAt(150, 100), QColor(Qt::red));
    EXPECT_EQ(recorder.Messages().size(), 4u);
}

TEST_F(ShownControl, ScaleRunsFromEdgeToEdge)
{
    EXPECT_EQ(control.PositionToScale(29), -1);
    EXPECT_EQ(control.PositionToScale(30), 0);
    EXPECT_EQ(control.PositionToScale(31), 1); // 0.853 + 0.5
    EXPECT_EQ(control.PositionToScale(180), 128);
    EXPECT_EQ(control.PositionToScale(330), 256);
    EXPECT_EQ(control.PositionToScale(331), -1);
    control.move(130, 0);
    EXPECT_EQ(control.PositionToScale(130), 0);
}

TEST_F(ShownControl, InsideIncludesTheEdges)
{
    EXPECT_TRUE(control.IsInside({0, 0}));
    EXPECT_TRUE(control.IsInside({301, 201}));
    EXPECT_FALSE(control.IsInside({302, 10}));
    EXPECT_FALSE(control.IsInside({10, 202}));
    EXPECT_FALSE(control.IsInside({-1, 10}));
}

TEST(CBasicTestControl, DoesNothingBeforeInitialise)
{
    TestControl control;
    control.resize(100, 80);
    QImage paper(100, 80, QImage::Format_RGB32);
    QPainter dc(&paper);
    EXPECT_FALSE(control.Redraw());
    EXPECT_FALSE(control.RenderTo(dc, 100, 80));
    EXPECT_EQ(control.drawn, 0);
    control.Initialise();
    control.Initialise();
    EXPECT_EQ(control.drawn, 1);
}

TEST(CBasicTestControl, RendersIntoAnyPainter)
{
    TestControl control;
    control.resize(101, 81);
    control.Initialise();
    QImage paper(400, 300, QImage::Format_RGB32);
    paper.fill(Qt::yellow);
    QPainter dc(&paper);
    EXPECT_TRUE(control.RenderTo(dc, 200, 100));
    EXPECT_EQ(paper.pixelColor(199, 99), QColor(Qt::black));
    EXPECT_EQ(paper.pixelColor(200, 100), QColor(Qt::yellow));
    EXPECT_EQ(paper.pixelColor(100, 50), QColor(Qt::red));
    EXPECT_TRUE(control.RenderTo(dc, 0, 0)); // Stands for its own size.
    EXPECT_EQ(paper.pixelColor(99, 79), QColor(Qt::black));
}

TEST(CBasicTestControl, SelectsOnePenAtATime)
{
    TestControl control;
    QImage paper(10, 10, QImage::Format_RGB32);
    QPainter dc(&paper);
    const QPen before(Qt::darkCyan, 3.0);
    dc.setPen(before);
    control.SetPen(dc, Qt::DashLine, 0x102030, 2);
    EXPECT_EQ(dc.pen().color(), QColor(0x30, 0x20, 0x10));
    EXPECT_EQ(dc.pen().style(), Qt::DashLine);
    control.SetPenByColourIndex(dc, Qt::SolidLine, 1, 5);
    EXPECT_EQ(dc.pen().color(), QColor(Qt::cyan));
    control.ReleasePen(dc);
    EXPECT_EQ(dc.pen(), before);
}

TEST(CBasicTestControl, LinePitchFollowsTheFont)
{
    TestControl control;
    QImage paper(10, 10, QImage::Format_RGB32);
    QPainter dc(&paper);
    control.SetFont(dc, 15, nullptr, 400);
    EXPECT_EQ(control.FontHeight(), 15);
    EXPECT_EQ(control.LinePitch(), 21);
    EXPECT_TRUE(QFontInfo(dc.font()).fixedPitch());
    EXPECT_LE(QFontMetrics(dc.font()).height(), 16);
}

TEST(CBasicTestControl, UnsetColours)
{
    TestControl control;
    EXPECT_TRUE(control.IsUnsetColour());
    control.SetTableColour(0, 0xFFFFFFFF);
    EXPECT_TRUE(control.IsUnsetColour());
    control.SetTableColour(0, 0xFFFFFF);
    EXPECT_TRUE(control.IsUnsetColour());
    control.SetTableColour(0, 0x0000FE);
    EXPECT_FALSE(control.IsUnsetColour());
}

TEST(Colours, FollowTheViewersNumbering)
{
    const std::pair<int, ColourValue> rows[] = {{0, 0x0000FF}, {1, 0x00FF00}, {2, 0xFF0000}, {3, 0},
        {4, 0xFF00FF}, {5, 0xFFFF00}, {6, 0x00FFFF}, {254, 0xFFFFFF}, {7, 0}, {-1, 0}, {253, 0},
        {255, 0}};
    for (const auto& [index, colour] : rows)
        EXPECT_EQ(ColourOfIndex(index), colour) << index;
    EXPECT_EQ(ToQColor(0x00112233), QColor(0x33, 0x22, 0x11));
}

} // namespace
} // namespace vireo
