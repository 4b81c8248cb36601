#pragma once

#include "platform/DetachedThread.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>

namespace vireo {

/// Work that may take long, on a thread of its own, whose answer is asked for from time to time.
/// Nobody ever waits for the thread: it outlives this object where it must, so that the work has to
/// own all that it uses.
template <typename Answer>
class DetachedWork {
public:
    /// Throws nothing. It ends early when the token asks it to, if that can be done.
    using Work = std::function<Answer(std::stop_token)>;

    DetachedWork() = default;
    DetachedWork(const DetachedWork&) = delete;
    DetachedWork& operator=(const DetachedWork&) = delete;
    ~DetachedWork() { GiveUp(); }

    /// Begins; the answer to earlier work is dropped. Returns whether there is a thread for it.
    bool Start(Work work)
    {
        GiveUp();
        m_shared = std::make_shared<Shared>();
        const bool hasThread = RunDetached([shared = m_shared, work = std::move(work)] {
            shared->answer.emplace(work(shared->stop.get_token()));
            shared->isDone.store(true, std::memory_order_release);
        });
        if (!hasThread)
            m_shared.reset();
        return m_shared != nullptr;
    }

    /// The answer, once there is one; given once.
    std::optional<Answer> TakeAnswer()
    {
        if (!m_shared || !m_shared->isDone.load(std::memory_order_acquire))
            return std::nullopt;
        return std::move(std::exchange(m_shared, nullptr)->answer);
    }

    void GiveUp()
    {
        if (m_shared)
            m_shared->stop.request_stop();
        m_shared.reset();
    }

private:
    /// `answer` is the thread's until `isDone` is set.
    struct Shared {
        std::stop_source stop;
        std::optional<Answer> answer;
        std::atomic<bool> isDone{false};
    };

    std::shared_ptr<Shared> m_shared; ///< Null while nothing is asked.
};

} // namespace vireo
