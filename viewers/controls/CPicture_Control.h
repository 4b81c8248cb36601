#pragma once

#include "viewers/controls/PictureDrawing.h"
#include "viewers/controls/PictureNavigation.h"
#include "viewers/controls/PyramidBuilder.h"

#include <QImage>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

#include <memory>
#include <optional>

namespace vireo {

/// Shows any part of a picture of any size, at any zoom. The view counts in device pixels, so that
/// 1:1 is 1:1 on every screen.
///
/// Mouse: a left click zooms in at the point, a right click out; the rest, and the keys, are those
/// of PictureNavigation.
///
/// While the reduced levels of a large picture are built, what there is of them is shown.
class CPicture_Control : public QWidget {
    Q_OBJECT

public:
    explicit CPicture_Control(QWidget* parent = nullptr);

    /// The scroll bars beside the picture: show and move the view. Not owned.
    void SetScrollBars(QScrollBar* horizontal, QScrollBar* vertical)
    {
        m_navigation.SetScrollBars(horizontal, vertical);
    }

    /// The picture to show from its start on; null shows none. Its reduced levels are built once it
    /// has been painted.
    void SetPicture(std::shared_ptr<const PictureRows> rows);
    const PictureRows* Rows() const { return m_rows.get(); }
    /// The picture and what there is of its reduced levels.
    PictureContent Content() const { return {m_rows.get(), m_builder.Pyramid()}; }

    const PictureView& View() const { return m_navigation.View(); }
    void SetView(const PictureView& view) { m_navigation.SetView(view); }
    void OneToOne() { SetView(View().OneToOne()); }
    /// The whole picture.
    void Fit() { SetView(View().Fitted()); }
    /// The next zoom about the middle of the view.
    void ZoomIn() { m_navigation.ZoomIn(); }
    void ZoomOut() { m_navigation.ZoomOut(); }

    using Pixel = PicturePixel;
    /// The picture's pixel under a point of the control; nothing beside the picture.
    std::optional<Pixel> PixelAt(QPointF point) const { return m_navigation.PixelAt(point); }
    /// Where a pixel's middle is in the control, be it in view or not.
    QPointF PointOf(const Pixel& pixel) const { return m_navigation.PointOf(pixel); }

    /// From 0 to 1 while reduced levels are built.
    std::optional<double> BuildFraction() const { return m_builder.Fraction(); }

signals:
    /// The pointer is over a pixel, or another one lies under it; nothing when it has left.
    void PointerMoved(std::optional<vireo::PicturePixel> pixel);
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
    void mousePressEvent(QMouseEvent* event) override { m_navigation.Press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { m_navigation.Move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { m_navigation.Release(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { m_navigation.Press(*event); }
    void wheelEvent(QWheelEvent* event) override { m_navigation.Wheel(*event); }
    void leaveEvent(QEvent*) override { m_navigation.Leave(); }
    void keyPressEvent(QKeyEvent* event) override;
    QSize sizeHint() const override { return {800, 500}; }

private:
    void FitViewToControl();
    QSize ViewSize() const;
    void Redraw();
    void DrawKept();
    void OnBuildTimer();
    void OnRest();

    std::shared_ptr<const PictureRows> m_rows;
    PyramidBuilder m_builder;
    PictureNavigation m_navigation;
    QImage m_picture;      ///< What is shown.
    bool m_bDrawn = false; ///< The picture is that of the view.
    bool m_bDrawExact = false;
    bool m_bStartBuild = false;
    QTimer m_buildTimer; ///< Looks how far the levels are.
    QTimer m_restTimer;  ///< Ends when the view has not changed for a while.
};

} // namespace vireo
