#include "cli/OrderedWork.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace vireo {

namespace {

using Work = std::function<FileResult(const std::string&)>;

FileResult ResultOf(const FileSource::Item& item, const Work& work)
{
    return item.failure.empty() ? work(item.name) : FileResult{{}, item.failure};
}

/// The ring of results between the threads that work and the one that takes them in order.
class OrderedQueue {
public:
    OrderedQueue(FileSource& source, std::size_t slots) : m_source(source), m_slots(slots) { }

    struct Job {
        std::size_t number; ///< In the source's order.
        FileSource::Item item;
    };
    /// The next file to work on, as soon as there is room for its result; nothing after the last.
    std::optional<Job> NextJob()
    {
        std::unique_lock lock(m_mutex);
        m_room.wait(lock, [this] { return m_ended || m_next < m_taken + m_slots.size(); });
        if (!m_ended) {
            if (auto item = m_source.Next())
                return Job{m_next++, std::move(*item)};
            m_ended = true;
            lock.unlock();
            m_room.notify_all();
            m_ready.notify_one();
        }
        return std::nullopt;
    }

    struct Finished {
        std::string file;
        FileResult result;
    };
    void Put(Job job, FileResult result)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_slots[job.number % m_slots.size()] =
                Finished{std::move(job.item.name), std::move(result)};
        }
        m_ready.notify_one();
    }

    /// Waits for the result of the file whose turn it is; nothing after the last.
    std::optional<Finished> TakeNext()
    {
        std::unique_lock lock(m_mutex);
        std::optional<Finished>& slot = m_slots[m_taken % m_slots.size()];
        m_ready.wait(
            lock, [this, &slot] { return slot.has_value() || (m_ended && m_taken == m_next); });
        if (!slot)
            return std::nullopt;
        std::optional<Finished> finished = std::exchange(slot, std::nullopt);
        ++m_taken;
        lock.unlock();
        m_room.notify_one();
        return finished;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_room;
    std::condition_variable m_ready;
    FileSource& m_source;
    bool m_ended = false;    ///< The source has no more.
    std::size_t m_next = 0;  ///< The number of the next file of the source.
    std::size_t m_taken = 0; ///< The first file whose result has not been taken.
    std::vector<std::optional<Finished>> m_slots;
};

} // namespace

void WorkInOrder(FileSource& source, std::size_t threads, const Work& work,
    const std::function<void(const std::string&, const FileResult&)>& finish)
{
    if (threads <= 1) {
        while (const auto item = source.Next())
            finish(item->name, ResultOf(*item, work));
        return;
    }
    // Room for some results that wait for a slow file before them.
    constexpr std::size_t kSlotsPerThread = 8;
    OrderedQueue queue(source, threads * kSlotsPerThread);
    std::vector<std::jthread> workers;
    for (std::size_t i = 0; i < threads; ++i) {
        workers.emplace_back([&queue, &work] {
            while (auto job = queue.NextJob()) {
                FileResult result = ResultOf(job->item, work);
                queue.Put(std::move(*job), std::move(result));
            }
        });
    }
    while (const auto finished = queue.TakeNext())
        finish(finished->file, finished->result);
}

} // namespace vireo
