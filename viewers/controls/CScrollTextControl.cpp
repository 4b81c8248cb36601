#include "viewers/controls/CScrollTextControl.h"

#include "viewers/controls/Fonts.h"
#include "viewers/controls/PrintPageLayout.h"
#include "viewers/controls/QtText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

constexpr int kTextHeight = 16;
constexpr int kLinePitch = 17;
constexpr int kBorder = 6; ///< Left free around the text.

QFont TextFont()
{
    return FontOfLineHeight(kMonospacedFace, kTextHeight);
}

QString WithTabsExpanded(const QString& line)
{
    constexpr int kTabStop = 8;
    QString expanded;
    for (const QChar character : line) {
        if (character == QLatin1Char('\t'))
            expanded += QString(kTabStop - expanded.size() % kTabStop, QLatin1Char(' '));
        else if (character != QLatin1Char('\r'))
            expanded += character;
    }
    return expanded;
}

int LongestLine(const QStringList& lines)
{
    qsizetype longest = 0;
    for (const QString& line : lines)
        longest = std::max(longest, line.size());
    return static_cast<int>(longest);
}

} // namespace

CScrollTextControl::CScrollTextControl(QWidget* parent)
    : CBasicTestControl(parent),
      m_vertical(new QScrollBar(Qt::Vertical, this)),
      m_horizontal(new QScrollBar(Qt::Horizontal, this)),
      m_dCharWidth(QFontMetricsF(TextFont()).horizontalAdvance(QLatin1Char('0')))
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    for (QScrollBar* bar : {m_vertical, m_horizontal}) {
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, this, &CScrollTextControl::Redraw);
    }
}

void CScrollTextControl::SetText(std::string_view text)
{
    m_lines.clear();
    for (const QString& line : QStringFromText(text).split(QLatin1Char('\n')))
        m_lines << WithTabsExpanded(line);
    if (m_lines.last().isEmpty())
        m_lines.removeLast();
    m_anchor = m_caret = {};
    m_vertical->setValue(0);
    m_horizontal->setValue(0);
    PlaceScrollBars();
    Redraw();
}

QSize CScrollTextControl::sizeHint() const
{
    constexpr int kColumns = 72;
    constexpr int kLines = 20;
    return {static_cast<int>(kColumns * m_dCharWidth) + 4 * kBorder, kLines * kLinePitch};
}

int CScrollTextControl::FirstLine() const
{
    return m_vertical->value();
}

int CScrollTextControl::VisibleLines() const
{
    return std::max((TextArea().height() - 2 * kBorder) / kLinePitch, 1);
}

/// What the scroll bars leave of the control.
QSize CScrollTextControl::TextArea() const
{
    return {width() - (m_vertical->isHidden() ? 0 : m_vertical->width()),
        height() - (m_horizontal->isHidden() ? 0 : m_horizontal->height())};
}

void CScrollTextControl::PlaceScrollBars()
{
    const int thickness = m_vertical->sizeHint().width();
    const auto lines = static_cast<int>(m_lines.size());
    const int columns = LongestLine(m_lines);
    const auto needsHeight = lines * kLinePitch + 2 * kBorder;
    const auto needsWidth = static_cast<int>(std::ceil(columns * m_dCharWidth)) + 2 * kBorder;
    // Each bar takes room from the other's direction, so the second look decides.
    bool vertical = needsHeight > height();
    const bool horizontal = needsWidth > width() - (vertical ? thickness : 0);
    vertical = needsHeight > height() - (horizontal ? thickness : 0);

    m_vertical->setVisible(vertical);
    // The corner where both meet is the vertical bar's.
    m_vertical->setGeometry(width() - thickness, 0, thickness, height());
    m_horizontal->setVisible(horizontal);
    m_horizontal->setGeometry(
        0, height() - thickness, width() - (vertical ? thickness : 0), thickness);

    const int visibleColumns =
        std::max(static_cast<int>((TextArea().width() - 2 * kBorder) / m_dCharWidth), 1);
    m_vertical->setRange(0, std::max(lines - VisibleLines(), 0));
    m_vertical->setPageStep(VisibleLines());
    m_horizontal->setRange(0, std::max(columns - visibleColumns, 0));
    m_horizontal->setPageStep(visibleColumns);
}

void CScrollTextControl::resizeEvent(QResizeEvent* event)
{
    PlaceScrollBars();
    CBasicTestControl::resizeEvent(event);
}

CScrollTextControl::Place CScrollTextControl::PlaceAt(QPoint point) const
{
    if (m_lines.isEmpty())
        return {};
    const double row = std::floor(static_cast<double>(point.y() - kBorder) / kLinePitch);
    const int line =
        std::clamp(FirstLine() + static_cast<int>(row), 0, static_cast<int>(m_lines.size()) - 1);
    const auto column =
        m_horizontal->value() + static_cast<int>(std::lround((point.x() - kBorder) / m_dCharWidth));
    return {line, std::clamp(column, 0, static_cast<int>(m_lines[line].size()))};
}

QPointF CScrollTextControl::PointOf(Place place) const
{
    return {kBorder + (place.column - m_horizontal->value()) * m_dCharWidth,
        static_cast<double>(kBorder + (place.line - FirstLine()) * kLinePitch)};
}

void CScrollTextControl::Select(Place from, Place to)
{
    m_anchor = from;
    m_caret = to;
    Redraw();
}

void CScrollTextControl::SelectAll()
{
    if (m_lines.isEmpty())
        return;
    Select({}, {static_cast<int>(m_lines.size()) - 1, static_cast<int>(m_lines.last().size())});
}

QString CScrollTextControl::SelectedText() const
{
    const auto [first, last] = std::minmax(m_anchor, m_caret);
    if (first == last)
        return {};
    if (first.line == last.line)
        return m_lines[first.line].mid(first.column, last.column - first.column);
    QStringList selected{m_lines[first.line].mid(first.column)};
    selected += m_lines.mid(first.line + 1, last.line - first.line - 1);
    selected += m_lines[last.line].left(last.column);
    return selected.join(QLatin1Char('\n'));
}

void CScrollTextControl::Copy() const
{
    const QString selected = SelectedText();
    QGuiApplication::clipboard()->setText(
        selected.isEmpty() ? m_lines.join(QLatin1Char('\n')) : selected);
}

bool CScrollTextControl::DrawContent(QPainter& dc, int width, int height)
{
    SetFont(dc, kTextHeight, nullptr, kNormalWeight);
    dc.save();
    dc.setClipRect(1, 1, width - 2, height - 2, Qt::IntersectClip);
    for (int line = FirstLine(); line < m_lines.size(); ++line) {
        const double y = PointOf({line, 0}).y();
        if (y > height)
            break;
        DrawTextLine(dc, line, y);
    }
    dc.restore();
    return true;
}

void CScrollTextControl::DrawTextLine(QPainter& dc, int line, double y) const
{
    const QString& text = m_lines[line];
    const double ascent = QFontMetricsF(dc.font()).ascent();
    const QPointF baseline(PointOf({line, 0}).x(), y + ascent);
    dc.setPen(Qt::black);
    dc.drawText(baseline, text);

    const auto [first, last] = std::minmax(m_anchor, m_caret);
    if (first == last || line < first.line || line > last.line)
        return;
    const int from = line == first.line ? first.column : 0;
    const int to = line == last.line ? last.column : static_cast<int>(text.size());
    // The break at a line's end is part of a selection that goes on.
    const double breakWidth = line == last.line ? 0.0 : m_dCharWidth / 2.0;
    const QRectF marked(PointOf({line, from}).x(), y, (to - from) * m_dCharWidth + breakWidth,
        static_cast<double>(kLinePitch));
    dc.save();
    dc.setClipRect(marked, Qt::IntersectClip);
    dc.fillRect(marked, palette().color(QPalette::Active, QPalette::Highlight));
    dc.setPen(palette().color(QPalette::Active, QPalette::HighlightedText));
    dc.drawText(baseline, text);
    dc.restore();
}

/// Lines of text between the margins, under the header lines.
int CScrollTextControl::LinesPerPage() const
{
    // The fixed shares of a page: a line is a 72nd of its height, each margin a 20th.
    constexpr int kLinesBetweenMargins = 72 - 2 * 72 / 20 - 1;
    return std::max(kLinesBetweenMargins - PrintedHeaderLines(HeaderLines()), 1);
}

int CScrollTextControl::PageCount() const
{
    const int perPage = LinesPerPage();
    return std::max((static_cast<int>(m_lines.size()) + perPage - 1) / perPage, 1);
}

void CScrollTextControl::PrintPage(QPainter& dc, QSizeF printable, int pageIndex)
{
    const PrintPageLayout layout(printable);
    const double top = DrawHeaderLines(dc, layout, HeaderLines());
    dc.save();
    const QFont font = FontOfLineHeight(kMonospacedFace, layout.fontHeight);
    dc.setFont(font);
    const QFontMetricsF metrics(font);
    // A text wider than the page is made smaller as a whole rather than cut.
    const double room = printable.width() - 2.0 * layout.leftMargin;
    const double needed = LongestLine(m_lines) * metrics.horizontalAdvance(QLatin1Char('0'));
    const double scale = needed > room ? room / needed : 1.0;
    dc.translate(layout.leftMargin, top);
    dc.scale(scale, scale);
    const int perPage = LinesPerPage();
    double baseline = metrics.ascent();
    for (const QString& line : m_lines.mid(qsizetype{pageIndex} * perPage, perPage)) {
        dc.drawText(QPointF(0.0, baseline), line);
        baseline += layout.fontHeight;
    }
    dc.restore();
}

void CScrollTextControl::OnLButtonDown(unsigned, QPoint point)
{
    const Place place = PlaceAt(point);
    const bool extends = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    Select(extends ? m_anchor : place, place);
}

void CScrollTextControl::OnLButtonDblClk(unsigned, QPoint point)
{
    if (m_lines.isEmpty())
        return;
    const Place place = PlaceAt(point);
    const QString& line = m_lines[place.line];
    int from = place.column;
    auto to = place.column;
    while (from > 0 && !line[from - 1].isSpace())
        --from;
    while (to < line.size() && !line[to].isSpace())
        ++to;
    Select({place.line, from}, {place.line, to});
}

void CScrollTextControl::OnMouseMove(unsigned buttons, QPoint point)
{
    if (!(buttons & LeftButton))
        return;
    if (point.y() < 0 || point.y() > TextArea().height())
        m_vertical->setValue(FirstLine() + (point.y() < 0 ? -1 : 1));
    Select(m_anchor, PlaceAt(point));
}

void CScrollTextControl::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        return Copy();
    if (event->matches(QKeySequence::SelectAll))
        return SelectAll();
    switch (event->key()) {
    case Qt::Key_Up:
        return m_vertical->triggerAction(QScrollBar::SliderSingleStepSub);
    case Qt::Key_Down:
        return m_vertical->triggerAction(QScrollBar::SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return m_vertical->triggerAction(QScrollBar::SliderPageStepSub);
    case Qt::Key_PageDown:
        return m_vertical->triggerAction(QScrollBar::SliderPageStepAdd);
    case Qt::Key_Home:
        return m_vertical->triggerAction(QScrollBar::SliderToMinimum);
    case Qt::Key_End:
        return m_vertical->triggerAction(QScrollBar::SliderToMaximum);
    case Qt::Key_Left:
        return m_horizontal->triggerAction(QScrollBar::SliderSingleStepSub);
    case Qt::Key_Right:
        return m_horizontal->triggerAction(QScrollBar::SliderSingleStepAdd);
    default:
        CBasicTestControl::keyPressEvent(event);
    }
}

void CScrollTextControl::wheelEvent(QWheelEvent* event)
{
    constexpr int kStep = 120; // Eighths of a degree a notch.
    constexpr int kLinesPerStep = 3;
    m_iWheelRest += event->angleDelta().y() * kLinesPerStep;
    const int lines = m_iWheelRest / kStep;
    m_iWheelRest -= lines * kStep;
    m_vertical->setValue(FirstLine() - lines);
}

void CScrollTextControl::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(
        QStringLiteral("&Copy"), QKeySequence(QKeySequence::Copy), this, &CScrollTextControl::Copy);
    menu.addAction(QStringLiteral("Select &All"), QKeySequence(QKeySequence::SelectAll), this,
        &CScrollTextControl::SelectAll);
    menu.exec(event->globalPos());
}

} // namespace vireo
