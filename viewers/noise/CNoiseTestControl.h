#pragma once

#include "viewers/noise/NoisePlot.h"
#include "viewers/noise/NoiseView.h"

#include <QImage>
#include <QWidget>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QPrinter;
class QScrollBar;

namespace vireo {

/// The plot of the noise test viewers: the shown plane of one noise line with its band and marks.
///
/// What is drawn and where is NoisePlot's business; the control keeps the view, a picture of the
/// plot at the screen's device pixel ratio, and turns mouse and scroll bar into views.
///
/// Mouse: left click zooms in on the pixel clicked, right click zooms out, the wheel zooms at the
/// pointer, dragging with the middle button or with Shift pans, moving shows the cursor's reading.
class CNoiseTestControl : public QWidget {
    Q_OBJECT

public:
    explicit CNoiseTestControl(QWidget* parent = nullptr);

    /// The scroll bar below the plot: shows and moves the stretch in view. Not owned.
    void SetScrollBar(QScrollBar* scrollBar);

    /// The record to draw, which must be summarised and live until the next call; null draws an
    /// empty plot. Shows the whole line.
    void SetData(const NoiseData* record);
    void SetUnit(NoiseUnit unit);

    const NoisePlotContent& Content() const { return m_content; }
    const NoiseView& View() const { return m_view; }
    void SetView(const NoiseView& view);
    /// Shows the whole line.
    void ZoomAll();
    /// Twice or half the zoom about the middle.
    void ZoomIn();
    void ZoomOut();

    /// The pixel of the line under a point of the control; nothing outside the plot.
    std::optional<std::int64_t> PixelAt(QPoint point) const;

    /// The print command: the plot under these header lines (Windows-1252), after the print dialog.
    void Print(const std::vector<std::string>& header, const char* documentName);
    /// The same in the preview window.
    void PrintPreview(const std::vector<std::string>& header, const char* documentName);

    /// Drops the kept picture and paints anew: the data have another plane to show.
    void Redraw();

signals:
    /// The pointer moved over a pixel of the plot; nothing when it left.
    void CursorMoved(std::optional<std::int64_t> pixel);
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
    std::int64_t LineLength() const;
    ProfileScale Scale() const { return NoiseScaleOf(m_content, size()); }
    void UpdateScrollBar();
    void OnScrolled(int position);
    void Turn(QPoint point, int steps);
    void MoveCursor(std::optional<QPoint> point);
    bool PrintOn(
        QPrinter& printer, const std::vector<std::string>& header, const char* documentName) const;

    NoisePlotContent m_content;
    NoiseView m_view;
    QScrollBar* m_scrollBar = nullptr;
    QImage m_picture; ///< The plot without cursor; null when it has to be drawn anew.
    std::optional<std::int64_t> m_cursor;
    std::optional<QPoint> m_cursorPoint;
    std::optional<QPoint> m_dragFrom;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
