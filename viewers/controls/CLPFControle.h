#pragma once

#include "viewers/controls/CLinePlot.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfilePage.h"
#include "viewers/controls/ProfilePlot.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

/// The profile plot of the oscilloscope and light-profile viewers: one scan line as a curve over
/// its pixels, with axes, camera boundaries and a cursor. Three of them work together in a dialog:
/// an overview of the whole line and two detail views whose stretch the overview marks.
///
/// What is drawn and where is ProfilePlot's business; the control keeps the view.
class CLPFControle : public CLinePlot {
    Q_OBJECT

public:
    explicit CLPFControle(QWidget* parent = nullptr);

    /// Which end of the current camera, or which side of a boundary, a detail view shows.
    using Side = ProfileSide;

    /// The line to draw, which must live until the next call; null draws an empty plot. Keeps view
    /// and mode, so that an animation stays where it is.
    void SetLine(const ProfileLine* line, ShownColour shown);
    void SetShownColour(ShownColour shown);
    void SetCameras(const ProfileCameras& cameras);
    /// The unit of positions; millimetres at first.
    void SetUnit(const ProfileUnit& unit);
    /// The limits of the figures of the line, of which the plot marks those of values.
    void SetLimits(std::vector<Limit> limits);
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

    bool Contains(QPoint point) const { return rect().contains(point); }
    void OnLButtonDown(QPoint point) override;
    void OnLButtonDblClk(QPoint point);
    void OnRButtonDown(QPoint point) override;
    void OnRButtonDblClk(QPoint point);
    void OnMouseWheel(QPoint point, int steps) override;

    /// Up to 20 lines, Windows-1252, that are printed above the plot.
    void SetHeader(std::vector<std::string> lines);
    /// The print command: the header lines, this plot and below it the companions side by side, on
    /// one page, after the print dialog.
    void Print(const std::vector<const CLPFControle*>& companions);
    /// The same in the preview window.
    void PrintPreview(const std::vector<const CLPFControle*>& companions);
    /// The page that both print.
    ProfilePage Page(const std::vector<const CLPFControle*>& companions) const;

signals:
    /// The pointer moved over the plot; nothing when it left.
    void CursorMoved(std::optional<vireo::CursorReading> reading);

protected:
    void DrawPlot(QPainter& painter) override;
    void DrawCursor(QPainter& painter) override;
    void ReadCursor(std::optional<QPoint> point) override;
    void DragView(int fromX, int toX) override;
    void MoveView(double share) override;
    ScrollState Scrolled() const override;
    void ScrollTo(int first) override;
    QSize sizeHint() const override;

private:
    void Show(ProfileMode mode, int camera, Side side, int zoomStep = 16);
    void Recompose();
    void ApplyView(const ProfileView& view);
    void UpdateStretches();
    double PixelUnder(QPoint point) const;
    std::int64_t LineLength() const;

    std::vector<Limit> m_limits;
    ProfilePlotContent m_content;
    ProfileRequest m_request;
    /// The user has chosen the view: data that come anew do not change it.
    bool m_bUserView = false;
    std::vector<const CLPFControle*> m_details;
    std::vector<std::string> m_header;
    std::optional<CursorReading> m_cursor;
};

} // namespace vireo
