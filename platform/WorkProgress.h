#pragma once

#include "platform/Log.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <optional>

namespace vireo {

/// How far a piece of work is: told by the thread that does it, asked for by the one that shows it,
/// which may also ask the work to stop. The unit is the work's own, such as bytes.
class WorkProgress {
public:
    void SetTotal(std::uint64_t total) { m_total.store(total, std::memory_order_relaxed); }
    void SetDone(std::uint64_t done) { m_done.store(done, std::memory_order_relaxed); }
    void Add(std::uint64_t done) { m_done.fetch_add(done, std::memory_order_relaxed); }

    /// From 0 to 1; nothing while the total is not known.
    std::optional<double> Fraction() const
    {
        const std::uint64_t total = m_total.load(std::memory_order_relaxed);
        const std::uint64_t done = m_done.load(std::memory_order_relaxed);
        if (total == 0)
            return std::nullopt;
        return static_cast<double>(std::min(done, total)) / static_cast<double>(total);
    }

    void Cancel() { m_cancel.Cancel(); }
    /// Asked by the work every few milliseconds; it then ends as soon as it can.
    bool IsCancelled() const { return m_cancel.IsCancelled(); }

private:
    std::atomic<std::uint64_t> m_total{0};
    std::atomic<std::uint64_t> m_done{0};
    CCancel m_cancel;
};

} // namespace vireo
