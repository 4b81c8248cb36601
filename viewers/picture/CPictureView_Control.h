#pragma once

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/PictureView.h"
#include "viewers/picture/PictureCameras.h"
#include "viewers/picture/PicturePlot.h"

#include <QTimer>

#include <optional>
#include <vector>

class QScrollBar;

namespace vireo {

class PictureData;

/// Shows a picture of any size: whole, pixel by pixel, and everything between.
///
/// Mouse: left click zooms in at the pointer, right click zooms out, the wheel does both; dragging
/// with the left or middle button moves the picture. Keys: arrows, Page Up, Page Down, Home and End
/// move it, + and - zoom.
class CPictureView_Control : public CBasicTestControl {
    Q_OBJECT

public:
    explicit CPictureView_Control(QWidget* parent = nullptr);

    /// Shows a picture as a whole; null shows none. Not owned. To be told once more when more of it
    /// is loaded: see PictureGrew.
    void SetPicture(const PictureData* picture);
    /// More of the picture is loaded than was drawn last.
    void PictureGrew();

    void SetMarks(std::vector<PictureMark> marks);
    void ShowMarks(bool show);
    void ShowBoundaries(bool show);
    bool HasMarks() const { return !m_marks.empty(); }
    /// Whether the picture tells of several cameras.
    bool HasBoundaries() const { return !m_boundaries.empty(); }

    /// Both show and move the part in view. Not owned.
    void SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical);

    /// The part in view, in device pixels.
    const PictureView& View() const { return m_view; }
    void SetView(const PictureView& view);
    void Fit();
    void ShowOneToOne();
    void ZoomIn();
    void ZoomOut();
    /// Brings a pixel to the middle at zoom 1 and points at it from now on.
    void PointAt(const PictureMark& pixel);

    /// The pixel under a point of the control; nothing outside the picture.
    std::optional<PictureMark> PixelAt(QPoint point) const;
    /// All that is drawn.
    PicturePlotContent Content() const;

    void PrintPage(QPainter& dc, QSizeF printable, int pageIndex) override;
    bool DrawContent(QPainter& dc, int width, int height) override;
    void OnLButtonDown(unsigned buttons, QPoint point) override;
    void OnLButtonUp(unsigned buttons, QPoint point) override;
    void OnRButtonDown(unsigned buttons, QPoint point) override;
    void OnMouseMove(unsigned buttons, QPoint point) override;
    void OnMouseLeave(unsigned buttons, QPoint point) override;
    void OnSize(unsigned sizeType, int width, int height) override;
    QSize sizeHint() const override { return {800, 560}; }

signals:
    /// The part in view has changed, by whatever means.
    void ViewChanged();
    /// The pointer is over another pixel, or over none.
    void PixelPointedAt(std::optional<vireo::PictureMark> pixel);

protected:
    void OnResized() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A drag of the picture, or a press that may become one.
    struct Drag {
        QPoint from;
        PictureView view; ///< When it began.
        bool hasMoved = false;
    };

    /// The pixel of the placed view under a point of the control.
    QPoint ViewPoint(QPoint point) const;
    QPoint Middle() const { return {width() / 2, height() / 2}; }
    void ResizeView();
    void ChangeView(const PictureView& view);
    void ZoomTo(QPoint point, double zoom);
    void ZoomAt(QPoint point, bool in);
    void MoveBy(double sharesX, double sharesY);
    void DragTo(QPoint point);
    void Scroll();
    void UpdateScrollBars();
    void TellPixel();
    void RedrawExactly();

    const PictureData* m_picture = nullptr;
    PictureView m_view;
    bool m_isFitted = true; ///< The whole picture stays in view when the window changes.
    std::vector<PictureMark> m_marks;
    std::optional<PictureMark> m_middle;
    std::vector<CameraBoundary> m_boundaries;
    bool m_showMarks = true;
    bool m_showBoundaries = true;
    QScrollBar* m_horizontal = nullptr;
    QScrollBar* m_vertical = nullptr;
    std::optional<QPoint> m_pointer;
    std::optional<Drag> m_drag;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
    QImage m_canvas;
    bool m_isMoving = false; ///< The view changes quickly: drawing must be fast.
    QTimer m_settled;
};

} // namespace vireo
