#include "tests/viewers/controls/MemoryPicture.h"
#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PicturePyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace vireo {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;

/// A drawing of a view, to be asked pixel by pixel.
class Canvas {
public:
    Canvas(const PictureContent& content, const PictureView& view,
        PictureQuality quality = PictureQuality::Exact)
        : m_width(view.x.view),
          m_pixels(static_cast<std::size_t>((view.x.view + kMargin) * view.y.view), kUntouched)
    {
        const PixelTarget target{m_pixels.data(), view.x.view, view.y.view, view.x.view + kMargin};
        isExact = DrawPicture(content, view, target, quality);
        for (std::int64_t y = 0; y < view.y.view; ++y) {
            EXPECT_EQ(At(view.x.view, y), kUntouched) << "beside row " << y;
            for (std::int64_t x = 0; x < view.x.view; ++x)
                EXPECT_EQ(At(x, y) >> 24, 0xFFU) << x << ", " << y << " not drawn";
        }
    }

    std::uint32_t At(std::int64_t x, std::int64_t y) const
    {
        return m_pixels[static_cast<std::size_t>(y * (m_width + kMargin) + x)];
    }
    int Gray(std::int64_t x, std::int64_t y) const { return static_cast<int>(At(x, y) & 0xFF); }

    bool isExact = false;

private:
    static constexpr std::int64_t kMargin = 3;
    static constexpr std::uint32_t kUntouched = 0x12345678;

    std::int64_t m_width;
    std::vector<std::uint32_t> m_pixels;
};

PictureView ViewOf(const PictureRows& rows, std::int64_t width, std::int64_t height, double zoom)
{
    const PictureView view = PictureView::Start(rows.Width(), rows.Height(), width, height);
    return view.ZoomedAt(0, 0, zoom);
}

MemoryPicture Numbered(std::int64_t width, std::int64_t height)
{
    return {width, height,
        [](std::int64_t x, std::int64_t y) { return static_cast<int>((7 * x + 13 * y) % 251); }};
}

TEST(PictureDrawing, EnlargesPixelsToSharpSquares)
{
    const MemoryPicture picture = Numbered(90, 70);
    for (const double zoom : {1.0, 2.0, 3.0, 7.0}) {
        const PictureView view = ViewOf(picture, 100, 61, zoom);
        const Canvas canvas({&picture, nullptr}, view);
        for (std::int64_t y = 0; y < 61; ++y) {
            for (std::int64_t x = 0; x < 100; ++x) {
                const std::int64_t pixelX = view.PixelAtX(x);
                const std::int64_t pixelY = view.PixelAtY(y);
                const bool isInside = pixelX < 90 && pixelY < 70;
                const int expected =
                    isInside ? static_cast<int>((7 * pixelX + 13 * pixelY) % 251) : 255;
                ASSERT_EQ(canvas.Gray(x, y), expected) << zoom << ": " << x << ", " << y;
            }
        }
    }
}

TEST(PictureDrawing, DrawsColours)
{
    MemoryPicture picture(400, 300, PictureRows::kRgb);
    for (std::int64_t y = 0; y < 300; ++y) {
        for (std::int64_t x = 0; x < 400; ++x) {
            picture.At(x, y, 0) = x < 200 ? 250 : 10;
            picture.At(x, y, 1) = 20;
            picture.At(x, y, 2) = 30;
        }
    }
    PicturePyramid pyramid(picture);
    ASSERT_TRUE(pyramid.Build());
    for (const double zoom : {2.0, 1.0, 0.5, 0.25, 0.2, 0.1}) {
        const PictureView fitted = ViewOf(picture, 40, 30, zoom);
        const Canvas canvas({&picture, &pyramid}, fitted);
        const bool isLeft = fitted.PixelAtX(1) < 190;
        EXPECT_EQ(canvas.At(1, 1), isLeft ? 0xFFFA141EU : 0xFF0A141EU) << zoom;
    }
}

TEST(PictureDrawing, WithoutAPictureIsWhite)
{
    const Canvas canvas({}, PictureView::Start(0, 0, 20, 10));
    EXPECT_EQ(canvas.At(0, 0), kWhite);
    EXPECT_EQ(canvas.At(19, 9), kWhite);
}

/// The most that a line differs from its surroundings anywhere across a drawing's middle.
int Contrast(const Canvas& canvas, std::int64_t length, int background, bool isVertical)
{
    int contrast = 0;
    for (std::int64_t at = 0; at < length; ++at) {
        const int value = isVertical ? canvas.Gray(at, length / 2) : canvas.Gray(length / 2, at);
        contrast = std::max(contrast, std::abs(value - background));
    }
    return contrast;
}

struct LineCase {
    const char* name;
    int background;
    int line;
    std::int64_t width;
    int noise;
};

TEST(PictureDrawing, ThinLinesSurviveEveryReduction)
{
    const LineCase rows[] = {
        {"dark on light", 240, 10, 1, 0},
        {"light on dark", 10, 240, 1, 0},
        {"two pixels wide", 240, 10, 2, 0},
        {"faint", 200, 150, 1, 0},
        {"in noise", 200, 20, 1, 6},
    };
    constexpr std::int64_t kSize = 500;
    for (const LineCase& row : rows) {
        for (const std::int64_t place : {247, 248, 249, 250}) {
            for (const bool isVertical : {true, false}) {
                std::mt19937 random(3);
                const MemoryPicture picture(kSize, kSize, [&](std::int64_t x, std::int64_t y) {
                    const std::int64_t at = (isVertical ? x : y) - place;
                    const int noise = row.noise == 0
                        ? 0
                        : static_cast<int>(random() % static_cast<unsigned>(2 * row.noise + 1))
                            - row.noise;
                    return (at >= 0 && at < row.width ? row.line : row.background) + noise;
                });
                PicturePyramid pyramid(picture);
                ASSERT_TRUE(pyramid.Build());
                for (const double reduction : {1.3, 2.0, 3.0, 4.0, 6.4, 10.0, 16.0, 25.0, 40.0}) {
                    const auto length = static_cast<std::int64_t>(kSize / reduction);
                    const Canvas canvas(
                        {&picture, &pyramid}, ViewOf(picture, length, length, 1.0 / reduction));
                    const int full = std::abs(row.line - row.background);
                    EXPECT_GE(Contrast(canvas, length, row.background, isVertical), full * 2 / 5)
                        << row.name << " at " << place << (isVertical ? " vertical" : " horizontal")
                        << " 1:" << reduction;
                }
            }
        }
    }
}

TEST(PictureDrawing, NoiseBecomesCalmAndEdgesStayWhereTheyAre)
{
    constexpr std::int64_t kSize = 1600;
    for (const int amplitude : {4, 20, 60, 100}) {
        std::mt19937 random(7);
        const MemoryPicture picture(kSize, kSize, [&](std::int64_t x, std::int64_t y) {
            const int level = x + y / 8 < 811 ? 110 : 150;
            return level + static_cast<int>(random() % static_cast<unsigned>(2 * amplitude + 1))
                - amplitude;
        });
        PicturePyramid pyramid(picture);
        ASSERT_TRUE(pyramid.Build());
        const Canvas canvas({&picture, &pyramid}, ViewOf(picture, 100, 100, 1.0 / 16.0));
        double squares = 0.0;
        int count = 0;
        for (std::int64_t y = 0; y < 100; ++y) {
            for (std::int64_t x = 0; x < 100; ++x) {
                const double edge = (811.0 - 2.0 * static_cast<double>(y)) / 16.0;
                const double distance = static_cast<double>(x) - edge;
                if (std::abs(distance) <= 1.5)
                    continue;
                const double off = canvas.Gray(x, y) - (distance < 0 ? 110.0 : 150.0);
                squares += off * off;
                ++count;
            }
        }
        // The mean of 256 values has a 16th of their deviation.
        const double deviation = amplitude / std::sqrt(3.0) / 16.0;
        EXPECT_LE(std::sqrt(squares / count), 1.5 * deviation + 0.8) << amplitude;
    }
}

TEST(PictureDrawing, PixelsDoNotChangeWhenTheViewMoves)
{
    std::mt19937 random(9);
    const MemoryPicture picture(1500, 1100, [&](std::int64_t, std::int64_t) {
        return random() % 97 == 0 ? 0 : 200 + static_cast<int>(random() % 9);
    });
    PicturePyramid pyramid(picture);
    ASSERT_TRUE(pyramid.Build());
    for (const double reduction : {1.7, 3.0, 4.0, 5.3, 9.9}) {
        const double zoom = 1.0 / reduction;
        const PictureView view = ViewOf(picture, 80, 60, zoom);
        const PictureView moved = view.MovedBy(-37, -23);
        const std::int64_t right = view.FirstDrawn(view.x) - moved.FirstDrawn(moved.x);
        const std::int64_t down = view.FirstDrawn(view.y) - moved.FirstDrawn(moved.y);
        ASSERT_GT(right, 0);
        const Canvas before({&picture, &pyramid}, view);
        const Canvas after({&picture, &pyramid}, moved);
        for (std::int64_t y = 0; y + down < 60; ++y) {
            for (std::int64_t x = 0; x + right < 80; ++x)
                ASSERT_EQ(before.At(x, y), after.At(x + right, y + down)) << reduction;
        }
    }
}

TEST(PictureDrawing, FastDrawingsShowTheSamePlace)
{
    // A view of 9 million pixels and more, which is not read just to be looked at in passing.
    MemoryPicture picture(
        4000, 4000, [](std::int64_t x, std::int64_t) { return x < 2000 ? 0 : 200; });
    PicturePyramid pyramid(picture);
    ASSERT_TRUE(pyramid.Build());
    const PictureView view = ViewOf(picture, 1300, 1300, 1.0 / 3.0);
    const Canvas fast({&picture, &pyramid}, view, PictureQuality::Fast);
    const Canvas exact({&picture, &pyramid}, view);
    EXPECT_FALSE(fast.isExact);
    EXPECT_TRUE(exact.isExact);
    for (std::int64_t x = 0; x < 1300; ++x) {
        const std::int64_t pixel = view.PixelAtX(x);
        if (std::abs(pixel - 2000) > 4) {
            EXPECT_EQ(fast.Gray(x, 600), exact.Gray(x, 600)) << x;
        }
    }
}

TEST(PictureDrawing, LargeViewsAreWholeWhereverTheyAreDivided)
{
    // Blocks of 2 x 2 equal pixels: at half the size each drawn pixel is one of them.
    const MemoryPicture picture{3000, 2600, [](std::int64_t x, std::int64_t y) {
                                    return static_cast<int>(x / 2 * 7 + y / 2 * 13) % 251;
                                }};
    for (const double zoom : {3.0, 1.0, 0.5}) {
        const PictureView view = ViewOf(picture, 900, 1100, zoom);
        const Canvas canvas({&picture, nullptr}, view);
        for (std::int64_t y = 0; y < view.y.view; ++y) {
            for (const std::int64_t x : {0, 1, 450, 899}) {
                const int expected =
                    static_cast<int>(view.PixelAtX(x) / 2 * 7 + view.PixelAtY(y) / 2 * 13) % 251;
                ASSERT_EQ(canvas.Gray(x, y), expected) << zoom << ": " << x << ", " << y;
            }
        }
    }
}

TEST(PictureDrawing, ThinLinesGetNoMoreThanPalerWhileTheViewMoves)
{
    MemoryPicture picture(3400, 2600);
    for (std::int64_t i = 0; i < 2600; ++i) {
        picture.At(1001, i) = 0;
        picture.At(i, 777) = 0;
    }
    for (const double ratio : {1.3, 2.0, 2.3}) {
        const PictureView view = ViewOf(picture, 1400, 1100, 1.0 / ratio);
        const Canvas fast({&picture, nullptr}, view, PictureQuality::Fast);
        const Canvas exact({&picture, nullptr}, view);
        EXPECT_TRUE(exact.isExact);
        const auto darkest = [](const Canvas& canvas, std::int64_t x, std::int64_t y, int dx,
                                 int dy) {
            int value = 255;
            for (int i = -2; i <= 2; ++i)
                value = std::min(value, canvas.Gray(x + i * dx, y + i * dy));
            return value;
        };
        const auto across = static_cast<std::int64_t>(view.PlaceOfX(1001));
        const auto down = static_cast<std::int64_t>(view.PlaceOfY(777));
        for (std::int64_t i = 10; i < 1000; i += 7) {
            ASSERT_LT(darkest(fast, across, i, 1, 0), 180) << ratio << ": row " << i;
            ASSERT_LT(darkest(fast, i, down, 0, 1), 180) << ratio << ": column " << i;
            ASSERT_LT(darkest(exact, across, i, 1, 0), 10) << ratio << ": row " << i;
        }
    }
}

TEST(PicturePyramid, IsTheSameWithAnyNumberOfThreads)
{
    std::mt19937 random(11);
    for (const bool isCheap : {true, false}) {
        MemoryPicture picture(1003, 1501,
            [&](std::int64_t, std::int64_t) { return static_cast<int>(random() % 256); });
        picture.SetCheap(isCheap);
        PicturePyramid one(picture);
        PicturePyramid many(picture);
        ASSERT_TRUE(one.Build(1));
        ASSERT_TRUE(many.Build(4));
        EXPECT_EQ(one.Levels().front().reduction, isCheap ? 4 : 2);
        for (std::size_t i = 0; i < one.Levels().size(); ++i) {
            const auto& a = one.Levels()[i];
            const auto& b = many.Levels()[i];
            EXPECT_TRUE(std::equal(a.Row(0), a.Row(a.height), b.Row(0))) << i;
        }
    }
}

TEST(PicturePyramid, KeepsToItsMemoryAndStopsWhenTold)
{
    MemoryPicture picture = Numbered(3000, 2000);
    for (const std::uint64_t bytes : {1'000'000, 420'000, 400'000, 90'000, 20'000}) {
        const PicturePyramid pyramid(picture, bytes);
        std::uint64_t held = 0;
        for (const PicturePyramid::Level& level : pyramid.Levels())
            held += static_cast<std::uint64_t>(level.rowBytes * level.height);
        EXPECT_TRUE(pyramid.HasLevels());
        EXPECT_LE(held, bytes);
    }
    PicturePyramid pyramid(picture);
    WorkProgress progress;
    picture.whenRead = [&](std::int64_t row) {
        if (row >= 600)
            progress.Cancel();
    };
    EXPECT_FALSE(pyramid.Build(progress));
    EXPECT_GT(progress.Fraction(), 0.2);
    EXPECT_LT(progress.Fraction(), 0.35);
    picture.whenRead = {};
    EXPECT_FALSE(pyramid.IsComplete());
    EXPECT_GT(pyramid.RowsDone(), 0);
    EXPECT_LT(pyramid.RowsDone(), 500);
    const Canvas canvas({&picture, &pyramid}, ViewOf(picture, 300, 200, 0.1));
    EXPECT_FALSE(canvas.isExact);
    EXPECT_NE(canvas.At(0, 0), kWhite);
    EXPECT_EQ(canvas.At(0, 199), kWhite) << "not built yet";
}

/// So large a picture that nobody could hold it; all but its first rows are announced only.
class HugePicture : public PictureRows {
public:
    std::int64_t Width() const override { return m_width; }
    std::int64_t Height() const override { return m_height; }
    int Channels() const override { return kGray; }
    std::int64_t CoveredRows() const override { return 3; }
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override
    {
        EXPECT_LE(rect.top + rect.height, m_height);
        EXPECT_LE(rect.left + rect.width, m_width);
        ASSERT_EQ(pixels.size(), static_cast<std::size_t>(rect.width * rect.height));
        std::fill(pixels.begin(), pixels.end(), std::uint8_t{100});
    }

    std::int64_t m_width = 0x7FFFFFFF;
    std::int64_t m_height = 0x7FFFFFFF;
};

TEST(PicturePyramid, TakesNoMemoryForPicturesThatCannotBe)
{
    HugePicture picture;
    PicturePyramid none(picture);
    EXPECT_FALSE(none.HasLevels());
    EXPECT_TRUE(none.Build());
    const PictureView view = ViewOf(picture, 50, 40, 1.0).Fitted();
    EXPECT_LE(view.x.Shown(view.zoom), PictureView::kMostShown);
    const Canvas canvas({&picture, &none}, view);
    EXPECT_EQ(canvas.Gray(0, 0), 100);

    for (const std::int64_t side : {0, 0x7FFFFFFF}) {
        picture.m_width = side;
        picture.m_height = 0x7FFFFFFF - side;
        EXPECT_FALSE(PicturePyramid(picture).HasLevels()) << side;
    }

    picture.m_width = 1000;
    picture.m_height = 200'000;
    PicturePyramid tall(picture);
    ASSERT_TRUE(tall.Build());
    const auto& first = tall.Levels().front();
    EXPECT_EQ(first.Row(0)[0], 100);
    EXPECT_EQ(first.Row(first.height - 1)[0], 255) << "behind the rows that are covered";
}

} // namespace
} // namespace vireo
