#pragma once

#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PyramidBuilder.h"

#include <QImage>
#include <QPointF>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class QScrollBar;

namespace vireo {

/// Shows any part of a picture of any size, at any zoom. The view counts in device pixels, so that
/// 1:1 is 1:1 on every screen.
///
/// Mouse: a left click zooms in at the point, a right click out, the wheel zooms at the pointer and
/// sideways (or with Shift) moves; dragging with the left or middle button moves. Keys: the arrows
/// and Page Up and Down move, + and - zoom, Home and End go to the corners.
///
/// While the reduced levels of a large picture are built, what there is of them is shown.
class CPicture_Control : public QWidget {
    Q_OBJECT

public:
    explicit CPicture_Control(QWidget* parent = nullptr);

    /// The scroll bars beside the picture: show and move the view. Not owned.
    void SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical);

    /// The picture to show from its start on; null shows none. Its reduced levels are built once it
    /// has been painted.
    void SetPicture(std::shared_ptr<const PictureRows> rows);
    const PictureRows* Rows() const { return m_rows.get(); }
    /// The picture and what there is of its reduced levels.
    PictureContent Content() const { return {m_rows.get(), m_builder.Pyramid()}; }

    const PictureView& View() const { return m_view; }
    void SetView(const PictureView& view);
    void OneToOne() { SetView(m_view.OneToOne()); }
    /// The whole picture.
    void Fit() { SetView(m_view.Fitted()); }
    /// The next zoom about the middle of the view.
    void ZoomIn() { ZoomAbout(MiddleOfView(), true); }
    void ZoomOut() { ZoomAbout(MiddleOfView(), false); }

    /// The picture's pixel under a point of the control; nothing beside the picture.
    struct Pixel {
        std::int64_t x = 0;
        std::int64_t y = 0;
    };
    std::optional<Pixel> PixelAt(QPointF point) const;
    /// Where a pixel's middle is in the control, be it in view or not.
    QPointF PointOf(const Pixel& pixel) const;

    /// From 0 to 1 while reduced levels are built.
    std::optional<double> BuildFraction() const { return m_builder.Fraction(); }

signals:
    /// The pointer is over a pixel, or another one lies under it; nothing when it has left.
    void PointerMoved(std::optional<CPicture_Control::Pixel> pixel);
    /// Another part of the picture, or another zoom, is shown.
    void ViewChanged();
    /// The reduced levels have grown, or are complete.
    void BuildAdvanced();

protected:
    /// What a click does; the point is in device pixels of the view.
    virtual void OnLeftClick(QPoint viewPoint);
    virtual void OnRightClick(QPoint viewPoint);
    /// Draws over the picture, in the control's coordinates.
    virtual void DrawOver(QPainter& painter);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QSize sizeHint() const override { return {800, 500}; }

private:
    /// A press of the mouse, which is a click until it moves.
    struct Press {
        Qt::MouseButton button = Qt::NoButton;
        QPointF at;
        PictureView view; ///< As it was.
        bool isDrag = false;
    };

    void ShowView(const PictureView& view);
    void FitViewToControl();
    QSize ViewSize() const;
    QPoint ViewPoint(QPointF point) const;
    QPoint MiddleOfView() const;
    void ZoomAbout(QPoint viewPoint, bool in);
    void Drag(QPointF to);
    void ConnectScrollBar(QScrollBar* scrollBar, PictureAxis PictureView::*axis);
    void UpdateScrollBar(QScrollBar* scrollBar, const PictureAxis& axis);
    void OnScrollAction(QScrollBar* scrollBar, PictureAxis PictureView::*axis, int action);
    void MovePointer(std::optional<QPointF> point);
    void Redraw();
    void DrawKept();
    void OnBuildTimer();
    void OnRest();

    std::shared_ptr<const PictureRows> m_rows;
    PyramidBuilder m_builder;
    PictureView m_view;
    QScrollBar* m_horizontal = nullptr;
    QScrollBar* m_vertical = nullptr;
    QImage m_picture;       ///< What is shown; null when it has to be drawn anew.
    bool m_bAtStart = true; ///< The view is still that of the start.
    bool m_bDrawExact = false;
    bool m_bStartBuild = false;
    QTimer m_buildTimer; ///< Looks how far the levels are.
    QTimer m_restTimer;  ///< Ends when the view has not changed for a while.
    std::optional<Press> m_press;
    std::optional<QPointF> m_pointer;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
