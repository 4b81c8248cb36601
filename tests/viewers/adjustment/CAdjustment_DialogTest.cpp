#include "tests/viewers/DialogTest.h"
#include "tests/viewers/lightprofile/LightProfileFiles.h"
#include "viewers/adjustment/AdjustmentPage.h"
#include "viewers/adjustment/CAdjustCenterCCD_Dialog.h"
#include "viewers/adjustment/CVerticalCameraVerification_Dialog.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/CPicture_Control.h"
#include "viewers/controls/PlainRows.h"

#include <QImage>
#include <QPainter>
#include <QStackedWidget>
#include <QTableWidget>

namespace vireo {
namespace {

class CAdjustment_DialogTest : public DialogTest<CAdjustment_Dialog> {
protected:
    template <typename Dialog>
    void Open(const std::string& bytes)
    {
        Show(std::make_unique<Dialog>(folder.Write("adjust.con", bytes)));
    }
    QString Page() const { return Find<QStackedWidget>("dataPages").currentWidget()->objectName(); }
};

TEST_F(CAdjustment_DialogTest, ShowsTheTableAndTheProfile)
{
    Open<CAdjustCenterCCD_Dialog>(TextFile("[Scan-Line Positioning]",
        "Width=100\nHeight=1\nCameraUsed=B\nOddKey=7\n", std::string(100, '\x64')));
    EXPECT_EQ(dialog->windowTitle(), "Scan-Line Positioning");
    EXPECT_EQ(Page(), "profilePage");
    const auto& table = Find<QTableWidget>("headerTable");
    ASSERT_EQ(table.rowCount(), 6);
    EXPECT_EQ(table.item(4, 1)->text(), "B");
    EXPECT_EQ(table.item(4, 2)->text(), "Taken by camera B");
    EXPECT_EQ(table.item(5, 0)->text(), "OddKey");
    EXPECT_EQ(table.item(5, 2)->text(), "");
    auto& plot = Find<CLPFControle>("profilePlot");
    EXPECT_EQ(plot.View().length, 100.0);
    dialog->resize(1, 1); // The smallest size still has the whole plot.
    EXPECT_LE(plot.geometry().right(), plot.parentWidget()->rect().right());
    QTest::mouseClick(&plot, Qt::LeftButton, {}, plot.rect().center());
    EXPECT_EQ(plot.View().length, 50.0);
    Click("zoomAllButton");
    EXPECT_EQ(plot.View().length, 100.0);
    QTest::mouseMove(&plot, plot.rect().center());
    EXPECT_NE(Text("cursorText").find("Gray 100"), std::string::npos);
}

TEST_F(CAdjustment_DialogTest, ShowsAPictureAndItsPixels)
{
    Open<CVerticalCameraVerification_Dialog>(
        TextFile("[Mirror Carriage Adjustment]", "Width=2\nHeight=2\n", "abcd"));
    EXPECT_EQ(Page(), "picturePage");
    auto& picture = Find<CPicture_Control>("picture");
    QTest::mouseMove(&picture, picture.PointOf({1, 1}).toPoint());
    EXPECT_EQ(Text("cursorText"), "x 1  y 1    value 100");
}

TEST_F(CAdjustment_DialogTest, SaysThatTheSizesDoNotExplainTheData)
{
    Open<CVerticalCameraVerification_Dialog>(
        TextFile("[Vertical Camera Verification]", "Width=5\nHeight=2\n", "abcd"));
    EXPECT_EQ(Page(), "messagePage");
    EXPECT_EQ(Text("messageText"),
        "The header's sizes do not explain the data.\n"
        "There are 4 bytes; a line of 5 pixels has 5. Lines by the header: 2.");
    EXPECT_EQ(Find<QTableWidget>("headerTable").rowCount(), 4);
    EXPECT_FALSE(Button("zoomAllButton").isEnabled());
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(CAdjustment_DialogTest, TellsWhyAFileCannotBeRead)
{
    Open<CAdjustCenterCCD_Dialog>(TextFile("[MTF]", "Width=5\n", "abcd"));
    ExpectMessage("Not a file of the test Adjust Center CCD");
    EXPECT_EQ(Find<QTableWidget>("headerTable").rowCount(), 0);
}

TEST_F(CAdjustment_DialogTest, DrawsAWholePictureInTheMiddle)
{
    PositionalFile file;
    ASSERT_EQ(
        file.Open(folder.Write("picture", std::string(2, '\0') + "\xFF\xFF")), FileStatus::Ok);
    const PlainRows rows(std::move(file), {0, 4, 2, 2});
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    DrawWholePicture(painter, image.size(), {&rows, nullptr});
    painter.end();
    EXPECT_EQ(image.pixelColor(2, 10), QColor(Qt::red)) << "beside the picture";
    EXPECT_EQ(image.pixelColor(20, 4), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(20, 15), QColor(Qt::white));
}

} // namespace
} // namespace vireo
