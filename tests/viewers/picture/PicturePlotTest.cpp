#include "tests/viewers/controls/MemoryPicture.h"
#include "viewers/picture/PicturePlot.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace vireo {
namespace {

TEST(PicturePlotTest, APrintedPictureLiesInTheMiddleOfThePage)
{
    struct Row {
        const char* name;
        double textBottom;
        QSizeF view;
        QRectF place;
    };
    const QRectF page(20.0, 10.0, 1000.0, 1440.0); // A top margin of 72.
    for (const Row& row : {Row{"wide", 100.0, {400.0, 200.0}, {120.0, 530.0, 800.0, 400.0}},
             Row{"as high as there is room", 168.0, {100.0, 1200.0}, {470.0, 178.0, 100.0, 1200.0}},
             Row{"no room", 1400.0, {100.0, 100.0}, {}}, Row{"no picture", 100.0, {}, {}}})
        EXPECT_EQ(PrintedPictureRect(page, row.textBottom, row.view), row.place) << row.name;
}

class PicturePageTest : public testing::Test {
protected:
    PicturePageTest()
    {
        content.picture.rows = &picture;
        content.view = PictureView::Start(4, 2, 40, 40).Fitted();
        content.coveredRows = 2;
    }
    QImage Page() const
    {
        QImage page(1000, 1440, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        DrawPicturePage(painter, QRectF(page.rect()), {"Picture: a.tif"}, content);
        return page;
    }
    /// The colour of a picture's pixel, 200 dots wide and high, in the middle of the page.
    static QRgb Pixel(const QImage& page, int x, int y)
    {
        return page.pixel(200 + 200 * x, 620 + 200 * y);
    }

    MemoryPicture picture{
        4, 2, [](std::int64_t x, std::int64_t y) { return static_cast<int>(40 * x + 10 * y); }};
    PicturePlotContent content;
};

TEST_F(PicturePageTest, HasThePixelsInViewBelowTheHeader)
{
    const QImage page = Page();
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(qRed(Pixel(page, x, y)), 40 * x + 10 * y) << x << ", " << y;
    }
    EXPECT_EQ(page.pixel(95, 720), qRgb(255, 255, 255)) << "nothing is drawn beside it";
    bool hasText = false;
    for (int x = 100; x < 400; ++x)
        hasText = hasText || qGray(page.pixel(x, 72 + 10)) < 128;
    EXPECT_TRUE(hasText);
}

TEST_F(PicturePageTest, ShowsOnlyWhatIsInView)
{
    // One pixel fills the view.
    content.view = content.view.ZoomedAt(35, 15, 40.0);
    const QImage page = Page();
    EXPECT_EQ(qRed(page.pixel(500, 720)), 130);
    EXPECT_EQ(qRed(page.pixel(110, 340)), 130);
    EXPECT_EQ(qRed(page.pixel(890, 1110)), 130);
}

TEST_F(PicturePageTest, HatchesWhatIsMissing)
{
    content.coveredRows = 1;
    const QImage page = Page();
    EXPECT_EQ(qRed(Pixel(page, 2, 0)), 80);
    EXPECT_GT(qRed(Pixel(page, 2, 1)), 140);
}

TEST_F(PicturePageTest, HatchesMissingRowsInTheMiddle)
{
    content.missingRows = {{0, 1}};
    const QImage page = Page();
    EXPECT_GT(qRed(Pixel(page, 2, 0)), 140);
    EXPECT_EQ(qRed(Pixel(page, 2, 1)), 90);
}

TEST_F(PicturePageTest, DrawsBoundariesWhereCamerasMeet)
{
    const CameraBoundary boundary{'A', 'B', 2};
    content.boundaries = {&boundary, 1};
    const QImage page = Page();
    EXPECT_GT(qBlue(page.pixel(500, 900)), 200);
    EXPECT_EQ(qRed(page.pixel(560, 900)), 90);
}

} // namespace
} // namespace vireo
