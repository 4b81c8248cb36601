#pragma once

#include "platform/DetachedWork.h"
#include "viewers/controls/ViewerLimits.h"

#include <filesystem>
#include <optional>

namespace vireo {

/// The limits that the user has chosen, kept in the section "Limits" of the program's settings
/// file, and the figures of all kinds of files to check by them.
class ProgramLimits : public ViewerLimits {
public:
    /// `settings` is the settings file.
    explicit ProgramLimits(std::filesystem::path settings);

    std::filesystem::path Chosen() const override { return m_chosen; }
    void Choose(const std::filesystem::path& limits) override;
    void Ask(const LimitsQuestion& question) override;
    std::optional<LimitsAnswer> TakeAnswer() override;

private:
    std::filesystem::path m_settings;
    std::filesystem::path m_chosen;
    DetachedWork<LimitsAnswer> m_work;
    std::optional<LimitsAnswer> m_failure; ///< Where there was no thread for the work.
};

} // namespace vireo
