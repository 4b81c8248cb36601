#include "viewers/controls/PrintPageLayout.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(PrintPageLayout, SharesOfThePage)
{
    const PrintPageLayout layout(QSizeF(4760, 6808));
    EXPECT_EQ(layout.fontHeight, 94); // 6808 / 72 = 94.6
    EXPECT_EQ(layout.leftMargin, 476);
    EXPECT_EQ(layout.topMargin, 340);
    EXPECT_EQ(layout.TextBottom(0), 340); // No text: the plot begins at the margin.
    EXPECT_EQ(layout.TextBottom(3), 340 + 3 * 94);
}

TEST(PrintPageLayout, WideControlsFillTheWidth)
{
    const PrintPageLayout layout(QSizeF(1000, 2000));
    EXPECT_EQ(layout.PlotRect(300, QSizeF(400, 100)), QRectF(100, 300, 800, 200));
}

TEST(PrintPageLayout, TallControlsFillTheHeightThatIsLeft)
{
    // Landscape: 1400 - 300 - 70 = 1030 units are left for a control twice as high as wide.
    const PrintPageLayout layout(QSizeF(2000, 1400));
    EXPECT_EQ(layout.PlotRect(300, QSizeF(150, 300)), QRectF(200, 300, 515, 1030));
}

TEST(PrintPageLayout, WithoutRoomOrSizeThereIsNoPlot)
{
    const PrintPageLayout layout(QSizeF(1000, 2000));
    EXPECT_TRUE(layout.PlotRect(1950, QSizeF(400, 100)).isEmpty());
    EXPECT_TRUE(layout.PlotRect(300, QSizeF(0, 100)).isEmpty());
    EXPECT_TRUE(layout.PlotRect(300, QSizeF(-1, -1)).isEmpty());
    EXPECT_TRUE(PrintPageLayout(QSizeF(0, 0)).PlotRect(0, QSizeF(4, 4)).isEmpty());
}

TEST(PrintPageLayout, FirstEmptyLineEndsTheHeader)
{
    EXPECT_EQ(PrintedHeaderLines({}), 0);
    EXPECT_EQ(PrintedHeaderLines({"", "never printed"}), 0);
    EXPECT_EQ(PrintedHeaderLines({"one", "two", "", "four"}), 2);
    EXPECT_EQ(PrintedHeaderLines(std::vector<std::string>(70, "x")), 70);
    EXPECT_EQ(PrintedHeaderLines(std::vector<std::string>(90, "x")), 70);
}

} // namespace
} // namespace vireo
