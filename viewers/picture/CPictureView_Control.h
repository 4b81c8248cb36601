#pragma once

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/PictureMark.h"
#include "viewers/controls/PictureNavigation.h"
#include "viewers/picture/PicturePlot.h"

#include <QTimer>

#include <optional>
#include <vector>

namespace vireo {

class PictureData;

/// Shows a picture of any size: whole, pixel by pixel, and everything between. The view counts in
/// device pixels, so that 1:1 is 1:1 on every screen.
///
/// Mouse: a left click zooms in at the pointer, a right click out; the rest, and the keys, are
/// those of PictureNavigation.
class CPictureView_Control : public CBasicTestControl {
    Q_OBJECT

public:
    explicit CPictureView_Control(QWidget* parent = nullptr);

    /// Shows a picture as a whole; null shows none. Not owned. One of the size of the one before is
    /// shown where that was.
    void SetPicture(const PictureData* picture);
    /// More of the picture is loaded than was drawn last.
    void PictureGrew();

    void SetMarks(std::vector<PictureMark> marks);
    bool HasMarks() const { return !m_marks.empty(); }
    void ShowMarks(bool show);
    /// Whether the picture tells of several cameras.
    bool HasBoundaries() const { return !m_boundaries.empty(); }
    void ShowBoundaries(bool show);

    /// Moves the view, and knows which pixel is where.
    PictureNavigation& Navigation() { return m_navigation; }
    const PictureView& View() const { return m_navigation.View(); }
    /// The whole picture, also when the window changes its size.
    void Fit();
    void ShowOneToOne();
    /// Brings a pixel to the middle at zoom 1 and points at it from now on.
    void PointAt(const PictureMark& pixel);

    /// All that is drawn.
    PicturePlotContent Content() const;

    void PrintPage(QPainter& dc, QSizeF printable, int pageIndex) override;
    bool DrawContent(QPainter& dc, int width, int height) override;
    void OnSize(unsigned sizeType, int width, int height) override;
    void OnMouseLeave(unsigned buttons, QPoint point) override;
    QSize sizeHint() const override { return {800, 560}; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FitViewToControl();
    void OnViewChanged();
    void RedrawExactly();

    const PictureData* m_picture = nullptr;
    PictureNavigation m_navigation;
    std::vector<PictureMark> m_marks;
    std::optional<PictureMark> m_middle;
    std::vector<CameraBoundary> m_boundaries;
    bool m_bShowMarks = true;
    bool m_bShowBoundaries = true;
    QImage m_canvas;
    bool m_bMoving = false; ///< The view changes quickly: drawing must be fast.
    QTimer m_restTimer;     ///< Ends when the view has not changed for a while.
};

} // namespace vireo
