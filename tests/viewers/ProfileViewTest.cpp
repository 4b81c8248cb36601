#include "viewers/controls/ProfileView.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

struct WithinCase {
    const char* name;
    ProfileView view;
    std::int64_t line;
    ProfileView expected;
};

class ProfileViewWithin : public testing::TestWithParam<WithinCase> { };

TEST_P(ProfileViewWithin, LiesInTheLine)
{
    const WithinCase& row = GetParam();
    const ProfileView view = row.view.Within(row.line);
    EXPECT_DOUBLE_EQ(view.first, row.expected.first) << row.name;
    EXPECT_DOUBLE_EQ(view.length, row.expected.length) << row.name;
}

INSTANTIATE_TEST_SUITE_P(Views, ProfileViewWithin,
    testing::Values(WithinCase{"inside stays", {10, 50}, 100, {10, 50}},
        WithinCase{"left of the line moves right", {-20, 50}, 100, {0, 50}},
        WithinCase{"beyond the end moves left", {80, 50}, 100, {50, 50}},
        WithinCase{"longer than the line is the line", {30, 500}, 100, {0, 100}},
        WithinCase{"too short grows", {30, 1}, 100, {30, 8}},
        WithinCase{"a line of three pixels is shown whole", {1, 1}, 3, {0, 3}},
        WithinCase{"an empty line still has a length", {5, 5}, 0, {0, 1}}));

TEST(ProfileView, ZoomKeepsThePixelUnderThePointer)
{
    const ProfileView view{1000.0, 4000.0};
    const double pixel = 1700.0; // 17.5 % from the left
    for (const double factor : {2.0, 1.25, 0.5, 100.0}) {
        const ProfileView zoomed = view.ZoomedAt(pixel, factor, 100000);
        EXPECT_NEAR((pixel - zoomed.first) / zoomed.length, 0.175, 1e-9) << factor;
        EXPECT_DOUBLE_EQ(zoomed.length, 4000.0 / factor) << factor;
    }
}

TEST(ProfileView, ZoomAtTheShortestStaysWhereItIs)
{
    const ProfileView shortest{500.0, ProfileView::kShortest};
    EXPECT_EQ(shortest.ZoomedAt(503.0, 2.0, 10000), shortest);
}

TEST(ProfileScale, MapsBothWays)
{
    const ProfileScale scale{{200.0, 50.0}, 10.0, 110.0, 40.0, 20.0, 500.0, 200.0};
    EXPECT_DOUBLE_EQ(scale.XAt(200.0), 40.0);
    EXPECT_DOUBLE_EQ(scale.XAt(250.0), 540.0);
    EXPECT_DOUBLE_EQ(scale.YAt(110.0), 20.0);
    EXPECT_DOUBLE_EQ(scale.YAt(10.0), 220.0);
    for (double x = 40.0; x < 540.0; x += 33.3)
        EXPECT_NEAR(scale.XAt(scale.PixelAt(x)), x, 1e-9);
    for (double y = 20.0; y < 220.0; y += 17.7)
        EXPECT_NEAR(scale.YAt(scale.ValueAt(y)), y, 1e-9);
}

} // namespace
} // namespace vireo
