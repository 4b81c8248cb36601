#pragma once

#include "platform/DetachedWork.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace vireo {

/// Asks the system which files are missing, on a thread of its own: a network drive that is gone
/// answers only after many seconds, and nobody should wait for it before the window works.
class FileCheck {
public:
    /// Begins to check; the answer to an earlier question is dropped.
    void Start(std::vector<std::filesystem::path> files);

    /// Which of the files are missing, in their order, once all are checked; given once.
    std::optional<std::vector<std::filesystem::path>> TakeMissing() { return m_work.TakeAnswer(); }

private:
    DetachedWork<std::vector<std::filesystem::path>> m_work;
};

} // namespace vireo
