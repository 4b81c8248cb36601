#pragma once

#include "viewers/controls/CSymbolTestControl.h"
#include "viewers/controls/CurvePlot.h"
#include "viewers/controls/CurveSlots.h"
#include "viewers/controls/HorizontalZoom.h"
#include "viewers/controls/VerticalScale.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QScrollBar;

namespace vireo {

/// A plot of up to 15 curves over the same points, zoomed and panned along them.
///
/// Mouse: a click on a name of the legend shows or hides its curve. The wheel zooms at the pointer,
/// with Shift or sideways it pans; over the values' axis, or with Ctrl, it zooms the values.
/// Dragging pans; on the values' axis it moves the values. A double click shows all points. While
/// the button "Zoom" is pressed, a click centres the view there at twice the zoom and a right click
/// zooms out. Moving shows the cursor. Keys: arrows pan, + and - zoom, Home shows all points.
class CHorizontalZoomDouble_Control : public CSymbolTestControl {
    Q_OBJECT

public:
    explicit CHorizontalZoomDouble_Control(QWidget* parent = nullptr);

    /// Fills a curve slot, 0 to 14; `colour` is 0x00BBGGRR. OnCurvesFilled must follow.
    void SetCurve(
        std::size_t index, std::string name, ColourValue colour, std::vector<double> values);
    void ClearCurves() { m_curves.Clear(); }
    CurveSlots& Curves() { return m_curves; }
    const CurveSlots& Curves() const { return m_curves; }
    /// The slots have been filled: summarises them and keeps the zoom as far as the points reach.
    void OnCurvesFilled();

    const HorizontalZoom& Zoom() const { return m_zoom; }
    void SetZoom(const HorizontalZoom& zoom);
    void ZoomAll();
    /// Twice or half as close about the middle.
    void ZoomIn();
    void ZoomOut();

    /// The values at top and bottom, chosen by hand; ends the automatic scale. One that cannot be
    /// drawn is not taken.
    void SetVerticalScale(const VerticalScale& scale);
    const VerticalScale& Scale() const { return m_scale; }
    /// Automatic: the scale fits the visible curves in view, whatever they are.
    void SetAutomaticScale(bool isAutomatic);
    bool HasAutomaticScale() const { return m_bAutomaticScale; }

    void SetZoomMode(bool isOn);
    bool IsZoomMode() const { return m_bZoomMode; }

    /// The point under the cursor; -1 for none.
    std::int64_t CursorLine() const { return m_iCursorLine; }

    /// The scroll bar below the plot: shows and moves the stretch in view. Not owned.
    void SetScrollBar(QScrollBar* scrollBar);

    /// What is drawn now.
    virtual CurvePlotContent PlotContent() const;

    void OnPaint() override;
    bool DrawContent(QPainter& dc, int width, int height) override;
    void OnLButtonDown(unsigned buttons, QPoint point) override;
    void OnLButtonUp(unsigned buttons, QPoint point) override;
    void OnLButtonDblClk(unsigned buttons, QPoint point) override;
    void OnRButtonUp(unsigned buttons, QPoint point) override;
    void OnMouseMove(unsigned buttons, QPoint point) override;
    void OnMouseLeave(unsigned buttons, QPoint point) override;

signals:
    /// The stretch in view, the values' scale or the visible curves have changed.
    void ViewChanged();
    /// The cursor is over another point; -1: over none.
    void CursorMoved(std::int64_t point);

protected:
    /// Draws what belongs to the cursor over the plot.
    virtual void DrawCursor(QPainter& dc, QSizeF size);
    /// A click, not a drag, anywhere but on the legend and the zoom button.
    virtual void OnClick(QPoint point);

    QSizeF PlotSize() const { return QSizeF(ClientWidth(), ClientHeight()); }

    void OnResized() override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ChangeView();
    void FitScale();
    bool TakeButtonOrLegend(QPoint point);
    void Drag(QPoint point);
    void ReadCursor(QPoint point);
    void SetCursorLine(std::int64_t line);
    bool IsInPlot(QPoint point) const;
    double PointUnder(QPoint point) const;
    void TurnWheel(QPoint point, int steps, Qt::KeyboardModifiers keys);
    void UpdateScrollBar();
    void OnScrolled(int first);

    CurveSlots m_curves;
    HorizontalZoom m_zoom;
    VerticalScale m_scale;
    bool m_bAutomaticScale = false;
    bool m_bZoomMode = false;
    std::int64_t m_iCursorLine = -1;
    QScrollBar* m_scrollBar = nullptr;

    /// A press that may become a drag.
    struct Press {
        QPoint from;
        HorizontalZoom zoom;
        VerticalScale scale;
        bool isOnAxis = false;
        bool isDrag = false;
    };
    std::optional<Press> m_press;
    int m_wheelRest = 0; ///< Of fine-grained wheels: turned, but not yet a whole step.
};

} // namespace vireo
