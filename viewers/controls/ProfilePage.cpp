#include "viewers/controls/ProfilePage.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/QtText.h"

#include <QPainter>

#include <algorithm>

namespace vireo {

namespace {

/// Between the main plot and its companions, and between these, as a share of the main plot's
/// width.
constexpr double kGapShare = 0.02;

/// Draws a plot at its own layout, scaled to `width` device units.
void DrawScaled(QPainter& painter, const ProfilePage::Plot& plot, QPointF topLeft, double width)
{
    painter.save();
    painter.translate(topLeft);
    const double scale = width / plot.size.width();
    painter.scale(scale, scale);
    DrawProfilePlot(painter, plot.size, plot.content);
    painter.restore();
}

double HeightAt(const ProfilePage::Plot& plot, double width)
{
    return plot.size.height() * width / plot.size.width();
}

/// The row of companions under a main plot of `width`.
struct CompanionRow {
    CompanionRow(const ProfilePage& page, double width)
    {
        if (page.companions.empty())
            return;
        gap = width * kGapShare;
        const auto count = static_cast<double>(page.companions.size());
        plotWidth = (width - (count - 1.0) * gap) / count;
        for (const ProfilePage::Plot& plot : page.companions)
            height = std::max(height, gap + HeightAt(plot, plotWidth));
    }

    double gap = 0.0;
    double plotWidth = 0.0;
    double height = 0.0; ///< With the gap above.
};

double HeightOfAll(const ProfilePage& page, double width)
{
    return HeightAt(page.main, width) + CompanionRow(page, width).height;
}

} // namespace

void DrawProfilePage(QPainter& painter, const QRectF& page, const ProfilePage& content)
{
    painter.save();
    painter.translate(page.topLeft());
    const PrintPageLayout layout(page.size());
    const double textBottom = DrawHeaderLines(painter, layout, content.header);

    // As on any page: the width between the margins, or less where the height does not suffice.
    double width = page.width() - 2.0 * layout.leftMargin;
    const double room = page.height() - textBottom - layout.topMargin;
    width *= std::min(1.0, room / HeightOfAll(content, width));
    if (width > 0.0) {
        QPointF at(layout.leftMargin, textBottom);
        DrawScaled(painter, content.main, at, width);
        const CompanionRow row(content, width);
        at.ry() += HeightAt(content.main, width) + row.gap;
        for (const ProfilePage::Plot& companion : content.companions) {
            DrawScaled(painter, companion, at, row.plotWidth);
            at.rx() += row.plotWidth + row.gap;
        }
    }
    painter.restore();
}

} // namespace vireo
