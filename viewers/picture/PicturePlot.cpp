#include "viewers/picture/PicturePlot.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/PictureImage.h"
#include "viewers/controls/PrintPageLayout.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

constexpr QColor kOutside(214, 218, 223);
constexpr QColor kMissing(236, 239, 243);
constexpr QColor kMissingHatch(150, 158, 168);
constexpr QColor kBoundary(0, 120, 255);
constexpr QColor kMark(226, 0, 26);
constexpr QColor kMiddle(255, 128, 0);

constexpr double kLetterHeight = 13.0; ///< In units, as all lengths of lines and texts.

QRectF ViewRect(const PictureView& view)
{
    return {0.0, 0.0, static_cast<double>(view.x.view), static_cast<double>(view.y.view)};
}

/// Draws over a placed picture, in the view's pixels.
class PictureOverlay {
public:
    PictureOverlay(QPainter& painter, const PicturePlotContent& content)
        : m_painter(painter),
          m_content(content),
          m_view(content.view),
          m_unit(content.unit),
          m_picture(ViewRect(content.view))
    {
    }

    void Draw()
    {
        DrawMissing();
        DrawBoundaries();
        DrawMarks();
        DrawMiddle();
    }

private:
    void DrawMissing()
    {
        // Where a pixel of the view stands for many rows, neighbours are drawn as one.
        QRectF stretch;
        for (const RowRange& rows : m_content.missingRows) {
            const QRectF next = RectOf(rows);
            if (!stretch.isNull() && next.top() <= stretch.bottom()) {
                stretch.setBottom(next.bottom());
                continue;
            }
            Hatch(stretch);
            stretch = next;
        }
        Hatch(stretch);
        if (m_content.coveredRows < m_view.y.picture)
            Hatch(RectOf({m_content.coveredRows, m_view.y.picture}));
    }

    /// Whole pixels of the view: a single missing row is seen at every zoom.
    QRectF RectOf(const RowRange& rows) const
    {
        QRectF rect = m_picture;
        rect.setTop(std::floor(m_view.PlaceOfY(rows.first)));
        rect.setBottom(std::max(std::ceil(m_view.PlaceOfY(rows.end)), rect.top() + 1.0));
        return rect;
    }

    void Hatch(const QRectF& rect)
    {
        const QRectF seen = rect.intersected(m_picture);
        if (seen.isEmpty())
            return;
        m_painter.fillRect(seen, kMissing);
        m_painter.fillRect(seen, QBrush(kMissingHatch, Qt::BDiagPattern));
    }

    void DrawBoundaries()
    {
        if (m_content.boundaries.empty())
            return;
        const QFont font = FontOfHeight(kSansFace, kLetterHeight * m_unit, kBoldWeight);
        m_painter.setFont(font);
        double room = 0.0; // Left end of the camera's stretch.
        for (std::size_t i = 0; i < m_content.boundaries.size(); ++i) {
            const CameraBoundary& boundary = m_content.boundaries[i];
            const double x = m_view.PlaceOfX(boundary.column);
            const double next = i + 1 < m_content.boundaries.size()
                ? m_view.PlaceOfX(m_content.boundaries[i + 1].column)
                : m_picture.right();
            if (x >= m_picture.left() && x < m_picture.right()) {
                m_painter.fillRect(
                    QRectF(x - m_unit / 2.0, m_picture.top(), m_unit, m_picture.height()),
                    kBoundary);
            }
            DrawLetter(boundary.left, x, -1.0, x - room);
            DrawLetter(boundary.right, x, 1.0, next - x);
            room = x;
        }
    }

    /// A letter beside a boundary, on the side of a sign, where it has room.
    void DrawLetter(char letter, double x, double side, double room)
    {
        const double width = 1.5 * kLetterHeight * m_unit;
        const double gap = 3.0 * m_unit;
        if (room < 2.0 * (width + gap))
            return;
        const double left = side > 0.0 ? x + gap : x - gap - width;
        const QRectF box(left, m_picture.top() + gap, width, width);
        if (!m_picture.contains(box))
            return;
        m_painter.fillRect(box, kBoundary);
        m_painter.setPen(Qt::white);
        m_painter.drawText(box, Qt::AlignCenter, QChar::fromLatin1(letter));
    }

    /// Marks are seen at every zoom: a dot, or a frame around pixels that are larger than it.
    void DrawMarks()
    {
        constexpr double kDot = 3.0;
        const bool isFramed = m_view.zoom > 2.0 * kDot * m_unit;
        const double size = isFramed ? m_view.zoom : kDot * m_unit;
        for (const PictureMark& mark : m_content.marks) {
            const QPointF centre = CentreOf(mark);
            const QRectF box(centre.x() - size / 2.0, centre.y() - size / 2.0, size, size);
            if (!box.intersects(m_picture))
                continue;
            if (isFramed)
                DrawFrame(box);
            else
                m_painter.fillRect(box, kMark);
        }
    }

    void DrawFrame(const QRectF& box)
    {
        m_painter.fillRect(QRectF(box.left(), box.top(), box.width(), m_unit), kMark);
        m_painter.fillRect(QRectF(box.left(), box.bottom() - m_unit, box.width(), m_unit), kMark);
        m_painter.fillRect(QRectF(box.left(), box.top(), m_unit, box.height()), kMark);
        m_painter.fillRect(QRectF(box.right() - m_unit, box.top(), m_unit, box.height()), kMark);
    }

    QPointF CentreOf(const PictureMark& pixel) const
    {
        const double half = std::max(m_view.zoom, 1.0) / 2.0;
        return {m_view.PlaceOfX(pixel.column) + half, m_view.PlaceOfY(pixel.line) + half};
    }

    /// Four strokes that point at a pixel and leave it free.
    void DrawMiddle()
    {
        if (!m_content.middle)
            return;
        const QPointF centre = CentreOf(*m_content.middle);
        const double gap = m_view.zoom / 2.0 + 6.0 * m_unit;
        const double length = 12.0 * m_unit;
        const double thick = 2.0 * m_unit;
        for (const double side : {-gap - length, gap}) {
            m_painter.fillRect(
                QRectF(centre.x() + side, centre.y() - thick / 2.0, length, thick), kMiddle);
            m_painter.fillRect(
                QRectF(centre.x() - thick / 2.0, centre.y() + side, thick, length), kMiddle);
        }
    }

    QPainter& m_painter;
    const PicturePlotContent& m_content;
    const PictureView& m_view;
    const double m_unit;
    const QRectF m_picture; ///< The view: all of it shows the picture.
};

} // namespace

bool DrawPicturePlot(QPainter& painter, const QRectF& target, const PicturePlotContent& content,
    QImage& canvas, PictureQuality quality)
{
    const PlacedPicture placed = content.view.Placed();
    const QSize size(static_cast<int>(placed.view.x.view), static_cast<int>(placed.view.y.view));
    const bool isWhole =
        placed.view.x.view == content.view.x.view && placed.view.y.view == content.view.y.view;
    if (!isWhole || size.isEmpty())
        painter.fillRect(target, kOutside);
    if (size.isEmpty())
        return true;
    if (canvas.size() != size)
        canvas = QImage(size, QImage::Format_RGB32);
    if (canvas.isNull())
        return true;
    const bool isExact = DrawPicture(content.picture, placed.view, canvas, quality);
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(target.width() / static_cast<double>(content.view.x.view),
        target.height() / static_cast<double>(content.view.y.view));
    painter.translate(static_cast<double>(placed.left), static_cast<double>(placed.top));
    painter.drawImage(QPointF(0.0, 0.0), canvas);
    painter.setClipRect(QRectF(QPointF(0.0, 0.0), QSizeF(size)), Qt::IntersectClip);
    PicturePlotContent over = content;
    over.view = placed.view;
    PictureOverlay(painter, over).Draw();
    painter.restore();
    return isExact;
}

namespace {

/// The part of an axis that shows the picture, at another zoom.
PictureAxis PrintedAxis(const PictureAxis& axis, double zoom, double printedZoom)
{
    const std::int64_t first = std::max<std::int64_t>(axis.First(zoom), 0);
    const std::int64_t end = std::min(axis.First(zoom) + axis.Shown(zoom), axis.picture);
    PictureAxis printed = axis;
    printed.view = std::max<std::int64_t>(
        static_cast<std::int64_t>(std::ceil(static_cast<double>(end - first) * printedZoom)), 1);
    printed.centre = first + printed.Half(printedZoom);
    return printed;
}

PictureView PrintedView(const PictureView& view, double zoom)
{
    return {PrintedAxis(view.x, view.zoom, zoom), PrintedAxis(view.y, view.zoom, zoom), zoom};
}

} // namespace

void DrawPicturePrint(
    QPainter& painter, const QRectF& target, QSizeF pixels, const PicturePlotContent& content)
{
    // More dots than these are not seen, but make a printer work for minutes.
    constexpr double kMostPixels = 16e6;
    PicturePlotContent printed = content;
    printed.view = PrintedView(content.view, 1.0);
    const double width = static_cast<double>(printed.view.x.view);
    const double height = static_cast<double>(printed.view.y.view);
    const double zoom = std::min({1.0, pixels.width() / width, pixels.height() / height,
        std::sqrt(kMostPixels / (width * height))});
    if (zoom < 1.0)
        printed.view = PrintedView(content.view, zoom);
    printed.unit = content.unit * printed.view.zoom / content.view.zoom;
    QImage canvas;
    DrawPicturePlot(painter, target, printed, canvas);
}

QRectF PrintedPictureRect(const QRectF& page, double textBottom, QSizeF view)
{
    constexpr double kShare = 0.8;
    const PrintPageLayout layout(page.size());
    if (view.isEmpty())
        return {};
    QSizeF size(kShare * page.width(), kShare * page.width() * view.height() / view.width());
    const double room = page.height() - layout.topMargin - textBottom;
    if (room <= 0.0)
        return {};
    if (size.height() > room)
        size = QSizeF(room * view.width() / view.height(), room);
    const double top = std::max((page.height() - size.height()) / 2.0, textBottom);
    return {page.left() + (page.width() - size.width()) / 2.0, page.top() + top, size.width(),
        size.height()};
}

void DrawPicturePage(QPainter& painter, const QRectF& page,
    const std::vector<std::string>& headerLines, const PicturePlotContent& content)
{
    painter.save();
    painter.translate(page.topLeft());
    const PrintPageLayout layout(page.size());
    const double textBottom = DrawHeaderLines(painter, layout, headerLines) + layout.fontHeight;
    painter.restore();
    const PictureView whole = PrintedView(content.view, 1.0);
    const QRectF target = PrintedPictureRect(page, textBottom,
        QSizeF(static_cast<double>(whole.x.view), static_cast<double>(whole.y.view)));
    if (!target.isEmpty())
        DrawPicturePrint(painter, target, target.size(), content);
}

} // namespace vireo
