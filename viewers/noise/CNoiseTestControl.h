#pragma once

#include "viewers/controls/CLinePlot.h"
#include "viewers/noise/NoisePlot.h"
#include "viewers/noise/NoiseView.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QPrinter;

namespace vireo {

/// The plot of the noise test viewers: the shown plane of one noise line with its band and marks.
/// What is drawn and where is NoisePlot's business; the control keeps the view.
class CNoiseTestControl : public CLinePlot {
    Q_OBJECT

public:
    explicit CNoiseTestControl(QWidget* parent = nullptr);

    /// The record to draw, which must be summarised and live until the next call; null draws an
    /// empty plot. Shows the whole line.
    void SetData(const NoiseData* record);
    void SetUnit(PositionUnit unit);
    /// The limits of the figures of the record, of which the plot marks those of averages.
    void SetLimits(std::vector<Limit> limits);

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

    void OnLButtonDown(QPoint point) override;
    void OnRButtonDown(QPoint point) override;
    void OnMouseWheel(QPoint point, int steps) override;

signals:
    /// The pointer moved over a pixel of the plot; nothing when it left.
    void CursorMoved(std::optional<std::int64_t> pixel);

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
    std::int64_t LineLength() const;
    ProfileScale Scale() const { return NoiseScaleOf(m_content, size()); }
    bool PrintOn(
        QPrinter& printer, const std::vector<std::string>& header, const char* documentName) const;

    std::vector<Limit> m_limits;
    NoisePlotContent m_content;
    NoiseView m_view;
    std::optional<std::int64_t> m_cursor;
};

} // namespace vireo
