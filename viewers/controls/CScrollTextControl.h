#pragma once

#include "viewers/controls/CBasicTestControl.h"

#include <QStringList>

#include <compare>
#include <string_view>

class QScrollBar;

namespace vireo {

/// A report in characters of one width, to be scrolled, selected, copied and printed. It prints
/// whole, on as many pages as it needs.
class CScrollTextControl : public CBasicTestControl {
    Q_OBJECT

public:
    explicit CScrollTextControl(QWidget* parent = nullptr);

    /// Shows a text of lines (Windows-1252) from its beginning. Tabs stop every 8 characters.
    void SetText(std::string_view text);
    const QStringList& Lines() const { return m_lines; }

    /// A place between two characters of the text.
    struct Place {
        int line = 0;
        int column = 0;
        auto operator<=>(const Place&) const = default;
    };
    /// The place nearest to a point of the control.
    Place PlaceAt(QPoint point) const;
    /// Where the character behind a place begins on the control.
    QPointF PointOf(Place place) const;

    void Select(Place from, Place to);
    void SelectAll();
    /// The selected text, lines separated by '\n'.
    QString SelectedText() const;
    /// Puts the selected text, or all of it when none is selected, onto the clipboard.
    void Copy() const;

    int FirstLine() const;
    int VisibleLines() const;

    bool DrawContent(QPainter& dc, int width, int height) override;
    void PrintPage(QPainter& dc, QSizeF printable, int pageIndex) override;
    int PageCount() const override;

    void OnLButtonDown(unsigned buttons, QPoint point) override;
    void OnLButtonDblClk(unsigned buttons, QPoint point) override; ///< Selects the word.
    void OnMouseMove(unsigned buttons, QPoint point) override;

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize TextArea() const;
    void PlaceScrollBars();
    int LinesPerPage() const;
    void DrawTextLine(QPainter& dc, int line, double y) const;

    QStringList m_lines;
    Place m_anchor;           ///< Where the selection began.
    Place m_caret;            ///< Where it ends now; equal when nothing is selected.
    QScrollBar* m_vertical;   ///< In lines.
    QScrollBar* m_horizontal; ///< In characters.
    double m_dCharWidth = 0.0;
    int m_iWheelRest = 0;
};

} // namespace vireo
