#pragma once

#include "viewers/controls/PictureView.h"

#include <QObject>
#include <QPoint>
#include <QPointF>

#include <optional>

class QKeyEvent;
class QMouseEvent;
class QScrollBar;
class QWheelEvent;
class QWidget;

namespace vireo {

/// Moves the view of a picture for the control that shows it. The control hands on its events.
///
/// Mouse: the wheel zooms at the pointer and sideways (or with Shift) moves; dragging with the left
/// or middle button moves; what a click does is the control's affair. Keys: the arrows and Page Up
/// and Down move, + and - zoom, Home and End go to the corners.
class PictureNavigation : public QObject {
    Q_OBJECT

public:
    /// Where a picture lies that is smaller than the view.
    enum class Smaller { AtStart, InMiddle };

    explicit PictureNavigation(QWidget& control, Smaller smaller = Smaller::AtStart);

    /// The scroll bars beside the picture: show and move the view. Not owned.
    void SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical);

    const PictureView& View() const { return m_view; }
    void SetView(const PictureView& view);
    /// The view to begin with; it counts as that until somebody moves it.
    void SetStart(const PictureView& view);
    bool IsAtStart() const { return m_bAtStart; }
    /// The part of the view that shows the picture.
    PlacedPicture Placed() const;

    /// Another zoom, with the same picture pixel under a point of the control.
    void ZoomTo(QPointF point, double zoom);
    /// The next zoom at a point, or about the middle of the control.
    void ZoomAt(QPointF point, bool in) { ZoomTo(point, m_view.NextZoom(in)); }
    void ZoomIn() { ZoomAt(Middle(), true); }
    void ZoomOut() { ZoomAt(Middle(), false); }
    QPointF Middle() const;

    /// The device pixel of the placed view under a point of the control.
    QPoint ViewPoint(QPointF point) const;
    /// The picture's pixel under a point of the control; nothing beside the picture.
    std::optional<PicturePixel> PixelAt(QPointF point) const;
    /// Where a pixel's middle is in the control, be it in view or not.
    QPointF PointOf(const PicturePixel& pixel) const;

    // The control's events.
    void Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release(const QMouseEvent& event);
    void Wheel(QWheelEvent& event);
    /// False when the key means nothing here.
    bool Key(const QKeyEvent& event);
    void Leave();
    /// A press was meant for another picture.
    void ForgetPress() { m_press.reset(); }

    /// Another pixel may lie under the resting pointer now.
    void TellPointer();

signals:
    /// Another part of the picture, or another zoom, is to be shown.
    void ViewChanged();
    /// The pointer is over a pixel, or another one lies under it; nothing when it has left.
    void PointerMoved(std::optional<vireo::PicturePixel> pixel);
    // Points of the control.
    void LeftClicked(QPointF point);
    void RightClicked(QPointF point);

private:
    /// A press of the mouse, which is a click until it moves.
    struct PressState {
        Qt::MouseButton button = Qt::NoButton;
        QPointF at;
        PictureView view; ///< As it was.
        bool isDrag = false;
    };

    void ShowView(const PictureView& view);
    void Drag(QPointF to);
    void ConnectScrollBar(QScrollBar* scrollBar, PictureAxis PictureView::*axis);
    void UpdateScrollBars();
    void UpdateScrollBar(QScrollBar* scrollBar, const PictureAxis& axis);
    void OnScrollAction(QScrollBar* scrollBar, PictureAxis PictureView::*axis, int action);
    void MovePointer(std::optional<QPointF> point);

    QWidget& m_control;
    const Smaller m_smaller;
    PictureView m_view;
    bool m_bAtStart = true;
    QScrollBar* m_horizontal = nullptr;
    QScrollBar* m_vertical = nullptr;
    std::optional<PressState> m_press;
    std::optional<QPointF> m_pointer;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
