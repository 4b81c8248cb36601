#pragma once

#include "limits/LimitsFile.h"
#include "limits/Verdict.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// What a viewer wants to know of the file on view.
struct LimitsQuestion {
    std::filesystem::path file;
    std::int64_t line = 0; ///< 0-based; in kinds that have lines, the one that is judged.
    /// As what the viewer has read the file, as the command line writes it: "noise"; empty: as what
    /// its first bytes say. A view into a constant.
    std::string_view kind = {};
    /// Why nothing of the file is on view, in UTF-8; then there is nothing to judge.
    std::string failure = {};

    bool operator==(const LimitsQuestion&) const = default;
};

/// What is known of a file under the limits that the user has chosen.
struct LimitsAnswer {
    std::vector<Limit> limits;      ///< Those that hold for the file.
    std::optional<Verdict> verdict; ///< Nothing when the file or the limits cannot be read.
    std::string failure;            ///< Why there is no verdict, or not of all of the file. UTF-8.
};

/// The limits that the user has chosen, and whether the figures of a file are within them: how a
/// viewer reaches what the program knows of all kinds of files.
class ViewerLimits {
public:
    virtual ~ViewerLimits() = default;

    /// The limits file; empty when the user has chosen none.
    virtual std::filesystem::path Chosen() const = 0;
    /// Keeps another choice for this and later runs; an empty path for none.
    virtual void Choose(const std::filesystem::path& limits) = 0;

    /// Begins to check a file, on a thread of its own: reading a large file takes its time. What an
    /// earlier call asked for is given up.
    virtual void Ask(const LimitsQuestion& question) = 0;
    /// The answer once it is there; given once.
    virtual std::optional<LimitsAnswer> TakeAnswer() = 0;
};

} // namespace vireo
