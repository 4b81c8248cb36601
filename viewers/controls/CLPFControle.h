#pragma once

#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfilePage.h"
#include "viewers/controls/ProfilePlot.h"

#include <QImage>
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

    /// What is shown now, and what the detail modes found in it.
    const ProfilePlotContent& Content() const { return m_content; }

    /// Shows the whole line, and stays an overview.
    void ZoomAll();
    /// Detail of the current camera: its first (Left) or last (Right) line length / zoomStep
    /// pixels.
    void ShowCamera(int camera, Side side, int zoomStep = 16);
    /// The two cameras' signals at a boundary on one scale; the last camera is shown with its left
    /// neighbour.
    void ShowLightProfile(int camera, Side side);
    /// The outer edges of the target that were found, and their distance.
    void ShowScanWidth(int camera, Side side);
    /// The boundary transition of each plane.
    void ShowVerticalPositioning(int camera, Side side);

    const ProfileView& View() const { return m_content.scene.view; }
    void SetView(const ProfileView& view);

    /// A pixel of the line under a point of the control, with its value in the shown plane; nothing
    /// outside the plot.
    std::optional<CursorReading> PositionAt(QPoint point) const;

    // What the mouse does, at a point in the control's coordinates. The control calls these for its
    // own events; a dialog may, for a shortcut.
    bool Contains(QPoint point) const { return rect().contains(point); }
    void OnLButtonDown(QPoint point);
    void OnLButtonDblClk(QPoint point);
    void OnRButtonDown(QPoint point);
    void OnRButtonDblClk(QPoint point);
    void OnMouseWheel(QPoint point, int steps);

    /// Up to 20 lines, Windows-1252, that are printed above the plot.
    void SetHeader(std::vector<std::string> lines);
    /// The print command: the header lines, this plot and below it the companions side by side, on
    /// one page, after the print dialog.
    void Print(const std::vector<const CLPFControle*>& companions);
    /// The same in the preview window.
    void PrintPreview(const std::vector<const CLPFControle*>& companions);
    /// The page that both print.
    ProfilePage Page(const std::vector<const CLPFControle*>& companions) const;

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

private:
    void Show(ProfileMode mode, int camera, Side side, int zoomStep = 16);
    void Recompose();
    void ApplyView(const ProfileView& view);
    void UpdateScrollBar();
    void OnScrolled(int position);
    void UpdateStretches();
    double PixelUnder(QPoint point) const;
    std::int64_t LineLength() const;
    void MoveCursor(std::optional<QPoint> point);

    ProfilePlotContent m_content;
    ProfileRequest m_request;
    /// The user has chosen the view: data that come anew do not change it.
    bool m_bUserView = false;
    QScrollBar* m_scrollBar = nullptr;
    std::vector<const CLPFControle*> m_details;
    std::vector<std::string> m_header;
    QImage m_picture; ///< The plot without cursor; null when it has to be drawn anew.
    std::optional<QPoint> m_cursorPoint; ///< The pointer, while it is over the control.
    std::optional<CursorReading> m_cursor;
    std::optional<QPoint> m_dragFrom;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
