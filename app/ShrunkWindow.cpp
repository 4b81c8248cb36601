#include "app/ShrunkWindow.h"

#include "platform/TaskBar.h"

#include <QLayout>
#include <QWidget>
#include <QWindow>

namespace vireo {

namespace {
/// Frame and title bar would keep a window of one pixel in sight. They are taken off the native
/// window only: changing them on the widget would hide it first.
void SetFrame(const QWidget& window, bool visible)
{
    if (QWindow* handle = window.windowHandle())
        handle->setFlag(Qt::FramelessWindowHint, !visible);
}

void SetLayoutConstraint(const QWidget& window, QLayout::SizeConstraint constraint)
{
    if (QLayout* layout = window.layout())
        layout->setSizeConstraint(constraint);
}
} // namespace

ShrunkWindow::ShrunkWindow(QWidget& window) : m_window(window) { }

void ShrunkWindow::Shrink()
{
    if (m_bShrunk)
        return;
    m_bShrunk = true;
    m_normalPosition =
        m_window.normalGeometry().isValid() ? m_window.normalGeometry() : m_window.geometry();
    m_minimumSize = m_window.minimumSize();
    SetLayoutConstraint(m_window, QLayout::SetNoConstraint);
    m_window.setMinimumSize(0, 0);
    m_window.setWindowOpacity(0);
    SetFrame(m_window, false);
    m_window.setGeometry(kShrunk);
    // Where text wraps, Windows lets no window become smaller than its layout.
    m_window.setMask(QRect(QPoint(), kShrunk.size()));
    // The viewer in front has its own button there.
    ShowOnTaskBar(m_window.effectiveWinId(), false);
}

void ShrunkWindow::Restore()
{
    if (!m_bShrunk)
        return;
    m_bShrunk = false;
    m_window.clearMask();
    m_window.setMinimumSize(m_minimumSize);
    SetLayoutConstraint(m_window, QLayout::SetDefaultConstraint);
    SetFrame(m_window, true);
    m_window.setGeometry(m_normalPosition);
    m_window.setWindowOpacity(1);
    ShowOnTaskBar(m_window.effectiveWinId(), true);
}

} // namespace vireo
