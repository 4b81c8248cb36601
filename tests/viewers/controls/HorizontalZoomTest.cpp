#include "viewers/controls/HorizontalZoom.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(HorizontalZoom, ShowsAllPointsAtFirst)
{
    const HorizontalZoom even = HorizontalZoom::Whole(1000);
    EXPECT_EQ(even.View(), (ProfileView{0.0, 1000.0}));
    EXPECT_EQ(HorizontalZoom::Whole(1001).View(), (ProfileView{-0.5, 1001.0}));
    EXPECT_EQ(HorizontalZoom::Whole(0).Span(), 0.0);
}

TEST(HorizontalZoom, ZoomsAtAPoint)
{
    const HorizontalZoom zoom = HorizontalZoom::Whole(1000).ZoomedAt(400.0, 4.0);
    EXPECT_DOUBLE_EQ(zoom.Span(), 250.0);
    // The point was at two fifths of the plot and still is.
    EXPECT_NEAR((400.0 - zoom.View().first) / zoom.Span(), 0.4, 0.5 / zoom.Span());
    EXPECT_EQ(zoom.ZoomedAt(400.0, 1.0 / 4.0), HorizontalZoom::Whole(1000));
    // At the closest view nothing moves any more.
    const HorizontalZoom closest = zoom.ZoomedAt(400.0, 1e9);
    EXPECT_DOUBLE_EQ(closest.Span(), HorizontalZoom::kFewestPoints);
    EXPECT_EQ(closest.ZoomedAt(402.0, 2.0), closest);
}

TEST(HorizontalZoom, StaysWithinItsPoints)
{
    const HorizontalZoom zoom = HorizontalZoom::Whole(1000).CentredOn(10.0, 10.0);
    EXPECT_EQ(zoom.centre, 50);
    EXPECT_EQ(zoom.MovedBy(1e9).centre, 950);
    EXPECT_EQ(zoom.MovedBy(-1e9).centre, 50);
    EXPECT_EQ(HorizontalZoom::Whole(3).CentredOn(1.0, 100.0), HorizontalZoom::Whole(3));
    EXPECT_EQ(HorizontalZoom::Whole(1000).MovedBy(100.0), HorizontalZoom::Whole(1000));
}

TEST(HorizontalZoom, GoesOnOverOtherPoints)
{
    const HorizontalZoom zoom = HorizontalZoom::Whole(1000).CentredOn(300.0, 10.0);
    EXPECT_EQ(zoom.Over(1000), zoom);
    const HorizontalZoom longer = zoom.Over(2000);
    EXPECT_DOUBLE_EQ(longer.Span(), 100.0);
    EXPECT_EQ(longer.centre, 300);
    EXPECT_EQ(zoom.Over(200).centre, 150);
    EXPECT_EQ(zoom.Over(50), HorizontalZoom::Whole(50));
    EXPECT_EQ(HorizontalZoom::Whole(10).Over(70), HorizontalZoom::Whole(70));
    EXPECT_EQ(HorizontalZoom::Whole(0).Over(70), HorizontalZoom::Whole(70));
}

TEST(HorizontalZoom, FindsThePointUnderAPlace)
{
    // 1003 wide: a tenth is 100, 803 for the plot; its middle lies at 501.5.
    const HorizontalZoom zoom{500, 1606, 2.0};
    EXPECT_EQ(zoom.PointAt(502, 1003), 501); // Half a point more than 500, rounded away from it.
    EXPECT_EQ(zoom.PointAt(602, 1003), 601);
    EXPECT_EQ(zoom.PointAt(100, 1003), 98); // 401.5 less.
    EXPECT_EQ(zoom.PointAt(903, 1003), 902);
    EXPECT_LT((HorizontalZoom{10, 1606, 2.0}).PointAt(100, 1003), 0);
}

} // namespace
} // namespace vireo
