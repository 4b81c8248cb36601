#include "viewers/controls/ColumnFills.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <random>

namespace vireo {

namespace {

/// Columns from left to right with gaps; now and then tall ones, which are filled together.
FilledCurve MakeCurve(const QColor& colour, unsigned seed)
{
    FilledCurve curve{colour, {}};
    std::mt19937 random(seed);
    for (int x = -5; x < 210; x += random() % 8 == 0 ? 3 : 1) {
        const int top = static_cast<int>(random() % 100) - 10;
        const int height = static_cast<int>(random() % (x / 40 % 2 == 0 ? 5 : 90));
        curve.columns.push_back({x, top, top + height});
    }
    return curve;
}

TEST(ColumnFills, ManyCurvesAreDrawnAsEachByItself)
{
    const FilledCurve curves[] = {
        MakeCurve(Qt::red, 1), {Qt::cyan, {}}, MakeCurve(Qt::blue, 2), MakeCurve("#336699", 3)};
    for (const QImage::Format format :
        {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB888}) {
        QImage together(200, 120, format);
        together.fill(QColor(240, 240, 200));
        QImage apart = together;
        QPainter painter(&together);
        painter.setClipRect(10, 0, 180, 110);
        DrawFilledCurves(painter, curves);
        painter.end();
        painter.begin(&apart);
        painter.setClipRect(10, 0, 180, 110);
        for (const FilledCurve& curve : curves) {
            for (const ColumnFill& column : curve.columns)
                painter.fillRect(column.x, column.top, 1, column.end - column.top, curve.colour);
        }
        painter.end();
        EXPECT_TRUE(together == apart);
        EXPECT_EQ(together.pixelColor(5, 50), QColor(240, 240, 200)) << "outside the clip";
    }
}

TEST(ColumnFills, NothingToDraw)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QImage before = image;
    QPainter painter(&image);
    DrawFilledCurves(painter, {});
    const FilledCurve empty[] = {{Qt::red, {}}, {Qt::red, {{3, 4, 4}}}, {Qt::red, {{0, 5, 2}}}};
    DrawFilledCurves(painter, empty);
    painter.end();
    EXPECT_TRUE(image == before);
}

} // namespace

} // namespace vireo
