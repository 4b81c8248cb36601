#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace vireo {

/// Puts a window out of sight while it lives on as the owner of another: hiding a dialog would end
/// its modal loop, so it becomes a clear window of one pixel at (5, 5).
class ShrunkWindow {
public:
    /// Left 5, top 5, right 6, bottom 6.
    static constexpr QRect kShrunk{5, 5, 1, 1};

    explicit ShrunkWindow(QWidget& window);

    void Shrink();
    void Restore();
    bool IsShrunk() const { return m_bShrunk; }

private:
    QWidget& m_window;
    bool m_bShrunk = false;
    QRect m_normalPosition;
    QSize m_minimumSize;
};

} // namespace vireo
