#pragma once

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/CDrawRedGreenRedRect.h"

#include <QString>

namespace vireo {

/// The scan-width gauge: by how much the edges found at the left and at the right of the line lie
/// off their places, as pointers on both sides of a red, green and red scale. It only displays: it
/// stays disabled.
class CWidthCenter_Control : public CBasicTestControl {
    Q_OBJECT

public:
    explicit CWidthCenter_Control(QWidget* parent = nullptr);

    /// The largest deviation that is right, and the one from which on it is close to the limit.
    void SetLimits(double limit, double warningLimit);
    /// A side's deviation, and the full-scale value of the gauge (the larger of both sides'
    /// counts).
    void SetLeft(double fullScale, double value);
    void SetRight(double fullScale, double value);

    enum class Verdict { Right, Close, Wrong };
    Verdict VerdictOf(double value) const;

    bool DrawContent(QPainter& dc, int width, int height) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    /// A full-scale value and the value shown on that scale.
    struct ValuePair {
        double full = 100.0;
        double value = 0.0;
    };
    enum class Side { Left, Right };

    void DrawTitle(QPainter& dc, int width, int height);
    void DrawValue(QPainter& dc, const CDrawRedGreenRedRect& gauge, int width, int height,
        const ValuePair& pair, Side side);

    double m_dLimit = 1.0;
    double m_dWarningLimit = 0.95;
    ValuePair m_left;
    ValuePair m_right;
};

} // namespace vireo
