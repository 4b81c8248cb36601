#include "app/FileCheck.h"

#include <system_error>
#include <tuple>
#include <utility>

namespace vireo {

namespace {

/// Only a plain "no" counts: a file that the user may not look at is not missing.
bool IsMissing(const std::filesystem::path& file)
{
    std::error_code error;
    return !std::filesystem::exists(file, error) && !error;
}

} // namespace

void FileCheck::Start(std::vector<std::filesystem::path> files)
{
    // Without a thread nothing is found to be missing.
    std::ignore = m_work.Start([files = std::move(files)](const std::stop_token& stop) {
        std::vector<std::filesystem::path> missing;
        for (const auto& file : files) {
            if (!stop.stop_requested() && IsMissing(file))
                missing.push_back(file);
        }
        return missing;
    });
}

} // namespace vireo
