#pragma once

#include <QColor>
#include <QRectF>
#include <QSizeF>

#include <functional>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

/// Where text and plot go on a printed page. Plain arithmetic over the printable area, in the
/// device's pixels, so that it can be tested without a printer.
struct PrintPageLayout {
    /// The most header lines that print.
    static constexpr int kHeaderLines = 70;

    explicit PrintPageLayout(QSizeF printable);

    QSizeF printable;
    double fontHeight; ///< A 72nd of the printable height; header lines stand this far apart.
    double leftMargin; ///< A tenth of the width, on both sides.
    double topMargin;  ///< A twentieth of the height, above and below.

    /// Lower edge of `lines` header lines, and so the upper edge of the plot.
    double TextBottom(int lines) const { return topMargin + lines * fontHeight; }

    /// The plot below the text at its own proportions: as wide as the margins leave, or as high as
    /// the room that is left, whichever is reached first. Empty when there is no room at all, or
    /// the client size is.
    QRectF PlotRect(double textBottom, QSizeF clientSize) const;
};

/// How many of the header lines print: those before the first empty one, at most 70.
int PrintedHeaderLines(const std::vector<std::string>& lines);

/// Writes the header lines (Windows-1252) at the left margin of a page whose printable area begins
/// at the painter's origin, those that are longer than the margins leave room for cut in their
/// middle; gives their lower edge.
double DrawHeaderLines(QPainter& painter, const PrintPageLayout& layout,
    const std::vector<std::string>& lines, const QColor& colour = Qt::black);

/// Draws a page into its printable rectangle: the header lines and below them a plot, laid out at
/// `plotSize` with its top left corner at the origin of the painter that `drawPlot` gets.
void DrawPlotPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const std::function<void(QPainter&)>& drawPlot);

} // namespace vireo
