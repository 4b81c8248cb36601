#pragma once

#include <QImage>
#include <QWidget>

#include <optional>

class QScrollBar;

namespace vireo {

/// What the plots of a single line have in common: a picture of the plot kept at the screen's
/// device pixel ratio, the pointer over it, a scroll bar, and the mouse.
///
/// Mouse: left click zooms in at the pointer, right click zooms out, the wheel zooms at the
/// pointer and sideways scrolls, dragging with the middle button or with Shift pans. What that does
/// to the view is the derived plot's business.
class CLinePlot : public QWidget {
    Q_OBJECT

public:
    explicit CLinePlot(QWidget* parent = nullptr);

    /// The scroll bar below the plot: shows and moves the stretch in view. Not owned.
    void SetScrollBar(QScrollBar* scrollBar);

    // What the mouse does, at a point in the control's coordinates. A dialog may call these for a
    // shortcut.
    virtual void OnLButtonDown(QPoint point) = 0;
    virtual void OnRButtonDown(QPoint point) = 0;
    virtual void OnMouseWheel(QPoint point, int steps) = 0;

    /// Drops the kept picture and paints anew.
    void Redraw();

signals:
    /// The stretch in view has changed, by whatever means.
    void ViewChanged();

protected:
    virtual void DrawPlot(QPainter& painter) = 0;
    /// Draws what belongs to the pointer over the plot; nothing when it points at nothing.
    virtual void DrawCursor(QPainter& painter) = 0;
    /// The pointer is at a point of the control, or has left it; or what lies below it has changed.
    virtual void ReadCursor(std::optional<QPoint> point) = 0;
    /// Moves the view as a drag from one abscissa to another asks for.
    virtual void DragView(int fromX, int toX) = 0;
    /// Moves the view by a share of its length, to the right when positive.
    virtual void MoveView(double share) = 0;

    /// The stretch in view in pixels of the line.
    struct ScrollState {
        int length = 0; ///< Of the whole line.
        int page = 0;   ///< In view.
        int first = 0;
    };
    virtual ScrollState Scrolled() const = 0;
    virtual void ScrollTo(int first) = 0;

    /// The view is another one: tells the scroll bar and everybody else, and paints anew.
    void OnViewChanged();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void UpdateScrollBar();
    void MoveCursor(std::optional<QPoint> point);

    QScrollBar* m_scrollBar = nullptr;
    QImage m_picture; ///< The plot without cursor; null when it has to be drawn anew.
    std::optional<QPoint> m_cursorPoint; ///< The pointer, while it is over the control.
    std::optional<int> m_dragFromX;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
