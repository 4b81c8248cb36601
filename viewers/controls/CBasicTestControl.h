#pragma once

#include "viewers/controls/Colours.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <array>
#include <optional>
#include <string>
#include <vector>

class QPagedPaintDevice;
class QPrinter;

namespace vireo {

/// The common base of the plot controls: the surface that is drawn off screen and copied to it, the
/// pen, brush and font selected for drawing, the plot's margins, the mouse, and printing.
///
/// A derived control overrides DrawContent, which draws into any painter of any size: a device
/// context is a QPainter here. Where it is interactive it overrides the mouse and timer handlers.
///
/// Life: construct, Initialise once (the owner's initialisation does it), then after each change of
/// data Redraw. Sizes and points are in logical pixels of the control unless said otherwise.
class CBasicTestControl : public QWidget {
    Q_OBJECT

public:
    explicit CBasicTestControl(QWidget* parent = nullptr);
    ~CBasicTestControl() override;

    /// Bits of the button word that the mouse handlers get.
    enum ButtonFlag : unsigned { LeftButton = 1, RightButton = 2 };

    // The operations that a derived control may override, in their fixed order.

    /// Maps an x of the parent to 0 at the control's left and 256 at its right edge, rounded; -1
    /// outside.
    virtual int PositionToScale(int x) const;
    /// Prints the header lines and below them the plot, as large as it fits. `printable` is the
    /// size of the printable area, which begins at the painter's origin, in device pixels.
    virtual void PrintPage(QPainter& dc, QSizeF printable, int pageIndex);
    /// Copies the off-screen surface to the window, after making it when it is missing. Does
    /// nothing before Initialise and while painting is disabled.
    virtual void OnPaint();
    /// Draws the plot onto the framed white area from (0, 0) to (width, height). Asks no window for
    /// anything, so that screen, paper and files get the same. The result is the derived control's
    /// own affair.
    virtual bool DrawContent(QPainter& dc, int width, int height);
    virtual void OnLButtonDblClk(unsigned buttons, QPoint point); ///< Calls OnLButtonDown.
    virtual void OnLButtonDown(unsigned buttons, QPoint point);
    virtual void OnLButtonUp(unsigned buttons, QPoint point);
    virtual void OnMouseMove(unsigned buttons, QPoint point);
    virtual void OnSpareMouse(unsigned buttons, QPoint point); ///< Never called by the base.
    virtual void OnRButtonDown(unsigned buttons, QPoint point);
    virtual void OnRButtonUp(unsigned buttons, QPoint point);
    virtual void OnMouseLeave(unsigned buttons, QPoint point);
    virtual void OnTimer(int timerId);
    /// Takes a new client size: drops the surface, redraws, and runs OnResized. Does nothing when
    /// the size is the one it has.
    virtual void OnSize(unsigned sizeType, int width, int height);

    /// Measures the control and draws it for the first time. Only the first call counts.
    void Initialise();
    bool IsInitialised() const { return m_bInitialised; }

    /// Draws the surface anew and asks for a paint: the one call that makes a change visible. False
    /// before Initialise, and when the surface cannot be made.
    bool Redraw();

    /// The drawing pass: a white rectangle with a black frame, then DrawContent. A width below 1
    /// stands for the control's client size, measured again. False before Initialise.
    bool RenderTo(QPainter& dc, int width, int height);

    /// The print command: asks for the printer, then prints every page as a job of its own, the
    /// last page first. A failure gives the message "Unable to print section".
    void Print();
    /// The same pages in a window to look at before printing.
    void PrintPreview();
    /// The jobs of the print command, without asking. False when one of them failed; the others are
    /// printed all the same. When the printer writes a file, the first page gets its name, and the
    /// other pages get "-2", "-3" ... before the extension.
    bool PrintPages(QPrinter& printer);
    /// All pages, in the order of the print command, as one document on a device such as a PDF
    /// file.
    bool PrintDocument(QPagedPaintDevice& device);

    virtual int PageCount() const { return m_iPageCount; }
    void SetPageCount(int count) { m_iPageCount = count; }

    /// The lines printed above the plot, Windows-1252; the first empty one ends them, and at most
    /// PrintPageLayout::kHeaderLines print.
    void SetHeaderLines(std::vector<std::string> lines) { m_headerLines = std::move(lines); }
    const std::vector<std::string>& HeaderLines() const { return m_headerLines; }

    void EnablePaint(bool enable) { m_bPaintEnabled = enable; }

    /// True when 0 <= x <= placement width and 0 <= y <= placement height.
    bool IsInside(QPoint point) const;
    /// True when the first colour of the table is 0, -1 or white.
    bool IsUnsetColour() const;
    void SetTableColour(std::size_t index, ColourValue colour) { m_colourTable.at(index) = colour; }
    /// The colour of the printed header lines.
    void SetTextColour(ColourValue colour) { m_textColour = colour; }

    /// Client size: one pixel less than the window on each axis, on purpose; -1 when not known yet.
    int ClientWidth() const { return m_iWidth; }
    int ClientHeight() const { return m_iHeight; }
    int TenthWidth() const { return m_iTenthWidth; }
    int TenthHeight() const { return m_iTenthHeight; }
    int PlotLeft() const { return m_margins.left; }
    int PlotTop() const { return m_margins.top; }
    int PlotRight() const { return m_margins.right; }
    int PlotBottom() const { return m_margins.bottom; }

    /// The plot's place in a drawing of a given size: a tenth is left free on every side.
    struct Margins {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };
    static Margins MarginsOf(int width, int height);

    /// What every plot is drawn on: a white rectangle with a black frame. Leaves the painter's pen
    /// and brush as they are.
    static void DrawGround(QPainter& dc, int width, int height);

    int FontHeight() const { return m_iFontHeight; }
    int LinePitch() const { return m_iFontHeight * 14 / 10; }
    int AverageCharWidth() const { return m_iAverageCharWidth; }
    int CapitalWidth() const { return m_iCapitalWidth; }
    int LineHeight() const { return m_iLineHeight; }

    /// The buttons that are down, for all plot controls of the program together.
    static unsigned MouseButtons() { return s_mouseButtons; }

signals:
    /// The mouse moved over the control. Comes after OnMouseMove and without holding it up, for an
    /// owner that follows the cursor over its plot.
    void MouseMoved(unsigned buttons, QPoint point);

protected:
    /// Selects a pen, brush or font of the control's own. At most one of each is selected at a
    /// time: the one before is taken back first. RenderTo takes all of them back at its end.
    void SetPen(QPainter& dc, Qt::PenStyle style, ColourValue colour, int width);
    void SetPenByColourIndex(QPainter& dc, Qt::PenStyle style, int width, int colourIndex);
    void SetBrush(QPainter& dc, ColourValue colour);
    /// `height` is that of a line; null stands for "Courier New".
    void SetFont(QPainter& dc, int height, const char* face, int weight);
    void ReleasePen(QPainter& dc);
    void ReleaseBrush(QPainter& dc);
    void ReleaseFont(QPainter& dc);

    /// Reads the widths and heights of the window's text.
    void MeasureText();

    /// Runs after a new size has been drawn.
    virtual void OnResized() { }

    bool IsPrinting() const { return m_bPrinting; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

    std::vector<std::string> m_labels; ///< For derived controls.
    int m_iCount = 20;                 ///< For derived controls.

private:
    struct Placement {
        int left = -1;
        int top = -1;
        int right = -1;
        int bottom = -1;
        bool IsKnown() const { return right >= left && right != -1; }
    };

    Placement WindowPlacement() const;
    QSize ClientSizeOf(const Placement& placement) const;
    void MeasurePlacement();
    void SetClientSize(QSize size);
    bool MakeSurface();
    void DrawSurface();
    bool PrintJob(QPrinter& printer, int pageIndex);

    bool m_bPaintEnabled = true;
    int m_iPageCount = 1;
    bool m_bInitialised = false;
    Placement m_placement;
    std::vector<std::string> m_headerLines;
    std::array<ColourValue, 4> m_colourTable{
        Colour::kBlack, Colour::kRed, Colour::kGreen, Colour::kBlue};
    int m_iTenthWidth = 0;
    int m_iTenthHeight = 0;
    Margins m_margins;
    int m_iFontHeight = 0;
    int m_iCapitalWidth = 0;
    int m_iAverageCharWidth = -1;
    int m_iLineHeight = 0;
    bool m_bPrinting = false;
    ColourValue m_textColour = Colour::kBlack;
    // What the control's own pen, brush and font replaced, while they are selected.
    std::optional<QPen> m_replacedPen;
    std::optional<QBrush> m_replacedBrush;
    std::optional<QFont> m_replacedFont;
    int m_iWidth = -1;
    int m_iHeight = -1;
    QImage m_surface; ///< At the device pixel ratio of its screen.

    static unsigned s_mouseButtons;
};

} // namespace vireo
