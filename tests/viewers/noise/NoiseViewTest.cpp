#include "viewers/noise/NoiseView.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(NoiseViewTest, TheWholeLineIsTwoHalves)
{
    const NoiseView even = NoiseView::Whole(1000);
    EXPECT_EQ(even.First(1000), 0);
    EXPECT_EQ(even.End(1000), 1000);
    const NoiseView odd = NoiseView::Whole(1001);
    EXPECT_EQ(odd.First(1001), 0);
    EXPECT_EQ(odd.End(1001), 1000) << "the last pixel of an odd line is outside";
    EXPECT_EQ(NoiseView::Whole(0).End(0), 0);
}

struct ClickCase {
    const char* name;
    NoiseView before;
    double x;
    NoiseView after;
};

TEST(NoiseViewTest, AClickBringsItsPixelToTheMiddleAtTwiceTheZoom)
{
    // A plot 800 wide over a line of 10,000.
    const ClickCase rows[] = {
        {"middle", {5000, 1}, 400.0, {5000, 2}},
        {"three quarters", {5000, 1}, 600.0, {7500, 2}},
        {"left end is clamped", {5000, 1}, 0.0, {2500, 2}},
        {"right end is clamped", {5000, 1}, 800.0, {7500, 2}},
        {"within a zoom", {5000, 4}, 500.0, {5312, 8}}, // 0.25 x 1250 = 312.5
        {"negative part is cut towards 0", {5000, 4}, 300.0, {4688, 8}},
        {"no closer than a few pixels", {5000, 2048}, 400.0, {5000, 2048}},
    };
    for (const ClickCase& row : rows)
        EXPECT_EQ(row.before.ZoomedIn(row.x, 800.0, 10000), row.after) << row.name;
}

TEST(NoiseViewTest, ZoomingOutHalvesAndRecentresAtTheEnd)
{
    const ClickCase rows[] = {
        {"from the whole line", {5000, 1}, 0.0, {5000, 1}},
        {"from 2", {2500, 2}, 0.0, {5000, 1}},
        {"from 3", {1700, 3}, 0.0, {5000, 1}},
        {"from 8 to 4 keeps the centre", {4000, 8}, 0.0, {4000, 4}},
        {"from 8 to 4, clamped", {700, 8}, 0.0, {1250, 4}},
        {"from 9 to 4, clamped", {9900, 9}, 0.0, {8750, 4}},
    };
    for (const ClickCase& row : rows)
        EXPECT_EQ(row.before.ZoomedOut(10000), row.after) << row.name;
}

TEST(NoiseViewTest, TheWheelKeepsThePixelUnderThePointer)
{
    const NoiseView view{4000, 4};
    const double pixel = 4300.0;
    for (const bool in : {true, false}) {
        const NoiseView turned = view.ZoomedAt(pixel, in, 10000);
        const auto share = [&](const NoiseView& of) {
            return (pixel - of.Stretch(10000).first) / of.Stretch(10000).length;
        };
        EXPECT_NEAR(share(turned), share(view), 1e-3);
        EXPECT_EQ(turned.zoom, in ? 8 : 2);
    }
}

TEST(NoiseViewTest, ScrollPositionsGoThereAndBack)
{
    const std::int64_t length = 10001;
    for (const int zoom : {1, 2, 7, 64}) {
        NoiseView view = NoiseView::Whole(length);
        view.zoom = zoom;
        EXPECT_EQ(view.ScrolledTo(0, length).First(length), 0);
        const std::int64_t last = length - view.Page(length);
        EXPECT_GE(view.ScrolledTo(last, length).End(length), length - 2);
        for (std::int64_t position = 0; position <= last; position += 997)
            EXPECT_NEAR(
                static_cast<double>(view.ScrolledTo(position, length).ScrollPosition(length)),
                static_cast<double>(position), 1.0);
    }
    EXPECT_EQ((NoiseView{0, 1}.Page(0)), 1) << "an empty line has a page, too";
}

} // namespace
} // namespace vireo
