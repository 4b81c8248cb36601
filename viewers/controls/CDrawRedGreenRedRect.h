#pragma once

#include "viewers/controls/CBasicDrawItem.h"
#include "viewers/controls/GaugeScale.h"

namespace vireo {

/// An upright gauge: green around zero as far as the limit, red beyond it on both sides, with the
/// values 0, +-1, +-10 ... marked on a signed logarithmic scale.
class CDrawRedGreenRedRect : public CBasicDrawItem {
public:
    /// The largest value that still is right; on both sides of zero.
    void SetLimit(double limit) { m_dLimit = limit; }
    void SetFullScale(double full) { m_dFull = full; }

    GaugeScale Scale() const;
    /// Draws with the painter's font; the texts of the scale stand inside of the gauge.
    void Draw(QPainter& dc) const override;

private:
    void DrawScale(QPainter& dc) const;

    double m_dLimit = 1.0;
    double m_dFull = 100.0;
};

} // namespace vireo
