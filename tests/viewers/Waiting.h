#pragma once

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <functional>

namespace vireo {

/// Waits until something holds, as long as a loaded machine may need; false when it never does.
inline bool Becomes(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 60'000);
}

/// Lets time pass in the event loop. Timers that end within it have fired then, however late the
/// machine is; QTest::qWait may come back without a look at them.
inline void LetPass(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Waits until what `look` sees is the same as a while ago.
template <typename Look>
bool StandsStill(const Look& look)
{
    return Becomes([&look] {
        const auto before = look();
        LetPass(100);
        return look() == before;
    });
}

} // namespace vireo
