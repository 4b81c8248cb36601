#pragma once

#include "viewers/controls/CBasicTestControl.h"
#include "viewers/controls/ElapsedTime.h"

namespace vireo {

/// Shows the time since its construction, or since the last Reset.
class CElapsed_Control : public CBasicTestControl {
    Q_OBJECT

public:
    explicit CElapsed_Control(QWidget* parent = nullptr);

    /// Counts from now on.
    void Reset();
    /// Looks at the clock every so often; what is shown changes once a second.
    void Start(int periodMilliseconds = 200);

    const ElapsedTime& Shown() const { return m_shown; }

    /// On the timer: redraws when hours, minutes or seconds have changed.
    void OnTimer(int timerId) override;
    bool DrawContent(QPainter& dc, int width, int height) override;

protected:
    /// Milliseconds of a clock that only goes forward.
    virtual std::int64_t TickCount() const;

private:
    std::int64_t m_start;
    ElapsedTime m_shown;
};

} // namespace vireo
