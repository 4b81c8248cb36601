#pragma once

#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfilePlot.h"

#include <QWidget>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QScrollBar;

namespace vireo {

/// The profile plot of the oscilloscope and light-profile viewers: one scan line as a curve over
/// its pixels, with axes, camera boundaries and a cursor. Three of them work together in a dialog:
/// an overview of the whole line and two detail views whose stretch the overview marks.
///
/// What is drawn and where is ProfilePlot's business; the control keeps the view, a picture of the
/// plot at the screen's device pixel ratio, and turns mouse and scroll bar into views.
///
/// Mouse: left click zooms in at the pointer, right click zooms out, the wheel zooms at the
/// pointer, dragging with the middle button or with Shift pans, moving shows the cursor's reading.
class CLPFControle : public QWidget {
    Q_OBJECT

public:
    explicit CLPFControle(QWidget* parent = nullptr);
    ~CLPFControle() override;

    /// Which end of the current camera, or which side of a boundary, a detail view shows.
    using Side = ProfileSide;

    /// The scroll bar below the plot: shows and moves the stretch in view. Not owned.
    void SetScrollBar(QScrollBar* scrollBar);

    /// The line to draw, which must live until the next call; null draws an empty plot. Keeps view
    /// and mode, so that an animation stays where it is.
    void SetLine(const ProfileLine* line, ShownColour shown);
    void SetShownColour(ShownColour shown);
    void SetCameras(const ProfileCameras& cameras);
    /// The views whose stretches an overview marks; not owned.
    void SetDetails(std::vector<const CLPFControle*> details);

    /// Shows the whole line, and stays an overview.
    void ZoomAll();
    /// Detail of the current camera: its first (Left) or last (Right) line width / zoomStep pixels.
    void ShowCamera(int camera, Side side, int zoomStep = 16);
    /// The two cameras' signals at a boundary on one scale; the last camera is shown with its left
    /// neighbour.
    void ShowLightProfile(int camera, Side side, int cameraCount);
    /// The outer edges of the target that were found, and their distance.
    void ShowScanWidth(int camera, Side side, int cameraCount);
    /// The boundary transition of each plane.
    void ShowVerticalPositioning(int camera, Side side, int cameraCount);

    const ProfileView& View() const;
    void SetView(const ProfileView& view);

    /// A pixel of the line under a point of the control, with its value in the shown plane; nothing
    /// outside the plot.
    std::optional<CursorReading> PositionAt(QPoint point) const;

    // The dialog hands on the mouse of the points that the plot contains (control coordinates).
    bool Contains(QPoint point) const { return rect().contains(point); }
    void OnLButtonDown(QPoint point);
    void OnLButtonDblClk(QPoint point);
    void OnRButtonDown(QPoint point);
    void OnRButtonDblClk(QPoint point);
    void OnMouseWheel(QPoint point, int steps);

    /// Up to 20 lines, Windows-1252, that are printed above the plot.
    void SetHeader(std::vector<std::string> lines);
    /// The print command: dialog with preview, then the header lines, this plot and below it the
    /// companions side by side, on one page.
    void Print(const std::vector<const CLPFControle*>& companions);
    /// The same page into any painter; `page` in its coordinates, `dotsPerInch` of the device.
    void PrintPage(QPainter& painter, const QRectF& page, double dotsPerInch,
        const std::vector<const CLPFControle*>& companions) const;

    /// Drops the kept picture and paints anew.
    void Redraw();

signals:
    /// The pointer moved over the plot; nothing when it left.
    void CursorMoved(std::optional<vireo::CursorReading> reading);
    /// The stretch in view has changed, by whatever means.
    void ViewChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    QSize sizeHint() const override;
};

} // namespace vireo
