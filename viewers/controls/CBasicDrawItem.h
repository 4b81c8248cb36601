#pragma once

#include <QRect>

class QPainter;

namespace vireo {

/// A rectangle inside a control that draws itself.
class CBasicDrawItem {
public:
    virtual ~CBasicDrawItem() = default;

    /// Sets the place by its corners, both of them inside: width = right - left + 1.
    virtual void SetCorners(int left, int top, int right, int bottom)
    {
        SetPlace(left, top, right - left + 1, bottom - top + 1);
    }
    virtual void SetPlace(int left, int top, int width, int height)
    {
        m_iLeft = left;
        m_iTop = top;
        m_iWidth = width;
        m_iHeight = height;
    }
    virtual void Draw(QPainter& dc) const = 0;

    QRect Place() const { return {m_iLeft, m_iTop, m_iWidth, m_iHeight}; }

protected:
    int m_iLeft = 0;
    int m_iTop = 0;
    int m_iWidth = 0;
    int m_iHeight = 0;
};

} // namespace vireo
