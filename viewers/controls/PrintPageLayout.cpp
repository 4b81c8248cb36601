#include "viewers/controls/PrintPageLayout.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/QtText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

// Shares of the printable area, as divisors.
constexpr double kLinesOnPage = 72.0;
constexpr double kLeftMarginPart = 10.0;
constexpr double kTopMarginPart = 20.0;

} // namespace

PrintPageLayout::PrintPageLayout(QSizeF printableSize)
    : printable(printableSize),
      fontHeight(std::floor(printable.height() / kLinesOnPage)),
      leftMargin(std::floor(printable.width() / kLeftMarginPart)),
      topMargin(std::floor(printable.height() / kTopMarginPart))
{
}

QRectF PrintPageLayout::PlotRect(double textBottom, QSizeF clientSize) const
{
    if (clientSize.isEmpty())
        return {};
    double width = printable.width() - 2.0 * leftMargin;
    double height = clientSize.height() * width / clientSize.width();
    const double room = printable.height() - textBottom - topMargin;
    if (height > room) {
        height = room;
        width = room * clientSize.width() / clientSize.height();
    }
    if (width <= 0.0 || height <= 0.0)
        return {};
    return {leftMargin, textBottom, width, height};
}

int PrintedHeaderLines(const std::vector<std::string>& lines)
{
    const auto firstEmpty = std::find(lines.begin(), lines.end(), std::string());
    return static_cast<int>(
        std::min<std::ptrdiff_t>(firstEmpty - lines.begin(), PrintPageLayout::kHeaderLines));
}

double DrawHeaderLines(QPainter& painter, const PrintPageLayout& layout,
    const std::vector<std::string>& lines, const QColor& colour)
{
    const int count = PrintedHeaderLines(lines);
    painter.save();
    const QFont font = FontOfLineHeight(kMonospacedFace, layout.fontHeight);
    const QFontMetricsF metrics(font);
    const double room = layout.printable.width() - 2.0 * layout.leftMargin;
    painter.setFont(font);
    painter.setPen(colour);
    for (int line = 0; line < count; ++line) {
        const QString text = QStringFromText(lines[static_cast<std::size_t>(line)]);
        painter.drawText(QPointF(layout.leftMargin, layout.TextBottom(line) + metrics.ascent()),
            metrics.elidedText(text, Qt::ElideMiddle, room));
    }
    painter.restore();
    return layout.TextBottom(count);
}

void DrawPlotPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const std::function<void(QPainter&)>& drawPlot)
{
    painter.save();
    painter.translate(page.topLeft());
    const PrintPageLayout layout(page.size());
    const QRectF plot = layout.PlotRect(DrawHeaderLines(painter, layout, header), plotSize);
    if (!plot.isEmpty()) {
        painter.translate(plot.topLeft());
        painter.scale(plot.width() / plotSize.width(), plot.height() / plotSize.height());
        drawPlot(painter);
    }
    painter.restore();
}

} // namespace vireo
