#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace vireo {

/// What is to be done with a file that the user wants to see.
struct DispatchPlan {
    /// Dialog classes in opening order.
    std::vector<std::string_view> viewers;
    /// A packed dump: it is unpacked first, and the folder is shown.
    bool isPackedDump = false;
    /// Why the file cannot be opened, as a sentence without its full stop; empty when it can.
    std::string_view refusal;
};

/// Reads the beginning of a file and finds what opens it.
DispatchPlan PlanDispatch(const std::filesystem::path& file);

} // namespace vireo
