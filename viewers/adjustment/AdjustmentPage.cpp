#include "viewers/adjustment/AdjustmentPage.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/QtText.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

void DrawAdjustmentPage(QPainter& painter, const QRectF& page, const AdjustmentPage& content)
{
    if (content.picture.rows) {
        // As wide as the page leaves room for, in the picture's own proportions.
        const auto width =
            static_cast<double>(std::max<std::int64_t>(content.picture.rows->Width(), 1));
        const auto height = static_cast<double>(content.picture.rows->Height());
        const double shown = std::clamp(
            content.plotSize.width() * height / width, 1.0, 2.0 * content.plotSize.width());
        const QSizeF size(content.plotSize.width(), std::ceil(shown));
        DrawPlotPage(painter, page, content.header, size,
            [&](QPainter& plot) { DrawWholePicture(plot, size, content.picture); });
        return;
    }
    const auto draw = [&](QPainter& plot) {
        if (content.profile.line)
            DrawProfilePlot(plot, content.plotSize, content.profile);
    };
    DrawPlotPage(painter, page, content.header, content.plotSize, draw);
}

void DrawWholePicture(QPainter& painter, QSizeF size, const PictureContent& picture)
{
    if (!picture.rows || picture.rows->Width() <= 0 || picture.rows->Height() <= 0)
        return;
    // Files and paper get the picture's own pixels, up to what is worth drawing.
    constexpr double kMostPixels = 4096.0;
    const double scale = std::min(std::abs(painter.deviceTransform().m11()),
        kMostPixels / std::max({size.width(), size.height(), 1.0}));
    const auto pixels = [scale](double length) {
        return std::max<std::int64_t>(std::lround(length * scale), 1);
    };
    const PlacedPicture placed = PictureView::Start(
        picture.rows->Width(), picture.rows->Height(), pixels(size.width()), pixels(size.height()))
                                     .Fitted()
                                     .Placed();
    QImage image(static_cast<int>(std::max<std::int64_t>(placed.view.x.view, 1)),
        static_cast<int>(std::max<std::int64_t>(placed.view.y.view, 1)), QImage::Format_RGB32);
    if (image.isNull())
        return;
    DrawPicture(picture, placed.view, image);
    const double perPixel = size.width() / static_cast<double>(pixels(size.width()));
    const QRectF place(static_cast<double>(placed.left) * perPixel,
        static_cast<double>(placed.top) * perPixel, image.width() * perPixel,
        image.height() * perPixel);
    painter.drawImage(place, image);
}

namespace {

constexpr double kTextMargin = 10.0;

QFont TextFont()
{
    return FontOfHeight(kMonospacedFace, PlotFurniture::kFontHeight);
}

} // namespace

int TextLinesOf(QSizeF size)
{
    const QFontMetricsF metrics(TextFont());
    const double below = size.height() - kTextMargin - metrics.height();
    return below < 0.0 ? 0 : 1 + static_cast<int>(below / metrics.lineSpacing());
}

void DrawTextLines(QPainter& painter, QSizeF size, const std::vector<std::string>& lines)
{
    painter.fillRect(QRectF({0.0, 0.0}, size), Qt::white);
    const QFont font = TextFont();
    painter.setFont(font);
    painter.setPen(PlotColour::kInk);
    const QFontMetricsF metrics(font);
    const auto count = std::min(lines.size(), static_cast<std::size_t>(TextLinesOf(size)));
    double baseline = kTextMargin + metrics.ascent();
    for (std::size_t i = 0; i < count; ++i) {
        painter.drawText(QPointF(kTextMargin, baseline),
            metrics.elidedText(
                QStringFromText(lines[i]), Qt::ElideRight, size.width() - 2.0 * kTextMargin));
        baseline += metrics.lineSpacing();
    }
}

} // namespace vireo
