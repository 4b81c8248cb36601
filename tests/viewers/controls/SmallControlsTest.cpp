#include "tests/viewers/WidgetTest.h"
#include "viewers/controls/CElapsed_Control.h"
#include "viewers/controls/CScrollTextControl.h"
#include "viewers/controls/CWidthCenter_Control.h"
#include "viewers/controls/ElidedLabel.h"
#include "viewers/controls/Symbols.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <limits>

namespace vireo {
namespace {

/// An elapsed-time control with a clock of its own.
class TestElapsed : public CElapsed_Control {
public:
    TestElapsed()
    {
        resize(120, 40);
        Initialise();
        Reset();
    }

    std::int64_t now = 1000000;
    int drawn = 0;

    bool DrawContent(QPainter& dc, int width, int height) override
    {
        ++drawn;
        return CElapsed_Control::DrawContent(dc, width, height);
    }

protected:
    std::int64_t TickCount() const override { return now; }
};

TEST(CElapsed_Control, RedrawsWhenTheShownTimeChanges)
{
    TestElapsed control;
    const int before = control.drawn;
    control.now += 499;
    control.OnTimer(1);
    EXPECT_EQ(control.drawn, before);
    control.now += 1;
    control.OnTimer(1);
    EXPECT_EQ(control.drawn, before + 1);
    control.now += 3600 * 1000;
    control.OnTimer(1);
    EXPECT_EQ(control.Shown().Text(), "1:00:01");
    control.Reset();
    EXPECT_EQ(control.Shown().Text(), "0:00:00");
}

class WidthGauge : public testing::Test {
protected:
    WidthGauge()
    {
        m_control.resize(301, 401);
        m_control.Initialise();
    }

    QColor PixelAt(int x, int y) { return m_control.grab().toImage().pixelColor(x, y); }

    CWidthCenter_Control m_control;
};

bool IsGreenish(const QColor& colour)
{
    return colour.green() > colour.red() + 40;
}

bool IsReddish(const QColor& colour)
{
    return colour.red() > colour.green() + 80;
}

TEST_F(WidthGauge, IsRedGreenRedInTheMiddleThird)
{
    // The gauge is 100 wide from 100 on, and runs from 40 to 396.
    constexpr int kInside = 115;
    EXPECT_TRUE(IsReddish(PixelAt(kInside, 60)));
    EXPECT_TRUE(IsGreenish(PixelAt(kInside, 210)));
    EXPECT_TRUE(IsReddish(PixelAt(kInside, 380)));
    EXPECT_FALSE(IsReddish(PixelAt(95, 60)));
    EXPECT_FALSE(IsReddish(PixelAt(205, 60)));
}

TEST_F(WidthGauge, PointersFollowTheValues)
{
    m_control.SetLeft(100.0, 50.0);
    m_control.SetRight(100.0, -50.0);
    CDrawRedGreenRedRect gauge;
    gauge.SetPlace(100, 40, 100, 356);
    const int above = gauge.Scale().PositionOf(50.0);
    const int below = gauge.Scale().PositionOf(-50.0);
    EXPECT_LT(above, below);
    EXPECT_TRUE(IsReddish(PixelAt(94, above)));
    EXPECT_TRUE(IsReddish(PixelAt(206, below)));
    EXPECT_FALSE(IsReddish(PixelAt(94, below)));
}

TEST_F(WidthGauge, ValuesAreNotCutAtTheEdge)
{
    m_control.SetLeft(100.0, 0.08);
    for (int width = 90; width < 130; ++width) {
        m_control.resize(width, 301);
        const QImage image = m_control.grab().toImage();
        for (int y = 60; y < 250; ++y)
            EXPECT_EQ(image.pixelColor(0, y), image.pixelColor(0, 300 - 5)) << width;
    }
}

TEST_F(WidthGauge, JudgesByItsLimits)
{
    using Verdict = CWidthCenter_Control::Verdict;
    EXPECT_EQ(m_control.VerdictOf(0.0), Verdict::Right);
    EXPECT_EQ(m_control.VerdictOf(-0.94), Verdict::Right);
    EXPECT_EQ(m_control.VerdictOf(0.95), Verdict::Close);
    EXPECT_EQ(m_control.VerdictOf(-1.0), Verdict::Close);
    EXPECT_EQ(m_control.VerdictOf(1.01), Verdict::Wrong);
    EXPECT_EQ(m_control.VerdictOf(std::numeric_limits<double>::quiet_NaN()), Verdict::Wrong);
    m_control.SetLimits(5.0, 4.0);
    EXPECT_EQ(m_control.VerdictOf(3.9), Verdict::Right);
}

TEST_F(WidthGauge, StaysDisabled)
{
    m_control.setEnabled(true);
    EXPECT_FALSE(m_control.isEnabled());
}

TEST_F(WidthGauge, DrawsAtAnySize)
{
    for (const int width : {2, 17, 60, 900}) {
        for (const int height : {2, 25, 1200}) {
            m_control.resize(width, height);
            EXPECT_EQ(m_control.grab().size(), QSize(width, height));
        }
    }
}

TEST(CBasicDrawItem, CornersAreInside)
{
    CDrawRedGreenRedRect item;
    item.SetCorners(10, 20, 19, 20);
    EXPECT_EQ(item.Place(), QRect(10, 20, 10, 1));
    item.SetPlace(1, 2, 3, 4);
    EXPECT_EQ(item.Place(), QRect(1, 2, 3, 4));
}

TEST(Symbols, ReachAsFarAsAskedForAndNoFarther)
{
    for (int symbol = 0; symbol <= static_cast<int>(Symbol::Diamond); ++symbol) {
        const QRect ink = InkOf(Drawn({80, 80}, 1.0, [symbol](QPainter& dc) {
            dc.fillRect(0, 0, 80, 80, Qt::white);
            DrawSymbol(dc, static_cast<Symbol>(symbol), {40, 40}, 20, Qt::black);
        }));
        EXPECT_TRUE(QRect(17, 17, 46, 46).contains(ink)) << symbol;
        EXPECT_GE(ink.width(), 36) << symbol;
        EXPECT_NEAR(ink.center().x(), 40, 2) << symbol;
    }
}

/// A text control of a known text in a small window.
class ScrolledText : public testing::Test {
protected:
    ScrolledText()
    {
        m_control.resize(300, 120);
        m_control.show();
        m_control.Initialise();
        m_control.SetText(
            "Dynamic range\n   Slope:\t1.25\r\n\nlast of the first\nfive\nsix\nseven\n"
            "eight\nnine\nten\neleven \xE4\n");
        // Columns are widths of characters; a click lands left of a character's middle.
    }

    QPoint PointAt(int line, int column) const
    {
        return m_control.PointOf({line, column}).toPoint() + QPoint(1, 4);
    }

    CScrollTextControl m_control;
};

TEST_F(ScrolledText, SplitsLinesAndExpandsTabs)
{
    ASSERT_EQ(m_control.Lines().size(), 11);
    EXPECT_EQ(m_control.Lines()[1], QStringLiteral("   Slope:       1.25"));
    EXPECT_EQ(m_control.Lines()[10], QStringLiteral("eleven \u00E4"));
}

TEST_F(ScrolledText, DraggingSelectsAndCtrlCCopies)
{
    QTest::mousePress(&m_control, Qt::LeftButton, {}, PointAt(0, 8));
    QTest::mouseMove(&m_control, PointAt(1, 9));
    QTest::mouseRelease(&m_control, Qt::LeftButton, {}, PointAt(1, 9));
    EXPECT_EQ(m_control.SelectedText(), QStringLiteral("range\n   Slope:"));
    QTest::keyClick(&m_control, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("range\n   Slope:"));
}

TEST_F(ScrolledText, DraggingBackwardsSelectsTheSame)
{
    m_control.Select({3, 4}, {1, 3});
    EXPECT_EQ(m_control.SelectedText(), QStringLiteral("Slope:       1.25\n\nlast"));
}

TEST_F(ScrolledText, DoubleClickSelectsAWord)
{
    QTest::mouseDClick(&m_control, Qt::LeftButton, {}, PointAt(0, 2));
    EXPECT_EQ(m_control.SelectedText(), QStringLiteral("Dynamic"));
}

TEST_F(ScrolledText, CtrlASelectsAll)
{
    QTest::keyClick(&m_control, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_control.SelectedText(), m_control.Lines().join(QLatin1Char('\n')));
}

TEST_F(ScrolledText, KeysAndWheelScroll)
{
    QTest::keyClick(&m_control, Qt::Key_Down);
    EXPECT_EQ(m_control.FirstLine(), 1);
    QTest::keyClick(&m_control, Qt::Key_End);
    EXPECT_EQ(m_control.FirstLine(), 11 - m_control.VisibleLines());
    QTest::keyClick(&m_control, Qt::Key_Home);
    EXPECT_EQ(m_control.FirstLine(), 0);
    TurnWheel(m_control, {10, 10}, {0, -120});
    EXPECT_EQ(m_control.FirstLine(), 3);
    EXPECT_EQ(m_control.PlaceAt(PointAt(4, 2)), (CScrollTextControl::Place{4, 2}));
}

TEST_F(ScrolledText, ScrollBarsComeWhenTheyAreNeeded)
{
    EXPECT_TRUE(m_control.findChildren<QScrollBar*>()[0]->isVisible());
    m_control.resize(500, 500);
    EXPECT_FALSE(m_control.findChildren<QScrollBar*>()[0]->isVisible());
    EXPECT_FALSE(m_control.findChildren<QScrollBar*>()[1]->isVisible());
    m_control.resize(60, 500);
    EXPECT_TRUE(m_control.findChildren<QScrollBar*>()[1]->isVisible());
}

TEST_F(ScrolledText, AnEmptyTextCanBeClickedAndCopied)
{
    m_control.SetText("");
    QTest::mouseDClick(&m_control, Qt::LeftButton, {}, {30, 30});
    QTest::keyClick(&m_control, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_control.SelectedText(), QString());
    EXPECT_EQ(m_control.PageCount(), 1);
}

TEST(ElidedLabel, LeavesTheMiddleOutAndShowsTheWholeAsToolTip)
{
    ElidedLabel label;
    const QString name = QStringLiteral("<b>a-rather-long-name-of-a-test-result</b>.con");
    label.setText(name);
    label.show();
    const auto tip = [&label] {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label.mapToGlobal(QPoint(2, 2)));
        QCoreApplication::sendEvent(&label, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    const auto paintedEnd = [&label] {
        const QImage image = label.grab().toImage();
        int end = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                end = image.pixel(x, y) != image.pixel(0, 0) ? x : end;
        }
        return end;
    };
    const int whole = label.fontMetrics().horizontalAdvance(name);
    label.resize(whole + 20, 30);
    EXPECT_EQ(tip(), QString());
    EXPECT_NEAR(paintedEnd(), whole, 10);

    label.resize(120, 30);
    EXPECT_EQ(tip(), name);
    EXPECT_NEAR(paintedEnd(), 110, 10) << "the name's last letters are there";
    EXPECT_LT(label.minimumSizeHint().width(), 60);
}

} // namespace
} // namespace vireo
