#include "tests/TempFolder.h"
#include "tests/viewers/Waiting.h"
#include "tests/viewers/WidgetTest.h"
#include "tests/viewers/startest/StarTestFiles.h"
#include "viewers/controls/Colours.h"
#include "viewers/startest/CA2_StarTest_Control.h"
#include "viewers/startest/StarTestData.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace vireo {
namespace {

constexpr int kWidth = 1001;
constexpr int kHeight = 501;

/// Three sweeps of 400 lines whose X vibration has one peak in the middle.
std::string ThreeSweeps()
{
    return StarTestStart(3) + PlainSweep(400, 1.0) + PlainSweep(400, 4.0) + PlainSweep(400, 2.0);
}

class StarTestControl : public testing::Test {
protected:
    StarTestControl()
    {
        plot.resize(kWidth, kHeight);
        plot.SetScrollBar(&scrollBar);
        plot.Initialise();
        plot.show();
        LetPass(1);
    }

    void Read(const std::string& bytes)
    {
        ASSERT_EQ(data.Read(folder.Write("star.con", bytes)), StarTestResult::Ok);
        plot.SetData(&data);
    }
    /// Of a straight line the detrended curve lies over the other one.
    void HideAverage()
    {
        plot.Curves().At(1).isVisible = false;
        plot.Redraw();
    }

    ProfileScale Scale() const
    {
        return CurvePlotScale(plot.PlotContent(), QSizeF(kWidth - 1, kHeight - 1));
    }
    QPoint Place(double line, double value) const
    {
        return {static_cast<int>(std::lround(Scale().XAt(line))),
            static_cast<int>(std::lround(Scale().YAt(value)))};
    }
    QPoint ListRow(std::size_t sweep) const
    {
        const SweepList list = SweepList::Of(data, QSizeF(kWidth - 1, kHeight - 1));
        return {20, static_cast<int>(list.RowTop(sweep)) + 5};
    }
    void Click(QPoint point) { QTest::mouseClick(&plot, Qt::LeftButton, {}, point); }
    void Wheel(QPoint point, int steps, Qt::KeyboardModifiers keys = {})
    {
        TurnWheel(plot, point, {0, 120 * steps}, keys);
    }
    std::optional<QPoint> LegendPlace(std::size_t slot) const
    {
        for (int x = 0; x < kWidth; x += 3)
            for (const int y : {12, 28})
                if (LegendSlotAt(plot.PlotContent(), QSizeF(kWidth - 1, kHeight - 1), QPoint(x, y))
                    == slot)
                    return QPoint(x + 3, y);
        return std::nullopt;
    }
    bool HasColourNear(QPoint point, const QColor& colour)
    {
        const QImage image = plot.grab().toImage();
        for (int dx = -2; dx <= 2; ++dx)
            for (int dy = -2; dy <= 2; ++dy)
                if (image.pixelColor(point + QPoint(dx, dy)) == colour)
                    return true;
        return false;
    }

    TempFolder folder;
    StarTestData data;
    QScrollBar scrollBar;
    CA2_StarTest_Control plot;
};

TEST_F(StarTestControl, DrawsTheCurveWhereItsValuesLie)
{
    Read(ThreeSweeps());
    HideAverage();
    EXPECT_EQ(Scale().left, 100.0);
    EXPECT_EQ(Scale().Right(), 900.0);
    const QColor blue(0, 0, 255);
    EXPECT_TRUE(HasColourNear(Place(200, 0.95), blue));
    EXPECT_TRUE(HasColourNear(Place(50, 0.0), blue));
    EXPECT_FALSE(HasColourNear(Place(200, 2.0), blue));
    // Outside of its range the curve has a gap: the range ends two lines before the sweep.
    plot.SetZoom(HorizontalZoom::Whole(400).CentredOn(396.0, 50.0));
    EXPECT_TRUE(HasColourNear(Place(398.0, 0.0), blue));
    EXPECT_FALSE(HasColourNear(Place(399.0, 0.0), blue));
}

TEST_F(StarTestControl, AClickInTheListSelectsTheSweep)
{
    Read(ThreeSweeps());
    HideAverage();
    QSignalSpy selected(&plot, &CA2_StarTest_Control::SweepSelected);
    Click(ListRow(1));
    EXPECT_EQ(data.m_iSelectedIndex, 1U);
    EXPECT_EQ(selected.count(), 1);
    EXPECT_TRUE(HasColourNear(Place(200, 3.9), QColor(0, 0, 255)));
    Click({5, ListRow(2).y()});       // Left of the list.
    Click({20, ListRow(2).y() + 15}); // Below its last row.
    EXPECT_EQ(data.m_iSelectedIndex, 1U);
    // While zooming the list is out of use.
    Click({20, 15});
    EXPECT_TRUE(plot.IsZoomMode());
    Click(ListRow(0));
    EXPECT_EQ(data.m_iSelectedIndex, 1U);
    Click({20, 15});
    EXPECT_FALSE(plot.IsZoomMode());
    QTest::keyClick(&plot, Qt::Key_Down);
    EXPECT_EQ(data.m_iSelectedIndex, 2U);
    QTest::keyClick(&plot, Qt::Key_Down);
    EXPECT_EQ(data.m_iSelectedIndex, 2U);
    QTest::keyClick(&plot, Qt::Key_Up);
    EXPECT_EQ(data.m_iSelectedIndex, 1U);
}

TEST_F(StarTestControl, ALongListShowsTheSelectedSweep)
{
    std::string bytes = StarTestStart(60);
    for (int i = 0; i < 60; ++i)
        bytes += PlainSweep(12);
    Read(bytes);
    const QSizeF size(kWidth - 1, kHeight - 1);
    for (const std::size_t selected : {0U, 30U, 59U}) {
        plot.SelectSweep(static_cast<std::int64_t>(selected));
        const SweepList list = SweepList::Of(data, size);
        EXPECT_EQ(list.top, 250.0);
        EXPECT_EQ(list.count, 16U);
        EXPECT_LE(list.first + list.count, 60U);
        EXPECT_EQ(list.SweepAt(list.RowTop(selected)), selected);
        EXPECT_EQ(list.SweepAt(list.top - 1.0), std::nullopt);
        EXPECT_EQ(list.SweepAt(list.top + 16 * list.rowHeight), std::nullopt);
    }
}

TEST_F(StarTestControl, TheLegendSwitchesCurves)
{
    Read(ThreeSweeps());
    const auto xVibration = LegendPlace(0);
    const auto speed = LegendPlace(6);
    ASSERT_TRUE(xVibration && speed);
    Click(*xVibration);
    Click(*speed);
    EXPECT_FALSE(plot.Curves().At(0).isVisible);
    EXPECT_TRUE(plot.Curves().At(6).isVisible);
    EXPECT_FALSE(HasColourNear(Place(200, 0.95), QColor(0, 0, 255)));
    EXPECT_TRUE(HasColourNear(Place(50, 0.0), QColor(255, 0, 0)));
    // It stays so from sweep to sweep, unless it is not wanted.
    Click(ListRow(2));
    EXPECT_TRUE(plot.Curves().At(6).isVisible);
    plot.KeepVisibility(false);
    Click(ListRow(0));
    EXPECT_TRUE(plot.Curves().At(0).isVisible);
    EXPECT_FALSE(plot.Curves().At(6).isVisible);
}

TEST_F(StarTestControl, KeepsTheCurvesOfAveragesApart)
{
    Read(StarTestStart(4, 2) + PlainSweep(300, 1.0) + PlainSweep(300, 3.0));
    ASSERT_EQ(data.m_sweeps.size(), 4U); // Announced 4: three measured, and one average of them.
    ASSERT_TRUE(data.SelectedSweep()->m_bAvgResult);
    EXPECT_EQ(plot.Curves().At(1).name, "Std Dev");
    plot.Curves().At(1).isVisible = false;
    plot.SelectSweep(0); // No bank yet: as at first.
    EXPECT_TRUE(plot.Curves().At(1).isVisible);
    EXPECT_FALSE(plot.Curves().At(6).isVisible);
    plot.Curves().At(6).isVisible = true;
    plot.SelectSweep(3);
    EXPECT_FALSE(plot.Curves().At(1).isVisible);
    plot.SelectSweep(1);
    EXPECT_TRUE(plot.Curves().At(6).isVisible);
}

TEST_F(StarTestControl, ZoomsAndPansByMouseAndWheel)
{
    Read(ThreeSweeps());
    const QPoint point = Place(100, 0.0);
    Wheel(point, 3);
    EXPECT_NEAR(plot.Zoom().factor, 1.25 * 1.25 * 1.25, 1e-9);
    EXPECT_NEAR(Scale().PixelAt(point.x()), 100.0, 0.51);
    const std::int64_t before = plot.Zoom().centre;
    QTest::mousePress(&plot, Qt::LeftButton, {}, {500, 200});
    QTest::mouseMove(&plot, {450, 200});
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {450, 200});
    EXPECT_EQ(plot.Zoom().centre, before + std::lround(50.0 / 800.0 * plot.Zoom().Span()));
    EXPECT_EQ(scrollBar.value(), std::lround(plot.Zoom().View().first));
    scrollBar.setValue(0);
    EXPECT_NEAR(plot.Zoom().View().first, 0.0, 0.51);
    QTest::mouseDClick(&plot, Qt::LeftButton, {}, {500, 200});
    EXPECT_EQ(plot.Zoom(), HorizontalZoom::Whole(400));

    Click({20, 15}); // The zoom button.
    const double line = Scale().PixelAt(300);
    Click({300, 200});
    EXPECT_EQ(plot.Zoom().factor, 2.0);
    EXPECT_EQ(plot.Zoom().centre, std::max<std::int64_t>(std::llround(line), 100));
    QTest::mouseClick(&plot, Qt::RightButton, {}, {300, 200});
    EXPECT_EQ(plot.Zoom(), HorizontalZoom::Whole(400));
    QTest::keyClick(&plot, Qt::Key_Plus);
    QTest::keyClick(&plot, Qt::Key_Right);
    EXPECT_EQ(plot.Zoom().centre, 220);
    Wheel({500, 200}, -1, Qt::ShiftModifier);
    EXPECT_EQ(plot.Zoom().centre, 240);
    QTest::keyClick(&plot, Qt::Key_Home);
    EXPECT_EQ(plot.Zoom(), HorizontalZoom::Whole(400));
}

TEST_F(StarTestControl, AValueStandsRightOfThePlotWhereTheListTakesTheLeft)
{
    Read(ThreeSweeps());
    const auto hasInkAtRight = [this](int width) {
        plot.resize(width, 381);
        const ProfileScale scale = CurvePlotScale(plot.PlotContent(), QSizeF(width - 1, 380));
        const QImage image = plot.grab().toImage();
        for (int x = static_cast<int>(scale.Right()) + 2; x < width - 4; ++x)
            if (image.pixelColor(x, static_cast<int>(scale.YAt(2.5))) != Qt::white)
                return true;
        return false;
    };
    EXPECT_FALSE(hasInkAtRight(1001));
    EXPECT_TRUE(hasInkAtRight(701));
}

TEST_F(StarTestControl, ScalesValuesByHandAndAutomatically)
{
    Read(ThreeSweeps());
    EXPECT_EQ(plot.Scale(), VerticalScale());
    Wheel({500, 250}, 1, Qt::ControlModifier);
    EXPECT_NEAR(plot.Scale().top, 4.0, 0.02);
    Wheel({90, 250}, -1); // On the axis.
    EXPECT_NEAR(plot.Scale().top, 5.0, 0.02);
    QTest::mousePress(&plot, Qt::LeftButton, {}, {90, 250});
    QTest::mouseMove(&plot, {90, 290});
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, {90, 290});
    EXPECT_NEAR(plot.Scale().top, 6.0, 0.02);
    EXPECT_EQ(data.m_iSelectedIndex, 0U); // A drag over the list selects nothing.
    plot.SetAutomaticScale(true);
    EXPECT_NEAR(plot.Scale().top, 1.0, 0.3);
    EXPECT_GT(plot.Scale().bottom, -1.0);
    plot.SelectSweep(1);
    EXPECT_NEAR(plot.Scale().top, 5.0, 0.6); // Up to 4, and not on the frame.
    plot.SetVerticalScale({1.0, 2.0, 0.5});  // Upside down.
    EXPECT_TRUE(plot.HasAutomaticScale());
    plot.SetVerticalScale({2.0, 1.0, 0.5});
    EXPECT_FALSE(plot.HasAutomaticScale());
    EXPECT_EQ(plot.Scale().bottom, 1.0);
}

TEST_F(StarTestControl, TheCursorReadsTheLine)
{
    Read(ThreeSweeps());
    QSignalSpy moved(&plot, &CHorizontalZoomDouble_Control::CursorMoved);
    QTest::mouseMove(&plot, {340, 200});
    // 1000 wide: (340 - 500) x 400 / 800 + 200.
    EXPECT_EQ(plot.CursorLine(), 120);
    EXPECT_EQ(moved.last().at(0).toLongLong(), 120);
    const QImage with = plot.grab().toImage();
    EXPECT_NE(with.pixelColor(340, 300), QColor(Qt::white)); // The hairline.
    QTest::mouseMove(&plot, {99, 200});
    EXPECT_EQ(plot.CursorLine(), -1);
    EXPECT_EQ(plot.LastCursorLine(), 120);
    QTest::mouseMove(&plot, {340, 30});
    EXPECT_EQ(plot.CursorLine(), -1);
    EXPECT_EQ(plot.grab().toImage().pixelColor(340, 300), QColor(Qt::white));
    QTest::mouseMove(&plot, {340, 200});
    LeaveWidget(plot);
    EXPECT_EQ(plot.CursorLine(), -1);
    EXPECT_EQ(plot.ClientWidth(), kWidth - 1); // The size that a leaving mouse sets does not last.
}

TEST_F(StarTestControl, MarksSweepsThatWereNotJudgedGood)
{
    Read(ThreeSweeps());
    const QColor red(205, 30, 30);
    const QPoint symbol(7, ListRow(1).y() + 2);
    // The rim of the symbol, beside its white cross.
    const auto hasSymbol = [&] { return HasColourNear(symbol + QPoint(-4, 0), red); };
    EXPECT_TRUE(hasSymbol());
    StarTestSweep& sweep = data.m_sweeps[1];
    sweep.m_bChecked = true;
    sweep.m_iPointCount = 10;
    sweep.m_Points.resize(10);
    sweep.JudgePoints();
    plot.Redraw();
    EXPECT_FALSE(hasSymbol());
    sweep.m_Points[3].m_bNotPassed = true;
    sweep.JudgePoints();
    plot.Redraw();
    EXPECT_TRUE(hasSymbol());
    // In the middle of the plot, a quarter down: not every line of every sweep is a restart.
    EXPECT_TRUE(HasColourNear({500, 50 + 100 - 9}, red));
    for (StarTestSweep& other : data.m_sweeps)
        std::fill(other.m_XRestart.begin(), other.m_XRestart.end(), std::int8_t{1});
    plot.Redraw();
    EXPECT_FALSE(HasColourNear({500, 50 + 100 - 9}, red));
}

TEST_F(StarTestControl, DrawsWithoutDataAndInAnySize)
{
    for (const QSize size : {QSize(2, 2), QSize(40, 30), QSize(320, 200), QSize(2000, 90)}) {
        plot.setMinimumSize(0, 0);
        plot.resize(size);
        EXPECT_FALSE(plot.grab().isNull());
    }
    Read(StarTestStart(2) + "Length = 0\nEND_DATA\n" + PlainSweep(1));
    EXPECT_FALSE(plot.grab().isNull());
    plot.SelectSweep(1);
    EXPECT_FALSE(plot.grab().isNull());
    plot.SetData(nullptr);
    EXPECT_FALSE(plot.grab().isNull());
}

} // namespace
} // namespace vireo
