#pragma once

#include "viewers/controls/CSymbolTestControl.h"
#include "viewers/tonal/TonalView.h"

#include <QImage>

#include <optional>
#include <vector>

namespace vireo {

/// The plot of the tonal resolution viewer: one of three views of a record.
///
/// What is drawn and where is the business of TonalResolutionPlot; the control keeps what is shown
/// and which patch is pointed at. Mouse: moving shows the values of the nearest patch. Keys: left
/// and right go from patch to patch, Escape points at none.
class CTonalResolution_Control : public CSymbolTestControl {
    Q_OBJECT

public:
    explicit CTonalResolution_Control(QWidget* parent = nullptr);

    /// The record to draw, which must live until the next call; null draws an empty plot.
    void SetData(const TonalResolutionData* record);
    void SetView(TonalView view);
    void SetFlag(TonalFlag flag, bool isShown);
    /// While a file is being loaded the plot only asks for patience.
    void SetLoading(bool isLoading);
    /// The limits of the figures of the record.
    void SetLimits(std::vector<Limit> limits);

    const TonalPlotContent& Content() const { return m_content; }

    /// The plot as a picture of its client size, drawn with so many pixels a unit, as it prints.
    QImage Picture(double ratio);

    bool DrawContent(QPainter& dc, int width, int height) override;
    void OnMouseMove(unsigned buttons, QPoint point) override;
    void OnMouseLeave(unsigned buttons, QPoint point) override;

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Point(std::optional<std::size_t> patch);
    void PointBeside(int step);

    std::vector<Limit> m_limits;
    TonalPlotContent m_content;
};

} // namespace vireo
