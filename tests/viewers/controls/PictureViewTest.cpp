#include "viewers/controls/PictureView.h"

#include <gtest/gtest.h>

#include <random>

namespace vireo {
namespace {

PictureView At(std::int64_t centreX, std::int64_t centreY, double zoom)
{
    PictureView view = PictureView::Start(5000, 3000, 800, 600);
    view.x.centre = centreX;
    view.y.centre = centreY;
    view.zoom = zoom;
    return view;
}

TEST(PictureView, StartsInTheMiddleAThirdDown)
{
    const PictureView view = PictureView::Start(5000, 3000, 801, 601);
    EXPECT_EQ(view.zoom, 1.0);
    EXPECT_EQ(view.x.centre, 2500);
    EXPECT_EQ(view.y.centre, 1000);
    EXPECT_EQ(view.x.First(1.0), 2100);
    EXPECT_EQ(view.x.Shown(1.0), 801);
    EXPECT_EQ(view.PixelAtX(0), 2100);
    EXPECT_EQ(view.PixelAtX(800), 2900);
}

TEST(PictureView, ZoomsInByTheSpotClicked)
{
    struct Row {
        const char* name;
        PictureView before;
        std::int64_t x, y;
        std::int64_t centreX, centreY;
        double zoom;
    };
    const Row rows[] = {
        {"the middle", At(2500, 1500, 1), 400, 300, 2500, 1500, 2},
        {"right and below", At(2500, 1500, 1), 500, 350, 2600, 1550, 2},
        {"at zoom 3, rounded to zero", At(2500, 1500, 3), 0, 0, 2367, 1400, 4},
        {"kept off the edge", At(2500, 1500, 1), 800, 600, 2900, 1800, 2},
        {"from a corner, clamped by the new zoom", At(400, 300, 1), 0, 0, 200, 150, 2},
        {"below 1 to the next step", At(2500, 1500, 0.25), 400, 300, 2500, 1500, 1.0 / 3.0},
        {"no farther than the largest", At(2500, 1500, 256), 400, 300, 2500, 1500, 256},
    };
    for (const Row& row : rows) {
        const PictureView after = row.before.ZoomedIn(row.x, row.y);
        EXPECT_EQ(after.x.centre, row.centreX) << row.name;
        EXPECT_EQ(after.y.centre, row.centreY) << row.name;
        EXPECT_DOUBLE_EQ(after.zoom, row.zoom) << row.name;
    }
}

TEST(PictureView, ZoomsOutByOneButNotBelowOne)
{
    EXPECT_EQ(At(2500, 1500, 5).ZoomedOut().zoom, 4.0);
    const PictureView same = At(2500, 1500, 1).ZoomedOut();
    EXPECT_EQ(same.zoom, 1.0);
    EXPECT_EQ(same.x.centre, 2500);
    // A view at the edge of zoom 2 does not fit there at zoom 1.
    EXPECT_EQ(At(200, 150, 2).ZoomedOut().x.centre, 400);
}

TEST(PictureView, APictureSmallerThanTheViewStartsAtItsEdge)
{
    const PictureView view = PictureView::Start(100, 5000, 800, 600);
    EXPECT_EQ(view.x.centre, 400);
    EXPECT_EQ(view.x.First(1.0), 0);
    EXPECT_EQ(view.MovedBy(1000, 0).x.First(1.0), 0);
    EXPECT_EQ(view.MovedBy(0, 9999).y.centre, 4700);
    EXPECT_EQ(PictureView::Start(0, 0, 800, 600).ZoomedIn(5, 5).ZoomedOut().x.First(1.0), 0);
}

TEST(PictureView, TellsTheScrollBars)
{
    const PictureView view = At(1400, 1500, 2);
    EXPECT_EQ(view.x.ScrollPage(2), 800);      // 400 of 5000
    EXPECT_EQ(view.x.ScrollPosition(2), 2400); // 1200 of 5000
    EXPECT_EQ(view.x.StepOf(PictureStep::LineForward, 2), 40);
    EXPECT_EQ(view.x.StepOf(PictureStep::LineBack, 2), -40);
    EXPECT_EQ(view.x.StepOf(PictureStep::PageForward, 2), 400);
    EXPECT_EQ(view.x.StepOf(PictureStep::PageBack, 2), -400);
    EXPECT_EQ(view.x.StepOf(PictureStep::LineForward, 256), 1);
    EXPECT_EQ(view.x.StepTo(5000, 2), 1300);
    EXPECT_EQ(view.x.StepTo(view.x.ScrollPosition(2), 2), 0);
    EXPECT_EQ(PictureView::Start(100, 100, 800, 600).x.ScrollPage(1), 10'000);
    EXPECT_EQ(PictureView::Start(0, 0, 800, 600).x.ScrollPosition(1), 0);
}

TEST(PictureView, FitsTheWholePicture)
{
    const PictureView wide = At(0, 0, 3).Fitted();
    EXPECT_DOUBLE_EQ(wide.zoom, 0.16);
    EXPECT_EQ(wide.x.First(wide.zoom), 0);
    EXPECT_EQ(wide.PixelAtX(799), 4993);
    EXPECT_EQ(PictureView::Start(100, 100, 800, 650).Fitted().zoom, 6.0);
    EXPECT_EQ(PictureView::Start(0, 10, 800, 650).Fitted().zoom, 1.0);
}

TEST(PictureView, StepsThroughTheSameZoomsBothWays)
{
    PictureView view = At(2500, 1500, 1);
    view.x.picture = view.y.picture = 100'000;
    std::vector<double> steps;
    for (double zoom : {12.0, 8.0, 6.0, 4.0, 3.0, 2.0, 1.0, 0.5, 1 / 3.0, 0.25, 1 / 6.0, 0.125})
        steps.push_back(zoom);
    for (std::size_t i = 0; i + 1 < steps.size(); ++i) {
        view.zoom = steps[i];
        EXPECT_DOUBLE_EQ(view.NextZoom(false), steps[i + 1]);
        view.zoom = steps[i + 1];
        EXPECT_DOUBLE_EQ(view.NextZoom(true), steps[i]);
    }
    view.zoom = 5.0;
    EXPECT_EQ(view.NextZoom(true), 6.0);
    EXPECT_EQ(view.NextZoom(false), 4.0);
    view.zoom = 0.007;
    EXPECT_DOUBLE_EQ(view.NextZoom(false), 0.006) << "not below the fitting zoom";
    view.zoom = 256.0;
    EXPECT_EQ(view.NextZoom(true), 256.0);
}

TEST(PictureView, KeepsThePixelUnderThePointer)
{
    std::mt19937 random(5);
    PictureView view = PictureView::Start(50'000, 40'000, 800, 600);
    for (int i = 0; i < 500; ++i) {
        const auto x = static_cast<std::int64_t>(random() % 800);
        const auto y = static_cast<std::int64_t>(random() % 600);
        const PictureView next = view.ZoomedAt(x, y, view.NextZoom(random() % 2 == 0));
        // The view moves as far as the picture reaches, and by whole pixels.
        const double pixel = std::max(1.0 / view.zoom, 1.0 / next.zoom) + 1.0;
        const bool isInside = next.x.First(next.zoom) > 0 && next.y.First(next.zoom) > 0
            && next.x.centre + next.x.Half(next.zoom) < 50'000
            && next.y.centre + next.y.Half(next.zoom) < 40'000;
        if (isInside) {
            EXPECT_NEAR(static_cast<double>(next.PixelAtX(x)),
                static_cast<double>(view.PixelAtX(x)), pixel);
            EXPECT_NEAR(static_cast<double>(next.PixelAtY(y)),
                static_cast<double>(view.PixelAtY(y)), pixel);
        }
        view = next;
    }
}

} // namespace
} // namespace vireo
