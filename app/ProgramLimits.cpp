#include "app/ProgramLimits.h"

#include "figures/LimitsCheck.h"
#include "figures/Subject.h"
#include "platform/Log.h"
#include "platform/Path.h"
#include "platform/PrivateProfile.h"

#include <exception>
#include <stop_token>
#include <system_error>
#include <utility>

namespace vireo {

namespace {

constexpr const char* kSection = "Limits";
constexpr const char* kFile = "File";
constexpr std::size_t kLongestPath = 4096;

LimitsAnswer Check(
    const std::filesystem::path& limitsFile, const LimitsQuestion& question, std::stop_token stop)
{
    LimitsFile limits;
    if (const auto fault = limits.Read(limitsFile))
        return {{}, std::nullopt, Utf8FromPath(limitsFile) + "\n" + fault->Text()};
    Subject subject;
    const FileStatus status = RecogniseSubject(Utf8FromPath(question.file), std::nullopt, subject);
    if (status != FileStatus::Ok)
        return {{}, std::nullopt, std::string(Describe(status))};
    // What a viewer has read as its own kind is judged as what it shows.
    const auto shownKind = KindFromId(question.kind);
    if (shownKind && *shownKind != subject.Kind()) {
        subject.recognition.kind = *shownKind;
        subject.isForced = true;
    }
    AnalyseSettings settings;
    settings.line = question.line;
    settings.stop = std::move(stop);
    LimitsAnswer answer;
    for (const Limit* limit : LimitsFor(subject, limits))
        answer.limits.push_back(*limit);
    FileVerdict checked = CheckFile(subject, limits, settings);
    answer.verdict = std::move(checked.verdict);
    answer.failure = std::move(checked.failure);
    return answer;
}

/// A file that needs more memory than there is leaves the viewer without a verdict only.
LimitsAnswer CheckSafely(
    const std::filesystem::path& limits, const LimitsQuestion& question, std::stop_token stop)
{
    try {
        return Check(limits, question, std::move(stop));
    } catch (const std::exception& fault) {
        return {{}, std::nullopt, fault.what()};
    }
}

} // namespace

ProgramLimits::ProgramLimits(std::filesystem::path settings) : m_settings(std::move(settings))
{
    if (!m_settings.empty())
        m_chosen =
            PathFromUtf8(PrivateProfile(m_settings).ReadString(kSection, kFile, "", kLongestPath));
}

void ProgramLimits::Choose(const std::filesystem::path& limits)
{
    m_work.GiveUp();
    m_failure.reset();
    m_chosen = limits;
    if (m_settings.empty())
        return;
    std::error_code error;
    std::filesystem::create_directories(m_settings.parent_path(), error);
    const PrivateProfile profile(m_settings);
    const FileStatus status = limits.empty()
        ? profile.Remove(kSection, kFile)
        : profile.WriteString(kSection, kFile, Utf8FromPath(limits));
    if (status != FileStatus::Ok)
        Log_Msg("The choice of the limits cannot be kept");
}

void ProgramLimits::Ask(const LimitsQuestion& question)
{
    const bool hasThread = m_work.Start([limits = m_chosen, question](std::stop_token stop) {
        return CheckSafely(limits, question, std::move(stop));
    });
    m_failure.reset();
    if (!hasThread)
        m_failure = LimitsAnswer{{}, std::nullopt, "Not enough memory"};
}

std::optional<LimitsAnswer> ProgramLimits::TakeAnswer()
{
    return m_failure ? std::exchange(m_failure, std::nullopt) : m_work.TakeAnswer();
}

} // namespace vireo
