#include "app/FileCheck.h"

#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace vireo {

/// Shared by the asker and the thread, which may outlive the asker. `missing` is the thread's until
/// `done` is set.
struct FileCheck::State {
    std::vector<std::filesystem::path> files;
    std::vector<std::filesystem::path> missing;
    std::atomic<bool> done{false};

    void Check()
    {
        for (const auto& file : files) {
            // Only a plain "no" counts: a file that the user may not look at is not missing.
            std::error_code error;
            if (!std::filesystem::exists(file, error) && !error)
                missing.push_back(file);
        }
        done.store(true, std::memory_order_release);
    }
};

void FileCheck::Start(std::vector<std::filesystem::path> files)
{
    m_state = std::make_shared<State>();
    m_state->files = std::move(files);
    try {
        std::thread([state = m_state] { state->Check(); }).detach();
    } catch (const std::system_error&) {
        // Without a thread nothing is found to be missing.
        m_state.reset();
    }
}

std::optional<std::vector<std::filesystem::path>> FileCheck::TakeMissing()
{
    if (m_state == nullptr || !m_state->done.load(std::memory_order_acquire))
        return std::nullopt;
    return std::move(std::exchange(m_state, nullptr)->missing);
}

} // namespace vireo
