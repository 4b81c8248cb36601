#pragma once

#include "viewers/controls/CHorizontalZoomDouble_Control.h"
#include "viewers/startest/StarTestPlot.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace vireo {

class StarTestData;

/// The plot of the star test: the curves of the selected sweep, with the list of all sweeps at the
/// left edge, from which one is selected by a click, and the application factor at the bottom.
class CA2_StarTest_Control : public CHorizontalZoomDouble_Control {
    Q_OBJECT

public:
    explicit CA2_StarTest_Control(QWidget* parent = nullptr);

    /// The measurement to show and to select sweeps of; not owned. Null shows an empty plot.
    void SetData(StarTestData* test);
    /// Another file has been read into the data: begins anew with all lines, the curves that are
    /// visible at first and their scale.
    void ShowData();

    /// The limits of the figures of the sweeps, of which the plot marks those of values.
    void SetLimits(std::vector<Limit> limits);

    /// Selects a record; one behind the last is the last.
    void SelectSweep(std::int64_t index);

    /// Whether the visible curves stay the same from sweep to sweep; measured and average records
    /// are kept apart. On at first.
    void KeepVisibility(bool keeps) { m_bKeepVisibility = keeps; }
    bool KeepsVisibility() const { return m_bKeepVisibility; }

    /// The line that the cursor was over last; the middle of the view when it never was.
    std::int64_t LastCursorLine() const;

    StarTestPlotContent Content() const;
    CurvePlotContent PlotContent() const override;
    bool DrawContent(QPainter& dc, int width, int height) override;
    void OnMouseMove(unsigned buttons, QPoint point) override;

signals:
    void SweepSelected(std::size_t index);

protected:
    void DrawCursor(QPainter& dc, QSizeF size) override;
    void OnClick(QPoint point) override;
    void keyPressEvent(QKeyEvent* event) override;
    QSize sizeHint() const override;

private:
    /// Where the visible curves of a kind of record are kept: measured or average.
    std::optional<CurveSlots::Visibility>& Bank();
    void TakeCurves();
    std::optional<std::size_t> SweepUnder(QPoint point) const;

    StarTestData* m_data = nullptr;
    std::vector<Limit> m_limits;
    std::vector<std::int32_t> m_markers;
    std::array<std::optional<CurveSlots::Visibility>, 2> m_banks;
    bool m_bKeepVisibility = true;
    std::optional<std::int64_t> m_lastCursorLine;
};

} // namespace vireo
