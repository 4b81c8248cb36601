#include "cli/OrderedWork.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace vireo {

namespace {

/// The ring of results between the threads that work and the one that takes them in order.
class OrderedQueue {
public:
    OrderedQueue(std::size_t count, std::size_t slots) : m_count(count), m_slots(slots) { }

    /// The next item to work on, as soon as there is room for its result; nothing after the last.
    std::optional<std::size_t> NextItem()
    {
        std::unique_lock lock(m_mutex);
        m_room.wait(
            lock, [this] { return m_next == m_count || m_next < m_taken + m_slots.size(); });
        if (m_next == m_count)
            return std::nullopt;
        return m_next++;
    }

    void Put(std::size_t item, FileResult result)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_slots[item % m_slots.size()] = std::move(result);
        }
        m_ready.notify_one();
    }

    /// Waits for the result of the item whose turn it is.
    FileResult TakeNext()
    {
        std::unique_lock lock(m_mutex);
        std::optional<FileResult>& slot = m_slots[m_taken % m_slots.size()];
        m_ready.wait(lock, [&slot] { return slot.has_value(); });
        FileResult result = std::move(*slot);
        slot.reset();
        ++m_taken;
        lock.unlock();
        m_room.notify_all();
        return result;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_room;
    std::condition_variable m_ready;
    std::size_t m_count;
    std::size_t m_next = 0;  ///< The first item that nobody works on yet.
    std::size_t m_taken = 0; ///< The first item whose result has not been taken.
    std::vector<std::optional<FileResult>> m_slots;
};

} // namespace

void WorkInOrder(std::size_t count, std::size_t threads,
    const std::function<FileResult(std::size_t)>& work,
    const std::function<void(std::size_t, FileResult)>& finish)
{
    threads = std::min(threads, count);
    if (threads <= 1) {
        for (std::size_t item = 0; item < count; ++item)
            finish(item, work(item));
        return;
    }
    // Room for some results that wait for a slow file before them.
    constexpr std::size_t kSlotsPerThread = 8;
    OrderedQueue queue(count, threads * kSlotsPerThread);
    std::vector<std::jthread> workers;
    for (std::size_t i = 0; i < threads; ++i) {
        workers.emplace_back([&queue, &work] {
            while (const auto item = queue.NextItem())
                queue.Put(*item, work(*item));
        });
    }
    for (std::size_t item = 0; item < count; ++item)
        finish(item, queue.TakeNext());
}

} // namespace vireo
