#pragma once

#include "viewers/controls/ViewerLimits.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace vireo {

/// The limits that the user has chosen, kept in the section "Limits" of the program's settings
/// file, and the figures of all kinds of files to check by them.
///
/// A thread that reads a file outlives the object that has asked, and ends as soon as it can.
class ProgramLimits : public ViewerLimits {
public:
    /// `settings` is the settings file.
    explicit ProgramLimits(std::filesystem::path settings);
    ~ProgramLimits() override;

    std::filesystem::path Chosen() const override { return m_chosen; }
    void Choose(const std::filesystem::path& limits) override;
    void Ask(const LimitsQuestion& question) override;
    std::optional<LimitsAnswer> TakeAnswer() override;

private:
    struct Work;

    void GiveUp();

    std::filesystem::path m_settings;
    std::filesystem::path m_chosen;
    std::shared_ptr<Work> m_work; ///< Null while nothing is asked.
};

} // namespace vireo
