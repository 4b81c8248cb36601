#include "app/ProgramLimits.h"

#include "figures/LimitsCheck.h"
#include "figures/Subject.h"
#include "platform/Log.h"
#include "platform/Path.h"
#include "platform/PrivateProfile.h"

#include <atomic>
#include <exception>
#include <stop_token>
#include <system_error>
#include <thread>
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

} // namespace

/// Shared by the asker and the thread. `answer` is the thread's until `done` is set.
struct ProgramLimits::Work {
    std::filesystem::path limits;
    LimitsQuestion question;
    std::stop_source stop;
    LimitsAnswer answer;
    std::atomic<bool> done{false};

    void Run()
    {
        // A file that needs more memory than there is leaves the viewer without a verdict only.
        try {
            answer = Check(limits, question, stop.get_token());
        } catch (const std::exception& fault) {
            answer = {{}, std::nullopt, fault.what()};
        }
        done.store(true, std::memory_order_release);
    }
};

ProgramLimits::ProgramLimits(std::filesystem::path settings) : m_settings(std::move(settings))
{
    if (!m_settings.empty())
        m_chosen =
            PathFromUtf8(PrivateProfile(m_settings).ReadString(kSection, kFile, "", kLongestPath));
}

ProgramLimits::~ProgramLimits()
{
    GiveUp();
}

void ProgramLimits::GiveUp()
{
    if (m_work)
        m_work->stop.request_stop();
    m_work.reset();
}

void ProgramLimits::Choose(const std::filesystem::path& limits)
{
    GiveUp();
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
    GiveUp();
    m_work = std::make_shared<Work>();
    m_work->limits = m_chosen;
    m_work->question = question;
    try {
        std::thread([work = m_work] { work->Run(); }).detach();
    } catch (const std::system_error&) {
        m_work->answer.failure = "Not enough memory";
        m_work->done = true;
    }
}

std::optional<LimitsAnswer> ProgramLimits::TakeAnswer()
{
    if (!m_work || !m_work->done.load(std::memory_order_acquire))
        return std::nullopt;
    return std::move(std::exchange(m_work, nullptr)->answer);
}

} // namespace vireo
